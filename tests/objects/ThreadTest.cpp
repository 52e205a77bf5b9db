#include <Thread.h>

#include <gmock/gmock.h>

#include <atomic>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr UINT kProgress = WM_APP + 7;
constexpr UINT kDone = WM_APP + 8;

// Set by one thread, waited for by another.
class Signal
{
public:
    explicit Signal(bool stays = true) : m_event(::CreateEventA(nullptr, stays, FALSE, nullptr)) {}
    ~Signal() { ::CloseHandle(m_event); }
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    void Set() { ::SetEvent(m_event); }
    void Await() const { ASSERT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(m_event, INFINITE)); }

private:
    HANDLE m_event;
};

// An application that keeps what the user would be told.
class App : public CWinApp
{
public:
    int DoMessageBox(LPCSTR text, UINT, UINT) override
    {
        m_told = text;
        m_hasTold.Set();
        return IDOK;
    }
    std::string m_told; // by one thread at a time
    Signal m_hasTold{false};
};

App theApp;

// What jobs do, and what is known of their ends.
struct Record {
    int expected = 1; // ends, before the signal
    std::atomic<int> ended{0};
    std::atomic<DWORD> ranOn{0};
    std::atomic<DWORD> endedOn{0};
    Signal end;
};

class Job : public CThread
{
public:
    using Run = std::function<void(Job&)>;

    Job(Record& record, Run run) : m_record(record), m_run(std::move(run)) {}
    ~Job() override
    {
        m_record.endedOn = ::GetCurrentThreadId();
        if (++m_record.ended == m_record.expected)
            m_record.end.Set();
    }
    void ThreadRun() override
    {
        m_record.ranOn = ::GetCurrentThreadId();
        m_run(*this);
    }
    int Stopped() const { return m_nStop; }

private:
    Record& m_record;
    Run m_run;
};

// A window that keeps what it is sent, and reads texts as a progress display does.
class Display : public CFrameWnd
{
public:
    Display() { Create(nullptr, "Progress"); }
    ~Display() override
    {
        if (GetSafeHwnd())
            DestroyWindow();
    }
    void PostNcDestroy() override {} // lives on the stack

    // Handles messages until a job says it is done.
    void Await()
    {
        MSG message;
        while (!std::exchange(m_done, false) && ::GetMessage(&message, nullptr, 0, 0) > 0)
            ::DispatchMessage(&message);
    }

    std::vector<std::pair<WPARAM, LPARAM>> m_seen;
    std::vector<std::string> m_texts;
    Signal* m_handled = nullptr; // set for each text that was read

protected:
    LRESULT OnProgress(WPARAM wParam, LPARAM lParam)
    {
        if (wParam >= kText)
            m_texts.emplace_back(reinterpret_cast<LPCSTR>(lParam));
        else
            m_seen.emplace_back(wParam, lParam);
        if (m_handled)
            m_handled->Set();
        return 0;
    }
    LRESULT OnDone(WPARAM, LPARAM)
    {
        m_done = true;
        return 0;
    }
    DECLARE_MESSAGE_MAP()

public:
    static constexpr UINT kText = 1000; // and above: the second parameter is a text

private:
    bool m_done = false;
};

// clang-format off
BEGIN_MESSAGE_MAP(Display, CFrameWnd)
    ON_MESSAGE(kProgress, &Display::OnProgress)
    ON_MESSAGE(kDone, &Display::OnDone)
END_MESSAGE_MAP()
// clang-format on

TEST(Thread, DeletesItselfOnItsOwnThread)
{
    Record record;
    int stopped = -1;
    auto* job = new Job(record, [&stopped](Job& self) { stopped = self.Stopped(); });
    EXPECT_EQ(0, job->Stopped());
    EXPECT_EQ(1, job->ThreadBegin(nullptr, kProgress));
    record.end.Await();
    EXPECT_EQ(0, stopped);
    EXPECT_EQ(1, record.ended);
    EXPECT_NE(::GetCurrentThreadId(), record.ranOn);
    EXPECT_EQ(record.ranOn, record.endedOn);
}

