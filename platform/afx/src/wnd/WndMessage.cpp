#include "WndProc.h"

#include <afxapp_.h>

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
END_MESSAGE_MAP()

namespace {

// Whether the object has been the thread's main window.
bool LeaveThread(const CWnd* window)
{
    CWinThread* thread = AfxGetThread();
    if (thread && thread->m_pActiveWnd == window)
        thread->m_pActiveWnd = nullptr;
    if (!thread || thread->m_pMainWnd != window)
        return false;
    thread->m_pMainWnd = nullptr;
    return true;
}

} // namespace

CWnd::~CWnd()
{
    if (m_hWnd) {
        CWnd::DestroyWindow();
        Detach(); // also from a handle that was no window any more
    }
    LeaveThread(this); // a main window may end that never had a window
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    // Not touched after OnWndMsg has dealt with the message: the object may be gone.
    return OnWndMsg(message, wParam, lParam, &result) ? result : DefWindowProc(message, wParam, lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    if (message == WM_COMMAND) {
        *result = 1;
        return OnCommand(wParam, lParam);
    }
    const AFX_MSGMAP_ENTRY* entry = AfxFindMessageEntry(GetMessageMap(), message);
    if (entry)
        *result = entry->pfn(this, wParam, lParam);
    return entry != nullptr;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT id = LOWORD(wParam);
    const WndState* state = AfxWndState();
    if (lParam && state && state->silenced == m_hWnd)
        return TRUE;
    // The high word of a menu's or an accelerator's command is no notification code.
    const int code = lParam ? HIWORD(wParam) : CN_COMMAND;
    return id != 0 && OnCmdMsg(id, code, nullptr, nullptr);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return m_pfnSuper ? ::CallWindowProcA(m_pfnSuper, m_hWnd, message, wParam, lParam)
                      : ::DefWindowProcA(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default()
{
    const MSG* current = GetCurrentMessage();
    return current ? DefWindowProc(current->message, current->wParam, current->lParam) : 0;
}

const MSG* CWnd::GetCurrentMessage()
{
    const WndState* state = AfxWndState();
    return state ? state->current : nullptr;
}

void CWnd::OnNcDestroy()
{
    // The end of a thread's main window is the end of the thread's work.
    if (LeaveThread(this))
        ::PostQuitMessage(0);
    const HWND window = m_hWnd;
    const WNDPROC super = m_pfnSuper;
    Default();
    // Somebody who stepped in after us holds our procedure and goes on calling it: leave it in place.
    if (super && ::GetWindowLongPtrA(window, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&AfxWndProc))
        ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(super));
    Detach();
    PostNcDestroy();
}

void CWnd::PostNcDestroy()
{
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::SendMessageA(Live(), message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::PostMessageA(Live(), message, wParam, lParam);
}

UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC callback)
{
    return ::SetTimer(Live(), id, milliseconds, callback);
}

namespace {

struct Sending {
    HWND parent;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    BOOL deep;
    BOOL onlyPermanent;
};

BOOL CALLBACK SendTo(HWND window, LPARAM data)
{
    const Sending& sending = *reinterpret_cast<const Sending*>(data);
    if (!sending.deep && ::GetParent(window) != sending.parent)
        return TRUE;
    CWnd* object = CWnd::FromHandlePermanent(window);
    if (object)
        AfxCallWndProc(object, window, sending.message, sending.wParam, sending.lParam);
    else if (!sending.onlyPermanent)
        ::SendMessageA(window, sending.message, sending.wParam, sending.lParam);
    return TRUE;
}

} // namespace

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL deep, BOOL onlyPermanent)
{
    const Sending sending = {Live(), message, wParam, lParam, deep, onlyPermanent};
    ::EnumChildWindows(m_hWnd, SendTo, reinterpret_cast<LPARAM>(&sending));
}

BOOL CWnd::PreTranslateMessage(MSG*)
{
    return FALSE;
}

BOOL CWnd::PreTranslateInput(LPMSG message)
{
    const bool isKey = message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
    return isKey && IsDialogMessage(message);
}

BOOL CWnd::WalkPreTranslateTree(HWND stop, MSG* message)
{
    for (HWND window = message->hwnd; window; window = ::GetParent(window)) {
        CWnd* object = FromHandlePermanent(window);
        if (object && object->PreTranslateMessage(message))
            return TRUE;
        if (window == stop)
            break;
    }
    return FALSE;
}

int CWnd::MessageBox(LPCSTR text, LPCSTR caption, UINT style)
{
    return ::MessageBoxA(GetSafeHwnd(), text, caption ? caption : AfxGetAppName(), style);
}
