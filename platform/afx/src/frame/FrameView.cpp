// A frame's view, activation and caption.
#include <afxwin.h>

#include <utility>
#include <vector>

namespace {

BOOL CALLBACK CollectViews(HWND window, LPARAM views)
{
    if (CView* view = DYNAMIC_DOWNCAST(CView, CWnd::FromHandlePermanent(window)))
        reinterpret_cast<std::vector<HWND>*>(views)->push_back(view->m_hWnd);
    return TRUE;
}

// Handles, as an update may end other views.
std::vector<HWND> ViewsBelow(HWND frame)
{
    std::vector<HWND> views;
    ::EnumChildWindows(frame, CollectViews, reinterpret_cast<LPARAM>(&views));
    return views;
}

CString Caption(const CString& title, const CString& document, bool documentFirst)
{
    if (document.IsEmpty())
        return title;
    if (title.IsEmpty())
        return document;
    return documentFirst ? document + " - " + title : title + " - " + document;
}

} // namespace

CFrameWnd* CFrameWnd::GetActiveFrame()
{
    return this;
}

CDocument* CFrameWnd::GetActiveDocument()
{
    const CView* view = GetActiveView();
    return view ? view->GetDocument() : nullptr;
}

void CFrameWnd::SetActiveView(CView* view, BOOL notify)
{
    CView* old = m_pViewActive;
    if (view == old)
        return;
    m_pViewActive = nullptr;
    if (old)
        old->OnActivateView(FALSE, view, old);
    if (m_pViewActive)
        return;
    m_pViewActive = view;
    if (view && notify)
        view->OnActivateView(TRUE, view, old);
}

void CFrameWnd::InitialUpdateFrame(CDocument* document, BOOL makeVisible)
{
    if (!GetActiveView())
        SetActiveView(DYNAMIC_DOWNCAST(CView, GetDescendantWindow(AFX_IDW_PANE_FIRST, TRUE)), FALSE);
    if (makeVisible) {
        for (const HWND window : ViewsBelow(m_hWnd))
            if (CView* view = DYNAMIC_DOWNCAST(CView, CWnd::FromHandlePermanent(window)))
                view->OnInitialUpdate();
        CWinApp* app = AfxGetApp();
        const bool isMain = app && app->m_pMainWnd == this;
        ActivateFrame(isMain ? std::exchange(app->m_nCmdShow, -1) : -1); // it counts for the first time only
        if (CView* view = GetActiveView())
            view->OnActivateView(TRUE, view, view);
    }
    if (document)
        document->UpdateFrameCounts();
    OnUpdateFrameTitle(TRUE);
}

void CFrameWnd::ActivateFrame(int showCommand)
{
    if (showCommand == -1 && IsIconic())
        showCommand = SW_RESTORE;
    if (showCommand == -1 && !IsWindowVisible())
        showCommand = SW_SHOWNORMAL;
    if (showCommand != -1)
        ShowWindow(showCommand);
    BringWindowToTop();
}

void CFrameWnd::OnSetFocus(CWnd* old)
{
    if (m_pViewActive && m_pViewActive->m_hWnd)
        m_pViewActive->SetFocus();
    else
        CWnd::OnSetFocus(old);
}

void CFrameWnd::OnActivate(UINT state, CWnd* other, BOOL minimized)
{
    CWnd::OnActivate(state, other, minimized);
    CView* view = m_pViewActive ? m_pViewActive : GetActiveFrame()->GetActiveView();
    if (!view)
        return;
    if (state != WA_INACTIVE && !minimized)
        view->OnActivateView(TRUE, view, view);
    view->OnActivateFrame(state, this);
}

void CFrameWnd::OnUpdateFrameTitle(BOOL addToTitle)
{
    if (!m_hWnd || !(GetStyle() & FWS_ADDTOTITLE))
        return;
    const CDocument* document = addToTitle ? GetActiveFrame()->GetActiveDocument() : nullptr;
    CString name = document ? document->GetTitle() : CString();
    if (m_nWindow > 0 && document)
        name.AppendFormat(":%d", m_nWindow);
    SetWindowText(Caption(m_strTitle, name, GetStyle() & FWS_PREFIXTITLE));
}

CFrameWnd* CWnd::GetParentFrame() const
{
    CWnd* window = m_hWnd ? GetParent() : nullptr;
    while (window && !window->IsFrameWnd())
        window = window->GetParent();
    return static_cast<CFrameWnd*>(window);
}
