#include "Position.h"

#include "../Error.h"
#include "BackendLoader.h"
#include "Focus.h"
#include "Frame.h"
#include "Queue.h"

#include <algorithm>

namespace {

// Not documented, and seen in the flags of WM_WINDOWPOSCHANGED: the client area's size and place stayed.
constexpr UINT kSameClientSize = 0x0800, kSameClientPlace = 0x1000;
constexpr UINT kNothingChanged = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER;

bool IsPlace(HWND after)
{
    return after == HWND_TOP || after == HWND_BOTTOM || after == HWND_TOPMOST || after == HWND_NOTOPMOST;
}

RECT RectOf(const WINDOWPOS& place)
{
    return {place.x, place.y, place.x + std::max(place.cx, 0), place.y + std::max(place.cy, 0)};
}

// Sizes are never negative; what stays is filled in.
WINDOWPOS Completed(const Window& window, WINDOWPOS place)
{
    const WindowGuard guard;
    if (place.flags & SWP_NOMOVE) {
        place.x = window.rect.left;
        place.y = window.rect.top;
    }
    if (place.flags & SWP_NOSIZE) {
        place.cx = window.rect.right - window.rect.left;
        place.cy = window.rect.bottom - window.rect.top;
    }
    return place;
}

void DropWhatStays(const Window& window, WINDOWPOS& place)
{
    const RECT rect = RectOf(place);
    if (rect.left == window.rect.left && rect.top == window.rect.top)
        place.flags |= SWP_NOMOVE;
    if (rect.right - rect.left == window.rect.right - window.rect.left &&
        rect.bottom - rect.top == window.rect.bottom - window.rect.top)
        place.flags |= SWP_NOSIZE;
    if (window.style & WS_VISIBLE)
        place.flags &= ~static_cast<UINT>(SWP_SHOWWINDOW);
    else
        place.flags &= ~static_cast<UINT>(SWP_HIDEWINDOW);
}

size_t PlaceAfter(const std::vector<Window*>& order, HWND after)
{
    const auto found = std::find_if(order.begin(), order.end(),
                                    [after](const Window* other) { return other->handle == after; });
    return found == order.end() ? 0 : static_cast<size_t>(found - order.begin()) + 1;
}

void Reorder(Window& window, HWND after)
{
    if (!window.parent)
        return;
    if (after == HWND_TOPMOST)
        window.exStyle |= WS_EX_TOPMOST;
    else if (after == HWND_NOTOPMOST || after == HWND_BOTTOM)
        window.exStyle &= ~static_cast<DWORD>(WS_EX_TOPMOST);
    auto& order = window.parent->children;
    std::erase(order, &window);
    const size_t place = after == HWND_BOTTOM ? order.size() : IsPlace(after) ? 0 : PlaceAfter(order, after);
    order.insert(order.begin() + static_cast<std::ptrdiff_t>(place), &window);
}

UINT ClientFlags(const RECT& before, const RECT& after)
{
    const bool sameSize = before.right - before.left == after.right - after.left &&
                          before.bottom - before.top == after.bottom - after.top;
    const bool samePlace = before.left == after.left && before.top == after.top;
    return (sameSize ? kSameClientSize : 0) | (samePlace ? kSameClientPlace : 0);
}

// Changes the window itself and answers the flags of what stayed.
UINT Apply(Window& window, const WINDOWPOS& place)
{
    const RECT before = ClientArea(window);
    if (!(place.flags & SWP_NOZORDER))
        Reorder(window, place.hwndInsertAfter);
    window.rect = RectOf(place);
    if (!(window.style & (WS_MINIMIZE | WS_MAXIMIZE)))
        window.normal = window.rect;
    if (place.flags & SWP_SHOWWINDOW)
        window.style |= WS_VISIBLE;
    if (place.flags & SWP_HIDEWINDOW)
        window.style &= ~static_cast<DWORD>(WS_VISIBLE);
    return ClientFlags(before, ClientArea(window));
}

void ApplyToPeer(const WindowRef& window, const WINDOWPOS& place)
{
    WindowPeer* peer = PeerOf(window);
    if (!peer)
        return;
    if ((place.flags & (SWP_NOMOVE | SWP_NOSIZE)) != (SWP_NOMOVE | SWP_NOSIZE))
        PlacePeer(window);
    if (place.flags & SWP_HIDEWINDOW)
        ShowPeer(window, SW_HIDE);
    else if (place.flags & SWP_SHOWWINDOW)
        ShowPeer(window, place.flags & SWP_NOACTIVATE ? SW_SHOWNA : SW_SHOW);
    if (place.flags & SWP_NOZORDER)
        return;
    if (place.hwndInsertAfter == HWND_BOTTOM)
        Backend()->Lower(peer);
    else if (IsPlace(place.hwndInsertAfter))
        Backend()->Raise(peer);
}

bool MayActivate(const WindowRef& window, UINT flags)
{
    return !(flags & (SWP_NOACTIVATE | SWP_NOZORDER | SWP_HIDEWINDOW)) && IsTopLevel(*window) &&
           HasBits(window, WS_VISIBLE) && !HasBits(window, WS_DISABLED);
}

UINT ApplyToAll(const WindowRef& window, WINDOWPOS& place, int peerCommand)
{
    UINT stayed = 0;
    {
        const WindowGuard guard;
        DropWhatStays(*window, place);
        stayed = Apply(*window, place);
    }
    if (peerCommand)
        ShowPeer(window, peerCommand);
    else
        ApplyToPeer(window, place);
    return stayed;
}

void TellChanged(const WindowRef& window, WINDOWPOS& place)
{
    const UINT changes = SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_FRAMECHANGED;
    if (IsAlive(window) && ((place.flags & kNothingChanged) != kNothingChanged || place.flags & changes))
        SendMessageA(window->handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&place));
}

} // namespace