TEST(Thread, ManyJobsEndOnceEach)
{
    constexpr int kJobs = 1000;
    constexpr int kAtATime = 20;
    std::atomic<int> ended{0};
    class Short : public CThread
    {
    public:
        Short(std::atomic<int>& counter, Signal& signal) : m_ended(counter), m_all(signal) {}
        ~Short() override
        {
            if (++m_ended % kAtATime == 0)
                m_all.Set();
        }
        void ThreadRun() override { ProgressText(0, "short"); }

    private:
        std::atomic<int>& m_ended;
        Signal& m_all;
    };
    for (int begun = 0; begun < kJobs;) {
        Signal some;
        for (int i = 0; i < kAtATime; ++i, ++begun)
            ASSERT_EQ(1, (new Short(ended, some))->ThreadBegin(nullptr, kProgress));
        some.Await();
        ASSERT_EQ(begun, ended);
    }
}

TEST(Thread, AnObjectThatNeverRanIsItsMakers)
{
    Record record;
    {
        const Job job(record, {});
    }
    EXPECT_EQ(1, record.ended);
    EXPECT_EQ(::GetCurrentThreadId(), record.endedOn);
}

TEST(Thread, ProcRunsAndDeletesTheObject)
{
    Record record;
    EXPECT_EQ(0U, CThread::ThreadProc(static_cast<CThread*>(new Job(record, [](Job&) {}))));
    EXPECT_EQ(1, record.ended);
    EXPECT_EQ(::GetCurrentThreadId(), record.ranOn);
}

class TestException : public CException
{
public:
    BOOL GetErrorMessage(LPSTR text, UINT size, UINT*) override
    {
        std::snprintf(text, size, "of the framework");
        return TRUE;
    }
};

