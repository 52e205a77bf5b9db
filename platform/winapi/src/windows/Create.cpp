#include "Create.h"

#include "../Error.h"
#include "BackendLoader.h"
#include "Destroy.h"
#include "Frame.h"
#include "Position.h"
#include "Queue.h"
#include "Text.h"
#include "WindowClass.h"

#include <algorithm>
#include <iterator>

namespace {

// The share of the screen that a window of the default size covers.
constexpr int kDefaultPart = 3, kDefaultWhole = 4;

bool IsOverlapped(DWORD style)
{
    return !(style & (WS_CHILD | WS_POPUP));
}

bool IsInnerWindow(DWORD style)
{
    return (style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
}

DWORD CompletedStyle(DWORD style)
{
    if (style & WS_CHILD)
        return style;
    return style | WS_CLIPSIBLINGS | (IsOverlapped(style) ? WS_CAPTION : 0);
}

DWORD CompletedExStyle(DWORD style, DWORD exStyle)
{
    const bool framed = !(exStyle & WS_EX_STATICEDGE) && style & (WS_DLGFRAME | WS_THICKFRAME);
    if (exStyle & WS_EX_DLGMODALFRAME || framed)
        return exStyle | WS_EX_WINDOWEDGE;
    return exStyle & ~static_cast<DWORD>(WS_EX_WINDOWEDGE);
}

RECT PlaceOf(const CREATESTRUCTA& create)
{
    int x = create.x, y = create.y, width = create.cx, height = create.cy;
    const bool mayDefault = IsOverlapped(static_cast<DWORD>(create.style));
    if (x == CW_USEDEFAULT)
        x = y = 0;
    if (width == CW_USEDEFAULT) {
        width = mayDefault ? GetSystemMetrics(SM_CXSCREEN) * kDefaultPart / kDefaultWhole : 0;
        height = mayDefault ? GetSystemMetrics(SM_CYSCREEN) * kDefaultPart / kDefaultWhole : 0;
    }
    return {x, y, x + std::max(width, 0), y + std::max(height, 0)};
}

// Where a new window hangs in the tree, and who owns it.
struct Relations {
    WindowRef parent;
    WindowRef owner;
};

WindowRef RootOf(const WindowRef& window)
{
    const HWND root = GetAncestor(window->handle, GA_ROOT);
    return root ? WindowOf(root) : nullptr;
}

bool FindRelations(HWND parentHandle, DWORD style, Relations& relations)
{
    if (parentHandle == HWND_MESSAGE)
        return relations.parent = MessageRoot(), true;
    const WindowRef parent = parentHandle ? WindowOf(parentHandle) : nullptr;
    if (parentHandle && !parent)
        return false;
    if (IsInnerWindow(style) && !parent)
        return Fail(ERROR_TLW_WITH_WSCHILD);
    relations.parent = style & WS_CHILD && parent ? parent : Desktop();
    if (!(style & WS_CHILD) && parent)
        relations.owner = RootOf(parent);
    return true;
}

// A window that is to be seen needs the toolkit, on the toolkit's thread.
bool HasToolkit(const Relations& relations)
{
    if (relations.parent == MessageRoot() || IsBelowMessageRoot(*relations.parent))
        return true;
    if (!CanShowWindows())
        return Fail(ERROR_NOT_SUPPORTED);
    return UiThread() == GetCurrentThreadId() || Fail(ERROR_ACCESS_DENIED);
}

WindowRef MakeWindow(const CREATESTRUCTA& create, std::shared_ptr<const WindowClass> kind,
                     const Relations& relations)
{
    constexpr DWORD kLater = WS_VISIBLE | WS_MINIMIZE | WS_MAXIMIZE;
    auto window = std::make_shared<Window>();
    window->thread = ThisQueue()->Thread();
    window->procedure = kind->description.lpfnWndProc;
    window->extra.resize(static_cast<size_t>(kind->description.cbWndExtra));
    window->kind = std::move(kind);
    window->style = CompletedStyle(static_cast<DWORD>(create.style)) & ~kLater;
    window->exStyle = CompletedExStyle(window->style, create.dwExStyle);
    window->id = reinterpret_cast<LONG_PTR>(create.hMenu);
    window->instance = create.hInstance;
    window->rect = window->normal = PlaceOf(create);
    AddWindow(window);
    const WindowGuard guard;
    window->parent = relations.parent.get();
    window->owner = relations.owner.get();
    auto& siblings = window->parent->children;
    siblings.insert(window->style & WS_CHILD ? siblings.end() : siblings.begin(), window.get());
    return window;
}

std::string LowerName(const WindowClass& kind)
{
    std::string name = kind.isControl ? kind.name : "";
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); });
    return name;
}

