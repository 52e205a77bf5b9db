// What the home platform documents and its stand-in in the tests does otherwise.
#include "BoxAnswerer.h"
#include "BoxLook.h"
#include "TemplateText.h"

#include <gtest/gtest.h>

namespace {

int g_helped = 0;

LRESULT CALLBACK CountHelp(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    g_helped += message == WM_HELP;
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace

TEST(DocumentedBoxes, HelpGoesToTheOwnerAndTheBoxStays)
{
    WNDCLASSA helper = {};
    helper.lpfnWndProc = &CountHelp;
    helper.lpszClassName = "BoxHelper";
    helper.hInstance = GetModuleHandleA(nullptr);
    RegisterClassA(&helper);
    const HWND owner = CreateWindowExA(0, "BoxHelper", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr,
                                       helper.hInstance, nullptr);
    g_helped = 0;
    const Answerer answerer([](HWND box) {
        SendMessageA(box, WM_COMMAND, MAKEWPARAM(IDHELP, BN_CLICKED), 0);
        EXPECT_TRUE(IsWindow(box) && IsWindowVisible(box));
        PressButton(box, IDOK);
    });
    EXPECT_EQ(IDOK, MessageBoxA(owner, "text", "caption", MB_OK | MB_HELP));
    EXPECT_EQ(1, g_helped);
    DestroyWindow(owner);
    UnregisterClassA("BoxHelper", helper.hInstance);
}

TEST(DocumentedBoxes, RefuseWhatTheyCannotBe)
{
    SetLastError(0);
    EXPECT_EQ(0, MessageBoxA(nullptr, "text", "caption", 7));
    EXPECT_EQ(static_cast<DWORD>(ERROR_INVALID_MSGBOX_STYLE), GetLastError());
}

TEST(DocumentedBoxes, CloseOnlyWhereThatIsAnAnswer)
{
    const struct {
        UINT set;
        int answer; // 0: stays
    } kRows[] = {{MB_OK, IDOK}, {MB_YESNO, 0}, {MB_ABORTRETRYIGNORE, 0}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.set);
        const Answerer answerer([&](HWND box) {
            SendMessageA(box, WM_COMMAND, IDCANCEL, 0);
            EXPECT_EQ(row.answer != 0, !IsWindowVisible(box));
            if (row.answer == 0)
                EndDialog(box, 0);
        });
        EXPECT_EQ(row.answer, MessageBoxA(nullptr, "text", "caption", row.set));
    }
}

TEST(DocumentedBoxes, ADefaultBeyondTheLastButtonIsTheFirst)
{
    const struct {
        UINT style;
        int standard;
    } kRows[] = {{MB_YESNO | MB_DEFBUTTON3, IDYES},
                 {MB_OK | MB_DEFBUTTON4, IDOK},
                 {MB_OK | MB_DEFBUTTON2 | MB_HELP, IDHELP}};
    for (const auto& row : kRows) {
        const Answerer answerer([&](HWND box) {
            EXPECT_EQ(MAKELONG(row.standard, DC_HASDEFID), SendMessageA(box, DM_GETDEFID, 0, 0));
            EndDialog(box, IDOK);
        });
        EXPECT_EQ(IDOK, MessageBoxA(nullptr, "text", "caption", row.style));
    }
}

TEST(DocumentedBoxes, FitOnTheScreen)
{
    const struct {
        const char* label;
        std::string text;
        std::string caption;
    } kRows[] = {{"many lines", Repeated("line\n", 3000), "caption"},
                 {"many empty lines", std::string(70000, '\n'), "caption"},
                 {"many words", Repeated("some words ", 20000), "caption"},
                 {"a long word", std::string(3000, 'm'), "caption"},
                 {"a very long word", std::string(1000000, 'm'), "caption"},
                 {"many tabs", std::string(2000, '\t') + "x", "caption"},
                 {"a long caption", "text", std::string(3000, 'm')}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        ExpectAllIsSeen(LookOf(row.text, row.caption));
    }
}

TEST(DocumentedBoxes, BreakLongWords)
{
    const BoxLook line = LookOf("m");
    const BoxLook look = LookOf(std::string(1000, 'm'));
    EXPECT_GE(Height(look.label), 3 * Height(line.label));
    EXPECT_LT(Width(look.label), 100 * Width(line.label));
}

TEST(DocumentedDialogs, AnOwnerThatIsNoneAnswersZero)
{
    const HWND gone =
        CreateWindowExA(0, "Static", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    DestroyWindow(gone);
    const TemplateText shape(false, WS_POPUP, 0, 0, 9, 9);
    EXPECT_EQ(0, DialogBoxIndirectParamA(nullptr, shape.Get(), gone, nullptr, 0));
    EXPECT_EQ(static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE), GetLastError());
}

TEST(DocumentedDialogs, AnOwnerThatWasDisabledStaysSo)
{
    const HWND owner = CreateWindowExA(0, "Static", "", WS_POPUP | WS_DISABLED, 0, 0, 9, 9, nullptr, nullptr,
                                       nullptr, nullptr);
    const Answerer answerer([](HWND box) { EndDialog(box, IDOK); });
    EXPECT_EQ(IDOK, MessageBoxA(owner, "text", "caption", MB_OK));
    EXPECT_FALSE(IsWindowEnabled(owner));
    DestroyWindow(owner);
}
