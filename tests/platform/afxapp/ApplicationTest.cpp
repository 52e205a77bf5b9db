#include <afxwin.h>

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

using testing::ElementsAre;

namespace {

constexpr UINT kThrow = WM_APP + 3;

// Keeps what happens to it, in order.
class App : public CWinApp
{
public:
    BOOL InitApplication() override
    {
        m_log.emplace_back("InitApplication");
        return m_initApplication;
    }
    BOOL InitInstance() override
    {
        m_log.emplace_back("InitInstance");
        if (m_showsDialog) {
            CDialog dialog("NONE");
            m_pMainWnd = &dialog;
            EXPECT_EQ(-1, dialog.DoModal());
        }
        if (m_frame)
            m_pMainWnd = m_frame;
        return m_initInstance;
    }
    int ExitInstance() override
    {
        m_log.emplace_back("ExitInstance");
        return CWinApp::ExitInstance();
    }
    int DoMessageBox(LPCSTR text, UINT, UINT helpContext) override
    {
        m_log.push_back(std::string("box: ") + text);
        m_help = helpContext;
        return IDOK;
    }
    int Start(LPCSTR arguments)
    {
        m_arguments = arguments;
        return AfxWinMain(m_hInstance, nullptr, m_arguments.data(), SW_HIDE);
    }

    BOOL m_initApplication = TRUE;
    BOOL m_initInstance = TRUE;
    bool m_showsDialog = false;
    UINT m_help = 0;
    CWnd* m_frame = nullptr;
    std::vector<std::string> m_log;

private:
    std::string m_arguments;
};

class CTestFrame : public CFrameWnd
{
    DECLARE_MESSAGE_MAP()
public:
    explicit CTestFrame(bool* gone = nullptr) : m_gone(gone) {}
    ~CTestFrame() override
    {
        if (m_gone)
            *m_gone = true;
    }
    LRESULT OnThrow(WPARAM, LPARAM) { AfxThrowNotSupportedException(); }

private:
    bool* m_gone;
};

// clang-format off
BEGIN_MESSAGE_MAP(CTestFrame, CFrameWnd)
    ON_MESSAGE(kThrow, &CTestFrame::OnThrow)
END_MESSAGE_MAP()
// clang-format on

} // namespace

TEST(AfxWinMain, NeedsAnApplication)
{
    char none[] = "";
    EXPECT_EQ(-1, AfxWinMain(nullptr, nullptr, none, SW_HIDE));
}

TEST(AfxWinMain, RefusesWithTheApplication)
{
    App app;
    app.m_initApplication = FALSE;
    EXPECT_EQ(-1, app.Start("some arguments"));
    EXPECT_THAT(app.m_log, ElementsAre("InitApplication"));
    EXPECT_STREQ("some arguments", app.m_lpCmdLine);
    EXPECT_EQ(SW_HIDE, app.m_nCmdShow);
}

TEST(AfxWinMain, EndsWithoutAMainWindow)
{
    App app;
    EXPECT_EQ(0, app.Start(""));
    EXPECT_THAT(app.m_log, ElementsAre("InitApplication", "InitInstance", "ExitInstance"));
}

TEST(AfxWinMain, DestroysTheMainWindowOfAnApplicationThatDoesNotRun)
{
    bool gone = false;
    auto* frame = new CTestFrame(&gone);
    ASSERT_TRUE(frame->Create(nullptr, "Main"));
    App app;
    app.m_frame = frame;
    app.m_initInstance = FALSE;
    app.Start("");
    EXPECT_THAT(app.m_log, ElementsAre("InitApplication", "InitInstance", "ExitInstance"));
    EXPECT_TRUE(gone);
    EXPECT_EQ(nullptr, app.m_pMainWnd);
    MSG quit;
    ::PeekMessage(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE); // that of the main window
}

// The main window of such an application is gone when InitInstance returns.
TEST(AfxWinMain, EndsWithADialogThatCannotBeShown)
{
    App app;
    app.m_showsDialog = true;
    app.m_initInstance = FALSE;
    EXPECT_EQ(0, app.Start(""));
    EXPECT_THAT(app.m_log, ElementsAre("InitApplication", "InitInstance", "ExitInstance"));
}

