#include "ControlHost.h"

#include <array>

namespace {

class ListBoxTest : public ControlHost
{
protected:
    HWND MakeList(DWORD style, std::initializer_list<const char*> items)
    {
        const HWND list = Make("LISTBOX", style | LBS_NOTIFY | WS_VSCROLL | WS_BORDER);
        for (const char* item : items)
            SendMessageA(list, LB_ADDSTRING, 0, Text(item));
        EXPECT_EQ(Told(), "");
        return list;
    }

    static std::string Items(HWND list)
    {
        std::string all;
        const LRESULT count = SendMessageA(list, LB_GETCOUNT, 0, 0);
        for (LRESULT i = 0; i < count; ++i) {
            std::array<char, 100> text;
            const LRESULT length =
                SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
            EXPECT_EQ(length, SendMessageA(list, LB_GETTEXTLEN, static_cast<WPARAM>(i), 0));
            all += (all.empty() ? "" : " ") + std::string(text.data());
        }
        return all;
    }
};

constexpr WPARAM kNone = static_cast<WPARAM>(-1);

TEST_F(ListBoxTest, KeepsItsItemsInOrder)
{
    EXPECT_EQ(Items(MakeList(0, {"pear", "Apple", "fig"})), "pear Apple fig");
    EXPECT_EQ(Items(MakeList(LBS_SORT, {"pear", "Apple", "fig", "banana", "Zebra", "10", "2"})),
              "10 2 Apple banana fig pear Zebra");
    const HWND list = MakeList(LBS_SORT, {"b", "d"});
    Run(list, std::array<Step, 8>{{
                  {"sorted in", LB_ADDSTRING, 0, Text("C"), 1},
                  {"inserted where told", LB_INSERTSTRING, 0, Text("z"), 0},
                  {"at the end", LB_INSERTSTRING, kNone, Text("a"), 4},
                  {"nowhere", LB_INSERTSTRING, 9, Text("no"), LB_ERR},
                  {"deleted", LB_DELETESTRING, 1, 0, 4},
                  {"none to delete", LB_DELETESTRING, 9, 0, LB_ERR},
                  {"no text", LB_GETTEXTLEN, 9, 0, LB_ERR},
                  {"count", LB_GETCOUNT, 0, 0, 4},
              }});
    EXPECT_EQ(Items(list), "z C d a");
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    EXPECT_EQ(Items(list), "");
}

TEST_F(ListBoxTest, FindsByTheirBeginningsOnFromAnItem)
{
    Run(MakeList(0, {"pear", "Apple", "fig", "apricot", "APPLE"}),
        std::array<Step, 10>{{
            {"first", LB_FINDSTRING, kNone, Text("AP"), 1},
            {"next", LB_FINDSTRING, 1, Text("ap"), 3},
            {"from the end on", LB_FINDSTRING, 4, Text("ap"), 1},
            {"the same again", LB_FINDSTRING, 2, Text("fi"), 2},
            {"none", LB_FINDSTRING, kNone, Text("x"), LB_ERR},
            {"nothing", LB_FINDSTRING, kNone, Text(""), LB_ERR},
            {"whole", LB_FINDSTRINGEXACT, kNone, Text("apple"), 1},
            {"the next whole", LB_FINDSTRINGEXACT, 1, Text("apple"), 4},
            {"not whole", LB_FINDSTRINGEXACT, kNone, Text("appl"), LB_ERR},
            {"select", LB_SELECTSTRING, kNone, Text("apr"), 3},
        }});
}

TEST_F(ListBoxTest, OneChoiceFollowsItsItem)
{
    Run(MakeList(0, {"a", "b", "c", "d"}), std::array<Step, 16>{{
                                               {"none at first", LB_GETCURSEL, 0, 0, LB_ERR},
                                               {"choose", LB_SETCURSEL, 2, 0, 2},
                                               {"it", LB_GETCURSEL, 0, 0, 2},
                                               {"is selected", LB_GETSEL, 2, 0, 1},
                                               {"another is not", LB_GETSEL, 1, 0, 0},
                                               {"no such item", LB_GETSEL, 9, 0, LB_ERR},
                                               {"choose no such item", LB_SETCURSEL, 9, 0, LB_ERR},
                                               {"which changes nothing", LB_GETCURSEL, 0, 0, 2},
                                               {"one before goes", LB_DELETESTRING, 0, 0, 3},
                                               {"follows", LB_GETCURSEL, 0, 0, 1},
                                               {"one before comes", LB_INSERTSTRING, 0, Text("x"), 0},
                                               {"follows again", LB_GETCURSEL, 0, 0, 2},
                                               {"itself goes", LB_DELETESTRING, 2, 0, 3},
                                               {"none is left", LB_GETCURSEL, 0, 0, LB_ERR},
                                               {"no counting", LB_GETSELCOUNT, 0, 0, LB_ERR},
                                               {"no ranges", LB_SELITEMRANGE, 1, MAKELPARAM(0, 1), LB_ERR},
                                           }});
}

TEST_F(ListBoxTest, SeveralChoices)
{
    for (const DWORD style : {LBS_MULTIPLESEL, LBS_EXTENDEDSEL}) {
        SCOPED_TRACE(style);
        const HWND list = MakeList(style, {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"});
        Run(list, std::array<Step, 15>{{
                      {"not as one choice", LB_SETCURSEL, 3, 0, LB_ERR},
                      {"one", LB_SETSEL, TRUE, 2, kAnyAnswer},
                      {"another", LB_SETSEL, TRUE, 4, kAnyAnswer},
                      {"no such item", LB_SETSEL, TRUE, 50, LB_ERR},
                      {"two", LB_GETSELCOUNT, 0, 0, 2},
                      {"the last has the keyboard", LB_GETCURSEL, 0, 0, 4},
                      {"a range", LB_SELITEMRANGE, TRUE, MAKELPARAM(5, 7), kAnyAnswer},
                      {"five", LB_GETSELCOUNT, 0, 0, 5},
                      {"one to beyond the end off", LB_SELITEMRANGE, FALSE, MAKELPARAM(6, 100), kAnyAnswer},
                      {"three", LB_GETSELCOUNT, 0, 0, 3},
                      {"backwards means off", LB_SELITEMRANGEEX, 5, 4, kAnyAnswer},
                      {"one is left", LB_GETSELCOUNT, 0, 0, 1},
                      {"forwards means on", LB_SELITEMRANGEEX, 8, 9, kAnyAnswer},
                      {"three again", LB_GETSELCOUNT, 0, 0, 3},
                      {"does not count as one", LB_GETSEL, 9, 0, 1},
                  }});
        std::array<int, 4> chosen = {-7, -7, -7, -7};
        EXPECT_EQ(SendMessageA(list, LB_GETSELITEMS, 3, reinterpret_cast<LPARAM>(chosen.data())), 3);
        EXPECT_THAT(chosen, testing::ElementsAre(2, 8, 9, -7));
        chosen.fill(-7);
        EXPECT_EQ(SendMessageA(list, LB_GETSELITEMS, 1, reinterpret_cast<LPARAM>(chosen.data())), 1);
        EXPECT_THAT(chosen, testing::ElementsAre(2, -7, -7, -7));
        SendMessageA(list, LB_SETSEL, FALSE, -1);
        EXPECT_EQ(SendMessageA(list, LB_GETSELCOUNT, 0, 0), 0);
        SendMessageA(list, LB_SETSEL, TRUE, -1);
        EXPECT_EQ(SendMessageA(list, LB_GETSELCOUNT, 0, 0), 10);
    }
}

TEST_F(ListBoxTest, DataGoWithTheirItems)
{
    Run(MakeList(0, {"a", "b"}), std::array<Step, 7>{{
                                     {"none", LB_GETITEMDATA, 1, 0, 0},
                                     {"some", LB_SETITEMDATA, 1, 1234, kAnyAnswer},
                                     {"no such item", LB_SETITEMDATA, 9, 1, LB_ERR},
                                     {"nor here", LB_GETITEMDATA, 9, 0, LB_ERR},
                                     {"insert before", LB_INSERTSTRING, 0, Text("x"), 0},
                                     {"moved with it", LB_GETITEMDATA, 2, 0, 1234},
                                     {"the new one has none", LB_GETITEMDATA, 0, 0, 0},
                                 }});
}

TEST_F(ListBoxTest, KeysChooseAndTell)
{
    const HWND list = MakeList(LBS_SORT, {"apple", "fig", "pear"});
    SetFocus(list);
    EXPECT_EQ(Told(), "4");
    Run(list, std::array<Step, 6>{{
                  {"from the first", LB_SETCURSEL, 0, 0, 0},
                  {"down", WM_KEYDOWN, VK_DOWN, 1, kAnyAnswer, "1"},
                  {"the second", LB_GETCURSEL, 0, 0, 1},
                  {"end", WM_KEYDOWN, VK_END, 1, kAnyAnswer, "1"},
                  {"by letter", WM_CHAR, 'a', 1, kAnyAnswer, "1"},
                  {"the first", LB_GETCURSEL, 0, 0, 0},
              }});
    SetFocus(Host());
    EXPECT_EQ(Told(), "5");
    EXPECT_EQ(SendMessageA(list, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);
}

TEST_F(ListBoxTest, IsAsHighAsWholeItems)
{
    for (const DWORD style : {DWORD{0}, DWORD{LBS_NOINTEGRALHEIGHT}}) {
        const HWND list = MakeList(style, {"a"});
        const LRESULT item = SendMessageA(list, LB_GETITEMHEIGHT, 0, 0);
        RECT client;
        GetClientRect(list, &client);
        ASSERT_GT(item, 0);
        RECT place;
        GetWindowRect(list, &place);
        if (style)
            EXPECT_EQ(place.bottom - place.top, 100);
        else
            EXPECT_EQ(client.bottom % item, 0);
        DestroyWindow(list);
    }
}

TEST_F(ListBoxTest, Scrolls)
{
    const HWND list = MakeList(0, {});
    for (int i = 0; i < 50; ++i)
        SendMessageA(list, LB_ADDSTRING, 0, Text("item"));
    Run(list, std::array<Step, 3>{{
                  {"at the top", LB_GETTOPINDEX, 0, 0, 0},
                  {"down", LB_SETTOPINDEX, 20, 0, kAnyAnswer},
                  {"there", LB_GETTOPINDEX, 0, 0, 20},
              }});
    RECT row = {};
    EXPECT_NE(SendMessageA(list, LB_GETITEMRECT, 21, reinterpret_cast<LPARAM>(&row)), LB_ERR);
    EXPECT_EQ(row.top, SendMessageA(list, LB_GETITEMHEIGHT, 0, 0));
}

} // namespace
