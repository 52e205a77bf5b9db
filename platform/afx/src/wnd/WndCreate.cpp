#include "WndProc.h"

#include <afxdll_.h>

namespace {

// Whether a window of the class sends its very first message to AfxWndProc.
bool IsOwnClass(const CREATESTRUCTA& description)
{
    WNDCLASSA known = {};
    return ::GetClassInfoA(description.hInstance, description.lpszClass, &known) &&
           known.lpfnWndProc == AfxWndProc;
}

HWND MakeWindow(const CREATESTRUCTA& description)
{
    return ::CreateWindowExA(description.dwExStyle, description.lpszClass, description.lpszName,
                             static_cast<DWORD>(description.style), description.x, description.y,
                             description.cx, description.cy, description.hwndParent, description.hMenu,
                             description.hInstance, description.lpCreateParams);
}

// Whether the window stands; `taken` tells whether it ever was the object's.
bool MakeOwnWindow(CWnd* object, const CREATESTRUCTA& description, bool& taken)
{
    WndState* state = AfxWndState();
    const AfxRestored<CWnd*> restored(state->windowInMaking, object);
    const HWND window = MakeWindow(description);
    taken = state->windowInMaking != object;
    return window != nullptr;
}

bool MakeForeignWindow(CWnd* object, const CREATESTRUCTA& description, bool& taken)
{
    const HWND window = MakeWindow(description);
    taken = window && object->SubclassWindow(window);
    return taken;
}

} // namespace

BOOL CWnd::Create(LPCSTR className, LPCSTR name, DWORD style, const RECT& rect, CWnd* parent, UINT id,
                  CCreateContext* context)
{
    if (!parent || (style & WS_POPUP) != 0)
        return FALSE; // children only; CreateEx makes the others
    return CreateEx(0, className, name, style | WS_CHILD, rect, parent, id, context);
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCSTR className, LPCSTR name, DWORD style, const RECT& rect, CWnd* parent,
                    UINT id, LPVOID parameter)
{
    return CreateEx(exStyle, className, name, style, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, parent ? parent->GetSafeHwnd() : nullptr,
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), parameter);
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCSTR className, LPCSTR name, DWORD style, int x, int y, int width,
                    int height, HWND parent, HMENU idOrMenu, LPVOID parameter)
{
    if (m_hWnd)
        return FALSE;
    CREATESTRUCTA description = {parameter, AfxGetInstanceHandle(),   idOrMenu, parent,    height, width, y,
                                 x,         static_cast<LONG>(style), name,     className, exStyle};
    if (!AfxWndState() || !PreCreateWindow(description)) {
        PostNcDestroy();
        return FALSE;
    }
    bool taken = false;
    const bool made = IsOwnClass(description) ? MakeOwnWindow(this, description, taken)
                                              : MakeForeignWindow(this, description, taken);
    // A window that was this object's has called PostNcDestroy at its end: the object may be gone.
    if (!taken)
        PostNcDestroy();
    return made;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCTA& description)
{
    if (!description.lpszClass)
        description.lpszClass = AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW);
    return TRUE;
}

void CWnd::PreSubclassWindow()
{
}

void WndAccess::Hook(CWnd* object)
{
    const auto hook = reinterpret_cast<LONG_PTR>(&AfxWndProc);
    const LONG_PTR before = ::SetWindowLongPtrA(object->m_hWnd, GWLP_WNDPROC, hook);
    if (before != hook)
        object->m_pfnSuper = reinterpret_cast<WNDPROC>(before);
}

BOOL CWnd::SubclassWindow(HWND window)
{
    if (!Attach(window))
        return FALSE;
    PreSubclassWindow();
    WndAccess::Hook(this);
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent)
{
    const HWND window = ::GetDlgItem(parent->GetSafeHwnd(), static_cast<int>(id));
    return window && SubclassWindow(window);
}

HWND CWnd::UnsubclassWindow()
{
    if (m_pfnSuper)
        ::SetWindowLongPtrA(Live(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
    return Detach();
}

BOOL CWnd::DestroyWindow()
{
    if (!m_hWnd)
        return FALSE;
    const HWND window = m_hWnd;
    const bool own = FromHandlePermanent(window) == this;
    const BOOL destroyed = ::DestroyWindow(window);
    // A window that was attached but never subclassed did not tell.
    if (own && destroyed && FromHandlePermanent(window) == this)
        Detach();
    return destroyed;
}
