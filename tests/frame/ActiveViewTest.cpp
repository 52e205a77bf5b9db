#include <GlobalFunc.h>

#include <gtest/gtest.h>

namespace {

class CShownView : public CView
{
    DECLARE_DYNCREATE(CShownView)
protected:
    void OnDraw(CDC*) override {}
};
// clang-format off
IMPLEMENT_DYNCREATE(CShownView, CView)
// clang-format on

constexpr RECT kPlace = {0, 0, 200, 100};

CCreateContext WithView()
{
    CCreateContext context;
    context.m_pNewViewClass = RUNTIME_CLASS(CShownView);
    return context;
}

class ActiveView : public testing::Test
{
protected:
    // A main window that goes ends the application: not this test's program.
    void Destroy(CWnd* window)
    {
        m_app.m_pMainWnd = nullptr;
        window->DestroyWindow();
    }

    CWinApp m_app{"Example"};
};

TEST(NoActiveView, WithoutAnApplicationObject)
{
    EXPECT_EQ(GetActiveView(), nullptr);
}

TEST_F(ActiveView, IsNullWhereAnythingIsMissing)
{
    EXPECT_EQ(GetActiveView(), nullptr) << "no main window";
    CWnd plain;
    ASSERT_TRUE(plain.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP, kPlace, nullptr, 0));
    m_app.m_pMainWnd = &plain;
    EXPECT_EQ(GetActiveView(), nullptr) << "the main window is no frame";
    auto* frame = new CFrameWnd;
    ASSERT_TRUE(frame->Create(nullptr, "Frame", WS_OVERLAPPEDWINDOW, kPlace));
    m_app.m_pMainWnd = frame;
    EXPECT_EQ(GetActiveView(), nullptr) << "the frame has no view";
    Destroy(frame);
    plain.DestroyWindow();
}

TEST_F(ActiveView, IsTheFrames)
{
    auto* frame = new CFrameWnd;
    CCreateContext context = WithView();
    ASSERT_TRUE(frame->Create(nullptr, "Frame", WS_OVERLAPPEDWINDOW, kPlace, nullptr, nullptr, 0, &context));
    m_app.m_pMainWnd = frame;
    CView* view = DYNAMIC_DOWNCAST(CView, frame->GetDlgItem(AFX_IDW_PANE_FIRST));
    ASSERT_NE(view, nullptr);
    frame->SetActiveView(nullptr);
    EXPECT_EQ(GetActiveView(), nullptr);
    frame->SetActiveView(view);
    EXPECT_EQ(GetActiveView(), view);
    Destroy(frame);
}

// An MDI frame's active view is that of its active child.
TEST_F(ActiveView, IsTheActiveChilds)
{
    auto* frame = new CMDIFrameWnd;
    ASSERT_TRUE(frame->Create(nullptr, "Frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, kPlace));
    m_app.m_pMainWnd = frame;
    EXPECT_EQ(GetActiveView(), nullptr) << "no child";
    CMDIChildWnd* children[2];
    CView* views[2];
    for (int i = 0; i < 2; ++i) {
        children[i] = new CMDIChildWnd;
        CCreateContext context = WithView();
        ASSERT_TRUE(children[i]->Create(nullptr, "Child", WS_CHILD | WS_VISIBLE | WS_OVERLAPPEDWINDOW, kPlace,
                                        frame, &context));
        children[i]->InitialUpdateFrame(nullptr, TRUE);
        views[i] = children[i]->GetActiveView();
        ASSERT_NE(views[i], nullptr);
        EXPECT_EQ(GetActiveView(), views[i]);
    }
    children[0]->MDIActivate();
    EXPECT_EQ(GetActiveView(), views[0]);
    children[0]->DestroyWindow();
    EXPECT_EQ(GetActiveView(), views[1]);
    Destroy(frame);
}

} // namespace
