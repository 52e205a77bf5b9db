#include "Destroy.h"

#include "../Error.h"
#include "BackendLoader.h"
#include "Focus.h"
#include "Position.h"
#include "Queue.h"

#include <utility>

namespace {

// Marks the window as one that goes; false if it has been marked before.
bool BeginEnd(const WindowRef& window)
{
    const WindowGuard guard;
    return !std::exchange(window->ending, true);
}

void TellParent(const WindowRef& window)
{
    if (!HasBits(window, WS_CHILD) || window->exStyle & WS_EX_NOPARENTNOTIFY)
        return;
    const auto id = static_cast<WORD>(window->id);
    SendMessageA(GetAncestor(window->handle, GA_PARENT), WM_PARENTNOTIFY, MAKEWPARAM(WM_DESTROY, id),
                 reinterpret_cast<LPARAM>(window->handle));
}

void Hide(const WindowRef& window)
{
    constexpr UINT kFlags = SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;
    if (!HasBits(window, WS_VISIBLE))
        return;
    if (HasBits(window, WS_CHILD))
        ShowWindow(window->handle, SW_HIDE);
    else
        PlaceWindow(window, {window->handle, nullptr, 0, 0, 0, 0, kFlags});
}

std::vector<HWND> OwnedBy(const WindowRef& owner)
{
    const WindowGuard guard;
    std::vector<HWND> owned;
    for (const Window* window : Desktop()->children)
        if (window->owner == owner.get())
            owned.push_back(window->handle);
    return owned;
}

void DestroyOwned(const WindowRef& window)
{
    for (const HWND owned : OwnedBy(window))
        if (GetWindowThreadProcessId(owned, nullptr) == GetCurrentThreadId())
            DestroyWindow(owned);
}

void TellDestroy(const WindowRef& window)
{
    SendMessageA(window->handle, WM_DESTROY, 0, 0);
    if (!IsAlive(window))
        return;
    for (const HWND handle : ChildHandles(window))
        if (const WindowRef child = WindowOf(handle); child && BeginEnd(child))
            TellDestroy(child);
}

void GiveUpInput(const WindowRef& window)
{
    LoseActivation(window);
    const HWND focus = GetFocus();
    if (focus && (focus == window->handle || IsChild(window->handle, focus)))
        GiveFocus(nullptr, Origin::Program);
}

// What still names the window without having been told.
void ForgetInput(HWND window)
{
    const WindowGuard guard;
    InputState& input = ThisQueue()->Input();
    if (input.active == window)
        input.active = nullptr;
    if (input.focus == window)
        input.focus = nullptr;
}

} // namespace

void DropWindow(const WindowRef& window)
{
    WindowPeer* peer = nullptr;
    {
        const WindowGuard guard;
        if (!IsAlive(window))
            return;
        peer = std::exchange(window->peer, nullptr);
        RemoveWindow(*window);
    }
    ForgetInput(window->handle);
    if (const auto queue = QueueOf(window->thread))
        queue->Forget(window->handle);
    if (peer)
        Backend()->Destroy(peer);
}

void FreeWindow(const WindowRef& window)
{
    for (const HWND handle : ChildHandles(window))
        if (const WindowRef child = WindowOf(handle))
            FreeWindow(child);
    SendMessageA(window->handle, WM_NCDESTROY, 0, 0);
    DropWindow(window);
}

BOOL WINAPI DestroyWindow(HWND handle)
{
    const WindowRef window = OwnWindowOf(handle);
    if (!window)
        return FALSE;
    if (!BeginEnd(window))
        return TRUE;
    TellParent(window);
    if (IsAlive(window))
        Hide(window);
    if (IsAlive(window))
        DestroyOwned(window);
    if (IsAlive(window))
        GiveUpInput(window);
    if (IsAlive(window))
        TellDestroy(window);
    if (IsAlive(window))
        FreeWindow(window);
    return TRUE;
}
