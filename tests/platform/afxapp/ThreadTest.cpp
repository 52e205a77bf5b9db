#include <afxwin.h>

#include <gmock/gmock.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>

using testing::ElementsAre;

namespace {

// Set once, waited for by who needs to know.
class Signal
{
public:
    Signal() : m_event(::CreateEventA(nullptr, TRUE, FALSE, nullptr)) {}
    ~Signal() { ::CloseHandle(m_event); }
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    void Set() { ::SetEvent(m_event); }
    bool IsSet() const { return ::WaitForSingleObject(m_event, 0) == WAIT_OBJECT_0; }
    void Await() const { ASSERT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(m_event, INFINITE)); }

private:
    HANDLE m_event;
};

// Waits for a thread whose object stays, and deletes the object.
UINT ExitCodeOf(CWinThread* thread)
{
    DWORD code = 0;
    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(thread->m_hThread, INFINITE));
    EXPECT_TRUE(::GetExitCodeThread(thread->m_hThread, &code));
    delete thread;
    return code;
}

CWinThread* BeginKept(AFX_THREADPROC procedure, LPVOID parameter)
{
    CWinThread* thread = AfxBeginThread(procedure, parameter, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
    thread->m_bAutoDelete = FALSE;
    EXPECT_EQ(1U, thread->ResumeThread());
    return thread;
}

struct Seen {
    CWinThread* current = nullptr;
    DWORD id = 0;
};

UINT Look(LPVOID seen)
{
    auto* into = static_cast<Seen*>(seen);
    into->current = AfxGetThread();
    into->id = ::GetCurrentThreadId();
    return 42;
}

UINT SetSignal(LPVOID signal)
{
    static_cast<Signal*>(signal)->Set();
    return 0;
}

// An application that keeps what the user would be told.
class App : public CWinApp
{
public:
    int DoMessageBox(LPCSTR text, UINT, UINT) override
    {
        m_told.emplace_back(text);
        return IDOK;
    }
    std::vector<std::string> m_told; // by one thread at a time
};

struct Throwing {
    LPCSTR label;
    AFX_THREADPROC procedure;
    LPCSTR told;
};

UINT ThrowFramework(LPVOID)
{
    AfxThrowNotSupportedException();
}
UINT ThrowStandard(LPVOID)
{
    throw std::runtime_error("the reason");
}
UINT ThrowOther(LPVOID)
{
    throw 5;
}

// A thread with a message loop that adds up what it is sent.
constexpr UINT kAdd = WM_APP + 1;

class CAddingThread : public CWinThread
{
    DECLARE_DYNCREATE(CAddingThread)
    DECLARE_MESSAGE_MAP()
public:
    ~CAddingThread() override { s_gone->Set(); }

    BOOL InitInstance() override
    {
        s_mayStart->Await();
        return s_runs;
    }
    int ExitInstance() override
    {
        s_exitCode = CWinThread::ExitInstance();
        return s_exitCode;
    }
    BOOL OnIdle(LONG count) override
    {
        s_idle->Set();
        return CWinThread::OnIdle(count);
    }
    void OnAdd(WPARAM first, LPARAM second)
    {
        s_sum += static_cast<int>(first) + static_cast<int>(second);
        if (s_sum >= 10)
            ::PostQuitMessage(s_sum);
    }

    inline static Signal* s_mayStart = nullptr;
    inline static Signal* s_idle = nullptr;
    inline static Signal* s_gone = nullptr;
    inline static bool s_runs = true;
    inline static int s_sum = 0;
    inline static int s_exitCode = 0;
};

// clang-format off
IMPLEMENT_DYNCREATE(CAddingThread, CWinThread)
BEGIN_MESSAGE_MAP(CAddingThread, CWinThread)
    ON_THREAD_MESSAGE(kAdd, &CAddingThread::OnAdd)
END_MESSAGE_MAP()
// clang-format on

class UiThread : public testing::Test
{
protected:
    UiThread()
    {
        CAddingThread::s_mayStart = &m_mayStart;
        CAddingThread::s_idle = &m_idle;
        CAddingThread::s_gone = &m_gone;
        CAddingThread::s_runs = true;
        CAddingThread::s_sum = 0;
        CAddingThread::s_exitCode = -5;
    }

    Signal m_mayStart, m_idle, m_gone;
};

} // namespace

