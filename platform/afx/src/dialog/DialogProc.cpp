#include "DialogProc.h"

#include "../wnd/WndProc.h"

#include <afxdlg_.h>

namespace {

// The dialog's first message goes to the object as all later ones will. Its answer is the final one: the
// object has asked the system's procedure itself.
INT_PTR FirstMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    WndState* state = AfxWndState();
    CWnd* object = state ? state->dialogInMaking : nullptr;
    if (!object)
        return FALSE;
    state->dialogInMaking = nullptr;
    if (!object->SubclassWindow(window))
        return FALSE;
    const LRESULT result = AfxCallWndProc(object, window, message, wParam, lParam);
    if (message == WM_INITDIALOG)
        return result;
    ::SetWindowLongPtrA(window, DWLP_MSGRESULT, result);
    return TRUE;
}

INT_PTR Initialised(CDialog* dialog, const MSG& message)
{
    try {
        return dialog->OnInitDialog();
    } catch (...) {
        AfxReportCaught(message);
    }
    dialog->EndDialog(-1);
    return FALSE;
}

} // namespace

INT_PTR CALLBACK AfxDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* object = CWnd::FromHandlePermanent(window);
    if (!object)
        return FirstMessage(window, message, wParam, lParam);
    CDialog* dialog = DYNAMIC_DOWNCAST(CDialog, object);
    if (message != WM_INITDIALOG)
        return FALSE;
    return dialog ? Initialised(dialog, MSG{window, message, wParam, lParam, 0, {0, 0}}) : TRUE;
}
