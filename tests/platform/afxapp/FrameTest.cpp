#include <afxwin.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

constexpr UINT kCommand = 0x8001;

class CTestView : public CView
{
    DECLARE_DYNCREATE(CTestView)
    DECLARE_MESSAGE_MAP()
public:
    ~CTestView() override { ++s_ended; }
    void OnDraw(CDC*) override {}
    void OnUpdate(CView* sender, LPARAM hint, CObject* hintObject) override
    {
        ++m_updates;
        CView::OnUpdate(sender, hint, hintObject);
    }
    void OnCommand() { ++m_commands; }

    int m_updates = 0;
    int m_commands = 0;
    inline static int s_ended = 0;
};

// clang-format off
IMPLEMENT_DYNCREATE(CTestView, CView)
BEGIN_MESSAGE_MAP(CTestView, CView)
    ON_COMMAND(kCommand, &CTestView::OnCommand)
END_MESSAGE_MAP()
// clang-format on

class TestDocument : public CDocument
{
public:
    TestDocument() { m_bAutoDelete = FALSE; }
    BOOL SaveModified() override
    {
        ++m_asked;
        return m_mayClose;
    }
    int m_asked = 0;
    BOOL m_mayClose = TRUE;
};

CCreateContext ContextOf(CDocument* document)
{
    CCreateContext context;
    context.m_pNewViewClass = RUNTIME_CLASS(CTestView);
    context.m_pCurrentDoc = document;
    return context;
}

// A hidden frame with one view of the document.
CFrameWnd* FrameOf(CDocument* document, DWORD style = WS_OVERLAPPEDWINDOW)
{
    auto* frame = new CFrameWnd;
    CCreateContext context = ContextOf(document);
    const RECT place = {10, 20, 310, 220};
    EXPECT_TRUE(frame->Create(nullptr, "Frame", style, place, nullptr, nullptr, 0, &context));
    frame->InitialUpdateFrame(document, FALSE);
    return frame;
}

std::string Caption(const CWnd* window)
{
    CString text;
    window->GetWindowText(text);
    return text.GetString();
}

void ExpectFills(const CWnd* frame, const CWnd* view)
{
    RECT client, outer;
    frame->GetClientRect(&client);
    view->GetWindowRect(&outer);
    EXPECT_EQ(client.right, outer.right - outer.left);
    EXPECT_EQ(client.bottom, outer.bottom - outer.top);
}

class Mdi : public testing::Test
{
protected:
    Mdi() : m_frame(new CMDIFrameWnd)
    {
        EXPECT_TRUE(m_frame->Create(nullptr, "Main"));
        m_app.m_pMainWnd = m_frame;
    }
    ~Mdi() override
    {
        m_app.m_pMainWnd = nullptr;
        m_frame->DestroyWindow();
    }

    CMDIChildWnd* Child(LPCSTR title)
    {
        auto* child = new CMDIChildWnd;
        CCreateContext context = ContextOf(&m_document);
        EXPECT_TRUE(child->Create(nullptr, title, WS_CHILD | WS_VISIBLE | WS_OVERLAPPEDWINDOW,
                                  CFrameWnd::rectDefault, nullptr, &context));
        child->InitialUpdateFrame(&m_document, FALSE);
        return child;
    }

    TestDocument m_document;
    CWinApp m_app;
    CMDIFrameWnd* m_frame;
};

} // namespace

TEST(CFrameWnd, HoldsItsViewAndDocument)
{
    CTestView::s_ended = 0;
    TestDocument document;
    CFrameWnd* frame = FrameOf(&document);
    auto* view = static_cast<CTestView*>(frame->GetActiveView());
    ASSERT_NE(nullptr, view);
    EXPECT_EQ(&document, view->GetDocument());
    EXPECT_EQ(&document, frame->GetActiveDocument());
    EXPECT_EQ(frame, frame->GetActiveFrame());
    EXPECT_EQ(frame, view->GetParentFrame());
    EXPECT_EQ(AFX_IDW_PANE_FIRST, view->GetDlgCtrlID());
    ExpectFills(frame, view);
    frame->MoveWindow(0, 0, 500, 400);
    ExpectFills(frame, view);

    frame->SendMessage(WM_COMMAND, kCommand);
    EXPECT_EQ(1, view->m_commands) << "commands go to the active view";
    frame->DestroyWindow();
    EXPECT_EQ(1, CTestView::s_ended);
    EXPECT_EQ(nullptr, document.GetFirstViewPosition());
}

TEST(CFrameWnd, UpdatesItsViewsAtFirstShow)
{
    TestDocument document;
    CFrameWnd* frame = FrameOf(&document);
    auto* view = static_cast<CTestView*>(frame->GetActiveView());
    EXPECT_EQ(0, view->m_updates);
    frame->InitialUpdateFrame(&document, TRUE);
    EXPECT_EQ(1, view->m_updates);
    EXPECT_TRUE(frame->IsWindowVisible());
    frame->DestroyWindow();
}

