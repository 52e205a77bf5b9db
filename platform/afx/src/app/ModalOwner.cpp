#include "ModalOwner.h"

#include <afxwin.h>

namespace {

bool IsChild(HWND window)
{
    return ::GetWindowLong(window, GWL_STYLE) & WS_CHILD;
}

// A child cannot own a box.
HWND PopupOf(HWND window)
{
    while (window && IsChild(window))
        window = ::GetParent(window);
    return window;
}

HWND TopOf(HWND window)
{
    while (const HWND above = window ? ::GetParent(window) : nullptr)
        window = above;
    return window;
}

} // namespace

AfxModalOwner::AfxModalOwner()
{
    const CWnd* main = AfxGetMainWnd();
    const HWND popup = PopupOf(main ? main->m_hWnd : nullptr);
    if (!popup)
        return;
    const HWND top = TopOf(popup);
    m_owner = ::GetLastActivePopup(popup);
    if (top != m_owner && ::IsWindowEnabled(top)) {
        ::EnableWindow(top, FALSE);
        m_disabled = top;
    }
}

AfxModalOwner::~AfxModalOwner()
{
    if (m_disabled)
        ::EnableWindow(m_disabled, TRUE);
}
