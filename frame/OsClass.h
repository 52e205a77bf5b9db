// How GetOS classes what GetVersionExA tells.
#pragma once

#include <windows.h>

inline int OsClass(BOOL known, const OSVERSIONINFOA& version)
{
    constexpr int kUnknown = 7;
    if (!known)
        return kUnknown;
    switch (version.dwPlatformId) {
    case 0: // Win32s
        return 1;
    case 1: // Windows 95 and its successors
        return version.dwMinorVersion == 0 ? 2 : 3;
    case 2: // NT
        return version.dwMajorVersion == 4 || version.dwMajorVersion == 5
                   ? static_cast<int>(version.dwMajorVersion)
                   : 6;
    default:
        return kUnknown;
    }
}
