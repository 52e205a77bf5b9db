// Text functions by their neutral names; the character type is the 8-bit one of the ANSI code page.
#pragma once

#include "mbstring.h"

#define _T(text) text
#define _TEXT(text) text

using _TCHAR = char;
