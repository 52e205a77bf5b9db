#include "Focus.h"

#include "../Error.h"
#include "BackendLoader.h"
#include "Queue.h"

#include <algorithm>
#include <utility>

namespace {

InputState& Input()
{
    return ThisQueue()->Input();
}

HWND Swap(HWND InputState::*field, HWND value)
{
    const WindowGuard guard;
    return std::exchange(Input().*field, value);
}

HWND Read(HWND InputState::*field)
{
    const WindowGuard guard;
    return Input().*field;
}

HWND HandleOf(const WindowRef& window)
{
    return window ? window->handle : nullptr;
}

void Tell(HWND window, UINT message, WPARAM wParam, HWND other)
{
    if (window && IsWindow(window))
        SendMessageA(window, message, wParam, reinterpret_cast<LPARAM>(other));
}

void TellAllOfThread(UINT message, WPARAM wParam)
{
    for (const HWND window : ChildHandles(Desktop()))
        if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId())
            SendMessageA(window, message, wParam, 0);
}

bool IsFitForActivation(const Window& window, const Window& besides)
{
    return &window != &besides && !window.ending && window.thread == besides.thread &&
           (window.style & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE && !(window.style & WS_MINIMIZE);
}

WindowRef NextToActivate(const Window& after)
{
    const WindowGuard guard;
    if (after.owner && IsFitForActivation(*after.owner, after))
        return RefOf(after.owner);
    for (const Window* other : Desktop()->children)
        if (IsFitForActivation(*other, after))
            return RefOf(other);
    return nullptr;
}

void RememberPopup(const WindowRef& window)
{
    const WindowGuard guard;
    Window* root = window.get();
    while (root->owner)
        root = root->owner;
    root->lastPopup = window->handle;
}

bool IsInside(HWND outer, HWND inner)
{
    return outer == inner || IsChild(outer, inner);
}

// Neither it nor a window round it is disabled or minimized, and it is a window of this thread.
bool MayHaveFocus(const WindowRef& window)
{
    const WindowGuard guard;
    for (const Window* at = window.get(); at && at->parent; at = at->style & WS_CHILD ? at->parent : nullptr)
        if (at->style & (WS_DISABLED | WS_MINIMIZE))
            return false;
    return true;
}

} // namespace

WindowRef TopLevelOf(const WindowRef& window)
{
    const WindowGuard guard;
    const Window* at = window.get();
    while (at && at->parent && at->parent != Desktop().get())
        at = at->parent;
    return at && at->parent ? RefOf(at) : nullptr;
}

void Activate(const WindowRef& window, Origin origin)
{
    const HWND next = HandleOf(window);
    const HWND last = Swap(&InputState::active, next);
    if (last == next)
        return;
    Tell(last, WM_NCACTIVATE, FALSE, next);
    Tell(last, WM_ACTIVATE, WA_INACTIVE, next);
    if (!last || !next)
        TellAllOfThread(WM_ACTIVATEAPP, next != nullptr);
    if (!next || Read(&InputState::active) != next || !IsAlive(window)) {
        if (!Read(&InputState::active))
            GiveFocus(nullptr, origin);
        return;
    }
    RememberPopup(window);
    if (origin == Origin::Program && PeerOf(window))
        Backend()->Activate(PeerOf(window));
    Tell(next, WM_NCACTIVATE, TRUE, last);
    Tell(next, WM_ACTIVATE, WA_ACTIVE, last);
}

void GiveFocus(const WindowRef& window, Origin origin)
{
    const HWND next = HandleOf(window);
    const HWND last = Swap(&InputState::focus, next);
    if (last == next)
        return;
    Tell(last, WM_KILLFOCUS, reinterpret_cast<WPARAM>(next), nullptr);
    if (Read(&InputState::focus) != next || !next || !IsAlive(window))
        return;
    if (origin == Origin::Program && PeerOf(window))
        Backend()->Focus(PeerOf(window));
    Tell(next, WM_SETFOCUS, reinterpret_cast<WPARAM>(last), nullptr);
}

void LoseFocus(const WindowRef& window)
{
    const HWND focus = Read(&InputState::focus);
    if (!focus || !IsInside(window->handle, focus) || IsTopLevel(*window))
        return;
    WindowRef parent;
    {
        const WindowGuard guard;
        parent = RefOf(window->parent);
    }
    GiveFocus(parent && MayHaveFocus(parent) ? parent : nullptr, Origin::Program);
}

void LoseActivation(const WindowRef& window)
{
    if (Read(&InputState::active) == window->handle)
        Activate(NextToActivate(*window), Origin::Program);
}

HWND WINAPI SetFocus(HWND handle)
{
    const HWND last = GetFocus();
    if (!handle)
        return GiveFocus(nullptr, Origin::Program), last;
    const WindowRef window = OwnWindowOf(handle);
    if (!window || !MayHaveFocus(window))
        return nullptr;
    const WindowRef top = TopLevelOf(window);
    if (top && top->handle != GetActiveWindow())
        Activate(top, Origin::Program);
    if (IsAlive(window))
        GiveFocus(window, Origin::Program);
    return last;
}

HWND WINAPI GetFocus()
{
    return Read(&InputState::focus);
}

HWND WINAPI SetActiveWindow(HWND handle)
{
    const HWND last = GetActiveWindow();
    const WindowRef window = handle ? OwnWindowOf(handle) : nullptr;
    if (handle && !window)
        return nullptr;
    if (window && (!IsTopLevel(*window) || HasBits(window, WS_DISABLED)))
        return last;
    Activate(window, Origin::Program);
    return last;
}

HWND WINAPI GetActiveWindow()
{
    return Read(&InputState::active);
}

HWND WINAPI GetForegroundWindow()
{
    const auto queue = UiThread() ? QueueOf(UiThread()) : nullptr;
    const WindowGuard guard;
    return queue ? queue->Input().active : nullptr;
}

BOOL WINAPI SetForegroundWindow(HWND handle)
{
    const WindowRef window = OwnWindowOf(handle);
    if (!window || !IsTopLevel(*window))
        return FALSE;
    SetActiveWindow(handle);
    return GetActiveWindow() == handle;
}

HWND WINAPI GetLastActivePopup(HWND handle)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return nullptr;
    const WindowGuard guard;
    const HWND popup = window->lastPopup;
    return popup && WindowOf(popup) ? popup : handle;
}
