// Tells whether what was read of a registry key may still be taken for true.
//
//   if (!watch.Stands()) {
//       watch.Prepare();
//       value = Read();
//       watch.Confirm(); // Stands() from now on, unless something was written since Prepare()
//   }
//
// A write by any process is noticed by the next call of Stands() after it. On Linux the call costs a few
// loads from memory, on Windows one of the system. Threads: Stands() from any; the others from one at a time.
#pragma once

#include <atomic>
#include <cstdint>

// What Stands() compares, for who would rather do without the call: it stands while both counters are what
// was seen of them. Where there is no such counter, they differ for ever.
struct RegistryCounters {
    const std::atomic<std::uint64_t>* registry;
    std::uint64_t registrySeen;
    const std::atomic<unsigned>* environment;
    unsigned environmentSeen;
};

#ifdef _WIN32
#include "RegistryWatchWindows.h"
#else
#include "RegistryWatchLinux.h"
#endif

// False when it is certain that no registry value exists, so that a start without any need not look.
bool RegistryMayHoldValues();
