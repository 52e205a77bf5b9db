#include "ControlHost.h"

#include <array>

namespace {

class ButtonTest : public ControlHost
{
protected:
    LRESULT Check(HWND button) { return SendMessageA(button, BM_GETCHECK, 0, 0); }
};

struct TypeRow {
    const char* label;
    DWORD type;
    LRESULT dlgCode;
    std::array<LRESULT, 3> checks; // after BM_SETCHECK with 0, 1, 2
    std::array<LRESULT, 3> clicks; // after each of three clicks, from unchecked on
};
constexpr std::array<TypeRow, 9> kTypes = {{
    {"push", BS_PUSHBUTTON, DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON, {0, 0, 0}, {0, 0, 0}},
    {"default push", BS_DEFPUSHBUTTON, DLGC_BUTTON | DLGC_DEFPUSHBUTTON, {0, 0, 0}, {0, 0, 0}},
    {"check box", BS_CHECKBOX, DLGC_BUTTON, {0, 1, 1}, {0, 0, 0}},
    {"auto check box", BS_AUTOCHECKBOX, DLGC_BUTTON, {0, 1, 1}, {1, 0, 1}},
    {"radio button", BS_RADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON, {0, 1, 1}, {0, 0, 0}},
    {"three states", BS_3STATE, DLGC_BUTTON, {0, 1, 2}, {0, 0, 0}},
    {"auto three states", BS_AUTO3STATE, DLGC_BUTTON, {0, 1, 2}, {1, 2, 0}},
    {"group box", BS_GROUPBOX, DLGC_STATIC, {0, 0, 0}, {0, 0, 0}},
    {"auto radio button", BS_AUTORADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON, {0, 1, 1}, {1, 1, 1}},
}};

TEST_F(ButtonTest, TypesDifferInChecksAndKeys)
{
    for (const auto& row : kTypes) {
        SCOPED_TRACE(row.label);
        const HWND button = Make("BUTTON", row.type, "&Button");
        EXPECT_EQ(SendMessageA(button, WM_GETDLGCODE, 0, 0), row.dlgCode);
        for (WPARAM check = 0; check < row.checks.size(); ++check) {
            SendMessageA(button, BM_SETCHECK, check, 0);
            EXPECT_EQ(Check(button), row.checks[check]) << check;
        }
        EXPECT_EQ(Told(), "") << "setting is not clicking";
        DestroyWindow(button);
    }
}

TEST_F(ButtonTest, ClickingTellsAndAutomaticTypesChange)
{
    for (const auto& row : kTypes) {
        SCOPED_TRACE(row.label);
        const HWND button = Make("BUTTON", row.type, "&Button");
        for (const LRESULT expected : row.clicks) {
            SendMessageA(button, BM_CLICK, 0, 0);
            EXPECT_EQ(Told(), "0");
            EXPECT_EQ(Check(button), expected);
        }
        DestroyWindow(button);
    }
}

TEST_F(ButtonTest, SpacePressesOnRelease)
{
    const HWND button = Make("BUTTON", BS_AUTOCHECKBOX, "Button");
    SetFocus(button);
    SendMessageA(button, WM_KEYDOWN, VK_SPACE, 1);
    EXPECT_EQ(Told(), "");
    SendMessageA(button, WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(Told(), "0");
    EXPECT_EQ(Check(button), BST_CHECKED);
}

TEST_F(ButtonTest, ADisabledOneIsClickedByMessageAllTheSame)
{
    const HWND button = Make("BUTTON", BS_AUTOCHECKBOX | WS_DISABLED, "Button");
    SendMessageA(button, BM_CLICK, 0, 0);
    EXPECT_EQ(Told(), "0");
    EXPECT_EQ(Check(button), BST_CHECKED);
}

TEST_F(ButtonTest, FocusIsToldWithNotifyOnly)
{
    for (const DWORD notify : {DWORD{0}, DWORD{BS_NOTIFY}}) {
        const HWND button = Make("BUTTON", BS_PUSHBUTTON | notify, "Button");
        SetFocus(button);
        EXPECT_EQ(Told(), notify ? "6" : "");
        SetFocus(Host());
        EXPECT_EQ(Told(), notify ? "7" : "");
        DestroyWindow(button);
    }
}

TEST_F(ButtonTest, StateCombinesCheckPushAndFocus)
{
    const HWND button = Make("BUTTON", BS_AUTO3STATE, "Button");
    SendMessageA(button, BM_SETCHECK, BST_INDETERMINATE, 0);
    EXPECT_EQ(SendMessageA(button, BM_GETSTATE, 0, 0), BST_INDETERMINATE);
    SendMessageA(button, BM_SETSTATE, TRUE, 0);
    EXPECT_EQ(SendMessageA(button, BM_GETSTATE, 0, 0), BST_INDETERMINATE | BST_PUSHED);
    SendMessageA(button, BM_SETSTATE, FALSE, 0);
    SetFocus(button);
    EXPECT_EQ(SendMessageA(button, BM_GETSTATE, 0, 0), BST_INDETERMINATE | BST_FOCUS);
}

TEST_F(ButtonTest, RadioButtonsOfAGroupExcludeEachOther)
{
    std::array<HWND, 4> buttons;
    for (size_t i = 0; i < buttons.size(); ++i) {
        const DWORD group = i == 0 || i == 3 ? WS_GROUP : 0;
        buttons[i] = Make("BUTTON", BS_AUTORADIOBUTTON | group, "Radio", 20, 20 + static_cast<int>(i));
    }
    struct Click {
        size_t button;
        std::array<LRESULT, 4> checks;
        const char* told;
    };
    constexpr std::array<Click, 4> kClicks = {{
        {0, {1, 0, 0, 0}, "20:0"},
        {2, {0, 0, 1, 0}, "22:0"},
        {3, {0, 0, 1, 1}, "23:0"},
        {1, {0, 1, 0, 1}, "21:0"},
    }};
    for (const auto& click : kClicks) {
        SCOPED_TRACE(click.button);
        SendMessageA(buttons[click.button], BM_CLICK, 0, 0);
        EXPECT_EQ(Told(), click.told);
        for (size_t i = 0; i < buttons.size(); ++i) {
            EXPECT_EQ(Check(buttons[i]), click.checks[i]) << i;
            EXPECT_EQ((GetWindowLongA(buttons[i], GWL_STYLE) & WS_TABSTOP) != 0, click.checks[i] != 0) << i;
        }
    }
    SendMessageA(buttons[2], BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_EQ(Check(buttons[1]), BST_CHECKED) << "only clicking looks at the group";
}

TEST_F(ButtonTest, SetStyleChangesTheTypeAlone)
{
    const HWND button = Make("BUTTON", BS_PUSHBUTTON | WS_TABSTOP | BS_NOTIFY, "Button");
    SendMessageA(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_EQ(SendMessageA(button, WM_GETDLGCODE, 0, 0), DLGC_BUTTON | DLGC_DEFPUSHBUTTON);
    EXPECT_TRUE(GetWindowLongA(button, GWL_STYLE) & WS_TABSTOP);
    EXPECT_EQ(TextOf(button), "Button");
}

HWND g_victim = nullptr;

LRESULT CALLBACK DestroyingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMMAND)
        DestroyWindow(g_victim);
    return DefWindowProcA(window, message, wParam, lParam);
}

// A handler may end the control that told it, or the whole window.
TEST_F(ButtonTest, AHandlerMayDestroyTheButton)
{
    SetWindowLongPtrA(Host(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(DestroyingProcedure));
    for (const DWORD type : {BS_PUSHBUTTON, BS_AUTOCHECKBOX, BS_AUTORADIOBUTTON}) {
        g_victim = Make("BUTTON", type, "Button");
        SendMessageA(g_victim, BM_CLICK, 0, 0);
        EXPECT_FALSE(IsWindow(g_victim));
    }
    g_victim = Host();
    SendMessageA(Make("BUTTON", BS_PUSHBUTTON, "Button"), BM_CLICK, 0, 0);
    EXPECT_FALSE(IsWindow(Host()));
}

} // namespace
