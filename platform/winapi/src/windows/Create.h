// Making windows.
#pragma once

#include <windows.h>

// What CreateWindowExA does for every window but the children of an MDI client.
HWND MakeAsAsked(const CREATESTRUCTA& create);
// A child of an MDI client: with the styles of its kind, a place and a number, and active when it is visible.
// Null, with ERROR_NON_MDICHILD_WINDOW, for another parent.
HWND MakeMdiChild(const CREATESTRUCTA& create);
