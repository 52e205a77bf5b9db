// Where the keyboard is in a dialog, and which button Enter presses.
#pragma once

#include "State.h"

// What the control wants and is (DLGC_...); 0 for none.
UINT DialogCode(HWND control);

// Selects the text of an edit; other controls have none.
void SelectAll(HWND control);
// Gives the control the keyboard, an edit's text selected, and moves the default button with it.
void MoveFocus(HWND dialog, HWND control);

// Gives the keyboard to the control that had it, or to the first.
void RestoreFocus(HWND dialog, DialogState& state);
void SaveFocus(HWND dialog, DialogState& state);

// The push button that Enter presses, if the dialog has one.
void SetDefaultId(HWND dialog, DialogState& state, UINT id);
HWND DefaultButton(HWND dialog);
