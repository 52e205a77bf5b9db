// Registered window classes.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

struct WindowClass {
    WNDCLASSEXA description = {}; // its texts are null
    std::string name;
    ATOM atom = 0;
    bool isControl = false; // drawn by the toolkit
    bool isDialog = false;
};

// The class that a window of `instance` (null: the program's) means by a name or an atom; null if there is
// none.
std::shared_ptr<const WindowClass> ClassOf(LPCSTR name, HINSTANCE instance);

// The number of a name, the same for the same letters in either case; made on first use.
ATOM AtomOf(LPCSTR name);
// 0 if no one has asked for it before.
ATOM KnownAtom(LPCSTR name);

inline bool IsAtom(LPCSTR name)
{
    return reinterpret_cast<ULONG_PTR>(name) < 0x10000;
}
