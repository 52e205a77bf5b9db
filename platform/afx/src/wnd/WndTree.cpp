#include <afxwnd_.h>

CWnd* CWnd::SetParent(CWnd* parent)
{
    return FromHandle(::SetParent(Live(), parent ? parent->GetSafeHwnd() : nullptr));
}

CWnd* CWnd::GetOwner() const
{
    return m_hWndOwner ? FromHandle(m_hWndOwner) : GetParent();
}

void CWnd::SetOwner(CWnd* owner)
{
    m_hWndOwner = owner ? owner->m_hWnd : nullptr;
}

CWnd* CWnd::GetTopLevelParent() const
{
    HWND top = Live();
    for (HWND parent = top; parent; parent = ::GetParent(parent))
        top = parent;
    return FromHandle(top);
}

CWnd* CWnd::FindWindow(LPCSTR className, LPCSTR name)
{
    return FromHandle(::FindWindowA(className, name));
}

BOOL CWnd::IsFrameWnd() const
{
    return FALSE;
}

CWnd* CWnd::GetDescendantWindow(int id, BOOL onlyPermanent) const
{
    // The nearest level first: a page's controls may repeat the identifiers of the dialog's own.
    const HWND control = ::GetDlgItem(Live(), id);
    if (control && (!onlyPermanent || FromHandlePermanent(control)))
        return FromHandle(control);
    for (HWND child = ::GetTopWindow(m_hWnd); child; child = ::GetWindow(child, GW_HWNDNEXT))
        if (CWnd* found = FromHandle(child)->GetDescendantWindow(id, onlyPermanent))
            return found;
    return nullptr;
}

CWnd* CWnd::GetNextDlgTabItem(CWnd* control, BOOL previous) const
{
    return FromHandle(::GetNextDlgTabItem(Live(), control->GetSafeHwnd(), previous));
}

CWnd* CWnd::GetNextDlgGroupItem(CWnd* control, BOOL previous) const
{
    return FromHandle(::GetNextDlgGroupItem(Live(), control->GetSafeHwnd(), previous));
}
