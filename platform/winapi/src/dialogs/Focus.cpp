#include "Focus.h"

#include "TabOrder.h"

namespace {

constexpr UINT kPushButton = DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON;

void SetDefaultLook(HWND button, bool isDefault)
{
    const UINT look = isDefault ? DLGC_UNDEFPUSHBUTTON : DLGC_DEFPUSHBUTTON;
    if (button && (DialogCode(button) & look))
        SendMessageA(button, BM_SETSTYLE, isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

// At any time one button looks like the default one.
void SetLooks(HWND dialog, HWND isDefault)
{
    for (const HWND control : ControlsOf(dialog))
        if (control != isDefault)
            SetDefaultLook(control, false);
    SetDefaultLook(isDefault, true);
}

} // namespace

UINT DialogCode(HWND control)
{
    return control ? static_cast<UINT>(SendMessageA(control, WM_GETDLGCODE, 0, 0)) : 0;
}

void SelectAll(HWND control)
{
    if (DialogCode(control) & DLGC_HASSETSEL)
        SendMessageA(control, EM_SETSEL, 0, -1);
}

void MoveFocus(HWND dialog, HWND control)
{
    SelectAll(control);
    SetFocus(control);
    const DialogState* state = StateOf(dialog);
    if (!state)
        return;
    const bool presses = DialogCode(control) & kPushButton;
    SetLooks(dialog, presses ? control : GetDlgItem(dialog, static_cast<int>(state->defaultId)));
}

void RestoreFocus(HWND dialog, DialogState& state)
{
    HWND control = state.focus;
    if (!control || !IsChild(dialog, control))
        control = GetNextDlgTabItem(dialog, nullptr, FALSE);
    if (!control)
        control = GetNextDlgGroupItem(dialog, nullptr, FALSE);
    state.focus = nullptr;
    if (control)
        SetFocus(control);
}

void SaveFocus(HWND dialog, DialogState& state)
{
    const HWND focus = GetFocus();
    if (focus && IsChild(dialog, focus))
        state.focus = focus;
}

void SetDefaultId(HWND dialog, DialogState& state, UINT id)
{
    state.defaultId = id;
    SetLooks(dialog, GetDlgItem(dialog, static_cast<int>(id)));
}

HWND DefaultButton(HWND dialog)
{
    for (const HWND control : ControlsOf(dialog))
        if (DialogCode(control) & DLGC_DEFPUSHBUTTON)
            return control;
    return nullptr;
}
