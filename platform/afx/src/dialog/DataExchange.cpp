#include <afxapp_.h>
#include <afxdd_.h>

#include "../wnd/WndState.h"

CDataExchange::CDataExchange(CWnd* window, BOOL saveAndValidate)
    : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(window)
{
}

HWND CDataExchange::PrepareCtrl(int id)
{
    const HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, id);
    if (!control)
        AfxThrowNotSupportedException();
    m_hWndLastControl = control;
    m_bEditLastControl = FALSE;
    return control;
}

HWND CDataExchange::PrepareEditCtrl(int id)
{
    const HWND control = PrepareCtrl(id);
    m_bEditLastControl = TRUE;
    return control;
}

void CDataExchange::Fail()
{
    if (m_bSaveAndValidate && m_hWndLastControl) {
        ::SetFocus(m_hWndLastControl);
        if (m_bEditLastControl)
            ::SendMessageA(m_hWndLastControl, EM_SETSEL, 0, -1);
    }
    AfxThrowUserException();
}

BOOL CWnd::UpdateData(BOOL saveAndValidate)
{
    WndState* state = AfxWndState();
    if (!state || !::IsWindow(m_hWnd))
        return FALSE;
    // What the exchange does to the controls is not the user's doing.
    const AfxRestored<HWND> restored(state->silenced, m_hWnd);
    CDataExchange exchange(this, saveAndValidate);
    try {
        DoDataExchange(&exchange);
        return TRUE;
    } catch (CUserException* exception) {
        exception->Delete();
    } catch (CException* exception) {
        exception->ReportError(MB_ICONEXCLAMATION);
        exception->Delete();
    }
    return FALSE;
}

void CWnd::DoDataExchange(CDataExchange*)
{
}

void AFXAPI DDX_Control(CDataExchange* exchange, int id, CWnd& control)
{
    if (control.m_hWnd)
        return;
    if (!control.SubclassWindow(exchange->PrepareCtrl(id)))
        AfxThrowNotSupportedException();
}
