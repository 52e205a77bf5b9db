// The table behind HANDLE values.
//
// A handle is a number, never an address: a wrong one is found out, not followed, and a closed one is not
// taken for the next object soon. Threads: any.
#pragma once

#include "Error.h"

#include <memory>

class KernelObject
{
public:
    virtual ~KernelObject() = default;
};

// INVALID_HANDLE_VALUE with ERROR_TOO_MANY_OPEN_FILES when the table is full.
HANDLE AddHandle(std::shared_ptr<KernelObject> object);

// The object, or null.
std::shared_ptr<KernelObject> HandleObject(HANDLE handle);

// Takes the handle out of the table; the object lives on as long as another handle or a call uses it.
void RemoveHandle(HANDLE handle);

// The object if it is of that kind, else null with ERROR_INVALID_HANDLE.
template <class Kind>
std::shared_ptr<Kind> ObjectOf(HANDLE handle)
{
    auto object = std::dynamic_pointer_cast<Kind>(HandleObject(handle));
    if (!object)
        SetLastError(ERROR_INVALID_HANDLE);
    return object;
}
