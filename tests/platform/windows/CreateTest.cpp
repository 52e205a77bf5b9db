// The messages of a window's beginning and end.
#include "Recorder.h"

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Creation, TellsTheWindowAndItsParent)
{
    Recorder recorder;
    const HWND top = recorder.Make("A", WS_OVERLAPPEDWINDOW);
    ASSERT_TRUE(top);
    EXPECT_THAT(recorder.Lines(), ElementsAre("A WM_NCCREATE", "A WM_CREATE"));
    recorder.Clear();

    ASSERT_TRUE(recorder.Make("B", WS_CHILD | WS_VISIBLE, top));
    EXPECT_THAT(recorder.Lines(), ElementsAre("B WM_NCCREATE", "B WM_CREATE", "B WM_SIZE 0 200x100",
                                              "B WM_MOVE 10,20", "A WM_PARENTNOTIFY 1", "B WM_SHOWWINDOW 1"));
    recorder.Clear();

    ASSERT_TRUE(recorder.Make("C", WS_CHILD, top, WS_EX_NOPARENTNOTIFY));
    EXPECT_THAT(recorder.Lines(),
                ElementsAre("C WM_NCCREATE", "C WM_CREATE", "C WM_SIZE 0 200x100", "C WM_MOVE 10,20"));
}

TEST(Creation, PassesOnWhatItWasGiven)
{
    Recorder recorder;
    CREATESTRUCTA seen = {};
    std::string text, className; // the structure's texts last as long as the message
    recorder.On(WM_CREATE, [&](HWND window, UINT, WPARAM, LPARAM lParam) -> LRESULT {
        seen = *reinterpret_cast<const CREATESTRUCTA*>(lParam);
        className = seen.lpszClass;
        char buffer[16];
        GetWindowTextA(window, buffer, sizeof buffer);
        text = buffer;
        return 0;
    });
    const HWND parent = recorder.MakeMessageOnly("A");
    int marker = 0;
    const HWND child = CreateWindowExA(WS_EX_NOPARENTNOTIFY, "zek_recorder", "text", WS_CHILD | WS_TABSTOP, 1,
                                       2, 3, 4, parent, reinterpret_cast<HMENU>(77), nullptr, &marker);
    ASSERT_TRUE(child);
    EXPECT_EQ(text, "text"); // WM_NCCREATE has set it
    EXPECT_EQ(seen.lpCreateParams, &marker);
    EXPECT_EQ(seen.hwndParent, parent);
    EXPECT_EQ(seen.hMenu, reinterpret_cast<HMENU>(77));
    EXPECT_EQ(seen.x, 1);
    EXPECT_EQ(seen.y, 2);
    EXPECT_EQ(seen.cx, 3);
    EXPECT_EQ(seen.cy, 4);
    EXPECT_TRUE(static_cast<DWORD>(seen.style) & WS_TABSTOP);
    EXPECT_EQ(className, "zek_recorder");
    EXPECT_EQ(GetDlgCtrlID(child), 77);
}

TEST(Creation, IsRefusedByTheWindow)
{
    const struct {
        const char* label;
        UINT message;
        LRESULT answer;
        std::vector<std::string> lines;
    } rows[] = {
        {"not even begun", WM_NCCREATE, FALSE, {"A WM_NCCREATE", "A WM_NCDESTROY"}},
        {"given up", WM_CREATE, -1, {"A WM_NCCREATE", "A WM_CREATE", "A WM_NCDESTROY"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        Recorder recorder;
        HWND made = nullptr;
        recorder.On(row.message,
                    [&](HWND window, UINT, WPARAM, LPARAM) { return made = window, row.answer; });
        EXPECT_FALSE(recorder.MakeMessageOnly("A"));
        EXPECT_EQ(recorder.Lines(), row.lines);
        EXPECT_FALSE(IsWindow(made));
    }
}

TEST(Creation, FailsWithoutAGoodClassOrParent)
{
    const struct {
        const char* label;
        const char* name;
        DWORD style;
        HWND parent;
    } rows[] = {
        {"unknown class", "zek_no_such", 0, HWND_MESSAGE},
        {"child without a parent", "zek_recorder", WS_CHILD, nullptr},
        {"no such parent", "zek_recorder", WS_CHILD, reinterpret_cast<HWND>(0x1234567)},
        {"no such owner", "zek_recorder", WS_POPUP, reinterpret_cast<HWND>(0x1234567)},
    };
    Recorder recorder;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_FALSE(
            CreateWindowExA(0, row.name, "", row.style, 0, 0, 1, 1, row.parent, nullptr, nullptr, nullptr));
    }
    EXPECT_THAT(recorder.Lines(), IsEmpty());
}

TEST(Creation, CompletesStyles)
{
    const struct {
        const char* label;
        DWORD style, exStyle;
        DWORD madeStyle, madeExStyle;
    } rows[] = {
        {"overlapped", 0, 0, WS_CAPTION | WS_CLIPSIBLINGS, WS_EX_WINDOWEDGE},
        {"popup", WS_POPUP, 0, WS_POPUP | WS_CLIPSIBLINGS, 0},
        {"popup with a frame", WS_POPUP | WS_DLGFRAME, 0, WS_POPUP | WS_DLGFRAME | WS_CLIPSIBLINGS,
         WS_EX_WINDOWEDGE},
        {"modal frame", WS_POPUP, WS_EX_DLGMODALFRAME, WS_POPUP | WS_CLIPSIBLINGS,
         WS_EX_DLGMODALFRAME | WS_EX_WINDOWEDGE},
        {"border alone", WS_POPUP | WS_BORDER, WS_EX_WINDOWEDGE, WS_POPUP | WS_BORDER | WS_CLIPSIBLINGS, 0},
    };
    Recorder recorder;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const HWND window = recorder.Make("A", row.style, nullptr, row.exStyle);
        EXPECT_EQ(static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE)), row.madeStyle);
        EXPECT_EQ(static_cast<DWORD>(GetWindowLongA(window, GWL_EXSTYLE)), row.madeExStyle);
    }
}

