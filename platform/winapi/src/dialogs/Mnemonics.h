// The underlined letters of controls.
#pragma once

#include <winuser.h>

// Presses or goes to the control whose mnemonic `character` is, looking on from `from`; whether there is one.
bool PressMnemonic(HWND dialog, HWND from, WPARAM character);
