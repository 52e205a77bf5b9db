#include <afxdd_.h>

namespace {

LRESULT Ask(HWND control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return ::SendMessageA(control, message, wParam, lParam);
}

LRESULT AskWithText(HWND control, UINT message, LPCSTR text)
{
    return Ask(control, message, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text));
}

bool IsRadio(HWND control)
{
    return (Ask(control, WM_GETDLGCODE) & DLGC_RADIOBUTTON) != 0;
}

// The next control of the group; null at its end.
HWND NextOfGroup(HWND control)
{
    const HWND next = ::GetWindow(control, GW_HWNDNEXT);
    return next && (::GetWindowLongA(next, GWL_STYLE) & WS_GROUP) == 0 ? next : nullptr;
}

CString SelectedText(HWND list)
{
    CString text;
    const LRESULT index = Ask(list, LB_GETCURSEL);
    if (index < 0)
        return text;
    const auto entry = static_cast<WPARAM>(index);
    const int length = static_cast<int>(Ask(list, LB_GETTEXTLEN, entry));
    Ask(list, LB_GETTEXT, entry, reinterpret_cast<LPARAM>(text.GetBuffer(length + 1)));
    text.ReleaseBuffer();
    return text;
}

void ExchangeIndex(CDataExchange* exchange, int id, int& index, UINT get, UINT set)
{
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        index = static_cast<int>(Ask(control, get));
    else
        // All ones, in the parameter's own width, is how "none" is asked for.
        Ask(control, set, static_cast<WPARAM>(index));
}

} // namespace

void AFXAPI DDX_Check(CDataExchange* exchange, int id, int& value)
{
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate) {
        value = static_cast<int>(Ask(control, BM_GETCHECK));
        return;
    }
    if (value < BST_UNCHECKED || value > BST_INDETERMINATE)
        value = BST_UNCHECKED;
    Ask(control, BM_SETCHECK, static_cast<WPARAM>(value));
}

void AFXAPI DDX_Radio(CDataExchange* exchange, int id, int& value)
{
    HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = -1;
    int button = 0;
    for (; control; control = NextOfGroup(control)) {
        if (!IsRadio(control))
            continue;
        if (!exchange->m_bSaveAndValidate)
            Ask(control, BM_SETCHECK, button == value ? BST_CHECKED : BST_UNCHECKED);
        else if (Ask(control, BM_GETCHECK) != BST_UNCHECKED)
            value = button;
        ++button;
    }
}

void AFXAPI DDX_LBString(CDataExchange* exchange, int id, CString& value)
{
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = SelectedText(control);
    else
        AskWithText(control, LB_SELECTSTRING, value);
}

void AFXAPI DDX_LBStringExact(CDataExchange* exchange, int id, CString& value)
{
    if (exchange->m_bSaveAndValidate) {
        DDX_LBString(exchange, id, value);
        return;
    }
    const HWND control = exchange->PrepareCtrl(id);
    const LRESULT index = AskWithText(control, LB_FINDSTRINGEXACT, value);
    if (index >= 0)
        Ask(control, LB_SETCURSEL, static_cast<WPARAM>(index));
}

void AFXAPI DDX_LBIndex(CDataExchange* exchange, int id, int& index)
{
    ExchangeIndex(exchange, id, index, LB_GETCURSEL, LB_SETCURSEL);
}

void AFXAPI DDX_CBString(CDataExchange* exchange, int id, CString& value)
{
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        CWnd::FromHandle(control)->GetWindowText(value);
    else if (AskWithText(control, CB_SELECTSTRING, value) < 0)
        ::SetWindowTextA(control, value);
}

void AFXAPI DDX_CBStringExact(CDataExchange* exchange, int id, CString& value)
{
    if (exchange->m_bSaveAndValidate) {
        DDX_CBString(exchange, id, value);
        return;
    }
    const HWND control = exchange->PrepareCtrl(id);
    const LRESULT index = AskWithText(control, CB_FINDSTRINGEXACT, value);
    if (index < 0)
        ::SetWindowTextA(control, value);
    else
        Ask(control, CB_SETCURSEL, static_cast<WPARAM>(index));
}

void AFXAPI DDX_CBIndex(CDataExchange* exchange, int id, int& index)
{
    ExchangeIndex(exchange, id, index, CB_GETCURSEL, CB_SETCURSEL);
}
