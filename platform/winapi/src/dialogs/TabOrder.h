// The controls of a dialog in the order that Tab and the arrows follow.
#pragma once

#include <winuser.h>

#include <vector>

// The controls below `dialog` from the first to the last; those of a visible, enabled child with
// WS_EX_CONTROLPARENT stand in its place.
std::vector<HWND> ControlsOf(HWND dialog);

// To be seen, by its own style, and enabled.
bool CanTakeKeys(HWND control);

// The child of `dialog` that holds `window`, or is it; null when it lies outside.
HWND ChildHolding(HWND dialog, HWND window);
