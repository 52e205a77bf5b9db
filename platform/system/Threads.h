// Which thread runs, and whether it is the only one.
#pragma once

#include <cstdint>

#ifdef _WIN32
#include <windows.h>
#else
#include <pthread.h>
#endif

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#endif

// Never 0. Cheap: it is asked for at every tracked allocation.
inline std::uintptr_t CurrentThread()
{
#ifdef _WIN32
    return GetCurrentThreadId();
#else
    return pthread_self();
#endif
}

// True while the calling thread is certainly the only one: then nothing happens at the same time as it.
inline bool IsOnlyThread()
{
#if __has_include(<sys/single_threaded.h>)
    return __libc_single_threaded;
#else
    return false;
#endif
}
