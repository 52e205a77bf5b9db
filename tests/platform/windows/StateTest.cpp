// Showing, enabling, activating, and who has the keyboard.
#include "Recorder.h"

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Showing, ATopLevelWindowActivatesIt)
{
    Recorder recorder;
    const HWND window = recorder.Make("A", WS_OVERLAPPEDWINDOW);
    recorder.Clear();
    EXPECT_FALSE(ShowWindow(window, SW_SHOW));
    EXPECT_THAT(recorder.Lines(),
                ElementsAre("A WM_SHOWWINDOW 1", "A WM_WINDOWPOSCHANGING", "A WM_ACTIVATEAPP 1",
                            "A WM_NCACTIVATE 1", "A WM_ACTIVATE 1", "A WM_SETFOCUS null",
                            "A WM_WINDOWPOSCHANGED", "A WM_SIZE 0 192x73", "A WM_MOVE 14,43"));
    EXPECT_EQ(GetActiveWindow(), window);
    EXPECT_EQ(GetFocus(), window);
    recorder.Clear();
    EXPECT_TRUE(ShowWindow(window, SW_SHOWNA));
    EXPECT_TRUE(IsWindowVisible(window));
}

TEST(Showing, AChildTellsItAlone)
{
    Recorder recorder;
    const HWND top = recorder.Make("A", WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    const HWND child = recorder.Make("B", WS_CHILD, top);
    const struct {
        const char* label;
        int command;
        BOOL before;
        std::vector<std::string> lines;
    } rows[] = {
        {"show", SW_SHOW, FALSE, {"B WM_SHOWWINDOW 1", "B WM_WINDOWPOSCHANGING", "B WM_WINDOWPOSCHANGED"}},
        {"again", SW_SHOW, TRUE, {}},
        {"hide", SW_HIDE, TRUE, {"B WM_SHOWWINDOW 0", "B WM_WINDOWPOSCHANGING", "B WM_WINDOWPOSCHANGED"}},
        {"hide again", SW_HIDE, FALSE, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        recorder.Clear();
        EXPECT_EQ(ShowWindow(child, row.command) != 0, row.before != 0);
        EXPECT_EQ(recorder.Lines(), row.lines);
        EXPECT_EQ(IsWindowVisible(child) != 0, row.command != SW_HIDE);
    }
}

TEST(Showing, DependsOnTheWholeChain)
{
    Recorder recorder;
    const HWND top = recorder.Make("A", WS_OVERLAPPEDWINDOW);
    const HWND child = recorder.Make("B", WS_CHILD | WS_VISIBLE, top);
    const HWND inner = recorder.Make("C", WS_CHILD | WS_VISIBLE, child);
    EXPECT_FALSE(IsWindowVisible(inner));
    EXPECT_TRUE(GetWindowLongA(inner, GWL_STYLE) & WS_VISIBLE);
    ShowWindow(top, SW_SHOW);
    EXPECT_TRUE(IsWindowVisible(inner));
    ShowWindow(child, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(inner));
    const HWND unseen = recorder.MakeMessageOnly("M");
    ShowWindow(unseen, SW_SHOW);
    EXPECT_FALSE(IsWindowVisible(unseen));
}

TEST(Showing, APopupPassesActivationOnAndBack)
{
    Recorder recorder;
    const HWND top = recorder.Make("A", WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    const HWND child = recorder.Make("B", WS_CHILD | WS_VISIBLE, top);
    SetFocus(child);
    const HWND popup = recorder.Make("P", WS_POPUP, top);
    recorder.Clear();
    ShowWindow(popup, SW_SHOW);
    EXPECT_THAT(recorder.Lines(),
                ElementsAre("P WM_SHOWWINDOW 1", "P WM_WINDOWPOSCHANGING", "A WM_NCACTIVATE 0",
                            "A WM_ACTIVATE 0", "P WM_NCACTIVATE 1", "P WM_ACTIVATE 1", "B WM_KILLFOCUS P",
                            "P WM_SETFOCUS B", "P WM_WINDOWPOSCHANGED"));
    EXPECT_EQ(GetLastActivePopup(top), popup);
    recorder.Clear();
    ShowWindow(popup, SW_HIDE);
    EXPECT_THAT(recorder.Lines(),
                ElementsAre("P WM_SHOWWINDOW 0", "P WM_WINDOWPOSCHANGING", "P WM_WINDOWPOSCHANGED",
                            "P WM_NCACTIVATE 0", "P WM_ACTIVATE 0", "A WM_NCACTIVATE 1", "A WM_ACTIVATE 1",
                            "P WM_KILLFOCUS A", "A WM_SETFOCUS P"));
    EXPECT_EQ(GetActiveWindow(), top);
    recorder.Clear();
    ShowWindow(popup, SW_SHOWNA);
    EXPECT_EQ(GetActiveWindow(), top);
}

TEST(Showing, MinimizedAndMaximizedComeBack)
{
    Recorder recorder;
    const HWND window = recorder.Make("A", WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    RECT before, after;
    GetWindowRect(window, &before);
    recorder.Clear();
    EXPECT_TRUE(ShowWindow(window, SW_MINIMIZE));
    EXPECT_TRUE(IsIconic(window));
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_THAT(recorder.LinesOf("A"), testing::Contains("WM_SIZE 1 0x0"));
    GetClientRect(window, &after);
    EXPECT_EQ(after.right, 0);
    ShowWindow(window, SW_RESTORE);
    EXPECT_FALSE(IsIconic(window));
    GetWindowRect(window, &after);
    EXPECT_TRUE(EqualRect(&before, &after));
    ShowWindow(window, SW_MAXIMIZE);
    EXPECT_TRUE(IsZoomed(window));
    GetClientRect(window, &after);
    EXPECT_EQ(after.right, GetSystemMetrics(SM_CXSCREEN));
    recorder.Clear();
    SendMessageA(window, WM_SYSCOMMAND, SC_RESTORE, 0);
    EXPECT_FALSE(IsZoomed(window));
    EXPECT_THAT(recorder.LinesOf("A"), testing::IsSupersetOf({"WM_SIZE 0 192x73", "WM_MOVE 14,43"}));
    GetWindowRect(window, &after);
    EXPECT_TRUE(EqualRect(&before, &after));
}

TEST(Enabling, TellsChangesAlone)
{
    Recorder recorder;
    const HWND top = recorder.Make("A", WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    const HWND child = recorder.Make("B", WS_CHILD | WS_VISIBLE, top);
    SetFocus(child);
    const struct {
        const char* label;
        BOOL enable, wasDisabled;
        std::vector<std::string> lines;
    } rows[] = {
        {"disable", FALSE, FALSE, {"B WM_CANCELMODE", "B WM_KILLFOCUS null", "B WM_ENABLE 0"}},
        {"again", FALSE, TRUE, {"B WM_CANCELMODE"}},
        {"enable", TRUE, TRUE, {"B WM_ENABLE 1"}},
        {"enable again", TRUE, FALSE, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        recorder.Clear();
        EXPECT_EQ(EnableWindow(child, row.enable) != 0, row.wasDisabled != 0);
        EXPECT_EQ(recorder.Lines(), row.lines);
        EXPECT_EQ(IsWindowEnabled(child) != 0, row.enable != 0);
    }
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(top));
}

TEST(Focus, MovesAndIsRefused)
{
    Recorder recorder;
    const HWND top = recorder.Make("A", WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    const HWND first = recorder.Make("B", WS_CHILD | WS_VISIBLE, top);
    const HWND second = recorder.Make("C", WS_CHILD | WS_VISIBLE, top);
    const HWND disabled = recorder.Make("D", WS_CHILD | WS_VISIBLE | WS_DISABLED, top);
    SetFocus(first);
    recorder.Clear();
    EXPECT_EQ(SetFocus(second), first);
    EXPECT_THAT(recorder.Lines(), ElementsAre("B WM_KILLFOCUS C", "C WM_SETFOCUS B"));
    recorder.Clear();
    EXPECT_EQ(SetFocus(second), second);
    EXPECT_FALSE(SetFocus(disabled));
    EXPECT_FALSE(SetFocus(reinterpret_cast<HWND>(0x1234567)));
    EXPECT_THAT(recorder.Lines(), IsEmpty());
    EXPECT_EQ(GetFocus(), second);
    ShowWindow(second, SW_HIDE);
    EXPECT_EQ(GetFocus(), top); // the parent takes it over
    EXPECT_EQ(SetFocus(nullptr), top);
    EXPECT_EQ(GetFocus(), nullptr);
}

TEST(Activation, BelongsToTopLevelWindows)
{
    Recorder recorder;
    const HWND first = recorder.Make("A", WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    const HWND second = recorder.Make("B", WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    const HWND child = recorder.Make("C", WS_CHILD | WS_VISIBLE, first);
    EXPECT_EQ(GetActiveWindow(), second);
    EXPECT_EQ(SetActiveWindow(first), second);
    EXPECT_EQ(GetActiveWindow(), first);
    SetActiveWindow(second);
    SetFocus(child); // brings its top-level window along
    EXPECT_EQ(GetActiveWindow(), first);
    EXPECT_EQ(GetFocus(), child);
    EXPECT_TRUE(SetForegroundWindow(second));
    EXPECT_EQ(GetForegroundWindow(), second);
    DestroyWindow(second);
    EXPECT_EQ(GetActiveWindow(), first);
}