TEST(AfxBeginThread, RunsAFunctionWithItsThreadObject)
{
    Seen seen;
    CWinThread* thread = AfxBeginThread(Look, &seen, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
    ASSERT_NE(nullptr, thread);
    thread->m_bAutoDelete = FALSE;
    const DWORD id = thread->m_nThreadID;
    DWORD code = 0;
    EXPECT_TRUE(::GetExitCodeThread(*thread, &code));
    EXPECT_EQ(static_cast<DWORD>(STILL_ACTIVE), code);
    EXPECT_EQ(static_cast<DWORD>(WAIT_TIMEOUT), ::WaitForSingleObject(*thread, 0));
    EXPECT_EQ(nullptr, seen.current) << "suspended";
    EXPECT_EQ(1U, thread->ResumeThread());
    const CWinThread* expected = thread;
    EXPECT_EQ(42U, ExitCodeOf(thread));
    EXPECT_EQ(expected, seen.current);
    EXPECT_EQ(id, seen.id);
    EXPECT_NE(::GetCurrentThreadId(), seen.id);
}

TEST(AfxBeginThread, StartsAtOnceAndTidiesUp)
{
    Signal done;
    ASSERT_NE(nullptr, AfxBeginThread(SetSignal, &done));
    done.Await();
}

TEST(AfxBeginThread, GivesThePriority)
{
    Signal done;
    CWinThread* thread =
        AfxBeginThread(SetSignal, &done, THREAD_PRIORITY_BELOW_NORMAL, 1 << 20, CREATE_SUSPENDED);
    thread->m_bAutoDelete = FALSE;
    EXPECT_EQ(THREAD_PRIORITY_BELOW_NORMAL, thread->GetThreadPriority());
    EXPECT_FALSE(thread->SetThreadPriority(77));
    thread->ResumeThread();
    EXPECT_EQ(0U, ExitCodeOf(thread));
}

TEST(AfxBeginThread, RefusesAClassThatIsNoThread)
{
    EXPECT_EQ(nullptr, AfxBeginThread(RUNTIME_CLASS(CFrameWnd)));
    EXPECT_EQ(nullptr, AfxBeginThread(RUNTIME_CLASS(CCmdTarget)));
}

TEST(AfxGetThread, IsNullWhereNoObjectIs)
{
    CWinThread* seen = reinterpret_cast<CWinThread*>(1);
    std::thread([&seen] { seen = AfxGetThread(); }).join();
    EXPECT_EQ(nullptr, seen);
    EXPECT_EQ(nullptr, AfxGetThread());
    App app;
    EXPECT_EQ(&app, AfxGetThread());
    std::thread([&seen] { seen = AfxGetThread(); }).join();
    EXPECT_EQ(nullptr, seen);
}

TEST(AfxEndThread, EndsWithTheCode)
{
    struct Local {
        static UINT End(LPVOID)
        {
            AfxEndThread(9, FALSE);
            return 1;
        }
        static UINT EndAndDelete(LPVOID)
        {
            AfxEndThread(0);
            return 1;
        }
    };
    EXPECT_EQ(9U, ExitCodeOf(BeginKept(&Local::End, nullptr)));

    CWinThread* thread =
        AfxBeginThread(&Local::EndAndDelete, nullptr, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
    HANDLE handle = nullptr;
    ASSERT_TRUE(::DuplicateHandle(::GetCurrentProcess(), thread->m_hThread, ::GetCurrentProcess(), &handle, 0,
                                  FALSE, DUPLICATE_SAME_ACCESS));
    thread->ResumeThread();
    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(handle, INFINITE));
    ::CloseHandle(handle);
}

TEST(CWinThread, TellsTheUserWhatItsFunctionThrows)
{
    const Throwing kCases[] = {
        {"framework", ThrowFramework, "unsupported operation"},
        {"standard", ThrowStandard, "the reason"},
        {"other", ThrowOther, "ended because of an error"},
    };
    for (const Throwing& row : kCases) {
        SCOPED_TRACE(row.label);
        App app;
        EXPECT_EQ(static_cast<UINT>(-1), ExitCodeOf(BeginKept(row.procedure, nullptr)));
        ASSERT_EQ(1U, app.m_told.size());
        EXPECT_THAT(app.m_told[0], testing::HasSubstr(row.told));
    }
}

TEST(CWinThread, HasTheMainWindowOfItsDocumentation)
{
    CWinThread thread;
    CWnd main, active;
    EXPECT_EQ(nullptr, thread.GetMainWnd());
    thread.m_pMainWnd = &main;
    EXPECT_EQ(&main, thread.GetMainWnd());
    thread.m_pActiveWnd = &active;
    EXPECT_EQ(&active, thread.GetMainWnd());
}

// Also one that never had a window, such as a dialog that could not be shown.
TEST(CWinThread, ForgetsWindowsThatEnd)
{
    App app;
    {
        CWnd main, active;
        app.m_pMainWnd = &main;
        app.m_pActiveWnd = &active;
    }
    EXPECT_EQ(nullptr, app.m_pMainWnd);
    EXPECT_EQ(nullptr, app.m_pActiveWnd);
    CWnd active;
    ASSERT_TRUE(active.CreateEx(0, nullptr, "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr));
    app.m_pActiveWnd = &active;
    active.DestroyWindow();
    EXPECT_EQ(nullptr, app.m_pActiveWnd);
    MSG message;
    EXPECT_FALSE(::PeekMessage(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE)) << "no main window ended";
}

TEST_F(UiThread, DispatchesPostedMessagesToItsMap)
{
    CWinThread* thread = AfxBeginThread(RUNTIME_CLASS(CAddingThread));
    ASSERT_NE(nullptr, thread);
    m_mayStart.Set();
    m_idle.Await();
    EXPECT_TRUE(thread->PostThreadMessage(kAdd, 1, 2));
    EXPECT_TRUE(thread->PostThreadMessage(kAdd + 1, 100, 100)) << "nobody's";
    EXPECT_TRUE(thread->PostThreadMessage(kAdd, 3, 4));
    m_gone.Await();
    EXPECT_EQ(10, CAddingThread::s_exitCode);
}

// What is posted as soon as the thread has been started is not lost, wherever the thread is by then.
TEST_F(UiThread, TakesMessagesFromItsStartOn)
{
    CWinThread* thread = AfxBeginThread(RUNTIME_CLASS(CAddingThread));
    ASSERT_NE(nullptr, thread);
    EXPECT_TRUE(thread->PostThreadMessage(kAdd, 4, 4));
    EXPECT_TRUE(thread->PostThreadMessage(kAdd, 1, 2));
    m_mayStart.Set();
    m_gone.Await();
    EXPECT_EQ(11, CAddingThread::s_exitCode);
}

TEST_F(UiThread, TakesMessagesFromItsResumptionOn)
{
    CWinThread* thread =
        AfxBeginThread(RUNTIME_CLASS(CAddingThread), THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
    ASSERT_NE(nullptr, thread);
    EXPECT_EQ(1U, thread->ResumeThread());
    EXPECT_TRUE(thread->PostThreadMessage(kAdd, 5, 5));
    m_mayStart.Set();
    m_gone.Await();
    EXPECT_EQ(10, CAddingThread::s_exitCode);
}

TEST_F(UiThread, EndsWithoutRunWhenItDoesNotWantTo)
{
    CAddingThread::s_runs = false;
    m_mayStart.Set();
    ASSERT_NE(nullptr, AfxBeginThread(RUNTIME_CLASS(CAddingThread)));
    m_gone.Await();
    EXPECT_EQ(0, CAddingThread::s_exitCode);
    EXPECT_FALSE(m_idle.IsSet());
}

// The functions below the thread objects.
TEST(Waits, TakeAutomaticEventsOneByOne)
{
    const HANDLE one = ::CreateEventA(nullptr, FALSE, TRUE, nullptr);
    const HANDLE all = ::CreateEventA(nullptr, TRUE, TRUE, nullptr);
    const HANDLE both[] = {one, all};
    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForMultipleObjects(2, both, TRUE, 0));
    EXPECT_EQ(WAIT_OBJECT_0 + 1, ::WaitForMultipleObjects(2, both, FALSE, 0)) << "the first is reset";
    EXPECT_EQ(static_cast<DWORD>(WAIT_TIMEOUT), ::WaitForMultipleObjects(2, both, TRUE, 0));
    ::SetEvent(one);
    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForMultipleObjects(2, both, FALSE, 0));
    ::ResetEvent(all);
    EXPECT_EQ(static_cast<DWORD>(WAIT_TIMEOUT), ::WaitForMultipleObjects(2, both, FALSE, 0));
    ::CloseHandle(one);
    ::CloseHandle(all);
    EXPECT_EQ(static_cast<DWORD>(WAIT_FAILED), ::WaitForSingleObject(nullptr, 0));
    EXPECT_EQ(static_cast<DWORD>(ERROR_INVALID_HANDLE), ::GetLastError());
}

TEST(Waits, LetThreadsMeet)
{
    constexpr int kTurns = 200;
    struct Game {
        HANDLE ball[2];
        int turns = 0;
        static UINT Play(LPVOID game)
        {
            auto* self = static_cast<Game*>(game);
            for (int i = 0; i < kTurns; ++i) {
                ::WaitForSingleObject(self->ball[1], INFINITE);
                ++self->turns;
                ::SetEvent(self->ball[0]);
            }
            return 0;
        }
    } game;
    for (HANDLE& ball : game.ball)
        ball = ::CreateEventA(nullptr, FALSE, FALSE, nullptr);
    CWinThread* thread = BeginKept(&Game::Play, &game);
    for (int i = 0; i < kTurns; ++i) {
        ::SetEvent(game.ball[1]);
        ::WaitForSingleObject(game.ball[0], INFINITE);
        EXPECT_EQ(i + 1, game.turns);
    }
    EXPECT_EQ(0U, ExitCodeOf(thread));
    for (const HANDLE ball : game.ball)
        ::CloseHandle(ball);
}
