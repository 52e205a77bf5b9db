// The floating-point unit's control and status words, as the Windows run-time library words them, beside the
// platform's own limits.
//
// Threads: the words belong to the calling thread; a new thread inherits its creator's.
// Differs: precision and infinity control are not offered, as in every 64-bit program: their bits read 0 and
// are ignored. An exception that is unmasked raises SIGFPE in float and double arithmetic only, while masking
// and rounding reach `long double` too. On other processors than x86-64 denormals are not controlled, and
// exceptions can be unmasked only where the hardware traps.
#pragma once

#include_next <float.h>

#ifdef __cplusplus
#include "apiexport_.h"

// Exceptions that are masked (do not trap).
#define _MCW_EM 0x0008001f
#define _EM_INEXACT 0x00000001
#define _EM_UNDERFLOW 0x00000002
#define _EM_OVERFLOW 0x00000004
#define _EM_ZERODIVIDE 0x00000008
#define _EM_INVALID 0x00000010
#define _EM_DENORMAL 0x00080000

#define _MCW_RC 0x00000300
#define _RC_NEAR 0x00000000
#define _RC_DOWN 0x00000100
#define _RC_UP 0x00000200
#define _RC_CHOP 0x00000300

#define _MCW_DN 0x03000000
#define _DN_SAVE 0x00000000
#define _DN_FLUSH 0x01000000

#define _MCW_PC 0x00030000
#define _PC_64 0x00000000
#define _PC_53 0x00010000
#define _PC_24 0x00020000
#define _MCW_IC 0x00040000
#define _IC_PROJECTIVE 0x00000000
#define _IC_AFFINE 0x00040000

#define _CW_DEFAULT                                                                                          \
    (_RC_NEAR + _EM_INVALID + _EM_ZERODIVIDE + _EM_OVERFLOW + _EM_UNDERFLOW + _EM_INEXACT + _EM_DENORMAL)

// Exceptions that have happened since the last _clearfp.
#define _SW_INEXACT 0x00000001
#define _SW_UNDERFLOW 0x00000002
#define _SW_OVERFLOW 0x00000004
#define _SW_ZERODIVIDE 0x00000008
#define _SW_INVALID 0x00000010
#define _SW_DENORMAL 0x00080000

// Sets the bits of `mask` to those of `value` and answers the whole word after that; a null mask only reads.
// _controlfp leaves _EM_DENORMAL as it is, _control87 does not.
WINBASEAPI unsigned int _controlfp(unsigned int value, unsigned int mask);
WINBASEAPI unsigned int _control87(unsigned int value, unsigned int mask);

// The status word; _clearfp empties it and answers what it was.
WINBASEAPI unsigned int _statusfp();
WINBASEAPI unsigned int _clearfp();

WINBASEAPI int _isnan(double value);
WINBASEAPI int _finite(double value);
// The next number after `from` towards `to`; `to` when both are equal; a NaN when either is one.
WINBASEAPI double _nextafter(double from, double to);
#endif