bool PlaceWindow(const WindowRef& window, WINDOWPOS place, int peerCommand)
{
    place = Completed(*window, place);
    if (!(place.flags & SWP_NOSENDCHANGING))
        SendMessageA(window->handle, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&place));
    if (!IsAlive(window))
        return Fail(ERROR_INVALID_WINDOW_HANDLE);
    place.hwnd = window->handle;
    const UINT stayed = ApplyToAll(window, place, peerCommand);
    if (MayActivate(window, place.flags))
        Activate(window, Origin::Program);
    place.flags |= peerCommand ? 0 : stayed; // another shape is always told as another size
    TellChanged(window, place);
    if (place.flags & SWP_HIDEWINDOW)
        LoseFocus(window);
    if ((place.flags & (SWP_HIDEWINDOW | SWP_NOACTIVATE)) == SWP_HIDEWINDOW)
        LoseActivation(window);
    return true;
}

bool IsParentVisible(const Window& window)
{
    const WindowGuard guard;
    const Window* at = window.parent;
    while (at && at->parent && at->style & WS_VISIBLE)
        at = at->parent;
    return at == Desktop().get();
}

void PlacePeer(const WindowRef& window)
{
    RECT area = {};
    {
        const WindowGuard guard;
        area = PeerArea(*window);
    }
    if (WindowPeer* peer = PeerOf(window))
        Backend()->SetClient(peer, area);
}

void ShowPeer(const WindowRef& window, int command)
{
    if (WindowPeer* peer = PeerOf(window))
        Backend()->Show(peer, command);
}

void TellSizeAndPlace(const WindowRef& window)
{
    RECT client = {};
    WPARAM kind = SIZE_RESTORED;
    {
        const WindowGuard guard;
        window->tellsSizeWhenShown = false;
        client = ClientArea(*window);
        if (window->style & (WS_MINIMIZE | WS_MAXIMIZE))
            kind = window->style & WS_MINIMIZE ? SIZE_MINIMIZED : SIZE_MAXIMIZED;
    }
    SendMessageA(window->handle, WM_SIZE, kind,
                 MAKELPARAM(client.right - client.left, client.bottom - client.top));
    SendMessageA(window->handle, WM_MOVE, 0, MAKELPARAM(client.left, client.top));
}

void TakeUserRect(const WindowRef& window, const RECT& client)
{
    WINDOWPOS place = {};
    {
        const WindowGuard guard;
        if (window->style & WS_MINIMIZE)
            return;
        RECT rect = client;
        AddFrame(rect, window->style, window->exStyle);
        place = {window->handle,
                 nullptr,
                 rect.left,
                 rect.top,
                 rect.right - rect.left,
                 rect.bottom - rect.top,
                 SWP_NOZORDER | SWP_NOACTIVATE};
        DropWhatStays(*window, place);
        if ((place.flags & kNothingChanged) == kNothingChanged)
            return;
        place.flags |= Apply(*window, place);
    }
    SendMessageA(window->handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&place));
}

BOOL WINAPI SetWindowPos(HWND handle, HWND after, int x, int y, int width, int height, UINT flags)
{
    const WindowRef window = WindowOf(handle);
    if (!window || (!(flags & SWP_NOZORDER) && !IsPlace(after) && !WindowOf(after)))
        return FALSE;
    if (window == Desktop() || window == MessageRoot())
        return Fail(ERROR_ACCESS_DENIED);
    bool done = false;
    RunOnThreadOf(window, [&] { done = PlaceWindow(window, {handle, after, x, y, width, height, flags}); });
    return done;
}

BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL)
{
    return SetWindowPos(window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL WINAPI BringWindowToTop(HWND window)
{
    return SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}
