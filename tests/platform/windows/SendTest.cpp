// Messages between threads.
#include "Recorder.h"

#include <future>
#include <thread>

namespace {

constexpr const char* kClass = "zek_send";
constexpr UINT kAsk = WM_USER + 1, kAskBack = WM_USER + 2, kQuit = WM_USER + 3, kDestroy = WM_USER + 4;

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case kAsk: // sends back while the sender waits
        EXPECT_EQ(GetWindowThreadProcessId(window, nullptr), GetCurrentThreadId());
        return 100 + (lParam ? SendMessageA(reinterpret_cast<HWND>(lParam), kAskBack, wParam, 0) : 0);
    case kAskBack:
        return static_cast<LRESULT>(wParam) * 2 + (InSendMessage() ? 1000 : 0);
    case kQuit:
        PostQuitMessage(static_cast<int>(wParam));
        return 0;
    case kDestroy:
        return DestroyWindow(window);
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

HWND MakeUnseen(const char* name)
{
    WNDCLASSA description = {};
    description.lpfnWndProc = Procedure;
    description.lpszClassName = kClass;
    RegisterClassA(&description);
    return CreateWindowExA(0, kClass, name, 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
}

// A thread with a window that runs messages until it is told to quit.
class Worker
{
public:
    Worker()
    {
        std::promise<HWND> made;
        auto window = made.get_future();
        m_thread = std::thread([&made, this] {
            m_id = GetCurrentThreadId();
            made.set_value(MakeUnseen("worker"));
            m_code = RunLoop();
        });
        m_window = window.get();
    }

    ~Worker()
    {
        if (m_thread.joinable())
            Join();
    }

    int Join()
    {
        PostThreadMessageA(m_id, WM_QUIT, 6, 0);
        m_thread.join();
        return m_code;
    }

    HWND Window() const { return m_window; }
    DWORD Id() const { return m_id; }

private:
    std::thread m_thread;
    HWND m_window = nullptr;
    DWORD m_id = 0;
    int m_code = 0;
};

} // namespace

TEST(Sending, ReachesTheWindowsThread)
{
    Worker worker;
    EXPECT_EQ(GetWindowThreadProcessId(worker.Window(), nullptr), worker.Id());
    EXPECT_EQ(SendMessageA(worker.Window(), kAsk, 0, 0), 100);
    char text[16];
    EXPECT_EQ(GetWindowTextA(worker.Window(), text, sizeof text), 6);
    EXPECT_STREQ(text, "worker");
    EXPECT_TRUE(SetWindowTextA(worker.Window(), "new"));
    EXPECT_EQ(GetWindowTextLengthA(worker.Window()), 3);
    EXPECT_EQ(worker.Join(), 6);
}

TEST(Sending, AnswersWhileItWaits)
{
    Worker worker;
    const HWND own = MakeUnseen("main");
    EXPECT_EQ(SendMessageA(worker.Window(), kAsk, 7, reinterpret_cast<LPARAM>(own)), 100 + 14 + 1000);
    EXPECT_EQ(SendMessageA(own, kAskBack, 7, 0), 14);
    DestroyWindow(own);
}

TEST(Sending, FromManyThreadsLosesNothing)
{
    constexpr int kThreads = 4, kMessages = 200;
    const HWND own = MakeUnseen("main");
    std::atomic<int> left{kThreads};
    std::atomic<LRESULT> sum{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t)
        threads.emplace_back([&] {
            for (int i = 0; i < kMessages; ++i)
                sum += SendMessageA(own, kAskBack, 1, 0);
            if (--left == 0)
                PostMessageA(own, kQuit, 9, 0);
        });
    EXPECT_EQ(RunLoop(), 9);
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(sum, kThreads * kMessages * 1002);
    DestroyWindow(own);
}

TEST(Sending, EndsWhenTheWindowOrItsThreadGoes)
{
    Worker worker;
    const HWND window = worker.Window();
    EXPECT_TRUE(SendMessageA(window, kDestroy, 0, 0));
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(SendMessageA(window, kAsk, 0, 0), 0);
    worker.Join();

    std::promise<HWND> made;
    auto future = made.get_future();
    std::promise<void> asked;
    std::thread deaf([&] { // asks for no messages and ends
        made.set_value(MakeUnseen("deaf"));
        asked.get_future().wait();
    });
    const HWND other = future.get();
    DWORD_PTR result = 1;
    EXPECT_FALSE(SendMessageTimeoutA(other, kAsk, 0, 0, SMTO_NORMAL, 20, &result));
    EXPECT_EQ(result, 0u);
    asked.set_value();
    EXPECT_EQ(SendMessageA(other, kAsk, 0, 0), 0);
    deaf.join();
    EXPECT_FALSE(IsWindow(other));
}

TEST(Sending, WithATimeAnswers)
{
    Worker worker;
    DWORD_PTR result = 0;
    EXPECT_TRUE(SendMessageTimeoutA(worker.Window(), kAskBack, 4, 0, SMTO_NORMAL, 100000, &result));
    EXPECT_EQ(result, 1008u);
}

TEST(Posting, WakesAThreadThatWaits)
{
    Worker worker;
    const HWND own = MakeUnseen("main");
    std::thread poster([&] { EXPECT_TRUE(PostMessageA(own, kQuit, 5, 0)); });
    EXPECT_EQ(RunLoop(), 5);
    poster.join();
    EXPECT_TRUE(PostMessageA(worker.Window(), kQuit, 8, 0));
    DestroyWindow(own);
    EXPECT_FALSE(PostThreadMessageA(0xfffffff0, WM_USER, 0, 0));
}

TEST(OtherThreads, MayNotDestroyButMayEnable)
{
    Worker worker;
    SetLastError(0);
    EXPECT_FALSE(DestroyWindow(worker.Window()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_FALSE(EnableWindow(worker.Window(), FALSE));
    EXPECT_FALSE(IsWindowEnabled(worker.Window()));
    EXPECT_TRUE(MoveWindow(worker.Window(), 3, 4, 500, 600, FALSE));
    RECT rect = {};
    GetWindowRect(worker.Window(), &rect);
    EXPECT_EQ(rect.left, 3);
    EXPECT_EQ(rect.bottom, 604);
}
