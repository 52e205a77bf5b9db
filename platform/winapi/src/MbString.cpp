#include "MbTable.h"

#include <mbstring.h>

#include <algorithm>
#include <cctype>

namespace {

using Byte = unsigned char;

struct Character {
    unsigned value; // a pair has its first byte high
    size_t length;  // 0 at the terminator
};

Character Read(const MbPage& page, const Byte* text)
{
    if (!*text)
        return {0, 0};
    if ((*page.leads)[*text] && text[1])
        return {static_cast<unsigned>(text[0] << 8 | text[1]), 2};
    return {*text, 1};
}

unsigned Lower(const MbPage& page, unsigned value)
{
    if (value < 0x80)
        return value >= 'A' && value <= 'Z' ? value + 0x20 : value;
    const bool isCapital = page.wideCapitalA && value >= page.wideCapitalA && value < page.wideCapitalA + 26;
    return isCapital ? value + page.wideDistance : value;
}

unsigned Upper(const MbPage& page, unsigned value)
{
    if (value < 0x80)
        return value >= 'a' && value <= 'z' ? value - 0x20 : value;
    const unsigned smallA = page.wideCapitalA + page.wideDistance;
    const bool isSmall = page.wideCapitalA && value >= smallA && value < smallA + 26;
    return isSmall ? value - page.wideDistance : value;
}

unsigned Same(const MbPage&, unsigned value)
{
    return value;
}

// Compares as long as `more` allows, which is told the bytes that a character takes.
template <class Fold, class More>
int Compare(const Byte* a, const Byte* b, Fold fold, More more)
{
    const MbPage& page = ActiveMbPage();
    for (;;) {
        const Character left = Read(page, a), right = Read(page, b);
        if (!more(std::max(left.length, right.length)))
            return 0;
        const unsigned x = fold(page, left.value), y = fold(page, right.value);
        if (x != y)
            return x < y ? -1 : 1;
        if (!left.length)
            return 0;
        a += left.length;
        b += right.length;
    }
}

auto Always()
{
    return [](size_t) { return true; };
}

auto Characters(size_t count)
{
    return [count](size_t) mutable { return count-- > 0; };
}

template <class Found>
Byte* FindCharacter(const Byte* text, Found found)
{
    const MbPage& page = ActiveMbPage();
    Character next = Read(page, text);
    for (; next.length && !found(next.value); next = Read(page, text))
        text += next.length;
    return next.length ? const_cast<Byte*>(text) : nullptr;
}

bool IsIn(const Byte* set, unsigned value)
{
    return FindCharacter(set, [value](unsigned member) { return member == value; }) != nullptr;
}

void Write(Byte* text, size_t length, unsigned value)
{
    if (length == 2)
        *text++ = static_cast<Byte>(value >> 8);
    *text = static_cast<Byte>(value);
}

template <class Fold>
Byte* Convert(Byte* text, Fold fold)
{
    const MbPage& page = ActiveMbPage();
    for (Byte* at = text; *at;) {
        const Character next = Read(page, at);
        Write(at, next.length, fold(page, next.value));
        at += next.length;
    }
    return text;
}

size_t LengthOf(const Byte* text)
{
    return std::strlen(reinterpret_cast<const char*>(text));
}

// Where the byte at `place` stands when reading from the start: 1 or 2 of a pair, 0 single.
int Role(const Byte* text, const Byte* place)
{
    const MbPage& page = ActiveMbPage();
    while (text < place && *text) {
        const size_t length = Read(page, text).length;
        if (length == 2 && text + 1 == place)
            return 2;
        text += length;
    }
    return text == place && Read(page, text).length == 2 ? 1 : 0;
}

thread_local Byte* nextToken = nullptr;

} // namespace

int _mbscmp(const unsigned char* a, const unsigned char* b)
{
    // Where no byte leads a pair the order is that of the bytes.
    if (!ActiveMbPage().codePage) {
        const int order = std::strcmp(reinterpret_cast<const char*>(a), reinterpret_cast<const char*>(b));
        return (order > 0) - (order < 0);
    }
    return Compare(a, b, Same, Always());
}

int _mbsicmp(const unsigned char* a, const unsigned char* b)
{
    return Compare(a, b, Lower, Always());
}

int _mbsncmp(const unsigned char* a, const unsigned char* b, size_t n)
{
    return Compare(a, b, Same, Characters(n));
}

