#include "../CodePage.h"
#include "../Error.h"
#include "Position.h"
#include "Queue.h"
#include "Window.h"

#include <bit>
#include <cstring>

namespace {

std::string PropertyName(LPCSTR name)
{
    if (reinterpret_cast<ULONG_PTR>(name) >= 0x10000)
        return FoldCase(name);
    return "#" + std::to_string(reinterpret_cast<ULONG_PTR>(name));
}

LONG_PTR OwnerOrParent(const Window& window)
{
    const Window* above = window.style & WS_CHILD ? window.parent : window.owner;
    return reinterpret_cast<LONG_PTR>(above ? above->handle : nullptr);
}

LONG_PTR FieldOf(const Window& window, int index)
{
    switch (index) {
    case GWL_STYLE:
        return static_cast<LONG_PTR>(window.style);
    case GWL_EXSTYLE:
        return static_cast<LONG_PTR>(window.exStyle);
    case GWLP_ID:
        return window.id;
    case GWLP_WNDPROC:
        return std::bit_cast<LONG_PTR>(window.procedure);
    case GWLP_HINSTANCE:
        return reinterpret_cast<LONG_PTR>(window.instance);
    case GWLP_HWNDPARENT:
        return OwnerOrParent(window);
    case GWLP_USERDATA:
        return window.userData;
    default:
        return Fail(ERROR_INVALID_INDEX);
    }
}

template <class Value>
Value* ExtraAt(Window& window, int index, Value* room)
{
    if (index < 0 || static_cast<size_t>(index) + sizeof(Value) > window.extra.size())
        return Fail(ERROR_INVALID_INDEX), nullptr;
    std::memcpy(room, &window.extra[static_cast<size_t>(index)], sizeof(Value));
    return room;
}

template <class Value>
LONG_PTR SwapExtra(Window& window, int index, Value value)
{
    Value old = 0;
    if (!ExtraAt(window, index, &old))
        return 0;
    std::memcpy(&window.extra[static_cast<size_t>(index)], &value, sizeof(Value));
    return static_cast<LONG_PTR>(old);
}

LONG_PTR SetOwner(const WindowRef& window, LONG_PTR value)
{
    const auto above = reinterpret_cast<HWND>(value);
    if (HasBits(window, WS_CHILD))
        return reinterpret_cast<LONG_PTR>(SetParent(window->handle, above));
    const WindowRef owner = above ? WindowOf(above) : nullptr;
    const WindowGuard guard;
    const LONG_PTR old = OwnerOrParent(*window);
    window->owner = owner.get();
    return old;
}

LONG_PTR SetField(const WindowRef& window, int index, LONG_PTR value)
{
    const WindowGuard guard;
    const LONG_PTR old = FieldOf(*window, index);
    if (index == GWLP_ID)
        window->id = value;
    else if (index == GWLP_WNDPROC)
        window->procedure = std::bit_cast<WNDPROC>(value);
    else if (index == GWLP_HINSTANCE)
        window->instance = reinterpret_cast<HINSTANCE>(value);
    else if (index == GWLP_USERDATA)
        window->userData = value;
    return old;
}

bool IsPointerField(int index)
{
    return index == GWLP_WNDPROC || index == GWLP_HINSTANCE || index == GWLP_HWNDPARENT;
}

} // namespace

LONG_PTR WINAPI GetWindowLongPtrA(HWND handle, int index)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return 0;
    const WindowGuard guard;
    LONG_PTR value = 0;
    return index < 0 ? FieldOf(*window, index) : ExtraAt(*window, index, &value) ? value : 0;
}

LONG WINAPI GetWindowLongA(HWND handle, int index)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return 0;
    if (IsPointerField(index))
        return Fail(ERROR_INVALID_INDEX);
    const WindowGuard guard;
    LONG value = 0;
    return index < 0                         ? static_cast<LONG>(FieldOf(*window, index))
           : ExtraAt(*window, index, &value) ? value
                                             : 0;
}

LONG_PTR WINAPI SetWindowLongPtrA(HWND handle, int index, LONG_PTR value)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return 0;
    if (index == GWL_STYLE || index == GWL_EXSTYLE)
        return static_cast<LONG_PTR>(ChangeStyle(window, index, static_cast<DWORD>(value)));
    if (index == GWLP_HWNDPARENT)
        return SetOwner(window, value);
    if (index < 0)
        return SetField(window, index, value);
    const WindowGuard guard;
    return SwapExtra(*window, index, value);
}

LONG WINAPI SetWindowLongA(HWND handle, int index, LONG value)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return 0;
    if (IsPointerField(index))
        return Fail(ERROR_INVALID_INDEX);
    if (index < 0)
        return static_cast<LONG>(SetWindowLongPtrA(handle, index, value));
    const WindowGuard guard;
    return static_cast<LONG>(SwapExtra(*window, index, value));
}

BOOL WINAPI SetPropA(HWND handle, LPCSTR name, HANDLE value)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return FALSE;
    const WindowGuard guard;
    window->properties[PropertyName(name)] = value;
    return TRUE;
}

HANDLE WINAPI GetPropA(HWND handle, LPCSTR name)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return nullptr;
    const WindowGuard guard;
    const auto found = window->properties.find(PropertyName(name));
    return found == window->properties.end() ? nullptr : found->second;
}

HANDLE WINAPI RemovePropA(HWND handle, LPCSTR name)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return nullptr;
    const WindowGuard guard;
    const auto found = window->properties.extract(PropertyName(name));
    return found ? found.mapped() : nullptr;
}
