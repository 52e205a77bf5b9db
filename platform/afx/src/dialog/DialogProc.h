// Where a dialog's messages first arrive.
#pragma once

#include <windows.h>

// Gives the dialog in making its object, and has the object's OnInitDialog called.
INT_PTR CALLBACK AfxDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
