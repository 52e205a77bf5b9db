// The names that mean a device in every folder.
#pragma once

enum class Device { None, Null, Other };

// What the last part of a path means: NUL, another device (CON, COM1 ...) or a file. An extension and blanks
// behind the name do not matter, nor does case.
Device DeviceOf(const char* path);
