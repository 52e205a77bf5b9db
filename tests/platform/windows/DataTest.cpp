// Texts, extra bytes, properties and procedures of windows.
#include "Recorder.h"

namespace {

LRESULT CALLBACK Subclass(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto old = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(window, GWLP_USERDATA));
    const LRESULT below = CallWindowProcA(old, window, message, wParam, lParam);
    return message == WM_USER ? below + 1 : below;
}

} // namespace

TEST(WindowTexts, FitTheBuffer)
{
    Recorder recorder;
    const HWND window = recorder.MakeMessageOnly("A");
    EXPECT_TRUE(SetWindowTextA(window, "hello"));
    EXPECT_EQ(GetWindowTextLengthA(window), 5);
    const struct {
        const char* label;
        int size, answer;
        const char* text;
    } rows[] = {
        {"roomy", 20, 5, "hello"}, {"exact", 6, 5, "hello"}, {"short", 5, 4, "hell"}, {"one", 1, 0, ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        char buffer[24];
        std::fill(std::begin(buffer), std::end(buffer), '#');
        EXPECT_EQ(GetWindowTextA(window, buffer, row.size), row.answer);
        EXPECT_STREQ(buffer, row.text);
        EXPECT_EQ(buffer[row.answer + 1], '#');
    }
    char untouched = '#';
    EXPECT_EQ(GetWindowTextA(window, &untouched, 0), 0);
    EXPECT_EQ(untouched, '#');
    EXPECT_TRUE(SetWindowTextA(window, nullptr));
    EXPECT_EQ(GetWindowTextLengthA(window), 0);
    char cleared = '#';
    EXPECT_EQ(GetWindowTextA(reinterpret_cast<HWND>(0x1234567), &cleared, 1), 0);
    EXPECT_EQ(cleared, 0);
}

TEST(WindowLongs, AreSwappedWithinTheirBounds)
{
    WNDCLASSA description = {};
    description.lpfnWndProc = DefWindowProcA;
    description.cbWndExtra = 12;
    description.lpszClassName = "zek_extra";
    RegisterClassA(&description);
    const HWND window =
        CreateWindowExA(0, "zek_extra", "", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
    const struct {
        const char* label;
        int index;
        bool allowed;
    } rows[] = {
        {"user data", GWLP_USERDATA, true}, {"first", 0, true},    {"odd", 3, true},        {"last", 4, true},
        {"half outside", 5, false},         {"beyond", 12, false}, {"no field", -99, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        SetLastError(0);
        SetWindowLongPtrA(window, row.index, 0x123456789a);
        EXPECT_EQ(GetLastError() == 0, row.allowed);
        EXPECT_EQ(GetWindowLongPtrA(window, row.index), row.allowed ? 0x123456789a : 0);
        EXPECT_EQ(SetWindowLongPtrA(window, row.index, 0), row.allowed ? 0x123456789a : 0);
    }
    EXPECT_EQ(SetWindowLongA(window, 8, 7), 0);
    EXPECT_EQ(GetWindowLongA(window, 8), 7);
    DestroyWindow(window);
    UnregisterClassA("zek_extra", GetModuleHandleA(nullptr));
}

TEST(WindowLongs, OfStyleTellTheWindow)
{
    Recorder recorder;
    const HWND window = recorder.Make("A", WS_POPUP);
    recorder.Clear();
    SetWindowLongA(window, GWL_STYLE, GetWindowLongA(window, GWL_STYLE) | WS_DISABLED);
    EXPECT_THAT(recorder.Lines(), testing::ElementsAre("A WM_STYLECHANGING", "A WM_STYLECHANGED"));
    EXPECT_FALSE(IsWindowEnabled(window));
    EXPECT_EQ(SetWindowLongA(window, GWL_EXSTYLE, WS_EX_CONTROLPARENT), 0);
    EXPECT_TRUE(GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_CONTROLPARENT);
}

TEST(Procedures, AreReplacedAndCalled)
{
    Recorder recorder;
    recorder.On(WM_USER, [](HWND, UINT, WPARAM wParam, LPARAM) { return static_cast<LRESULT>(wParam); });
    const HWND window = recorder.MakeMessageOnly("A");
    const LONG_PTR old = GetWindowLongPtrA(window, GWLP_WNDPROC);
    SetWindowLongPtrA(window, GWLP_USERDATA, old);
    EXPECT_EQ(SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Subclass)), old);
    EXPECT_EQ(SendMessageA(window, WM_USER, 5, 0), 6);
    SetWindowLongPtrA(window, GWLP_WNDPROC, old);
    EXPECT_EQ(SendMessageA(window, WM_USER, 5, 0), 5);
}

TEST(Properties, AreNamedWithoutCase)
{
    Recorder recorder;
    const HWND window = recorder.MakeMessageOnly("A");
    const HANDLE value = reinterpret_cast<HANDLE>(5);
    EXPECT_TRUE(SetPropA(window, "Name", value));
    EXPECT_EQ(GetPropA(window, "nAME"), value);
    EXPECT_FALSE(GetPropA(window, "other"));
    EXPECT_EQ(RemovePropA(window, "name"), value);
    EXPECT_FALSE(RemovePropA(window, "name"));
    EXPECT_FALSE(GetPropA(window, "Name"));
}
