// How registry functions hand texts and bytes to their callers.
#pragma once

#include <windef.h>

#include <string>
#include <type_traits>

// Copies a name with its terminator; *count is the room before and the length without it after.
// ERROR_MORE_DATA leaves both alone.
LONG AnswerName(const std::string& name, LPSTR buffer, LPDWORD count);

// Copies a value's type and bytes as RegQueryValueExA promises it. Every output may be null.
LONG AnswerData(DWORD type, const std::string& bytes, LPDWORD typeOut, LPBYTE data, LPDWORD size);

// Runs a function's body; what it throws for want of memory becomes ERROR_NOT_ENOUGH_MEMORY.
template <class Body>
LONG Guarded(Body&& body) noexcept
{
    static_assert(std::is_same_v<decltype(body()), LONG>);
    try {
        return body();
    } catch (...) {
        return 8; // ERROR_NOT_ENOUGH_MEMORY
    }
}
