// What the keys do in a dialog.
#include "../Error.h"
#include "Focus.h"
#include "Mnemonics.h"
#include "TabOrder.h"

namespace {

void Command(HWND dialog, int id, HWND control)
{
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(control));
}

void Cancel(HWND dialog)
{
    const HWND button = GetDlgItem(dialog, IDCANCEL);
    if (button && !IsWindowEnabled(button))
        MessageBeep(MB_OK);
    else
        Command(dialog, IDCANCEL, button);
}

// The push button with the keyboard, else the dialog's default one, else what would be OK.
void Press(HWND dialog)
{
    const HWND focus = GetFocus();
    const bool onButton = DialogCode(focus) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON);
    if (onButton && GetAncestor(focus, GA_PARENT) != dialog)
        return Command(GetAncestor(focus, GA_PARENT), GetDlgCtrlID(focus), focus);
    const LRESULT standard = SendMessageA(dialog, DM_GETDEFID, 0, 0);
    const bool hasStandard = HIWORD(standard) == DC_HASDEFID;
    const int id = onButton ? GetDlgCtrlID(focus) : hasStandard ? LOWORD(standard) : IDOK;
    const HWND button = onButton ? focus : GetDlgItem(dialog, id);
    if (button && !IsWindowEnabled(button))
        MessageBeep(MB_OK);
    else
        Command(dialog, id, button);
}

// A window that the dialog manager did not make knows no WM_NEXTDLGCTL.
void GoTo(HWND dialog, HWND control)
{
    if (StateOf(dialog))
        SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    else
        MoveFocus(dialog, control);
}

void GoToNext(HWND dialog, bool backwards)
{
    if (StateOf(dialog))
        SendMessageA(dialog, WM_NEXTDLGCTL, backwards, FALSE);
    else if (const HWND next = GetNextDlgTabItem(dialog, GetFocus(), backwards))
        MoveFocus(dialog, next);
}

// Within its group; a radio button that gets the keyboard is chosen too.
void MoveInGroup(HWND dialog, bool backwards)
{
    const HWND focus = GetFocus();
    const HWND next = GetNextDlgGroupItem(dialog, focus, backwards);
    if (!next || next == focus)
        return;
    GoTo(dialog, next);
    const LONG kind = GetWindowLongA(next, GWL_STYLE) & BS_TYPEMASK;
    if ((DialogCode(next) & DLGC_RADIOBUTTON) && kind == BS_AUTORADIOBUTTON &&
        SendMessageA(next, BM_GETCHECK, 0, 0) != BST_CHECKED)
        SendMessageA(next, BM_CLICK, 0, 0);
}

bool KeyDown(HWND dialog, WPARAM key, UINT wanted)
{
    switch (key) {
    case VK_TAB:
        if (wanted & DLGC_WANTTAB)
            return false;
        GoToNext(dialog, GetKeyState(VK_SHIFT) < 0);
        return true;
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
        if (wanted & DLGC_WANTARROWS)
            return false;
        MoveInGroup(dialog, key == VK_LEFT || key == VK_UP);
        return true;
    case VK_ESCAPE:
    case VK_CANCEL:
        Cancel(dialog);
        return true;
    case VK_RETURN:
    case VK_EXECUTE:
        Press(dialog);
        return true;
    default:
        return false;
    }
}

bool Deal(HWND dialog, MSG& message)
{
    switch (message.message) {
    case WM_KEYDOWN:
    case WM_CHAR:
    case WM_SYSCHAR:
        break;
    default:
        return false;
    }
    if (message.message == WM_SYSCHAR)
        return PressMnemonic(dialog, message.hwnd, message.wParam);
    const auto wanted = static_cast<UINT>(
        SendMessageA(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message)));
    if (wanted & DLGC_WANTMESSAGE)
        return false;
    if (message.message == WM_KEYDOWN)
        return KeyDown(dialog, message.wParam, wanted);
    // A blank presses the button itself.
    return !(wanted & DLGC_WANTCHARS) && message.wParam != ' ' &&
           PressMnemonic(dialog, message.hwnd, message.wParam);
}

} // namespace

BOOL WINAPI IsDialogMessageA(HWND dialog, MSG* message)
{
    if (!IsWindow(dialog) || !message || !message->hwnd ||
        (message->hwnd != dialog && !IsChild(dialog, message->hwnd)))
        return FALSE;
    if (Deal(dialog, *message))
        return TRUE;
    TranslateMessage(message);
    DispatchMessageA(message);
    return TRUE;
}
