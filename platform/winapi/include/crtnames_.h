// Names of the Windows run-time library that <cstring>, <cstdlib> and <cstdio> of this platform lack.
#pragma once

#include "windef.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#define _MAX_PATH 260
#define _MAX_DRIVE 3
#define _MAX_DIR 256
#define _MAX_FNAME 256
#define _MAX_EXT 256

// Compare without regard to the case of ASCII letters: negative, 0, positive.
WINBASEAPI int _stricmp(const char* a, const char* b);
WINBASEAPI int _strnicmp(const char* a, const char* b, size_t count);

// A copy for free().
WINBASEAPI char* _strdup(const char* text);

// `value` in `radix` 2 to 36, lower case; a minus sign in radix 10 only.
WINBASEAPI char* _itoa(int value, char* buffer, int radix);
WINBASEAPI char* _ltoa(LONG value, char* buffer, int radix);

// The leading number; a number beyond 64 bits is cut to the nearest bound.
WINBASEAPI LONGLONG _atoi64(const char* text);

// As snprintf, but a text that does not fit answers -1, and one that just fits has no terminator.
// Differs: the conversions are those of this platform's snprintf.
WINBASEAPI int _snprintf(char* buffer, size_t size, const char* format, ...)
    __attribute__((format(printf, 3, 4)));
WINBASEAPI int _vsnprintf(char* buffer, size_t size, const char* format, va_list arguments);
