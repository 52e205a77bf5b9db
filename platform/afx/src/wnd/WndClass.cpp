#include "WndProc.h"

#include <afxdll_.h>

#include <cstdio>

BOOL AFXAPI AfxRegisterClass(WNDCLASSA* description)
{
    WNDCLASSA wanted = *description;
    if (wanted.lpfnWndProc == &::DefWindowProcA)
        wanted.lpfnWndProc = AfxWndProc;
    WNDCLASSA known = {};
    if (::GetClassInfoA(wanted.hInstance, wanted.lpszClassName, &known))
        return TRUE;
    // Another thread may have been faster.
    return ::RegisterClassA(&wanted) != 0 || ::GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

LPCSTR AFXAPI AfxRegisterWndClass(UINT style, HCURSOR cursor, HBRUSH brush, HICON icon)
{
    thread_local char name[96];
    const HINSTANCE instance = AfxGetInstanceHandle();
    std::snprintf(name, sizeof name, "Afx:%p:%x:%p:%p:%p", static_cast<void*>(instance), style,
                  static_cast<void*>(cursor), static_cast<void*>(brush), static_cast<void*>(icon));
    WNDCLASSA description = {};
    description.style = style;
    description.lpfnWndProc = &::DefWindowProcA;
    description.hInstance = instance;
    description.hIcon = icon;
    description.hCursor = cursor;
    description.hbrBackground = brush;
    description.lpszClassName = name;
    if (!AfxRegisterClass(&description))
        AfxThrowResourceException();
    return name;
}
