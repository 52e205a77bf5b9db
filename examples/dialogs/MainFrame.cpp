#include "MainFrame.h"

#include "DemoProduct.h"

BEGIN_MESSAGE_MAP(CMainFrame, CFrameWnd)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_SETFOCUS()
END_MESSAGE_MAP()

bool CMainFrame::Open()
{
    const CRect place(CPoint(60, 60), CSize(560, 220));
    return Create(nullptr, DemoText("IDS_DEMO_TITLE"), WS_OVERLAPPEDWINDOW, place) != FALSE;
}

int CMainFrame::OnCreate(LPCREATESTRUCT create)
{
    const bool made = CFrameWnd::OnCreate(create) != -1 && m_form.Create(IDD_PATH, this);
    return made ? 0 : -1;
}

void CMainFrame::OnSize(UINT type, int width, int height)
{
    CFrameWnd::OnSize(type, width, height);
    if (type == SIZE_MINIMIZED || !m_form.GetSafeHwnd())
        return;
    m_form.MoveWindow(0, 0, width, height);
    m_form.Arrange(width);
}

// The keyboard is the form's.
void CMainFrame::OnSetFocus(CWnd*)
{
    m_form.SetFocus();
}
