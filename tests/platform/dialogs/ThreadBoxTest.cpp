// Message boxes of other threads than the one that has the windows.
#include "BoxAnswerer.h"

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <thread>

namespace {

constexpr UINT kAnswered = WM_APP;
constexpr UINT kTick = 10;

// Threads that show a box each; the constructing thread looks at them from its own message loop, which goes
// on meanwhile.
class Workers
{
public:
    Workers() : m_mine(GetCurrentThreadId()), m_timer(SetTimer(nullptr, 0, kTick, nullptr)) {}
    ~Workers()
    {
        KillTimer(nullptr, m_timer);
        for (std::thread& thread : m_threads)
            thread.join();
    }
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    void Show(const char* caption, UINT style, DWORD closesAfter = 0)
    {
        m_threads.emplace_back([=, this] {
            const UINT_PTR timer = closesAfter ? SetTimer(nullptr, 0, closesAfter, &CloseOwnBox) : 0;
            const int answer = MessageBoxA(nullptr, "text", caption, style);
            if (timer)
                KillTimer(nullptr, timer);
            PostThreadMessageA(m_mine, kAnswered, static_cast<WPARAM>(answer),
                               reinterpret_cast<LPARAM>(caption));
        });
    }

    // Calls `tick` again and again until a box is answered.
    template <class Tick>
    std::pair<std::string, int> NextAnswer(Tick tick)
    {
        MSG message = {};
        while (GetMessageA(&message, nullptr, 0, 0) > 0 && message.message != kAnswered) {
            if (message.message == WM_TIMER && message.wParam == m_timer)
                tick();
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        return {reinterpret_cast<const char*>(message.lParam), static_cast<int>(message.wParam)};
    }

private:
    static BOOL CALLBACK EndBox(HWND window, LPARAM)
    {
        EndDialog(window, 0);
        return FALSE;
    }
    static void CALLBACK CloseOwnBox(HWND, UINT, UINT_PTR, DWORD)
    {
        EnumThreadWindows(GetCurrentThreadId(), &EndBox, 0);
    }

    DWORD m_mine;
    UINT_PTR m_timer;
    std::vector<std::thread> m_threads;
};

// Null until it is to be seen.
HWND BoxNamed(const char* caption)
{
    const HWND box = FindWindowA("#32770", caption);
    return IsWindowVisible(box) ? box : nullptr;
}

BOOL CALLBACK CountDialog(HWND window, LPARAM count)
{
    char name[16] = "";
    GetClassNameA(window, name, sizeof name);
    *reinterpret_cast<int*>(count) += std::string(name) == "#32770" && IsWindowVisible(window);
    return TRUE;
}

int DialogsOfThisThread()
{
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), &CountDialog, reinterpret_cast<LPARAM>(&count));
    return count;
}

} // namespace

TEST(BoxesOfThreads, AreAnsweredWhileTheOthersGoOn)
{
    Workers workers;
    workers.Show("Box of a worker", MB_YESNO);
    bool pressed = false;
    const auto answer = workers.NextAnswer([&] {
        const HWND box = BoxNamed("Box of a worker");
        if (!box || pressed)
            return;
        EXPECT_EQ("text", TextOf(LabelOf(box)));
        EXPECT_EQ(0, DialogsOfThisThread()) << "it is the worker's";
        PressButton(box, IDNO);
        pressed = true;
    });
    EXPECT_EQ(IDNO, answer.second);
    EXPECT_EQ(nullptr, FindWindowA("#32770", "Box of a worker"));
}

TEST(BoxesOfThreads, AreEndedByATimerOfTheirThread)
{
    Workers workers;
    workers.Show("Timed", MB_YESNO, kTick);
    EXPECT_EQ(0, workers.NextAnswer([] {}).second);
}

TEST(BoxesOfThreads, TakeKeys)
{
    const struct {
        UINT message;
        WPARAM key;
        int answer;
    } kRows[] = {{WM_KEYDOWN, VK_ESCAPE, IDCANCEL},
                 {WM_KEYDOWN, VK_RETURN, IDNO},
                 {WM_CHAR, 'y', IDYES},
                 {WM_SYSCHAR, 'n', IDNO}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.key);
        Workers workers;
        workers.Show("Keys", MB_YESNOCANCEL | MB_DEFBUTTON2);
        bool pressed = false;
        const auto answer = workers.NextAnswer([&] {
            const HWND box = BoxNamed("Keys");
            if (box && !pressed)
                pressed = PostMessageA(GetDlgItem(box, IDNO), row.message, row.key, 0);
        });
        EXPECT_EQ(row.answer, answer.second);
    }
}

TEST(BoxesOfThreads, AreIndependentOfEachOther)
{
    for (const auto& order : {std::pair{"First", "Second"}, std::pair{"Second", "First"}}) {
        SCOPED_TRACE(order.first);
        Workers workers;
        workers.Show("First", MB_OK);
        workers.Show("Second", MB_OK);
        const auto first = workers.NextAnswer([&] {
            if (BoxNamed("First") && BoxNamed("Second"))
                EndDialog(BoxNamed(order.first), 7);
        });
        EXPECT_EQ(std::pair(std::string(order.first), 7), first);
        const auto second = workers.NextAnswer([&] {
            if (const HWND box = BoxNamed(order.second))
                EndDialog(box, 8);
        });
        EXPECT_EQ(std::pair(std::string(order.second), 8), second);
    }
}

TEST(BoxesOfThreads, GoOnWhileThisThreadShowsOneToo)
{
    Workers workers;
    workers.Show("Outside", MB_OK);
    const Answerer answerer([&](HWND box) {
        EXPECT_EQ("Own", TextOf(box));
        EXPECT_EQ(1, DialogsOfThisThread());
        EndDialog(box, 5);
    });
    EXPECT_EQ(5, MessageBoxA(nullptr, "text", "Own", MB_OK));
    const auto answer = workers.NextAnswer([&] {
        if (const HWND box = BoxNamed("Outside"))
            EndDialog(box, 6);
    });
    EXPECT_EQ(6, answer.second);
}

TEST(BoxesOfThreads, AreAnsweredByOtherThreads)
{
    const struct {
        const char* way;
        void (*act)(HWND box);
        int answer;
    } kRows[] = {{"ended", [](HWND box) { EndDialog(box, 9); }, 9},
                 {"posted", [](HWND box) { PressButton(box, IDNO); }, IDNO},
                 {"sent", [](HWND box) { SendMessageA(box, WM_COMMAND, IDNO, 0); }, IDNO},
                 {"clicked", [](HWND box) { SendDlgItemMessageA(box, IDNO, BM_CLICK, 0, 0); }, IDNO},
                 {"closed", [](HWND box) { PostMessageA(box, WM_CLOSE, 0, 0); }, IDCANCEL}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.way);
        std::string text;
        std::thread other([&] {
            HWND box = nullptr;
            while (!box)
                box = BoxNamed("Answered from outside");
            text = TextOf(LabelOf(box));
            row.act(box);
        });
        EXPECT_EQ(row.answer, MessageBoxA(nullptr, "text", "Answered from outside", MB_YESNOCANCEL));
        other.join();
        EXPECT_EQ("text", text);
    }
}
