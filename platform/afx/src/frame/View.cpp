#include "FrameClass.h"

#include <afxwin.h>

// clang-format off
IMPLEMENT_DYNAMIC(CView, CWnd)

BEGIN_MESSAGE_MAP(CView, CWnd)
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_MESSAGE(WM_MOUSEACTIVATE, &CView::OnMouseActivate)
END_MESSAGE_MAP()
// clang-format on

CView::CView() = default;

CView::~CView()
{
    if (m_pDocument)
        m_pDocument->RemoveView(this);
}

BOOL CView::PreCreateWindow(CREATESTRUCTA& description)
{
    if (!description.lpszClass)
        description.lpszClass = AfxPlainWindowClass();
    if (description.style & WS_BORDER) {
        description.dwExStyle |= WS_EX_CLIENTEDGE;
        description.style &= ~WS_BORDER;
    }
    return CWnd::PreCreateWindow(description);
}

void CView::PostNcDestroy()
{
    delete this;
}

int CView::OnCreate(LPCREATESTRUCTA description)
{
    if (CWnd::OnCreate(description) == -1)
        return -1;
    const auto* context = static_cast<const CCreateContext*>(description->lpCreateParams);
    if (context && context->m_pCurrentDoc)
        context->m_pCurrentDoc->AddView(this);
    return 0;
}

void CView::OnDestroy()
{
    CFrameWnd* frame = GetParentFrame();
    if (frame && frame->GetActiveView() == this)
        frame->SetActiveView(nullptr);
    CWnd::OnDestroy();
}

// A click into a view makes it the active one, with the keyboard.
LRESULT CView::OnMouseActivate(WPARAM, LPARAM)
{
    const LRESULT answer = Default();
    CFrameWnd* frame = GetParentFrame();
    if (!frame || answer == MA_NOACTIVATE || answer == MA_NOACTIVATEANDEAT)
        return answer;
    if (frame->GetActiveView() == this)
        OnActivateView(TRUE, this, this);
    else
        frame->SetActiveView(this);
    return answer;
}

BOOL CView::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo)
{
    return CWnd::OnCmdMsg(id, code, extra, handlerInfo) ||
           (m_pDocument && m_pDocument->OnCmdMsg(id, code, extra, handlerInfo));
}

void CView::OnInitialUpdate()
{
    OnUpdate(nullptr, 0, nullptr);
}

void CView::OnUpdate(CView*, LPARAM, CObject*)
{
    if (m_hWnd)
        Invalidate();
}

void CView::OnActivateView(BOOL activate, CView*, CView*)
{
    if (!activate || !m_hWnd)
        return;
    const CWnd* top = GetTopLevelParent();
    if (top && ::GetActiveWindow() == top->m_hWnd)
        SetFocus();
}

void CView::OnActivateFrame(UINT, CFrameWnd*)
{
}
