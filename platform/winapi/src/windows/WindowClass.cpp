#include "WindowClass.h"

#include "../Error.h"
#include "SystemClasses.h"
#include "Window.h"

#include <cstring>
#include <map>

namespace {

// Of classes that every module may use.
constexpr HINSTANCE kEverywhere = nullptr;

using Key = std::pair<ATOM, HINSTANCE>;

struct Classes {
    std::mutex mutex;
    std::map<Key, std::shared_ptr<const WindowClass>> registered;
};

std::shared_ptr<const WindowClass> SystemClassOf(const SystemClass& row)
{
    auto made = std::make_shared<WindowClass>();
    made->name = row.name;
    made->atom = AtomOf(row.name);
    made->isControl = row.isControl;
    made->isDialog = row.isDialog;
    made->description.cbSize = sizeof made->description;
    made->description.style = row.style | CS_GLOBALCLASS;
    made->description.lpfnWndProc = row.procedure;
    made->description.cbWndExtra = row.extra;
    return made;
}

Classes& TheClasses()
{
    static Classes& classes = [&]() -> Classes& {
        auto& made = *new Classes;
        for (const SystemClass& row : SystemClasses()) {
            const auto kind = SystemClassOf(row);
            made.registered[{kind->atom, kEverywhere}] = kind;
        }
        return made;
    }();
    return classes;
}

HINSTANCE OrProgram(HINSTANCE instance)
{
    return instance ? instance : GetModuleHandleA(nullptr);
}

Key KeyOf(const WindowClass& kind)
{
    const auto& description = kind.description;
    return {kind.atom, description.style & CS_GLOBALCLASS ? kEverywhere : description.hInstance};
}

std::shared_ptr<const WindowClass> ExactClass(LPCSTR name, HINSTANCE owner)
{
    Classes& classes = TheClasses(); // its making gives atoms
    const std::lock_guard lock(classes.mutex);
    const auto found = classes.registered.find({KnownAtom(name), owner});
    return found == classes.registered.end() ? nullptr : found->second;
}

bool HasWindows(const WindowClass& kind, const Window& below)
{
    for (const Window* child : below.children)
        if (child->kind.get() == &kind || HasWindows(kind, *child))
            return true;
    return false;
}

bool HasWindows(const WindowClass& kind)
{
    const WindowGuard guard;
    return HasWindows(kind, *Desktop()) || HasWindows(kind, *MessageRoot());
}

} // namespace

std::shared_ptr<const WindowClass> ClassOf(LPCSTR name, HINSTANCE instance)
{
    const auto own = ExactClass(name, OrProgram(instance));
    return own ? own : ExactClass(name, kEverywhere);
}

ATOM WINAPI RegisterClassA(const WNDCLASSA* description)
{
    if (!description)
        return Fail(ERROR_INVALID_PARAMETER);
    WNDCLASSEXA extended = {};
    extended.cbSize = sizeof extended;
    extended.style = description->style;
    extended.lpfnWndProc = description->lpfnWndProc;
    extended.cbClsExtra = description->cbClsExtra;
    extended.cbWndExtra = description->cbWndExtra;
    extended.hInstance = description->hInstance;
    extended.hIcon = description->hIcon;
    extended.hCursor = description->hCursor;
    extended.hbrBackground = description->hbrBackground;
    extended.lpszMenuName = description->lpszMenuName;
    extended.lpszClassName = description->lpszClassName;
    return RegisterClassExA(&extended);
}

ATOM WINAPI RegisterClassExA(const WNDCLASSEXA* description)
{
    if (!description || description->cbSize != sizeof *description || !description->lpszClassName ||
        !description->lpfnWndProc || description->cbWndExtra < 0 || description->cbClsExtra < 0)
        return Fail(ERROR_INVALID_PARAMETER);
    auto kind = std::make_shared<WindowClass>();
    kind->description = *description;
    kind->description.hInstance = OrProgram(description->hInstance);
    kind->description.lpszMenuName = kind->description.lpszClassName = nullptr;
    Classes& classes = TheClasses();
    kind->atom = AtomOf(description->lpszClassName);
    kind->name =
        IsAtom(description->lpszClassName) ? "#" + std::to_string(kind->atom) : description->lpszClassName;
    const std::lock_guard lock(classes.mutex);
    const bool added = classes.registered.try_emplace(KeyOf(*kind), kind).second;
    return added ? kind->atom : static_cast<ATOM>(Fail(ERROR_CLASS_ALREADY_EXISTS));
}

BOOL WINAPI UnregisterClassA(LPCSTR name, HINSTANCE instance)
{
    const auto kind = ClassOf(name, instance);
    if (!kind || kind->description.hInstance != OrProgram(instance))
        return Fail(ERROR_CLASS_DOES_NOT_EXIST);
    if (HasWindows(*kind))
        return Fail(ERROR_CLASS_HAS_WINDOWS);
    const std::lock_guard lock(TheClasses().mutex);
    return TheClasses().registered.erase(KeyOf(*kind)) > 0;
}

BOOL WINAPI GetClassInfoExA(HINSTANCE instance, LPCSTR name, WNDCLASSEXA* description)
{
    if (!name || !description)
        return Fail(ERROR_INVALID_PARAMETER);
    const auto kind = instance ? ClassOf(name, instance) : ExactClass(name, kEverywhere);
    if (!kind)
        return Fail(ERROR_CLASS_DOES_NOT_EXIST);
    const UINT size = description->cbSize;
    *description = kind->description;
    description->cbSize = size;
    description->lpszClassName = name;
    return kind->atom;
}

BOOL WINAPI GetClassInfoA(HINSTANCE instance, LPCSTR name, WNDCLASSA* description)
{
    WNDCLASSEXA extended = {};
    const BOOL found =
        description ? GetClassInfoExA(instance, name, &extended) : Fail(ERROR_INVALID_PARAMETER);
    if (found)
        *description = {extended.style,        extended.lpfnWndProc,   extended.cbClsExtra,
                        extended.cbWndExtra,   extended.hInstance,     extended.hIcon,
                        extended.hCursor,      extended.hbrBackground, extended.lpszMenuName,
                        extended.lpszClassName};
    return found;
}

int WINAPI GetClassNameA(HWND window, LPSTR buffer, int size)
{
    const WindowRef found = WindowOf(window);
    if (!found)
        return 0;
    if (!buffer || size <= 0)
        return Fail(ERROR_INSUFFICIENT_BUFFER);
    const std::string name = found->kind ? found->kind->name : "#32769"; // the desktop's
    const size_t length = std::min(name.size(), static_cast<size_t>(size) - 1);
    std::memcpy(buffer, name.data(), length);
    buffer[length] = 0;
    return static_cast<int>(length);
}
