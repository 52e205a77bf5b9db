// The end of windows.
#pragma once

#include "Window.h"

// Ends the window's children and itself, with WM_NCDESTROY and nothing before.
void FreeWindow(const WindowRef& window);
// Takes it away without a word.
void DropWindow(const WindowRef& window);
