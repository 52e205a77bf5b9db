#include "BackendLoader.h"
#include "Position.h"

namespace {

struct StyleChange { // STYLESTRUCT
    DWORD before;
    DWORD after;
};

void FollowPeer(const WindowRef& window, DWORD before, DWORD after)
{
    WindowPeer* peer = PeerOf(window);
    if (!peer)
        return;
    DWORD style = 0, exStyle = 0;
    {
        const WindowGuard guard;
        style = window->style;
        exStyle = window->exStyle;
    }
    Backend()->SetStyle(peer, style, exStyle);
    if ((before ^ after) & WS_DISABLED)
        Backend()->Enable(peer, !(after & WS_DISABLED));
    if ((before ^ after) & WS_VISIBLE)
        ShowPeer(window, after & WS_VISIBLE ? SW_SHOWNA : SW_HIDE);
    PlacePeer(window);
}

} // namespace

DWORD ChangeStyle(const WindowRef& window, int index, DWORD bits)
{
    DWORD Window::*const field = index == GWL_STYLE ? &Window::style : &Window::exStyle;
    StyleChange change = {};
    {
        const WindowGuard guard;
        change = {(*window).*field, bits};
    }
    const auto which = static_cast<WPARAM>(static_cast<LONG_PTR>(index));
    SendMessageA(window->handle, WM_STYLECHANGING, which, reinterpret_cast<LPARAM>(&change));
    {
        const WindowGuard guard;
        if (index == GWL_STYLE && IsTopLevel(*window))
            change.after |= WS_CLIPSIBLINGS;
        (*window).*field = change.after;
    }
    SendMessageA(window->handle, WM_STYLECHANGED, which, reinterpret_cast<LPARAM>(&change));
    if (index == GWL_STYLE)
        FollowPeer(window, change.before, change.after);
    else
        FollowPeer(window, 0, 0);
    return change.before;
}
