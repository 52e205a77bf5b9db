#include "../Error.h"
#include "BackendLoader.h"
#include "Frame.h"
#include "Queue.h"

namespace {

// The client area's corner on the screen; that of a null window is the screen's own.
bool OriginOf(HWND handle, POINT& origin)
{
    origin = {};
    if (!handle)
        return true;
    const WindowRef window = WindowOf(handle);
    if (!window)
        return false;
    const WindowGuard guard;
    origin = ClientOrigin(*window);
    return true;
}

void Repaint(const WindowRef& window)
{
    if (WindowPeer* peer = PeerOf(window))
        RunOnThreadOf(window, [peer] { Backend()->Repaint(peer); });
}

BOOL RepaintAll()
{
    for (const HWND handle : ChildHandles(Desktop()))
        if (const WindowRef window = WindowOf(handle))
            Repaint(window);
    return TRUE;
}

} // namespace

BOOL WINAPI GetWindowRect(HWND handle, LPRECT rect)
{
    const WindowRef window = WindowOf(handle);
    if (!window || !rect)
        return FALSE;
    if (window == Desktop())
        return SetRect(rect, 0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
    const WindowGuard guard;
    *rect = ScreenRect(*window);
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND handle, LPRECT rect)
{
    const WindowRef window = WindowOf(handle);
    if (!window || !rect)
        return FALSE;
    if (window == Desktop())
        return GetWindowRect(handle, rect);
    const WindowGuard guard;
    *rect = ClientArea(*window);
    return OffsetRect(rect, -rect->left, -rect->top);
}

BOOL WINAPI ClientToScreen(HWND window, LPPOINT point)
{
    POINT origin;
    if (!window)
        return Fail(ERROR_INVALID_WINDOW_HANDLE);
    if (!point || !OriginOf(window, origin))
        return FALSE;
    *point = {point->x + origin.x, point->y + origin.y};
    return TRUE;
}

BOOL WINAPI ScreenToClient(HWND window, LPPOINT point)
{
    POINT origin;
    if (!window)
        return Fail(ERROR_INVALID_WINDOW_HANDLE);
    if (!point || !OriginOf(window, origin))
        return FALSE;
    *point = {point->x - origin.x, point->y - origin.y};
    return TRUE;
}

int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count)
{
    POINT source, target;
    if (!OriginOf(from, source) || !OriginOf(to, target))
        return 0;
    const LONG dx = source.x - target.x, dy = source.y - target.y;
    for (UINT i = 0; points && i < count; ++i)
        points[i] = {points[i].x + dx, points[i].y + dy};
    return MAKELONG(dx, dy);
}

BOOL WINAPI InvalidateRect(HWND handle, const RECT*, BOOL)
{
    if (!handle)
        return RepaintAll();
    const WindowRef window = WindowOf(handle);
    if (window)
        Repaint(window);
    return window != nullptr;
}

BOOL WINAPI UpdateWindow(HWND handle)
{
    return IsWindow(handle);
}

BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HANDLE, UINT flags)
{
    if (flags & (RDW_INVALIDATE | RDW_INTERNALPAINT))
        return InvalidateRect(window, rect, flags & RDW_ERASE ? TRUE : FALSE);
    return !window || IsWindow(window);
}
