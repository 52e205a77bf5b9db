// Tells whether what was read of a registry key may still be taken for true.
//
//   if (!watch.Stands()) {
//       watch.Renew(); // before reading: what is written while one reads is noticed afterwards
//       value = Read();
//   }
//
// A write by any process is noticed by the next call of Stands() after it. On Linux the call costs a few
// loads from memory, on Windows one of the system. Threads: Stands() from any; Renew() from one at a time.
#pragma once

#ifdef _WIN32
#include "RegistryWatchWindows.h"
#else
#include "RegistryWatchLinux.h"
#endif

// False when it is certain that no registry value exists, so that a start without any need not look.
bool RegistryMayHoldValues();
