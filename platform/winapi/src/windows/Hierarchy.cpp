#include "../CodePage.h"
#include "../Error.h"
#include "BackendLoader.h"
#include "Focus.h"
#include "Frame.h"
#include "Position.h"
#include "Queue.h"
#include "WindowClass.h"

#include <algorithm>

namespace {

HWND HandleOf(const Window* window)
{
    return window ? window->handle : nullptr;
}

bool IsRoot(const Window* window)
{
    return window == Desktop().get() || window == MessageRoot().get();
}

const Window* RootOf(const Window& window)
{
    const Window* at = &window;
    while (at->parent && !IsRoot(at->parent))
        at = at->parent;
    return at;
}

// What GetParent means: a child's parent, a popup's owner.
const Window* Above(const Window& window)
{
    if (window.style & WS_CHILD)
        return IsRoot(window.parent) ? nullptr : window.parent;
    return window.style & WS_POPUP ? window.owner : nullptr;
}

const Window* Sibling(const Window& window, UINT which)
{
    if (!window.parent)
        return nullptr;
    const auto& order = window.parent->children;
    const auto at = std::find(order.begin(), order.end(), &window);
    switch (which) {
    case GW_HWNDFIRST:
        return order.front();
    case GW_HWNDLAST:
        return order.back();
    case GW_HWNDNEXT:
        return std::next(at) == order.end() ? nullptr : *std::next(at);
    default:
        return at == order.begin() ? nullptr : *std::prev(at);
    }
}

const Window* EnabledPopup(const Window& window)
{
    constexpr DWORD kBits = WS_VISIBLE | WS_DISABLED;
    for (const Window* other : Desktop()->children)
        if (other->owner == &window && (other->style & kBits) == WS_VISIBLE)
            return other;
    return &window;
}

void Collect(const Window& window, std::vector<HWND>& handles)
{
    for (const Window* child : window.children) {
        handles.push_back(child->handle);
        Collect(*child, handles);
    }
}

// `handles` as they were; those that have gone since are passed over.
BOOL CallForEach(const std::vector<HWND>& handles, WNDENUMPROC callback, LPARAM data)
{
    for (const HWND handle : handles)
        if (IsWindow(handle) && !callback(handle, data))
            return FALSE;
    return TRUE;
}

// A null name or text means any.
bool Matches(const Window& window, ATOM atom, LPCSTR text)
{
    return (!atom || (window.kind && window.kind->atom == atom)) && (!text || SameName(window.text, text));
}

HWND FindBelow(const WindowRef& parent, HWND after, LPCSTR className, LPCSTR text)
{
    const ATOM atom = className ? KnownAtom(className) : ATOM{0};
    if (className && !atom)
        return nullptr;
    const WindowGuard guard;
    bool reached = !after;
    for (const Window* child : parent->children) {
        if (reached && Matches(*child, atom, text))
            return child->handle;
        reached = reached || child->handle == after;
    }
    return nullptr;
}

bool WouldLoop(const Window& window, const Window* parent)
{
    while (parent && parent != &window)
        parent = parent->parent;
    return parent != nullptr;
}

void Move(const WindowRef& window, const WindowRef& parent)
{
    WindowPeer* above = nullptr;
    {
        const WindowGuard guard;
        std::erase(window->parent->children, window.get());
        window->parent = parent.get();
        parent->children.insert(parent->children.begin(), window.get());
        above = parent->peer;
    }
    if (WindowPeer* peer = PeerOf(window)) {
        Backend()->SetParent(peer, above);
        PlacePeer(window);
    }
}

} // namespace

HWND WINAPI GetDesktopWindow()
{
    return Desktop()->handle;
}

BOOL WINAPI IsWindow(HWND window)
{
    const DWORD before = GetLastError();
    const bool found = window && WindowOf(window);
    if (found)
        SetLastError(before);
    return found;
}

DWORD WINAPI GetWindowThreadProcessId(HWND handle, LPDWORD process)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return 0;
    if (process)
        *process = GetCurrentProcessId();
    return window->thread;
}

HWND WINAPI GetParent(HWND handle)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return nullptr;
    const WindowGuard guard;
    return HandleOf(Above(*window));
}

