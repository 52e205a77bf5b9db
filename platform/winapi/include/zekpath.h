// Between the paths of Win32 programs and those of this machine.
#pragma once

#include "windef.h"

#include <string>

// The Unix path that a Win32 or plain path means, absolute, its existing parts as they are written on the
// disk; "" when the path is refused, GetLastError telling why. The file need not exist.
__attribute__((visibility("default"))) std::string ZekNativePath(LPCSTR path) noexcept;

// The Win32 form (`C:\...` inside the home folder's drive, else `Z:\...`) of an absolute Unix path.
__attribute__((visibility("default"))) std::string ZekWin32Path(const std::string& native);