TEST(Thread, TellsTheUserWhatAJobThrows)
{
    const struct {
        const char* label;
        Job::Run run;
        const char* told;
    } rows[] = {
        {"standard", [](Job&) { throw std::runtime_error("the reason"); }, "the reason"},
        {"framework", [](Job&) { throw new TestException; }, "of the framework"},
        {"other", [](Job&) { throw 5; }, "A task in the background has ended because of an error."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        Record record;
        ASSERT_EQ(1, (new Job(record, row.run))->ThreadBegin(nullptr, kProgress));
        theApp.m_hasTold.Await();
        EXPECT_THAT(theApp.m_told, HasSubstr(row.told));
        EXPECT_EQ(1, record.ended);
        EXPECT_EQ(record.ranOn, record.endedOn);
    }
}

TEST(Thread, PostsItsProgressInOrder)
{
    Display display;
    ASSERT_TRUE(display.GetSafeHwnd());
    Record record;
    const HWND window = display;
    constexpr LPARAM kWide = sizeof(LPARAM) > 4 ? static_cast<LPARAM>(0x123456789ALL) : 0x12345678;
    (new Job(record, [window](Job& self) {
        for (UINT i = 1; i <= 3; ++i)
            self.Progress(i, static_cast<LPARAM>(i) * -10);
        self.Progress(4, kWide);
        ::PostMessage(window, kDone, 0, 0);
    }))->ThreadBegin(&display, kProgress);
    display.Await();
    record.end.Await();
    using Seen = std::pair<WPARAM, LPARAM>;
    EXPECT_THAT(display.m_seen, ElementsAre(Seen(1, -10), Seen(2, -20), Seen(3, -30), Seen(4, kWide)));
}

// The next text replaces the one before: a job that waits until the window has read it loses none.
TEST(Thread, TextsArriveWholeWhenTheJobPacesItself)
{
    Display display;
    Signal handled(false);
    display.m_handled = &handled;
    Record record;
    const HWND window = display;
    std::vector<std::string> sent;
    (new Job(record, [&](Job& self) {
        for (int i = 0; i < 2000; ++i) {
            sent.push_back(std::string(static_cast<std::size_t>(i % 50), 'x') + std::to_string(i));
            self.ProgressText(Display::kText, sent.back().c_str());
            handled.Await();
        }
        ::PostMessage(window, kDone, 0, 0);
    }))->ThreadBegin(&display, kProgress);
    display.Await();
    record.end.Await();
    EXPECT_EQ(sent, display.m_texts);
}

TEST(Thread, TextsOutliveTheJob)
{
    constexpr int kTexts = 1000;
    Display display;
    Record record;
    const HWND window = display;
    (new Job(record, [window](Job& self) {
        for (int i = 0; i < kTexts; ++i)
            self.ProgressText(Display::kText, std::to_string(i).c_str());
        ::PostMessage(window, kDone, 0, 0);
    }))->ThreadBegin(&display, kProgress);
    record.end.Await(); // nothing has been read yet, and the object is gone
    display.Await();
    ASSERT_THAT(display.m_texts, SizeIs(kTexts));
    for (int i = 0; i < kTexts; ++i)
        ASSERT_EQ(std::to_string(i), display.m_texts[static_cast<std::size_t>(i)]);
}

TEST(Thread, WithoutAWindowPostsToItsOwnQueue)
{
    CWnd none;
    for (CWnd* window : {static_cast<CWnd*>(nullptr), &none}) {
        SCOPED_TRACE(window ? "a window that was not created" : "null");
        Record record;
        MSG message = {};
        BOOL taken = FALSE;
        std::string text;
        (new Job(record, [&](Job& self) {
            self.Progress(5, 6);
            taken = ::PeekMessage(&message, nullptr, kProgress, kProgress, PM_REMOVE);
            self.ProgressText(1, "text");
            MSG second = {};
            if (::PeekMessage(&second, nullptr, kProgress, kProgress, PM_REMOVE))
                text = reinterpret_cast<LPCSTR>(second.lParam);
        }))->ThreadBegin(window, kProgress);
        record.end.Await();
        EXPECT_TRUE(taken);
        EXPECT_EQ(nullptr, message.hwnd);
        EXPECT_EQ(5U, message.wParam);
        EXPECT_EQ(6, message.lParam);
        EXPECT_EQ("text", text);
    }
}

class Overriding : public CThread
{
public:
    explicit Overriding(std::vector<std::string>& seen) : m_seen(seen) {}
    void ThreadRun() override
    {
        Progress(1, 2);
        ProgressText(3, "three");
        ProgressText(4, nullptr);
    }
    void Progress(UINT wParam, LPARAM lParam) override
    {
        m_seen.push_back(std::to_string(wParam) + ":" +
                         (wParam < 3 ? std::to_string(lParam) : reinterpret_cast<LPCSTR>(lParam)));
    }

private:
    std::vector<std::string>& m_seen;
};

TEST(Thread, AnOverriddenProgressSeesTextsToo)
{
    std::vector<std::string> seen;
    CThread::ThreadProc(static_cast<CThread*>(new Overriding(seen)));
    EXPECT_THAT(seen, ElementsAre("1:2", "3:three", "4:"));
}

TEST(Thread, AWindowThatIsGoneGetsNothing)
{
    Display display;
    Record record;
    Signal mayPost;
    auto* job = new Job(record, [&mayPost](Job& self) {
        mayPost.Await();
        self.Progress(1, 1);
        self.ProgressText(Display::kText, "late");
    });
    job->ThreadBegin(&display, kProgress);
    display.DestroyWindow();
    mayPost.Set();
    record.end.Await();
    EXPECT_THAT(display.m_seen, IsEmpty());
    EXPECT_THAT(display.m_texts, IsEmpty());
}

TEST(Thread, CopiesCarryTheFields)
{
    Record record;
    record.expected = 3;
    Display display;
    const HWND window = display;
    (new Job(record, [&record, window](Job& self) {
        Job copy(self);
        copy.Progress(9, 9); // to the window of the original
        Job assigned(record, {});
        static_cast<CThread&>(assigned) = self;
        assigned.Progress(8, 8);
        ::PostMessage(window, kDone, 0, 0);
    }))->ThreadBegin(&display, kProgress);
    display.Await();
    using Seen = std::pair<WPARAM, LPARAM>;
    EXPECT_THAT(display.m_seen, ElementsAre(Seen(9, 9), Seen(8, 8)));
    record.end.Await();
}

} // namespace
