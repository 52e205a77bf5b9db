// Handles of open keys.
//
// Threads: any.
#pragma once

#include <windef.h>

#include <string>

// A new handle of the key at `path`; a root's is its own.
HKEY OpenHandle(const std::string& path);

// The path behind a handle; false when it is none, or no more.
bool PathOfHandle(HKEY key, std::string& path);

// False when the handle is none. Closing a root key's handle does nothing.
bool CloseHandleOfKey(HKEY key);