PeerRequest RequestFor(const Window& window, LPCSTR name)
{
    const WindowGuard guard;
    const Window* above = window.style & WS_CHILD ? window.parent : window.owner;
    return {window.handle,
            LowerName(*window.kind),
            window.style,
            window.exStyle,
            above ? above->peer : nullptr,
            PeerArea(window),
            name && !IsAtom(name) ? name : ""};
}

bool MakePeer(const WindowRef& window, LPCSTR name)
{
    if (IsBelowMessageRoot(*window))
        return true;
    PeerRequest request = RequestFor(*window, name);
    WindowPeer* peer = Backend()->Create(request);
    const WindowGuard guard;
    window->peer = peer;
    if (window->kind->isControl)
        window->rect = window->normal = request.client;
    return peer || Fail(ERROR_NOT_SUPPORTED);
}

// Whether the window accepts its making. One that refuses is gone afterwards.
bool Announce(const WindowRef& window, const CREATESTRUCTA& create)
{
    const auto data = reinterpret_cast<LPARAM>(&create);
    if (!SendMessageA(window->handle, WM_NCCREATE, 0, data))
        return FreeWindow(window), false;
    if (!IsAlive(window))
        return false;
    const LRESULT answer = SendMessageA(window->handle, WM_CREATE, 0, data);
    if (answer == -1 && IsAlive(window))
        FreeWindow(window);
    return IsAlive(window);
}

void TellParent(const WindowRef& window)
{
    if (!HasBits(window, WS_CHILD) || window->exStyle & WS_EX_NOPARENTNOTIFY)
        return;
    const auto id = static_cast<WORD>(window->id);
    SendMessageA(GetAncestor(window->handle, GA_PARENT), WM_PARENTNOTIFY, MAKEWPARAM(WM_CREATE, id),
                 reinterpret_cast<LPARAM>(window->handle));
}

int FirstCommand(LONG style)
{
    const auto bits = static_cast<DWORD>(style);
    return bits & WS_MINIMIZE ? SW_SHOWMINIMIZED : bits & WS_MAXIMIZE ? SW_SHOWMAXIMIZED : SW_SHOW;
}

void Finish(const WindowRef& window, LONG style)
{
    if (IsOverlapped(static_cast<DWORD>(style)))
        window->tellsSizeWhenShown = true;
    else
        TellSizeAndPlace(window);
    if (IsAlive(window))
        TellParent(window);
    if (IsAlive(window) && static_cast<DWORD>(style) & WS_VISIBLE)
        ShowWindow(window->handle, FirstCommand(style));
}

} // namespace

HWND MakeAsAsked(const CREATESTRUCTA& create)
{
    const auto style = static_cast<DWORD>(create.style);
    auto kind = create.lpszClass ? ClassOf(create.lpszClass, create.hInstance) : nullptr;
    Relations relations;
    if (!kind)
        return Fail(ERROR_CANNOT_FIND_WND_CLASS), nullptr;
    if (!FindRelations(create.hwndParent, style, relations) || !HasToolkit(relations))
        return nullptr;
    const WindowRef window = MakeWindow(create, std::move(kind), relations);
    if (!MakePeer(window, create.lpszName))
        return DropWindow(window), nullptr;
    if (!Announce(window, create))
        return nullptr;
    Finish(window, create.style);
    return IsAlive(window) ? window->handle : nullptr;
}

HWND WINAPI CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR name, DWORD style, int x, int y,
                            int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                            LPVOID parameter)
{
    const CREATESTRUCTA create = {
        parameter, instance,  menu,   parent, height, width, y, x, static_cast<LONG>(style),
        name,      className, exStyle};
    return exStyle & WS_EX_MDICHILD ? MakeMdiChild(create) : MakeAsAsked(create);
}
