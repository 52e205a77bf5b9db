#include "Objects.h"
#include "Screen.h"

#include "../Error.h"

#include <winuser.h>

HDC WINAPI CreateCompatibleDC(HDC dc)
{
    return dc && !FindContext(dc) ? nullptr : AddContext(true);
}

BOOL WINAPI DeleteDC(HDC dc)
{
    return RemoveContext(dc, true);
}

HDC WINAPI GetDC(HWND window)
{
    if (window && !IsWindow(window)) {
        Fail(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    return AddContext(false);
}

HDC WINAPI GetWindowDC(HWND window)
{
    return GetDC(window);
}

int WINAPI ReleaseDC(HWND, HDC dc)
{
    return RemoveContext(dc, false);
}

int WINAPI SaveDC(HDC dc)
{
    const auto context = FindContext(dc);
    if (!context)
        return 0;
    context->saved.push_back(context->state);
    return static_cast<int>(context->saved.size());
}

BOOL WINAPI RestoreDC(HDC dc, int level)
{
    const auto context = FindContext(dc);
    if (!context)
        return FALSE;
    const auto depth = static_cast<LONGLONG>(context->saved.size());
    const LONGLONG index = level < 0 ? depth + level : level - 1LL;
    if (index < 0 || index >= depth)
        return Fail(ERROR_INVALID_PARAMETER);
    context->state = context->saved[static_cast<size_t>(index)];
    context->saved.resize(static_cast<size_t>(index));
    return TRUE;
}

int WINAPI GetDeviceCaps(HDC dc, int index)
{
    if (!FindContext(dc))
        return 0;
    switch (index) {
    case TECHNOLOGY:
        return DT_RASDISPLAY;
    case HORZSIZE:
        return Screen().millimetres.cx;
    case VERTSIZE:
        return Screen().millimetres.cy;
    case HORZRES:
        return Screen().pixels.cx;
    case VERTRES:
        return Screen().pixels.cy;
    case BITSPIXEL:
        return 32;
    case PLANES:
        return 1;
    case LOGPIXELSX:
    case LOGPIXELSY:
        return kPixelsPerInch;
    default:
        return 0;
    }
}
