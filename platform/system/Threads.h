// Whether the process has more than one thread.
#pragma once

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#endif

// True while the calling thread is certainly the only one: then nothing happens at the same time as it.
inline bool IsOnlyThread()
{
#if __has_include(<sys/single_threaded.h>)
    return __libc_single_threaded;
#else
    return false;
#endif
}
