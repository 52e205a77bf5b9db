// The controls of a dialog by identifier, by order and by key.
#include "TemplateText.h"
#include "TestIds.h"

#include <gmock/gmock.h>

#include <cstring>

namespace {

std::vector<int> g_commands;

INT_PTR CALLBACK Record(HWND, UINT message, WPARAM wParam, LPARAM)
{
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED)
        g_commands.push_back(LOWORD(wParam));
    return message == WM_COMMAND || message == WM_INITDIALOG;
}

class DialogItems : public testing::Test
{
protected:
    void Make(const TemplateText& shape)
    {
        g_commands.clear();
        m_dialog = CreateDialogIndirectParamA(nullptr, shape.Get(), nullptr, &Record, 0);
        ASSERT_NE(nullptr, m_dialog);
        g_commands.clear();
    }
    void TearDown() override
    {
        if (m_dialog)
            DestroyWindow(m_dialog);
    }

    HWND Item(int id) const { return GetDlgItem(m_dialog, id); }
    int FocusId() const { return GetDlgCtrlID(GetFocus()); }
    int Next(int id, BOOL previous) const
    {
        return GetDlgCtrlID(GetNextDlgTabItem(m_dialog, Item(id), previous));
    }
    int NextInGroup(int id, BOOL previous) const
    {
        return GetDlgCtrlID(GetNextDlgGroupItem(m_dialog, Item(id), previous));
    }
    // A message as the loop would hand it on, to the control with the keyboard.
    BOOL Press(UINT message, WPARAM key) const
    {
        MSG pressed = {};
        pressed.hwnd = GetFocus();
        pressed.message = message;
        pressed.wParam = key;
        return IsDialogMessageA(m_dialog, &pressed);
    }

    HWND m_dialog = nullptr;
};

constexpr DWORD kShown = WS_POPUP | WS_CAPTION | DS_SETFONT | WS_VISIBLE;

// 1 and 3 are tab stops, 4 is disabled; 3 begins a group.
TemplateText FourButtons()
{
    TemplateText shape(true, kShown, 0, 0, 120, 80);
    shape.Add(kButton, WS_TABSTOP, 0, 0, 40, 14, 1, "&One").Add(kButton, 0, 0, 15, 40, 14, 2, "T&wo");
    shape.Add(kButton, WS_TABSTOP | WS_GROUP, 0, 30, 40, 14, 3, "&Three");
    return shape.Add(kButton, WS_TABSTOP | WS_DISABLED, 0, 45, 40, 14, 4, "&Four");
}

} // namespace

TEST_F(DialogItems, TabsAndGroupsGoRound)
{
    Make(FourButtons());
    const struct {
        int from; // 0: none
        int tab, tabBack, group, groupBack;
    } kRows[] = {{0, 1, 0, 1, 0}, {1, 3, 3, 2, 3}, {2, 3, 1, 3, 1}, {3, 1, 1, 1, 2}, {4, 1, 3, 1, 3}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.from);
        EXPECT_EQ(row.tab, Next(row.from, FALSE));
        EXPECT_EQ(row.tabBack, Next(row.from, TRUE));
        EXPECT_EQ(row.group, NextInGroup(row.from, FALSE));
        EXPECT_EQ(row.groupBack, NextInGroup(row.from, TRUE));
    }
}

TEST_F(DialogItems, TabsGoThroughPages)
{
    Make(FourButtons());
    TemplateText page(true, WS_CHILD | WS_VISIBLE | DS_CONTROL | DS_SETFONT, 50, 0, 60, 40);
    page.Add(kButton, WS_TABSTOP, 0, 0, 40, 14, 11).Add(kButton, WS_TABSTOP, 0, 15, 40, 14, 12);
    const HWND child = CreateDialogIndirectParamA(nullptr, page.Get(), m_dialog, &Record, 0);
    ASSERT_NE(nullptr, child);
    EXPECT_EQ(GetDlgItem(child, 11), GetNextDlgTabItem(m_dialog, Item(3), FALSE));
    EXPECT_EQ(GetDlgItem(child, 12), GetNextDlgTabItem(m_dialog, GetDlgItem(child, 11), FALSE));
    EXPECT_EQ(Item(1), GetNextDlgTabItem(m_dialog, GetDlgItem(child, 12), FALSE));
    EXPECT_EQ(GetDlgItem(child, 12), GetNextDlgTabItem(m_dialog, Item(1), TRUE));
    EnableWindow(child, FALSE);
    EXPECT_EQ(Item(1), GetNextDlgTabItem(m_dialog, Item(3), FALSE));
}

