// The run-time library's multibyte text functions, under their Windows names.
//
// A double-byte character is one character: its second byte is never found, matched or cut apart. Characters
// compare by value (first byte high), single bytes as unsigned. The code page is that of mbctype.h. Without
// regard to case means the letters of ASCII and the full-width Latin letters of 932, 936 and 949.
// A lead byte before the terminator stands alone.
#pragma once

#include "mbctype.h"

// -1, 0 or 1. The `n` counts characters, the `nb` bytes.
WINBASEAPI int _mbscmp(const unsigned char* a, const unsigned char* b);
WINBASEAPI int _mbsicmp(const unsigned char* a, const unsigned char* b);
WINBASEAPI int _mbsncmp(const unsigned char* a, const unsigned char* b, size_t n);
WINBASEAPI int _mbsnicmp(const unsigned char* a, const unsigned char* b, size_t n);
// Differs: as _mbscmp and _mbsicmp, not by the language's dictionary.
WINBASEAPI int _mbscoll(const unsigned char* a, const unsigned char* b);
WINBASEAPI int _mbsicoll(const unsigned char* a, const unsigned char* b);

// The first and the last place of a character (0x8141 is the pair 81 41), of a text, of any character of a
// set; null if there is none.
WINBASEAPI unsigned char* _mbschr(const unsigned char* text, unsigned int character);
WINBASEAPI unsigned char* _mbsrchr(const unsigned char* text, unsigned int character);
WINBASEAPI unsigned char* _mbsstr(const unsigned char* text, const unsigned char* part);
WINBASEAPI unsigned char* _mbspbrk(const unsigned char* text, const unsigned char* set);
// The bytes before the first character that is not (is) in the set.
WINBASEAPI size_t _mbsspn(const unsigned char* text, const unsigned char* set);
WINBASEAPI size_t _mbscspn(const unsigned char* text, const unsigned char* set);
// The next token, cut in place; null `text` goes on with the thread's last one.
WINBASEAPI unsigned char* _mbstok(unsigned char* text, const unsigned char* delimiters);

WINBASEAPI size_t _mbslen(const unsigned char* text);
// 1 or 2; 1 at the terminator.
WINBASEAPI size_t _mbclen(const unsigned char* character);
WINBASEAPI unsigned char* _mbsinc(const unsigned char* current);
WINBASEAPI unsigned char* _mbsdec(const unsigned char* start, const unsigned char* current);
WINBASEAPI unsigned int _mbsnextc(const unsigned char* text);
// -1 when `place` is a first (second) byte of a pair, else 0, counting from `text`.
WINBASEAPI int _ismbslead(const unsigned char* text, const unsigned char* place);
WINBASEAPI int _ismbstrail(const unsigned char* text, const unsigned char* place);

// In place.
WINBASEAPI unsigned char* _mbsupr(unsigned char* text);
WINBASEAPI unsigned char* _mbslwr(unsigned char* text);
WINBASEAPI unsigned char* _mbsrev(unsigned char* text);
// Copies at most `nb` bytes, no half character, and fills the rest with zeros.
WINBASEAPI unsigned char* _mbsnbcpy(unsigned char* to, const unsigned char* from, size_t nb);
