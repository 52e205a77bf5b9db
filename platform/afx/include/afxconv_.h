// Whole numbers from text as the home platform's run-time library reads them.
//
//   AfxAtoI(" 12abc") == 12; AfxAtoI("4294967297") == 1; AfxAtoI("x") == 0
#pragma once

#include <windows.h>

// The whole number at the beginning of `text`: blanks are skipped, then a sign, then decimal digits, however
// many; what does not fit wraps modulo 2^32. 0 without a digit and for null. Reads no locale.
inline LONG AfxAtoL(const char* text)
{
    if (!text)
        return 0;
    while (*text == ' ' || (*text >= '\t' && *text <= '\r'))
        ++text;
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+')
        ++text;
    DWORD value = 0;
    for (; *text >= '0' && *text <= '9'; ++text)
        value = value * 10 + static_cast<DWORD>(*text - '0');
    return static_cast<LONG>(negative ? 0 - value : value);
}

inline int AfxAtoI(const char* text)
{
    return static_cast<int>(AfxAtoL(text));
}