TEST_F(DialogItems, NumbersAreReadFromTexts)
{
    TemplateText shape(false, WS_POPUP | DS_SETFONT, 0, 0, 80, 50);
    Make(shape.Add(kEdit, 0, 0, 0, 60, 12, 5));
    const struct {
        const char* text;
        bool isSigned;
        int value;
        BOOL translated;
    } kRows[] = {
        {"", true, 0, FALSE},
        {"12", true, 12, TRUE},
        {"  12", false, 12, TRUE},
        {"12 ", true, 12, TRUE},
        {"12x", true, 12, TRUE},
        {"1 2", true, 1, TRUE},
        {"-5", true, -5, TRUE},
        {"2147483647", true, 2147483647, TRUE},
        {"2147483648", true, 0, FALSE},
        {"2147483648", false, -2147483647 - 1, TRUE},
        {"4294967296", false, 0, FALSE},
        {"- 5", true, 0, FALSE},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.text);
        ASSERT_TRUE(SetDlgItemTextA(m_dialog, 5, row.text));
        BOOL translated = 7;
        EXPECT_EQ(row.value, static_cast<int>(GetDlgItemInt(m_dialog, 5, &translated, row.isSigned)));
        EXPECT_EQ(row.translated, translated);
        EXPECT_EQ(row.value, static_cast<int>(GetDlgItemInt(m_dialog, 5, nullptr, row.isSigned)));
    }
    BOOL translated = TRUE;
    EXPECT_EQ(0u, GetDlgItemInt(m_dialog, 99, &translated, TRUE));
    EXPECT_FALSE(translated);
    EXPECT_FALSE(SetDlgItemTextA(m_dialog, 99, "x"));
}

TEST_F(DialogItems, NumbersAreWritten)
{
    TemplateText shape(false, WS_POPUP | DS_SETFONT, 0, 0, 80, 50);
    Make(shape.Add(kEdit, 0, 0, 0, 60, 12, 5));
    char text[16] = "";
    EXPECT_TRUE(SetDlgItemInt(m_dialog, 5, static_cast<UINT>(-7), TRUE));
    GetDlgItemTextA(m_dialog, 5, text, sizeof text);
    EXPECT_STREQ("-7", text);
    EXPECT_TRUE(SetDlgItemInt(m_dialog, 5, static_cast<UINT>(-7), FALSE));
    EXPECT_EQ(10u, GetDlgItemTextA(m_dialog, 5, text, sizeof text));
    EXPECT_STREQ("4294967289", text);
}

TEST_F(DialogItems, TextsAreCutToTheBuffer)
{
    TemplateText shape(false, WS_POPUP | DS_SETFONT, 0, 0, 80, 50);
    Make(shape.Add(kStatic, 0, 0, 0, 60, 12, 5, "label"));
    for (const int size : {1, 3, 6, 9}) {
        SCOPED_TRACE(size);
        char buffer[12] = "###########";
        const UINT length = GetDlgItemTextA(m_dialog, 5, buffer + 1, size);
        EXPECT_EQ(std::string("label").substr(0, static_cast<size_t>(size - 1)), buffer + 1);
        EXPECT_EQ(std::strlen(buffer + 1), length);
        EXPECT_EQ('#', buffer[0]);
        EXPECT_EQ('#', buffer[1 + size]);
    }
}

TEST_F(DialogItems, ButtonsAreCheckedById)
{
    TemplateText shape(false, WS_POPUP | DS_SETFONT, 0, 0, 80, 50);
    shape.Add(kButton, BS_AUTOCHECKBOX, 0, 0, 40, 10, 1);
    for (WORD id = 11; id <= 13; ++id)
        shape.Add(kButton, BS_AUTORADIOBUTTON, 0, static_cast<short>(id), 40, 10, id);
    Make(shape);
    EXPECT_EQ(0u, IsDlgButtonChecked(m_dialog, 1));
    EXPECT_TRUE(CheckDlgButton(m_dialog, 1, BST_CHECKED));
    EXPECT_EQ(1u, IsDlgButtonChecked(m_dialog, 1));
    EXPECT_EQ(0u, IsDlgButtonChecked(m_dialog, 99));
    for (const int chosen : {12, 13, 11}) {
        EXPECT_TRUE(CheckRadioButton(m_dialog, 11, 13, chosen));
        for (int id = 11; id <= 13; ++id)
            EXPECT_EQ(id == chosen ? 1u : 0u, IsDlgButtonChecked(m_dialog, id)) << chosen;
    }
}

