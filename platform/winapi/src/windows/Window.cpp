#include "Window.h"

#include "../Error.h"

#include <algorithm>
#include <unordered_map>

namespace {

constexpr DWORD kSystemThread = 4; // has the roots; nobody's
constexpr ULONG_PTR kFirstHandle = 0x10010, kHandleStep = 2, kLastHandle = 0x7ffffffe;

struct Table {
    std::recursive_mutex mutex;
    std::unordered_map<HWND, WindowRef> windows;
    ULONG_PTR next = kFirstHandle;
};

// Never destroyed: threads that end late still let their windows go.
Table& Windows()
{
    static Table& table = *new Table;
    return table;
}

HWND NextHandle(Table& table)
{
    HWND handle = nullptr;
    do {
        handle = reinterpret_cast<HWND>(table.next);
        table.next = table.next == kLastHandle ? kFirstHandle : table.next + kHandleStep;
    } while (table.windows.count(handle));
    return handle;
}

WindowRef MakeRoot()
{
    auto root = std::make_shared<Window>();
    root->thread = kSystemThread;
    root->style = WS_POPUP | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
    AddWindow(root);
    return root;
}

struct Roots {
    WindowRef desktop = MakeRoot();
    WindowRef messages = MakeRoot();
};

const Roots& TheRoots()
{
    static const Roots& roots = *new Roots;
    return roots;
}

} // namespace

WindowGuard::WindowGuard() : m_lock(Windows().mutex)
{
}

const WindowRef& Desktop()
{
    return TheRoots().desktop;
}

const WindowRef& MessageRoot()
{
    return TheRoots().messages;
}

void AddWindow(const WindowRef& window)
{
    const WindowGuard guard;
    window->handle = NextHandle(Windows());
    Windows().windows[window->handle] = window;
}

void RemoveWindow(Window& window)
{
    const WindowGuard guard;
    const WindowRef keep = RefOf(&window);
    if (window.parent)
        std::erase(window.parent->children, &window);
    for (Window* child : window.children)
        child->parent = nullptr;
    for (const WindowRef& root : {Desktop(), MessageRoot()})
        for (Window* other : root->children)
            if (other->owner == &window)
                other->owner = nullptr;
    window.parent = window.owner = nullptr;
    window.children.clear();
    Windows().windows.erase(window.handle);
}

WindowRef WindowOf(HWND handle)
{
    TheRoots();
    const WindowGuard guard;
    const auto found = Windows().windows.find(handle);
    if (found != Windows().windows.end())
        return found->second;
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
}

WindowRef OwnWindowOf(HWND handle)
{
    WindowRef window = WindowOf(handle);
    if (window && window->thread != GetCurrentThreadId())
        return SetLastError(ERROR_ACCESS_DENIED), nullptr;
    return window;
}

WindowRef RefOf(const Window* window)
{
    const WindowGuard guard;
    const auto found = window ? Windows().windows.find(window->handle) : Windows().windows.end();
    return found == Windows().windows.end() ? nullptr : found->second;
}

bool IsAlive(const WindowRef& window)
{
    const WindowGuard guard;
    return RefOf(window.get()) == window;
}

bool IsTopLevel(const Window& window)
{
    const WindowGuard guard;
    return window.parent == Desktop().get();
}

bool IsBelowMessageRoot(const Window& window)
{
    const WindowGuard guard;
    const Window* at = &window;
    while (at->parent)
        at = at->parent;
    return at == MessageRoot().get();
}

bool HasBits(const WindowRef& window, DWORD style)
{
    const WindowGuard guard;
    return (window->style & style) == style;
}

void ChangeBits(const WindowRef& window, DWORD set, DWORD cleared)
{
    const WindowGuard guard;
    window->style = (window->style & ~cleared) | set;
}

std::vector<HWND> ChildHandles(const WindowRef& window)
{
    const WindowGuard guard;
    std::vector<HWND> handles;
    for (const Window* child : window->children)
        handles.push_back(child->handle);
    return handles;
}

WindowPeer* PeerOf(const WindowRef& window)
{
    const WindowGuard guard;
    return window->peer;
}