HWND WINAPI SetParent(HWND handle, HWND parentHandle)
{
    const WindowRef window = WindowOf(handle);
    const WindowRef parent = parentHandle == HWND_MESSAGE ? MessageRoot()
                             : parentHandle               ? WindowOf(parentHandle)
                                                          : Desktop();
    if (!window || !parent)
        return nullptr;
    HWND before = nullptr;
    {
        const WindowGuard guard;
        if (!window->parent || WouldLoop(*window, parent.get()))
            return Fail(ERROR_INVALID_PARAMETER), nullptr;
        before = HandleOf(window->parent);
    }
    RunOnThreadOf(window, [&] {
        const bool wasVisible = ShowWindow(handle, SW_HIDE);
        if (IsAlive(window) && IsAlive(parent))
            Move(window, parent);
        if (IsAlive(window) && wasVisible)
            ShowWindow(handle, SW_SHOWNORMAL);
    });
    return before;
}

HWND WINAPI GetAncestor(HWND handle, UINT which)
{
    const WindowRef window = WindowOf(handle);
    if (!window || IsRoot(window.get()))
        return nullptr;
    const WindowGuard guard;
    if (which == GA_PARENT)
        return HandleOf(window->parent);
    const Window* at = RootOf(*window);
    if (which == GA_ROOT)
        return HandleOf(at);
    if (which != GA_ROOTOWNER)
        return nullptr;
    for (at = window.get(); Above(*at);)
        at = Above(*at);
    return HandleOf(at);
}

HWND WINAPI GetWindow(HWND handle, UINT which)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return nullptr;
    const WindowGuard guard;
    switch (which) {
    case GW_OWNER:
        return HandleOf(window->owner);
    case GW_CHILD:
        return window->children.empty() ? nullptr : HandleOf(window->children.front());
    case GW_ENABLEDPOPUP:
        return HandleOf(EnabledPopup(*window));
    case GW_HWNDFIRST:
    case GW_HWNDLAST:
    case GW_HWNDNEXT:
    case GW_HWNDPREV:
        return HandleOf(Sibling(*window, which));
    default:
        return Fail(ERROR_INVALID_GW_COMMAND), nullptr;
    }
}

HWND WINAPI GetTopWindow(HWND window)
{
    return GetWindow(window ? window : GetDesktopWindow(), GW_CHILD);
}

BOOL WINAPI IsChild(HWND parentHandle, HWND handle)
{
    const WindowGuard guard;
    const WindowRef parent = WindowOf(parentHandle);
    const WindowRef window = WindowOf(handle);
    if (!parent || !window)
        return FALSE;
    for (const Window* at = window.get(); at && at->style & WS_CHILD; at = at->parent)
        if (at->parent == parent.get())
            return TRUE;
    return FALSE;
}

BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC callback, LPARAM data)
{
    const WindowRef window = parent ? WindowOf(parent) : Desktop();
    if (!window || !callback)
        return FALSE;
    std::vector<HWND> handles;
    {
        const WindowGuard guard;
        Collect(*window, handles);
    }
    return CallForEach(handles, callback, data);
}

BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC callback, LPARAM data)
{
    if (!callback)
        return Fail(ERROR_INVALID_PARAMETER);
    std::vector<HWND> handles;
    {
        const WindowGuard guard;
        for (const Window* window : Desktop()->children)
            if ((window->waiter ? window->waiter : window->thread) == thread)
                handles.push_back(window->handle);
    }
    return CallForEach(handles, callback, data);
}

BOOL WINAPI EnumWindows(WNDENUMPROC callback, LPARAM data)
{
    return callback ? CallForEach(ChildHandles(Desktop()), callback, data) : Fail(ERROR_INVALID_PARAMETER);
}

HWND WINAPI FindWindowA(LPCSTR className, LPCSTR text)
{
    const HWND found = FindBelow(Desktop(), nullptr, className, text);
    return found ? found : FindBelow(MessageRoot(), nullptr, className, text);
}

HWND WINAPI FindWindowExA(HWND parent, HWND after, LPCSTR className, LPCSTR text)
{
    const WindowRef above = parent == HWND_MESSAGE ? MessageRoot() : parent ? WindowOf(parent) : Desktop();
    return above ? FindBelow(above, after, className, text) : nullptr;
}

HWND WINAPI GetDlgItem(HWND parent, int id)
{
    const WindowRef window = WindowOf(parent);
    if (!window)
        return nullptr;
    const WindowGuard guard;
    for (const Window* child : window->children)
        if (static_cast<int>(child->id) == id)
            return child->handle;
    return Fail(ERROR_CONTROL_ID_NOT_FOUND), nullptr;
}

int WINAPI GetDlgCtrlID(HWND window)
{
    return static_cast<int>(GetWindowLongPtrA(window, GWLP_ID));
}
