// How functions that answer a text fill the caller's buffer.
#pragma once

#include <windef.h>

#include <cstring>
#include <string>

// Copies `text` with its terminator and answers its length; if `size` is too small, leaves the buffer and
// answers the size that is needed.
inline DWORD AnswerText(const std::string& text, LPSTR buffer, DWORD size)
{
    if (!buffer || size <= text.size())
        return static_cast<DWORD>(text.size() + 1);
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return static_cast<DWORD>(text.size());
}
