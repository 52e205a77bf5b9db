// The module that is mapped at an address.
#pragma once

#include <windef.h>

#include <dlfcn.h>

// Null where there is none. Unlike dladdr() it looks at no symbol, of which a module has thousands.
inline HMODULE ModuleAt(const void* address)
{
    dl_find_object found{};
    if (_dl_find_object(const_cast<void*>(address), &found) != 0)
        return nullptr;
    return reinterpret_cast<HMODULE>(found.dlfo_link_map);
}