TEST(CFrameWnd, ActivatesTheViewThatIsClicked)
{
    TestDocument document;
    CFrameWnd* frame = FrameOf(&document);
    CView* view = frame->GetActiveView();
    frame->SetActiveView(nullptr);
    view->SendMessage(WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(frame->m_hWnd), MAKELPARAM(1, WM_USER));
    EXPECT_EQ(view, frame->GetActiveView());
    frame->ShowWindow(SW_SHOW);
    frame->SetActiveWindow();
    ::SetFocus(nullptr);
    view->SendMessage(WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(frame->m_hWnd), MAKELPARAM(1, WM_USER));
    EXPECT_EQ(view->m_hWnd, ::GetFocus());
    frame->DestroyWindow();
}

TEST(CFrameWnd, LosesItsActiveViewWithTheView)
{
    TestDocument document;
    CFrameWnd* frame = FrameOf(&document);
    frame->GetActiveView()->DestroyWindow();
    EXPECT_EQ(nullptr, frame->GetActiveView());
    EXPECT_EQ(nullptr, frame->GetActiveDocument());
    frame->DestroyWindow();
}

TEST(CFrameWnd, AsksItsDocumentBeforeItCloses)
{
    TestDocument document;
    CFrameWnd* frame = FrameOf(&document);
    CFrameWnd* second = FrameOf(&document);
    const HWND window = frame->m_hWnd, secondWindow = second->m_hWnd;
    frame->SendMessage(WM_CLOSE);
    EXPECT_EQ(0, document.m_asked) << "another frame shows it";
    EXPECT_FALSE(::IsWindow(window));
    document.m_mayClose = FALSE;
    second->SendMessage(WM_CLOSE);
    EXPECT_EQ(1, document.m_asked);
    EXPECT_TRUE(::IsWindow(secondWindow));
    document.m_mayClose = TRUE;
    second->SendMessage(WM_CLOSE);
    EXPECT_FALSE(::IsWindow(secondWindow));
}

TEST(CFrameWnd, IsClosedWithItsDocument)
{
    auto* document = new TestDocument;
    const HWND a = FrameOf(document)->m_hWnd, b = FrameOf(document)->m_hWnd;
    document->m_bAutoDelete = TRUE;
    document->OnCloseDocument(); // deletes it
    EXPECT_FALSE(::IsWindow(a));
    EXPECT_FALSE(::IsWindow(b));
}

TEST(CFrameWnd, ShowsTheDocumentsTitle)
{
    TestDocument document;
    CFrameWnd* plain = FrameOf(&document);
    CFrameWnd* named = FrameOf(&document, WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE);
    document.SetTitle("Model");
    EXPECT_EQ("Frame", Caption(plain));
    EXPECT_EQ("Model:2 - Frame", Caption(named));
    plain->DestroyWindow();
    document.UpdateFrameCounts();
    EXPECT_EQ("Model - Frame", Caption(named));
    named->DestroyWindow();
}

TEST(CFrameWnd, FailsWithItsView)
{
    CCreateContext context;
    context.m_pNewViewClass = RUNTIME_CLASS(CWinThread);
    EXPECT_FALSE((new CFrameWnd)
                     ->Create(nullptr, "", WS_OVERLAPPEDWINDOW, CFrameWnd::rectDefault, nullptr, nullptr, 0,
                              &context));
    EXPECT_FALSE(
        (new CFrameWnd)->Create(nullptr, "", WS_OVERLAPPEDWINDOW, CFrameWnd::rectDefault, nullptr, "MENU"));
}

TEST_F(Mdi, HasNoActiveViewWithoutChildren)
{
    EXPECT_EQ(nullptr, m_frame->MDIGetActive());
    EXPECT_EQ(m_frame, m_frame->GetActiveFrame());
    EXPECT_EQ(nullptr, m_frame->GetActiveFrame()->GetActiveView());
}

TEST_F(Mdi, FollowsTheActiveChild)
{
    CMDIChildWnd* first = Child("first");
    CMDIChildWnd* second = Child("second");
    EXPECT_EQ(m_frame, first->GetMDIFrame());
    EXPECT_EQ(second, m_frame->MDIGetActive());
    EXPECT_EQ(second, m_frame->GetActiveFrame());
    EXPECT_NE(nullptr, second->GetActiveView());
    first->MDIActivate();
    EXPECT_EQ(first, m_frame->GetActiveFrame());
    m_frame->MDIActivate(second);
    EXPECT_EQ(second, m_frame->GetActiveFrame());

    m_frame->SendMessage(WM_COMMAND, kCommand);
    EXPECT_EQ(1, static_cast<CTestView*>(second->GetActiveView())->m_commands);
    EXPECT_EQ(0, static_cast<CTestView*>(first->GetActiveView())->m_commands);

    second->DestroyWindow();
    EXPECT_EQ(first, m_frame->GetActiveFrame());
    first->SendMessage(WM_CLOSE);
    EXPECT_EQ(m_frame, m_frame->GetActiveFrame());
}

TEST_F(Mdi, RefusesAChildWithoutAFrame)
{
    m_app.m_pMainWnd = nullptr;
    EXPECT_FALSE((new CMDIChildWnd)->Create(nullptr, "child"));
}