TEST(Destruction, RunsDownAndUp)
{
    Recorder recorder;
    const HWND top = recorder.Make("A", WS_OVERLAPPEDWINDOW);
    const HWND page = recorder.Make("B", WS_CHILD, top);
    recorder.Make("C", WS_CHILD, page);
    recorder.Make("D", WS_CHILD, top);
    recorder.Clear();
    EXPECT_TRUE(DestroyWindow(top));
    EXPECT_THAT(recorder.Lines(),
                ElementsAre("A WM_DESTROY", "B WM_DESTROY", "C WM_DESTROY", "D WM_DESTROY", "C WM_NCDESTROY",
                            "B WM_NCDESTROY", "D WM_NCDESTROY", "A WM_NCDESTROY"));
}

TEST(Destruction, TakesOwnedWindowsFirst)
{
    Recorder recorder;
    const HWND top = recorder.Make("A", WS_OVERLAPPEDWINDOW);
    const HWND popup = recorder.Make("P", WS_POPUP, top);
    const HWND inner = recorder.Make("Q", WS_POPUP, popup);
    recorder.Make("B", WS_CHILD, top);
    recorder.Clear();
    EXPECT_TRUE(DestroyWindow(top));
    EXPECT_THAT(recorder.Lines(),
                ElementsAre("Q WM_DESTROY", "Q WM_NCDESTROY", "P WM_DESTROY", "P WM_NCDESTROY",
                            "A WM_DESTROY", "B WM_DESTROY", "B WM_NCDESTROY", "A WM_NCDESTROY"));
    EXPECT_FALSE(IsWindow(popup));
    EXPECT_FALSE(IsWindow(inner));
}

TEST(Destruction, OfAVisibleChildHidesItBefore)
{
    Recorder recorder;
    const HWND top = recorder.Make("A", WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    const HWND child = recorder.Make("B", WS_CHILD | WS_VISIBLE, top);
    recorder.Clear();
    EXPECT_TRUE(DestroyWindow(child));
    EXPECT_THAT(recorder.Lines(),
                ElementsAre("A WM_PARENTNOTIFY 2", "B WM_SHOWWINDOW 0", "B WM_WINDOWPOSCHANGING",
                            "B WM_WINDOWPOSCHANGED", "B WM_DESTROY", "B WM_NCDESTROY"));
}

TEST(Destruction, InsideItselfIsHarmless)
{
    Recorder recorder;
    const HWND top = recorder.MakeMessageOnly("A");
    const HWND child = recorder.Make("B", WS_CHILD, top);
    int depth = 0;
    recorder.On(WM_DESTROY, [&](HWND window, UINT, WPARAM, LPARAM) -> LRESULT {
        EXPECT_TRUE(IsWindow(window));
        if (++depth < 4) { // an endless loop would be the other reading
            DestroyWindow(child);
            DestroyWindow(top);
        }
        return 0;
    });
    EXPECT_TRUE(DestroyWindow(top));
    EXPECT_FALSE(IsWindow(top));
    EXPECT_FALSE(IsWindow(child));
}

TEST(Destruction, LeavesNothingOfTheWindow)
{
    Recorder recorder;
    const HWND window = recorder.MakeMessageOnly("A");
    PostMessageA(window, WM_USER, 0, 0);
    SetTimer(window, 1, 10, nullptr);
    ASSERT_TRUE(DestroyWindow(window));
    EXPECT_FALSE(IsWindow(window));
    SetLastError(0);
    EXPECT_FALSE(PostMessageA(window, WM_USER, 0, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    EXPECT_EQ(SendMessageA(window, WM_USER, 0, 0), 0);
    EXPECT_FALSE(DestroyWindow(window));
    EXPECT_FALSE(KillTimer(window, 1));
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_USER, WM_USER, PM_REMOVE));
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
    EXPECT_NE(recorder.MakeMessageOnly("B"), window); // a handle is not used again soon
}

TEST(Destruction, ByCloseAndBySystemCommand)
{
    const struct {
        const char* label;
        UINT message;
        WPARAM wParam;
    } rows[] = {{"WM_CLOSE", WM_CLOSE, 0},
                {"SC_CLOSE", WM_SYSCOMMAND, SC_CLOSE},
                {"low bits", WM_SYSCOMMAND, SC_CLOSE | 2}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        Recorder recorder;
        const HWND window = recorder.Make("A", WS_OVERLAPPEDWINDOW);
        SendMessageA(window, row.message, row.wParam, 0);
        EXPECT_FALSE(IsWindow(window));
    }
}