TEST(AfxWinMain, HandlesWhatWaitsWithoutAMainWindow)
{
    CTestFrame* frame = new CTestFrame;
    ASSERT_TRUE(frame->Create(nullptr, "Beside"));
    frame->PostMessage(WM_CLOSE);
    const HWND window = frame->m_hWnd;
    App app;
    EXPECT_EQ(0, app.Start(""));
    EXPECT_FALSE(::IsWindow(window));
}

TEST(AfxWinMain, RunsUntilTheMainWindowIsClosed)
{
    bool gone = false;
    auto* frame = new CTestFrame(&gone);
    ASSERT_TRUE(frame->Create(nullptr, "Main"));
    frame->PostMessage(WM_CLOSE);
    App app;
    app.m_frame = frame;
    EXPECT_EQ(0, app.Start(""));
    EXPECT_TRUE(gone);
    EXPECT_EQ(nullptr, app.m_pMainWnd);
    EXPECT_THAT(app.m_log, ElementsAre("InitApplication", "InitInstance", "ExitInstance"));
}

TEST(AfxWinMain, AnswersTheCodeOfPostQuitMessage)
{
    auto* frame = new CTestFrame;
    ASSERT_TRUE(frame->Create(nullptr, "Main"));
    App app;
    app.m_frame = frame;
    AfxPostQuitMessage(5);
    EXPECT_EQ(5, app.Start(""));
    app.m_pMainWnd = nullptr; // so that its end does not quit again
    frame->DestroyWindow();
}

TEST(CWinApp, TellsWhatAHandlerThrowsAndGoesOn)
{
    auto* frame = new CTestFrame;
    ASSERT_TRUE(frame->Create(nullptr, "Main"));
    frame->PostMessage(kThrow);
    frame->PostMessage(WM_CLOSE);
    App app;
    app.m_frame = frame;
    EXPECT_EQ(0, app.Start(""));
    ASSERT_EQ(4U, app.m_log.size());
    EXPECT_THAT(app.m_log[2], testing::StartsWith("box: "));
}

TEST(CWinApp, MakesAWorkersMainWindowThatOfTheApplication)
{
    auto* frame = new CTestFrame;
    ASSERT_TRUE(frame->Create(nullptr, "Main"));
    App app;
    app.m_pMainWnd = frame;
    struct Local {
        static UINT Look(LPVOID window)
        {
            *static_cast<HWND*>(window) = AfxGetMainWnd()->m_hWnd;
            return 0;
        }
    };
    HWND seen = nullptr;
    CWinThread* thread = AfxBeginThread(&Local::Look, &seen, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
    thread->m_bAutoDelete = FALSE;
    thread->ResumeThread();
    ::WaitForSingleObject(thread->m_hThread, INFINITE);
    delete thread;
    EXPECT_EQ(frame->m_hWnd, seen);
    EXPECT_TRUE(::IsWindow(seen)) << "only lent";
    app.m_pMainWnd = nullptr;
    frame->DestroyWindow();
}

TEST(CWinApp, NestsWaitCursors)
{
    App app;
    const HCURSOR arrow = app.LoadStandardCursor(IDC_ARROW);
    const HCURSOR wait = app.LoadStandardCursor(IDC_WAIT);
    ASSERT_NE(nullptr, wait);
    ::SetCursor(arrow);
    app.DoWaitCursor(1);
    app.DoWaitCursor(1);
    app.DoWaitCursor(-1);
    EXPECT_EQ(wait, ::GetCursor());
    ::SetCursor(arrow);
    app.DoWaitCursor(0);
    EXPECT_EQ(wait, ::GetCursor()) << "shown again";
    app.DoWaitCursor(-1);
    EXPECT_EQ(arrow, ::GetCursor());
    for (const int code : {0, -1}) {
        app.DoWaitCursor(code);
        EXPECT_EQ(arrow, ::GetCursor()) << "there was nothing to restore, and nothing to end";
    }
}

TEST(AfxMessageBox, TakesTheNumberOfAText)
{
    App app;
    EXPECT_EQ(IDOK, AfxMessageBox(77U)); // no such text
    EXPECT_THAT(app.m_log, ElementsAre("box: "));
    EXPECT_EQ(77U, app.m_help);
}
