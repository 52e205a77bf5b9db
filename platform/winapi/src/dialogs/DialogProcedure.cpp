// The procedure of the class "#32770".
#include "Focus.h"

#include <algorithm>
#include <iterator>

namespace {

// Messages whose answer is the dialog procedure's own.
bool AnswersItself(UINT message)
{
    constexpr UINT kOwn[] = {WM_INITDIALOG, WM_COMPAREITEM, WM_VKEYTOITEM, WM_CHARTOITEM};
    return (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) ||
           std::find(std::begin(kOwn), std::end(kOwn), message) != std::end(kOwn);
}

LRESULT DefaultIdOf(HWND dialog, const DialogState& state)
{
    if (state.defaultId)
        return MAKELONG(state.defaultId, DC_HASDEFID);
    const HWND button = DefaultButton(dialog);
    return button ? MAKELONG(GetDlgCtrlID(button), DC_HASDEFID) : 0;
}

void MoveToNext(HWND dialog, WPARAM which, LPARAM isHandle)
{
    const HWND next = isHandle ? reinterpret_cast<HWND>(which)
                               : GetNextDlgTabItem(dialog, GetFocus(), static_cast<BOOL>(which));
    if (next)
        MoveFocus(dialog, next);
}

// A disabled Cancel button keeps the close box from closing.
void CloseByCancel(HWND dialog)
{
    const HWND cancel = GetDlgItem(dialog, IDCANCEL);
    if (cancel && !IsWindowEnabled(cancel))
        MessageBeep(MB_OK);
    else
        PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), reinterpret_cast<LPARAM>(cancel));
}

// What a dialog does of its own; the rest is any window's.
LRESULT DefaultFor(HWND dialog, DialogState& state, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case DM_GETDEFID:
        return DefaultIdOf(dialog, state);
    case DM_SETDEFID:
        SetDefaultId(dialog, state, static_cast<UINT>(wParam));
        return TRUE;
    case WM_NEXTDLGCTL:
        MoveToNext(dialog, wParam, LOWORD(lParam));
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(state.font);
    case WM_SETFONT: // its controls have it already, and it shows no text of its own
        return 0;
    case WM_CLOSE:
        CloseByCancel(dialog);
        return 0;
    case WM_SETFOCUS:
        RestoreFocus(dialog, state);
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) == WA_INACTIVE)
            SaveFocus(dialog, state);
        else if (!state.ended)
            RestoreFocus(dialog, state);
        return 0;
    case WM_SHOWWINDOW:
        if (!wParam)
            SaveFocus(dialog, state);
        break;
    default:
        break;
    }
    return DefWindowProcA(dialog, message, wParam, lParam);
}

LRESULT CallProcedure(DLGPROC procedure, HWND dialog, UINT message, WPARAM wParam, LPARAM lParam,
                      bool& handled)
{
    SetWindowLongPtrA(dialog, DWLP_MSGRESULT, 0);
    const INT_PTR answer = procedure(dialog, message, wParam, lParam);
    handled = answer != 0;
    return AnswersItself(message) ? answer : GetWindowLongPtrA(dialog, DWLP_MSGRESULT);
}

} // namespace

LRESULT WINAPI DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrA(dialog, DWLP_DLGPROC));
    bool handled = false;
    LRESULT answer = 0;
    if (procedure)
        answer = CallProcedure(procedure, dialog, message, wParam, lParam, handled);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrA(dialog, DWLP_DLGPROC, 0);
        DropState(dialog);
    }
    if (handled || !IsWindow(dialog))
        return answer;
    if (DialogState* state = StateOf(dialog))
        return DefaultFor(dialog, *state, message, wParam, lParam);
    return DefWindowProcA(dialog, message, wParam, lParam);
}
