#include "ControlHost.h"

#include <array>

namespace {

class ComboBoxTest : public ControlHost
{
protected:
    HWND MakeCombo(DWORD style,
                   std::initializer_list<const char*> items = {"pear", "Apple", "fig", "apricot"})
    {
        const HWND combo = Make("COMBOBOX", style | WS_VSCROLL, "", 150);
        for (const char* item : items)
            SendMessageA(combo, CB_ADDSTRING, 0, Text(item));
        EXPECT_EQ(Told(), "");
        return combo;
    }
};

constexpr WPARAM kNone = static_cast<WPARAM>(-1);
constexpr std::array<DWORD, 3> kTypes = {CBS_SIMPLE, CBS_DROPDOWN, CBS_DROPDOWNLIST};

TEST_F(ComboBoxTest, ItemsAndChoiceAreTheSameForAllTypes)
{
    for (const DWORD type : kTypes) {
        SCOPED_TRACE(type);
        Run(MakeCombo(type),
            std::array<Step, 19>{{
                {"none chosen", CB_GETCURSEL, 0, 0, CB_ERR, "", ""},
                {"insert", CB_INSERTSTRING, 1, Text("ins"), 1},
                {"append", CB_INSERTSTRING, kNone, Text("end"), 5},
                {"nowhere", CB_INSERTSTRING, 99, Text("no"), CB_ERR},
                {"count", CB_GETCOUNT, 0, 0, 6},
                {"length", CB_GETLBTEXTLEN, 0, 0, 4},
                {"no item's", CB_GETLBTEXTLEN, 99, 0, CB_ERR},
                {"choose", CB_SETCURSEL, 2, 0, 2, "", "Apple"},
                {"it", CB_GETCURSEL, 0, 0, 2},
                {"no such item", CB_SETCURSEL, 99, 0, CB_ERR, "", "Apple"},
                {"none", CB_SETCURSEL, kNone, 0, CB_ERR, "", ""},
                {"by beginning", CB_SELECTSTRING, kNone, Text("AP"), 2, "", "Apple"},
                {"no such beginning", CB_SELECTSTRING, kNone, Text("none"), CB_ERR, "", "Apple"},
                {"find", CB_FINDSTRING, 2, Text("ap"), 4},
                {"find whole", CB_FINDSTRINGEXACT, kNone, Text("APRICOT"), 4},
                {"one before goes", CB_DELETESTRING, 1, 0, 5, "", "Apple"},
                {"followed", CB_GETCURSEL, 0, 0, 1},
                {"itself goes", CB_DELETESTRING, 1, 0, 4, "", type == CBS_DROPDOWNLIST ? "" : "Apple"},
                {"none is left", CB_GETCURSEL, 0, 0, CB_ERR},
            }});
    }
}

TEST_F(ComboBoxTest, Sorts)
{
    const HWND combo = MakeCombo(CBS_DROPDOWN | CBS_SORT);
    std::array<char, 20> text;
    for (const char* expected : {"Apple", "apricot", "fig", "pear"}) {
        SendMessageA(combo, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(text.data()));
        EXPECT_STREQ(text.data(), expected);
        SendMessageA(combo, CB_DELETESTRING, 0, 0);
    }
}

TEST_F(ComboBoxTest, DataGoWithTheirItems)
{
    Run(MakeCombo(CBS_DROPDOWNLIST), std::array<Step, 5>{{
                                         {"none", CB_GETITEMDATA, 1, 0, 0},
                                         {"some", CB_SETITEMDATA, 1, 55, kAnyAnswer},
                                         {"no such item", CB_GETITEMDATA, 99, 0, CB_ERR},
                                         {"one before goes", CB_DELETESTRING, 0, 0, 3},
                                         {"moved", CB_GETITEMDATA, 0, 0, 55},
                                     }});
}

TEST_F(ComboBoxTest, TheTextFieldIsFree)
{
    for (const DWORD type : {CBS_SIMPLE, CBS_DROPDOWN}) {
        SCOPED_TRACE(type);
        const HWND combo = MakeCombo(type);
        Run(combo, std::array<Step, 6>{{
                       {"any text", WM_SETTEXT, 0, Text("typed"), TRUE, "", "typed"},
                       {"select", CB_SETEDITSEL, 0, MAKELPARAM(1, 2), TRUE},
                       {"it", CB_GETEDITSEL, 0, 0, MAKELONG(1, 2)},
                       {"all", CB_SETEDITSEL, 0, MAKELPARAM(0, 0xffff), TRUE},
                       {"to the end", CB_GETEDITSEL, 0, 0, MAKELONG(0, 5)},
                       {"typing tells", WM_CHAR, 'x', 1, kAnyAnswer, "6 5", "x"},
                   }});
    }
    Run(MakeCombo(CBS_DROPDOWNLIST), std::array<Step, 4>{{
                                         {"choose", CB_SETCURSEL, 0, 0, 0, "", "pear"},
                                         {"no other text", WM_SETTEXT, 0, Text("fig"), CB_ERR, "", "pear"},
                                         {"no selecting", CB_SETEDITSEL, 0, MAKELPARAM(0, 1), CB_ERR},
                                         {"nothing selected", CB_GETEDITSEL, 0, 0, CB_ERR},
                                     }});
}

TEST_F(ComboBoxTest, KeysChooseAndTell)
{
    for (const DWORD type : kTypes) {
        SCOPED_TRACE(type);
        const HWND combo = MakeCombo(type);
        SetFocus(combo);
        EXPECT_EQ(Told(), "3");
        Run(combo,
            std::array<Step, 3>{{
                {"from the first", CB_SETCURSEL, 0, 0, 0, "", "pear"},
                {"down", WM_KEYDOWN, VK_DOWN, 1, kAnyAnswer, type == CBS_SIMPLE ? "1" : "9 1", "Apple"},
                {"the second", CB_GETCURSEL, 0, 0, 1},
            }});
        SetFocus(Host());
        EXPECT_EQ(Told(), "a 4");
        EXPECT_EQ(SendMessageA(combo, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);
        DestroyWindow(combo);
    }
}

TEST_F(ComboBoxTest, DropsDownAndCloses)
{
    for (const DWORD type : {CBS_DROPDOWN, CBS_DROPDOWNLIST}) {
        SCOPED_TRACE(type);
        const HWND combo = MakeCombo(type);
        SetFocus(combo);
        Run(combo, std::array<Step, 10>{{
                       {"closed", CB_GETDROPPEDSTATE, 0, 0, FALSE},
                       {"open", CB_SHOWDROPDOWN, TRUE, 0, TRUE, "7"},
                       {"is open", CB_GETDROPPEDSTATE, 0, 0, TRUE},
                       {"open again", CB_SHOWDROPDOWN, TRUE, 0, TRUE},
                       {"close", CB_SHOWDROPDOWN, FALSE, 0, TRUE, "a 8"},
                       {"is closed", CB_GETDROPPEDSTATE, 0, 0, FALSE},
                       {"close again", CB_SHOWDROPDOWN, FALSE, 0, TRUE},
                       {"by key", WM_KEYDOWN, VK_F4, 1, kAnyAnswer, "7"},
                       {"escape", WM_KEYDOWN, VK_ESCAPE, 1, kAnyAnswer, "a 8"},
                       {"closed again", CB_GETDROPPEDSTATE, 0, 0, FALSE},
                   }});
        DestroyWindow(combo);
    }
}

LONG HeightOf(HWND window)
{
    RECT place;
    GetWindowRect(window, &place);
    return place.bottom - place.top;
}

TEST_F(ComboBoxTest, IsAsHighAsItsTextWhenClosed)
{
    EXPECT_EQ(HeightOf(MakeCombo(CBS_SIMPLE)), 150);
    const HWND combo = MakeCombo(CBS_DROPDOWNLIST);
    const LONG closed = HeightOf(combo);
    EXPECT_LT(closed, 50);
    EXPECT_GE(closed, SendMessageA(combo, CB_GETITEMHEIGHT, kNone, 0));
    MoveWindow(combo, 10, 10, 130, 200, TRUE);
    EXPECT_EQ(HeightOf(combo), closed);
    RECT dropped;
    SendMessageA(combo, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
    EXPECT_EQ(dropped.right - dropped.left, 130);
    EXPECT_GT(dropped.bottom - dropped.top, 150);
}

} // namespace
