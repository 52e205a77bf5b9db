#include "../Error.h"
#include "BackendLoader.h"
#include "Frame.h"
#include "Position.h"
#include "Queue.h"
#include "Text.h"
#include "WindowClass.h"

namespace {

// See Position.cpp.
constexpr UINT kSameClientSize = 0x0800, kSameClientPlace = 0x1000;

using Default = LRESULT (*)(const WindowRef& window, WPARAM wParam, LPARAM lParam);

LRESULT OnNcCreate(const WindowRef& window, WPARAM, LPARAM lParam)
{
    const LPCSTR name = reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpszName;
    const WindowGuard guard;
    window->text = name && !IsAtom(name) ? name : "";
    return TRUE;
}

LRESULT OnSetText(const WindowRef& window, WPARAM, LPARAM lParam)
{
    return StoreText(window, reinterpret_cast<LPCSTR>(lParam));
}

LRESULT OnGetText(const WindowRef& window, WPARAM wParam, LPARAM lParam)
{
    return CopyText(window, reinterpret_cast<LPSTR>(lParam), wParam);
}

LRESULT OnGetTextLength(const WindowRef& window, WPARAM, LPARAM)
{
    return TextLength(window);
}

LRESULT OnClose(const WindowRef& window, WPARAM, LPARAM)
{
    DestroyWindow(window->handle);
    return 0;
}

LRESULT OnActivate(const WindowRef& window, WPARAM wParam, LPARAM)
{
    if (LOWORD(wParam) != WA_INACTIVE && !HasBits(window, WS_MINIMIZE))
        SetFocus(window->handle);
    return 0;
}

LRESULT OnPosChanged(const WindowRef& window, WPARAM, LPARAM lParam)
{
    const UINT flags = reinterpret_cast<const WINDOWPOS*>(lParam)->flags;
    RECT client = {};
    WPARAM kind = SIZE_RESTORED;
    {
        const WindowGuard guard;
        client = ClientArea(*window);
        if (window->style & (WS_MINIMIZE | WS_MAXIMIZE))
            kind = window->style & WS_MINIMIZE ? SIZE_MINIMIZED : SIZE_MAXIMIZED;
    }
    if (!(flags & kSameClientPlace))
        SendMessageA(window->handle, WM_MOVE, 0, MAKELPARAM(client.left, client.top));
    if (!(flags & kSameClientSize))
        SendMessageA(window->handle, WM_SIZE, kind,
                     MAKELPARAM(client.right - client.left, client.bottom - client.top));
    return 0;
}

LRESULT OnSysCommand(const WindowRef& window, WPARAM wParam, LPARAM)
{
    constexpr struct {
        WPARAM command;
        int show;
    } kShows[] = {{SC_MINIMIZE, SW_MINIMIZE}, {SC_MAXIMIZE, SW_MAXIMIZE}, {SC_RESTORE, SW_RESTORE}};
    const WPARAM command = wParam & 0xfff0; // the low bits are the system's
    if (command == SC_CLOSE)
        SendMessageA(window->handle, WM_CLOSE, 0, 0);
    for (const auto& row : kShows)
        if (command == row.command)
            ShowWindow(window->handle, row.show);
    return 0;
}

LRESULT OnSysKeyDown(const WindowRef& window, WPARAM wParam, LPARAM lParam)
{
    constexpr LPARAM kAltHeld = 1 << 29;
    const HWND root = GetAncestor(window->handle, GA_ROOT);
    if (wParam == VK_F4 && lParam & kAltHeld && root && !(window->kind->description.style & CS_NOCLOSE))
        PostMessageA(root, WM_SYSCOMMAND, SC_CLOSE, 0);
    return 0;
}

LRESULT ToParent(const WindowRef& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND parent = GetParent(window->handle);
    return parent ? SendMessageA(parent, message, wParam, lParam) : 0;
}

LRESULT OnHelp(const WindowRef& window, WPARAM wParam, LPARAM lParam)
{
    ToParent(window, WM_HELP, wParam, lParam);
    return TRUE;
}

LRESULT OnContextMenu(const WindowRef& window, WPARAM wParam, LPARAM lParam)
{
    return HasBits(window, WS_CHILD) ? ToParent(window, WM_CONTEXTMENU, wParam, lParam) : 0;
}

LRESULT Yes(const WindowRef&, WPARAM, LPARAM)
{
    return TRUE;
}

constexpr struct {
    UINT message;
    Default answer;
} kDefaults[] = {
    {WM_NCCREATE, OnNcCreate},
    {WM_SETTEXT, OnSetText},
    {WM_GETTEXT, OnGetText},
    {WM_GETTEXTLENGTH, OnGetTextLength},
    {WM_CLOSE, OnClose},
    {WM_ACTIVATE, OnActivate},
    {WM_WINDOWPOSCHANGED, OnPosChanged},
    {WM_SYSCOMMAND, OnSysCommand},
    {WM_SYSKEYDOWN, OnSysKeyDown},
    {WM_HELP, OnHelp},
    {WM_CONTEXTMENU, OnContextMenu},
    {WM_NCACTIVATE, Yes},
    {WM_QUERYOPEN, Yes},
    {WM_QUERYENDSESSION, Yes},
};

} // namespace

LRESULT WINAPI DefWindowProcA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    for (const auto& row : kDefaults)
        if (row.message == message) {
            const WindowRef window = WindowOf(handle);
            return window ? row.answer(window, wParam, lParam) : 0;
        }
    return 0;
}
