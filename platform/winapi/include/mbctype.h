// Lead and trail bytes of the multibyte code page.
#pragma once

#include "crtnames_.h"

#define _MB_CP_SBCS 0
#define _MB_CP_OEM -2
#define _MB_CP_ANSI -3

// The multibyte code page of all _mbs... functions; at first the ANSI one. 0 when it has single bytes only
// (UTF-8 among them: its bytes are not paired).
WINBASEAPI int _getmbcp();
// Sets it, for the whole process; 0, or -1 for one that is not offered.
WINBASEAPI int _setmbcp(int codePage);

// Nonzero for a byte that may be the first, or the second, of a double-byte character.
WINBASEAPI int _ismbblead(unsigned int byte);
WINBASEAPI int _ismbbtrail(unsigned int byte);
