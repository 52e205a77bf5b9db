// Device contexts of windows, and the mouse's cursor.
#pragma once

#include "libloaderapi.h"
#include "windef.h"

// A display context with fresh settings: of the window, null: of the screen. ReleaseDC ends it, the window's
// end does not. Fails with ERROR_INVALID_WINDOW_HANDLE.
WINBASEAPI HDC WINAPI GetDC(HWND window);
WINBASEAPI HDC WINAPI GetWindowDC(HWND window);
// 1, or 0 for a context that neither of these two made.
WINBASEAPI int WINAPI ReleaseDC(HWND window, HDC dc);

#define IDC_ARROW MAKEINTRESOURCEA(32512)
#define IDC_IBEAM MAKEINTRESOURCEA(32513)
#define IDC_WAIT MAKEINTRESOURCEA(32514)
#define IDC_CROSS MAKEINTRESOURCEA(32515)
#define IDC_UPARROW MAKEINTRESOURCEA(32516)
#define IDC_SIZENWSE MAKEINTRESOURCEA(32642)
#define IDC_SIZENESW MAKEINTRESOURCEA(32643)
#define IDC_SIZEWE MAKEINTRESOURCEA(32644)
#define IDC_SIZENS MAKEINTRESOURCEA(32645)
#define IDC_SIZEALL MAKEINTRESOURCEA(32646)
#define IDC_NO MAKEINTRESOURCEA(32648)
#define IDC_HAND MAKEINTRESOURCEA(32649)
#define IDC_APPSTARTING MAKEINTRESOURCEA(32650)
#define IDC_HELP MAKEINTRESOURCEA(32651)

// One of the shapes above, the same handle each time, never destroyed; null with
// ERROR_RESOURCE_NAME_NOT_FOUND for another. Differs: no cursors of modules (`module` must be null).
WINBASEAPI HCURSOR WINAPI LoadCursorA(HINSTANCE module, LPCSTR name);
#define LoadCursor LoadCursorA
// The cursor before; null stands for none. It is shown over the program's windows until the next call.
// Differs: moving the mouse never changes it; over a control that has a cursor of its own that one is shown.
WINBASEAPI HCURSOR WINAPI SetCursor(HCURSOR cursor);
WINBASEAPI HCURSOR WINAPI GetCursor();
// Counts up or down from 0 and answers the count; below 0 the cursor is hidden.
WINBASEAPI int WINAPI ShowCursor(BOOL show);
