#include <afxwin.h>

// clang-format off
IMPLEMENT_DYNCREATE(CMDIChildWnd, CFrameWnd)

BEGIN_MESSAGE_MAP(CMDIChildWnd, CFrameWnd)
    ON_WM_CREATE()
    ON_MESSAGE(WM_MDIACTIVATE, &CMDIChildWnd::OnMDIActivate)
END_MESSAGE_MAP()
// clang-format on

BOOL CMDIChildWnd::Create(LPCSTR className, LPCSTR windowName, DWORD style, const RECT& rect,
                          CMDIFrameWnd* parent, CCreateContext* context)
{
    if (!parent)
        parent = DYNAMIC_DOWNCAST(CMDIFrameWnd, AfxGetMainWnd());
    if (!parent) {
        ::SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        PostNcDestroy();
        return FALSE;
    }
    m_strTitle = windowName;
    m_context = context;
    const bool placed = rect.left != CW_USEDEFAULT;
    return CreateEx(WS_EX_MDICHILD, className, windowName, style, rect.left, rect.top,
                    placed ? rect.right - rect.left : CW_USEDEFAULT,
                    placed ? rect.bottom - rect.top : CW_USEDEFAULT, parent->m_hWndMDIClient, nullptr);
}

int CMDIChildWnd::OnCreate(LPCREATESTRUCTA description)
{
    CCreateContext* context = m_context;
    m_context = nullptr;
    return OnCreateHelper(description, context);
}

CMDIFrameWnd* CMDIChildWnd::GetMDIFrame() const
{
    const HWND client = ::GetParent(m_hWnd);
    return DYNAMIC_DOWNCAST(CMDIFrameWnd, CWnd::FromHandlePermanent(::GetParent(client)));
}

void CMDIChildWnd::MDIActivate()
{
    ::SendMessage(::GetParent(m_hWnd), WM_MDIACTIVATE, reinterpret_cast<WPARAM>(m_hWnd), 0);
}

void CMDIChildWnd::ActivateFrame(int showCommand)
{
    CFrameWnd::ActivateFrame(showCommand);
    MDIActivate();
}

// The system tells both the child that was active and the one that is now.
LRESULT CMDIChildWnd::OnMDIActivate(WPARAM, LPARAM activated)
{
    CView* view = GetActiveView();
    const bool active = reinterpret_cast<HWND>(activated) == m_hWnd;
    const LRESULT answer = Default();
    if (view)
        view->OnActivateView(active, view, view);
    if (CMDIFrameWnd* frame = GetMDIFrame())
        frame->OnUpdateFrameTitle(active);
    return answer;
}

void CMDIChildWnd::OnUpdateFrameTitle(BOOL addToTitle)
{
    if (CMDIFrameWnd* frame = m_hWnd ? GetMDIFrame() : nullptr)
        frame->OnUpdateFrameTitle(addToTitle);
    const CDocument* document = GetActiveDocument();
    if (!m_hWnd || !(GetStyle() & FWS_ADDTOTITLE) || !addToTitle || !document)
        return;
    CString name = document->GetTitle();
    if (m_nWindow > 0)
        name.AppendFormat(":%d", m_nWindow);
    SetWindowText(name);
}

BOOL CMDIChildWnd::DestroyWindow()
{
    if (!m_hWnd)
        return FALSE;
    const HWND window = m_hWnd;
    ::SendMessage(::GetParent(window), WM_MDIDESTROY, reinterpret_cast<WPARAM>(window), 0);
    return !::IsWindow(window);
}

LRESULT CMDIChildWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::DefMDIChildProc(m_hWnd, message, wParam, lParam);
}