int _mbsnicmp(const unsigned char* a, const unsigned char* b, size_t n)
{
    return Compare(a, b, Lower, Characters(n));
}

int _mbscoll(const unsigned char* a, const unsigned char* b)
{
    return _mbscmp(a, b);
}

int _mbsicoll(const unsigned char* a, const unsigned char* b)
{
    return _mbsicmp(a, b);
}

unsigned char* _mbschr(const unsigned char* text, unsigned int character)
{
    if (character == 0)
        return const_cast<Byte*>(text) + LengthOf(text);
    return FindCharacter(text, [character](unsigned value) { return value == character; });
}

unsigned char* _mbsrchr(const unsigned char* text, unsigned int character)
{
    if (character == 0)
        return const_cast<Byte*>(text) + LengthOf(text);
    Byte* last = nullptr;
    while (Byte* found = _mbschr(text, character)) {
        last = found;
        text = _mbsinc(found);
    }
    return last;
}

unsigned char* _mbsstr(const unsigned char* text, const unsigned char* part)
{
    const size_t length = LengthOf(part);
    for (const Byte* at = text; *at || !length; at = _mbsinc(at))
        if (std::strncmp(reinterpret_cast<const char*>(at), reinterpret_cast<const char*>(part), length) == 0)
            return const_cast<Byte*>(at);
    return nullptr;
}

unsigned char* _mbspbrk(const unsigned char* text, const unsigned char* set)
{
    return FindCharacter(text, [set](unsigned value) { return IsIn(set, value); });
}

size_t _mbsspn(const unsigned char* text, const unsigned char* set)
{
    const Byte* end = FindCharacter(text, [set](unsigned value) { return !IsIn(set, value); });
    return end ? static_cast<size_t>(end - text) : LengthOf(text);
}

size_t _mbscspn(const unsigned char* text, const unsigned char* set)
{
    const Byte* end = _mbspbrk(text, set);
    return end ? static_cast<size_t>(end - text) : LengthOf(text);
}

unsigned char* _mbstok(unsigned char* text, const unsigned char* delimiters)
{
    Byte* start = text ? text : nextToken;
    if (!start)
        return nullptr;
    start += _mbsspn(start, delimiters);
    Byte* end = _mbspbrk(start, delimiters);
    nextToken = end ? end + _mbclen(end) : start + LengthOf(start);
    if (end)
        *end = 0;
    return *start ? start : nullptr;
}

size_t _mbslen(const unsigned char* text)
{
    const MbPage& page = ActiveMbPage();
    size_t count = 0;
    for (; *text; text += Read(page, text).length)
        ++count;
    return count;
}

size_t _mbclen(const unsigned char* character)
{
    return Read(ActiveMbPage(), character).length == 2 ? 2 : 1;
}

unsigned char* _mbsinc(const unsigned char* current)
{
    return const_cast<Byte*>(current) + _mbclen(current);
}

unsigned char* _mbsdec(const unsigned char* start, const unsigned char* current)
{
    if (start >= current)
        return nullptr;
    return const_cast<Byte*>(current) - (Role(start, current - 1) == 2 ? 2 : 1);
}

unsigned int _mbsnextc(const unsigned char* text)
{
    return Read(ActiveMbPage(), text).value;
}

int _ismbslead(const unsigned char* text, const unsigned char* place)
{
    return Role(text, place) == 1 ? -1 : 0;
}

int _ismbstrail(const unsigned char* text, const unsigned char* place)
{
    return Role(text, place) == 2 ? -1 : 0;
}

unsigned char* _mbsupr(unsigned char* text)
{
    return Convert(text, Upper);
}

unsigned char* _mbslwr(unsigned char* text)
{
    return Convert(text, Lower);
}

// The pairs are turned round first, so that turning all bytes sets them right.
unsigned char* _mbsrev(unsigned char* text)
{
    const MbPage& page = ActiveMbPage();
    for (Byte* at = text; *at;) {
        const size_t length = Read(page, at).length;
        std::reverse(at, at + length);
        at += length;
    }
    std::reverse(text, text + LengthOf(text));
    return text;
}

unsigned char* _mbsnbcpy(unsigned char* to, const unsigned char* from, size_t nb)
{
    const MbPage& page = ActiveMbPage();
    size_t length = 0;
    for (Character next = Read(page, from); next.length && length + next.length <= nb;
         next = Read(page, from + length))
        length += next.length;
    std::memmove(to, from, length);
    std::memset(to + length, 0, nb - length);
    return to;
}
