// The processor's time-stamp counter; where there is none, the system's performance counter.
#pragma once

#include <windows.h>

#if defined(__x86_64__) || defined(__i386__)
#include <x86intrin.h>

inline ULONGLONG TickCounter()
{
    return __rdtsc();
}
#else
inline ULONGLONG TickCounter()
{
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return static_cast<ULONGLONG>(now.QuadPart);
}
#endif
