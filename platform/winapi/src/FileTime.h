// Between Unix times and FILETIME, both UTC.
#pragma once

#include <windef.h>

#include <ctime>

FILETIME ToFileTime(const timespec& time);
timespec FromFileTime(const FILETIME& time);

inline ULONGLONG Ticks(const FILETIME& time)
{
    return static_cast<ULONGLONG>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

inline FILETIME FromTicks(ULONGLONG ticks)
{
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}
