// Where windows' messages arrive.
#pragma once

#include "WndState.h"

// The procedure of windows that have an object.
LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Hands the message to the object. No exception comes out: it is shown, and the answer is 0 (-1 for
// WM_CREATE, which ends the creation). The object may be gone afterwards.
LRESULT AfxCallWndProc(CWnd* object, HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// For a catch (...) at a border: shows what was caught there. The answer to the message.
LRESULT AfxReportCaught(const MSG& message);

// What sources of this folder may do with a window's object.
struct WndAccess {
    static LRESULT Call(CWnd* object, UINT message, WPARAM wParam, LPARAM lParam)
    {
        return object->WindowProc(message, wParam, lParam);
    }
    static void End(CWnd* object) { object->PostNcDestroy(); }
    // Puts AfxWndProc before the window's own procedure.
    static void Hook(CWnd* object);
};
