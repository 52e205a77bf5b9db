// Code pages, languages and comparison of texts.
//
// The ANSI code page and the languages come from the environment (LC_ALL, LC_CTYPE, LANG; the user
// interface's from LC_ALL, LC_MESSAGES, LANG), read once; what setlocale() did does not matter. A codeset
// that is none of 949, 932, 936 and 1252 counts as UTF-8 (65001), a missing language as English.
// Threads: any.
#pragma once

#include "windef.h"
#include "winresrc.h"

#define CP_ACP 0
#define CP_OEMCP 1
#define CP_MACCP 2
#define CP_THREAD_ACP 3
#define CP_UTF8 65001

#define MB_PRECOMPOSED 0x0001u
#define MB_COMPOSITE 0x0002u
#define MB_USEGLYPHCHARS 0x0004u
#define MB_ERR_INVALID_CHARS 0x0008u

#define WC_COMPOSITECHECK 0x0200u
#define WC_DISCARDNS 0x0010u
#define WC_SEPCHARS 0x0020u
#define WC_DEFAULTCHAR 0x0040u
#define WC_ERR_INVALID_CHARS 0x0080u
#define WC_NO_BEST_FIT_CHARS 0x0400u

#define SORT_DEFAULT 0x0
#define MAKELANGID(primary, sub)                                                                             \
    (static_cast<WORD>((static_cast<WORD>(sub) << 10) | static_cast<WORD>(primary)))
#define PRIMARYLANGID(id) (static_cast<WORD>((id)&0x3ff))
#define SUBLANGID(id) (static_cast<WORD>(static_cast<WORD>(id) >> 10))
#define MAKELCID(language, sort)                                                                             \
    ((static_cast<DWORD>(static_cast<WORD>(sort)) << 16) | static_cast<DWORD>(static_cast<WORD>(language)))
#define LANGIDFROMLCID(lcid) (static_cast<WORD>(lcid))
#define LANG_SYSTEM_DEFAULT MAKELANGID(LANG_NEUTRAL, SUBLANG_SYS_DEFAULT)
#define LANG_USER_DEFAULT MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT)
#define LOCALE_SYSTEM_DEFAULT MAKELCID(LANG_SYSTEM_DEFAULT, SORT_DEFAULT)
#define LOCALE_USER_DEFAULT MAKELCID(LANG_USER_DEFAULT, SORT_DEFAULT)
#define LOCALE_NEUTRAL MAKELCID(MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL), SORT_DEFAULT)
#define LOCALE_INVARIANT MAKELCID(MAKELANGID(0x7f, SUBLANG_NEUTRAL), SORT_DEFAULT)

#define LOCALE_ILANGUAGE 0x0001u
#define LOCALE_SDECIMAL 0x000eu
#define LOCALE_STHOUSAND 0x000fu
#define LOCALE_IDEFAULTCODEPAGE 0x000bu
#define LOCALE_IDEFAULTANSICODEPAGE 0x1004u
#define LOCALE_NOUSEROVERRIDE 0x80000000u
#define LOCALE_USE_CP_ACP 0x40000000u

#define NORM_IGNORECASE 0x0001u
#define SORT_STRINGSORT 0x1000u
#define CSTR_LESS_THAN 1
#define CSTR_EQUAL 2
#define CSTR_GREATER_THAN 3

#define MAX_LEADBYTES 12
#define MAX_DEFAULTCHAR 2

struct CPINFO {
    UINT MaxCharSize;
    BYTE DefaultChar[MAX_DEFAULTCHAR];
    BYTE LeadByte[MAX_LEADBYTES]; // pairs first, last; ended by two zeros
};
using LPCPINFO = CPINFO*;

WINBASEAPI UINT WINAPI GetACP();
WINBASEAPI UINT WINAPI GetOEMCP();
// Fails with ERROR_INVALID_PARAMETER for a code page that is not offered.
WINBASEAPI BOOL WINAPI GetCPInfo(UINT codePage, LPCPINFO info);
WINBASEAPI BOOL WINAPI IsDBCSLeadByte(BYTE byte);
WINBASEAPI BOOL WINAPI IsDBCSLeadByteEx(UINT codePage, BYTE byte);

// Converts `bytes` bytes (-1: up to and with the terminator) and answers the units written; with `size` 0
// the units needed. Fails with ERROR_INSUFFICIENT_BUFFER, ERROR_INVALID_PARAMETER, ERROR_INVALID_FLAGS, and,
// with MB_ERR_INVALID_CHARS, ERROR_NO_UNICODE_TRANSLATION; without it invalid input becomes U+FFFD or the
// code page's default character.
// Offered: 437, 850, 932, 936, 949, 950, 1250, 1251, 1252, 28591, 65001. Differs: of the user-defined ranges
// only those of 949 and 932 are known.
WINBASEAPI int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int bytes, LPWSTR wide,
                                          int size);

// Likewise back. What the code page lacks becomes `fallback` (null: '?') and sets *used; both must be null
// for UTF-8. Differs: best fits are full-width forms and letters without their accents.
WINBASEAPI int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR wide, int units, LPSTR text,
                                          int size, LPCSTR fallback, LPBOOL used);

WINBASEAPI LANGID WINAPI GetSystemDefaultLangID();
WINBASEAPI LANGID WINAPI GetUserDefaultLangID();
WINBASEAPI LANGID WINAPI GetUserDefaultUILanguage();

// The text's length with its terminator; with `size` 0 the size needed.
// Differs: language numbers, code pages and the decimal and thousands separators only; any other type fails
// with ERROR_INVALID_FLAGS.
WINBASEAPI int WINAPI GetLocaleInfoA(LCID locale, LCTYPE type, LPSTR buffer, int size);
#define GetLocaleInfo GetLocaleInfoA
