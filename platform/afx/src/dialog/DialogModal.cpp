#include <afxapp_.h>
#include <afxdlg_.h>
#include <afxdll_.h>

#include "../wnd/WndProc.h"
#include "DialogTemplate.h"

namespace {

bool IsChildWindow(HWND window)
{
    return (::GetWindowLongA(window, GWL_STYLE) & WS_CHILD) != 0;
}

HWND TopOf(HWND window)
{
    HWND top = window;
    for (HWND parent = window; parent; parent = ::GetParent(parent))
        top = parent;
    return top;
}

// A dialog's owner is no child, and an unnamed owner's newest popup rather than itself.
HWND OwnerFor(const CWnd* parent)
{
    const bool named = parent && parent->m_hWnd;
    const CWnd* start = named ? parent : AfxGetMainWnd();
    HWND owner = start ? start->m_hWnd : nullptr;
    while (owner && IsChildWindow(owner))
        owner = ::GetParent(owner);
    return owner && !named ? ::GetLastActivePopup(owner) : owner;
}

// Whether the window was enabled.
bool Disable(HWND window)
{
    if (!window || window == ::GetDesktopWindow() || !::IsWindowEnabled(window))
        return false;
    ::EnableWindow(window, FALSE);
    return true;
}

void Enable(HWND window, bool enable)
{
    if (window && ::IsWindow(window))
        ::EnableWindow(window, enable);
}

} // namespace

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATEA shape, CWnd* parent)
{
    m_lpDialogTemplate = shape;
    if (!m_pParentWnd)
        m_pParentWnd = parent;
    return TRUE;
}

HWND CDialog::PreModal()
{
    const HWND owner = OwnerFor(m_pParentWnd);
    const HWND top = TopOf(owner);
    if (top != owner && Disable(top))
        m_hWndTop = top;
    return owner;
}

void CDialog::PostModal()
{
    Enable(m_hWndTop, true);
    m_hWndTop = nullptr;
}

INT_PTR CDialog::DoModal()
{
    HINSTANCE module = AfxGetResourceHandle();
    LPCDLGTEMPLATEA shape =
        m_lpszTemplateName ? AfxFindDialogTemplate(m_lpszTemplateName, module) : m_lpDialogTemplate;
    if (!shape || m_hWnd)
        return -1;
    const HWND owner = PreModal();
    const bool wasEnabled = Disable(owner);
    try {
        RunModal(shape, owner, module);
    } catch (CException* exception) {
        exception->Delete();
        m_nModalResult = -1;
    } catch (...) {
        EndModal(owner, wasEnabled);
        throw;
    }
    EndModal(owner, wasEnabled);
    return m_nModalResult;
}

void CDialog::RunModal(LPCDLGTEMPLATEA shape, HWND owner, HINSTANCE module)
{
    constexpr UINT kHide = SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER;
    if (!MakeWindow(shape, owner, module))
        return;
    const bool quiet = (GetStyle() & DS_NOIDLEMSG) != 0;
    RunModalLoop(MLF_SHOWONIDLE | (quiet ? MLF_NOIDLEMSG : 0));
    if (m_hWnd)
        SetWindowPos(nullptr, 0, 0, 0, 0, kHide);
}

void CDialog::EndModal(HWND owner, bool wasEnabled)
{
    // The owner first, for the system makes active what is enabled.
    // Ending a dialog enables its owner, also one that somebody else had disabled.
    Enable(owner, wasEnabled);
    if (owner && m_hWnd && ::GetActiveWindow() == m_hWnd)
        ::SetActiveWindow(owner);
    DestroyWindow();
    PostModal();
}
