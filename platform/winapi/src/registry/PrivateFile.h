// Files that are their owner's alone.
#pragma once

#include <string>

// Opens a regular file of this user's, made on first use (not when `readOnly`), and takes every access from
// others whatever the umask. A descriptor, or -1 with errno; a symbolic link or another's file is refused.
int OpenPrivateFile(const std::string& path, bool readOnly);
