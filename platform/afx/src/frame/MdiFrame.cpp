#include <afxwin.h>

// clang-format off
IMPLEMENT_DYNCREATE(CMDIFrameWnd, CFrameWnd)
// clang-format on

namespace {

// Menu numbers of the children's names, above all commands.
constexpr UINT kFirstChildId = 0xFF00;
// Children that are made invisible stay so, and keep the styles they ask for.
constexpr DWORD kAllChildStyles = 0x0001;

} // namespace

BOOL CMDIFrameWnd::OnCreateClient(LPCREATESTRUCTA description, CCreateContext*)
{
    return CreateClient(description);
}

BOOL CMDIFrameWnd::CreateClient(LPCREATESTRUCTA)
{
    CLIENTCREATESTRUCT children = {nullptr, kFirstChildId};
    constexpr DWORD kStyle = WS_VISIBLE | WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | kAllChildStyles;
    constexpr UINT_PTR kId = AFX_IDW_PANE_FIRST;
    m_hWndMDIClient = ::CreateWindowExA(WS_EX_CLIENTEDGE, "MDICLIENT", nullptr, kStyle, 0, 0, 0, 0, m_hWnd,
                                        reinterpret_cast<HMENU>(kId), AfxGetInstanceHandle(), &children);
    return m_hWndMDIClient != nullptr;
}

CMDIChildWnd* CMDIFrameWnd::MDIGetActive(BOOL* maximized) const
{
    if (maximized)
        *maximized = FALSE;
    if (!m_hWndMDIClient)
        return nullptr;
    const LRESULT active =
        ::SendMessage(m_hWndMDIClient, WM_MDIGETACTIVE, 0, reinterpret_cast<LPARAM>(maximized));
    return DYNAMIC_DOWNCAST(CMDIChildWnd, CWnd::FromHandlePermanent(reinterpret_cast<HWND>(active)));
}

void CMDIFrameWnd::MDIActivate(CWnd* child)
{
    ::SendMessage(m_hWndMDIClient, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(child->m_hWnd), 0);
}

CFrameWnd* CMDIFrameWnd::GetActiveFrame()
{
    CMDIChildWnd* child = MDIGetActive();
    return child ? static_cast<CFrameWnd*>(child) : this;
}

BOOL CMDIFrameWnd::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo)
{
    CMDIChildWnd* child = MDIGetActive();
    return (child && child->OnCmdMsg(id, code, extra, handlerInfo)) ||
           CFrameWnd::OnCmdMsg(id, code, extra, handlerInfo);
}

LRESULT CMDIFrameWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::DefFrameProc(m_hWnd, m_hWndMDIClient, message, wParam, lParam);
}
