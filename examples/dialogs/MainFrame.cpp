#include "MainFrame.h"

#include "DemoProduct.h"

BEGIN_MESSAGE_MAP(CMainFrame, CFrameWnd)
ON_WM_CREATE()
ON_WM_SIZE()
END_MESSAGE_MAP()

CMainFrame::CMainFrame() : m_form(this), m_section(this)
{
}

bool CMainFrame::Open()
{
    const CRect place(60, 60, 60 + 560, 60 + 230);
    return Create(nullptr, DemoText("IDS_DEMO_TITLE"), WS_OVERLAPPEDWINDOW, place) != FALSE;
}

int CMainFrame::OnCreate(LPCREATESTRUCT create)
{
    if (CFrameWnd::OnCreate(create) == -1 || !m_form.Open())
        return -1;
    return 0;
}

void CMainFrame::OnSize(UINT type, int width, int height)
{
    CFrameWnd::OnSize(type, width, height);
    if (type == SIZE_MINIMIZED || !m_form.GetSafeHwnd())
        return;
    m_form.MoveWindow(0, 0, width, height);
    m_form.Arrange(width);
}

void CMainFrame::ShowSection()
{
    if (!m_section.GetSafeHwnd())
        m_section.Open();
    m_section.ShowWindow(SW_SHOW);
    m_section.SetActiveWindow();
}
