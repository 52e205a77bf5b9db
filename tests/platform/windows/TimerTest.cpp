// Timers, with a window and without.
#include "Recorder.h"

using testing::ElementsAre;

namespace {

std::vector<UINT_PTR> called;

void CALLBACK NoteAndQuit(HWND window, UINT message, UINT_PTR id, DWORD)
{
    EXPECT_EQ(message, static_cast<UINT>(WM_TIMER));
    called.push_back(id);
    EXPECT_TRUE(KillTimer(window, id));
    PostQuitMessage(0);
}

void CALLBACK NoteOnly(HWND, UINT, UINT_PTR id, DWORD)
{
    called.push_back(id);
}

} // namespace

TEST(Timers, WithoutAWindowAreNumberedDownwards)
{
    const UINT_PTR first = SetTimer(nullptr, 0, 100000, nullptr);
    const UINT_PTR second = SetTimer(nullptr, 7, 100000, nullptr); // its own number does not matter
    EXPECT_EQ(first, 32767u);
    EXPECT_EQ(second, 32766u);
    EXPECT_EQ(SetTimer(nullptr, first, 200000, nullptr), first); // set anew
    EXPECT_TRUE(KillTimer(nullptr, first));
    EXPECT_FALSE(KillTimer(nullptr, first));
    EXPECT_TRUE(KillTimer(nullptr, second));
}

TEST(Timers, CallTheirProcedureFromTheLoop)
{
    called.clear();
    const UINT_PTR id = SetTimer(nullptr, 0, 10, NoteAndQuit);
    EXPECT_EQ(RunLoop(), 0);
    EXPECT_THAT(called, ElementsAre(id));
    EXPECT_FALSE(KillTimer(nullptr, id)); // the procedure has
}

TEST(Timers, OfAWindowAreItsMessages)
{
    Recorder recorder;
    std::vector<WPARAM> seen;
    recorder.On(WM_TIMER, [&seen](HWND window, UINT, WPARAM wParam, LPARAM lParam) -> LRESULT {
        EXPECT_EQ(lParam, 0);
        seen.push_back(wParam);
        if (seen.size() == 3)
            PostQuitMessage(0);
        return KillTimer(window, 99), 0;
    });
    const HWND window = recorder.MakeMessageOnly("A");
    EXPECT_TRUE(SetTimer(window, 5, 10, nullptr));
    EXPECT_TRUE(SetTimer(window, 5, 1, nullptr)); // the same one, and no faster than 10 ms
    RunLoop();
    EXPECT_THAT(seen, ElementsAre(5, 5, 5));
    EXPECT_TRUE(KillTimer(window, 5));
    EXPECT_FALSE(KillTimer(window, 5));
    EXPECT_TRUE(SetTimer(window, 0, 100000, nullptr));
    EXPECT_TRUE(KillTimer(window, 0));
}

TEST(Timers, ComeLast)
{
    Recorder recorder;
    const HWND window = recorder.MakeMessageOnly("A");
    SetTimer(window, 1, 10, nullptr);
    MSG message;
    ASSERT_TRUE(GetMessageA(&message, window, WM_TIMER, WM_TIMER)); // one has been due
    while (!PeekMessageA(&message, window, WM_TIMER, WM_TIMER, PM_NOREMOVE))
        ;
    PostMessageA(window, WM_USER, 0, 0);
    EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_USER));
    EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_TIMER));
    EXPECT_EQ(message.wParam, 1u);
}

TEST(Timers, EndWithTheirWindow)
{
    Recorder recorder;
    called.clear();
    const HWND window = recorder.MakeMessageOnly("A");
    SetTimer(window, 1, 10, NoteOnly);
    const UINT_PTR other = SetTimer(nullptr, 0, 40, NoteAndQuit);
    DestroyWindow(window);
    RunLoop();
    EXPECT_THAT(called, ElementsAre(other));
    EXPECT_FALSE(SetTimer(window, 1, 10, nullptr));
}

TEST(Timers, RunInTheCallbackOfAnother)
{
    static int depth;
    depth = 0;
    called.clear();
    const UINT_PTR outer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR id, DWORD) {
        KillTimer(nullptr, id);
        ++depth;
        SetTimer(nullptr, 0, 10, NoteAndQuit);
        RunLoop(); // as a modal dialog does
        PostQuitMessage(4);
    });
    EXPECT_TRUE(outer);
    EXPECT_EQ(RunLoop(), 4);
    EXPECT_EQ(depth, 1);
    EXPECT_EQ(called.size(), 1u);
}
