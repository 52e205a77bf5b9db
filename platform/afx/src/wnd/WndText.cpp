#include <afxwnd_.h>

HWND CWnd::GetSafeHwnd() const
{
    // Hosts call this with a null pointer; a compiler that sees plain `this` thinks it knows better.
    const CWnd* const volatile self = this;
    return self ? self->m_hWnd : nullptr;
}

void CWnd::SetWindowText(LPCSTR text)
{
    ::SetWindowTextA(Live(), text);
}

void CWnd::GetWindowText(CString& text) const
{
    const int length = GetWindowTextLength();
    ::GetWindowTextA(m_hWnd, text.GetBuffer(length + 1), length + 1);
    text.ReleaseBuffer();
}

int CWnd::GetDlgItemText(int id, LPSTR buffer, int size) const
{
    return static_cast<int>(::GetDlgItemTextA(Live(), id, buffer, size));
}

int CWnd::GetDlgItemText(int id, CString& text) const
{
    text.Empty();
    const HWND control = ::GetDlgItem(Live(), id);
    if (control)
        FromHandle(control)->GetWindowText(text);
    return text.GetLength();
}

UINT CWnd::GetDlgItemInt(int id, BOOL* translated, BOOL isSigned) const
{
    return ::GetDlgItemInt(Live(), id, translated, isSigned);
}

void CWnd::SetDlgItemInt(int id, UINT value, BOOL isSigned)
{
    ::SetDlgItemInt(Live(), id, value, isSigned);
}

LRESULT CWnd::SendDlgItemMessage(int id, UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::SendDlgItemMessageA(Live(), id, message, wParam, lParam);
}

int CWnd::GetCheckedRadioButton(int first, int last) const
{
    for (int id = first; id <= last; ++id)
        if (IsDlgButtonChecked(id) != 0)
            return id;
    return 0;
}

int CWnd::SetDlgCtrlID(int id)
{
    return static_cast<int>(::SetWindowLongPtrA(Live(), GWLP_ID, id));
}

namespace {

BOOL ModifyLong(HWND window, int index, DWORD remove, DWORD add, UINT flags)
{
    const auto before = static_cast<DWORD>(::GetWindowLongA(window, index));
    const DWORD after = (before & ~remove) | add;
    if (before == after)
        return FALSE;
    ::SetWindowLongA(window, index, static_cast<LONG>(after));
    constexpr UINT kInPlace = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;
    if (flags != 0)
        ::SetWindowPos(window, nullptr, 0, 0, 0, 0, kInPlace | flags);
    return TRUE;
}

} // namespace

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT flags)
{
    return ModifyLong(Live(), GWL_STYLE, remove, add, flags);
}

BOOL CWnd::ModifyStyleEx(DWORD remove, DWORD add, UINT flags)
{
    return ModifyLong(Live(), GWL_EXSTYLE, remove, add, flags);
}