TEST_F(DialogItems, KeysMoveAndPress)
{
    TemplateText shape(true, kShown, 0, 0, 160, 120);
    shape.Add(kStatic, 0, 0, 0, 40, 10, 20, "&Name").Add(kEdit, WS_TABSTOP, 40, 0, 60, 12, 21);
    shape.Add(kButton, BS_AUTOCHECKBOX | WS_TABSTOP, 0, 15, 60, 10, 22, "&Wanted");
    shape.Add(kButton, BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, 0, 30, 60, 10, 23, "&First");
    shape.Add(kButton, BS_AUTORADIOBUTTON, 0, 45, 60, 10, 24, "&Second");
    shape.Add(kButton, BS_DEFPUSHBUTTON | WS_GROUP | WS_TABSTOP, 0, 60, 60, 14, 30, "De&fault");
    Make(shape.Add(kButton, WS_TABSTOP, 70, 60, 60, 14, 31, "&Other"));
    const struct {
        const char* label;
        int from;
        UINT message;
        WPARAM key;
        int focus;
        std::vector<int> commands;
    } kRows[] = {
        {"tab", 21, WM_KEYDOWN, VK_TAB, 22, {}},
        {"tab from the last", 31, WM_KEYDOWN, VK_TAB, 21, {}},
        {"tab skips what is none", 23, WM_KEYDOWN, VK_TAB, 30, {}},
        {"enter presses the default", 21, WM_KEYDOWN, VK_RETURN, 21, {30}},
        {"enter presses the button it is on", 31, WM_KEYDOWN, VK_RETURN, 31, {31}},
        {"escape", 21, WM_KEYDOWN, VK_ESCAPE, 21, {IDCANCEL}},
        {"down chooses", 23, WM_KEYDOWN, VK_DOWN, 24, {24}},
        {"up goes round", 23, WM_KEYDOWN, VK_UP, 24, {24}},
        {"mnemonic of a label", 31, WM_SYSCHAR, 'n', 21, {}},
        {"mnemonic of a button", 21, WM_SYSCHAR, 'O', 31, {31}},
        {"without alt", 31, WM_CHAR, 'w', 22, {22}},
        {"an edit takes letters", 21, WM_CHAR, 'w', 21, {}},
        {"unknown letter", 31, WM_SYSCHAR, 'q', 31, {}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        CheckRadioButton(m_dialog, 23, 24, 23);
        SendMessageA(m_dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(row.from)), TRUE);
        g_commands.clear();
        EXPECT_TRUE(Press(row.message, row.key));
        EXPECT_EQ(row.focus, FocusId());
        EXPECT_EQ(row.commands, g_commands);
    }
    MSG strange = {};
    strange.message = WM_KEYDOWN;
    EXPECT_FALSE(IsDialogMessageA(m_dialog, &strange));
}

TEST_F(DialogItems, TheDefaultButtonFollowsTheFocus)
{
    TemplateText shape(true, kShown, 0, 0, 120, 80);
    shape.Add(kEdit, WS_TABSTOP, 0, 0, 60, 12, 5);
    shape.Add(kButton, BS_DEFPUSHBUTTON | WS_TABSTOP, 0, 15, 40, 14, 1);
    Make(shape.Add(kButton, WS_TABSTOP, 0, 30, 40, 14, 2));
    const auto isDefault = [this](int id) {
        return (SendMessageA(Item(id), WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0;
    };
    EXPECT_EQ(MAKELONG(1, DC_HASDEFID), SendMessageA(m_dialog, DM_GETDEFID, 0, 0));
    SendMessageA(m_dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(2)), TRUE);
    EXPECT_TRUE(isDefault(2) && !isDefault(1));
    SendMessageA(m_dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(5)), TRUE);
    EXPECT_TRUE(isDefault(1) && !isDefault(2));
    SendMessageA(m_dialog, DM_SETDEFID, 2, 0);
    EXPECT_EQ(MAKELONG(2, DC_HASDEFID), SendMessageA(m_dialog, DM_GETDEFID, 0, 0));
    EXPECT_TRUE(isDefault(2) && !isDefault(1));
}

TEST_F(DialogItems, AcceleratorsSendTheirCommands)
{
    Make(FourButtons());
    const HACCEL keys = LoadAcceleratorsA(nullptr, MAKEINTRESOURCEA(IDR_KEYS));
    const struct {
        const char* label;
        UINT message;
        WPARAM key;
        int command; // 0: none
    } kRows[] = {
        {"key", WM_KEYDOWN, VK_F3, IDM_FIND}, {"key that wants Ctrl", WM_KEYDOWN, 'S', 0},
        {"key let go", WM_KEYUP, VK_F3, 0},   {"character", WM_CHAR, 'm', IDM_MARK},
        {"other case", WM_CHAR, 'M', 0},      {"character with Alt", WM_SYSCHAR, 'm', IDM_MARK},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        MSG message = {};
        message.hwnd = m_dialog;
        message.message = row.message;
        message.wParam = row.key;
        std::vector<int> sent;
        SetWindowLongPtrA(m_dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&sent));
        SetWindowLongPtrA(
            m_dialog, DWLP_DLGPROC,
            reinterpret_cast<LONG_PTR>(+[](HWND dialog, UINT what, WPARAM wParam, LPARAM) -> INT_PTR {
                if (what == WM_COMMAND && HIWORD(wParam) == 1)
                    reinterpret_cast<std::vector<int>*>(GetWindowLongPtrA(dialog, DWLP_USER))
                        ->push_back(LOWORD(wParam));
                return FALSE;
            }));
        EXPECT_EQ(row.command != 0, TranslateAcceleratorA(m_dialog, keys, &message) != 0);
        EXPECT_EQ(row.command ? std::vector<int>{row.command} : std::vector<int>{}, sent);
        SetWindowLongPtrA(m_dialog, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(&Record));
    }
}
