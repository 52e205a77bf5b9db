#include "CodePageTable.h"
#include "Error.h"
#include "Utf8.h"

#include <winnls.h>

#include <algorithm>
#include <string>
#include <type_traits>

namespace {

// The ASCII characters at the start, found in steps of eight.
template <class From>
size_t AsciiRun(const From* from, size_t count)
{
    using Bits = std::make_unsigned_t<From>;
    size_t run = 0;
    for (; run + 8 <= count; run += 8) {
        Bits all = 0;
        for (size_t i = 0; i < 8; ++i)
            all = static_cast<Bits>(all | static_cast<Bits>(from[run + i]));
        if (all >= 0x80)
            break;
    }
    while (run < count && static_cast<Bits>(from[run]) < 0x80)
        ++run;
    return run;
}

// Collects units up to the room there is, and counts them all.
template <class Unit>
class Output
{
public:
    Output(Unit* buffer, int size) : m_buffer(buffer), m_size(static_cast<size_t>(size)) {}

    void Put(Unit unit)
    {
        if (m_count < m_size)
            m_buffer[m_count] = unit;
        ++m_count;
    }

    // Copies the plain ASCII characters at the start of `from` and answers their number; a report's texts
    // are hardly anything else.
    template <class From>
    size_t PutAscii(const From* from, size_t count)
    {
        const size_t run = AsciiRun(from, count);
        const size_t room = m_count < m_size ? std::min(run, m_size - m_count) : 0;
        for (size_t i = 0; i < room; ++i)
            m_buffer[m_count + i] = static_cast<Unit>(from[i]);
        m_count += run;
        return run;
    }

    int Answer() const
    {
        const bool fits = m_size == 0 || m_count <= m_size;
        return fits ? static_cast<int>(m_count) : Fail(ERROR_INSUFFICIENT_BUFFER);
    }

private:
    Unit* m_buffer;
    size_t m_size;
    size_t m_count = 0;
};

UINT ActualCodePage(UINT codePage)
{
    if (codePage == CP_ACP || codePage == CP_THREAD_ACP || codePage == CP_MACCP)
        return AnsiCodePage();
    return codePage == CP_OEMCP ? OemCodePage() : codePage;
}

void PutUtf16(char32_t value, Output<char16_t>& out)
{
    if (value < 0x10000)
        return out.Put(static_cast<char16_t>(value));
    out.Put(static_cast<char16_t>(0xd800 + ((value - 0x10000) >> 10)));
    out.Put(static_cast<char16_t>(0xdc00 + ((value - 0x10000) & 0x3ff)));
}

// False for invalid input if that is asked for.
bool FromUtf8(const char* text, size_t count, bool strict, Output<char16_t>& out)
{
    for (size_t i = out.PutAscii(text, count); i < count; i += out.PutAscii(text + i, count - i)) {
        const DecodedCharacter next = DecodeUtf8(text + i, count - i);
        if (strict && !next.valid)
            return false;
        PutUtf16(next.value, out);
        i += next.length;
    }
    return true;
}

bool FromTable(const CodePageTable& table, const char* text, size_t count, bool strict, Output<char16_t>& out)
{
    const auto byte = [text](size_t i) { return static_cast<unsigned char>(text[i]); };
    for (size_t i = out.PutAscii(text, count); i < count; i += out.PutAscii(text + i, count - i)) {
        const bool pair = (*table.leads)[byte(i)] && i + 1 < count && text[i + 1];
        const char16_t wide = table.toWide[pair ? static_cast<size_t>(byte(i) << 8 | byte(i + 1)) : byte(i)];
        if (strict && wide == CodePageTable::kNone)
            return false;
        out.Put(wide == CodePageTable::kNone ? table.defaultWide : wide);
        i += pair ? 2 : 1;
    }
    return true;
}

bool IsHigh(char16_t unit)
{
    return unit >= 0xd800 && unit < 0xdc00;
}

bool IsLow(char16_t unit)
{
    return unit >= 0xdc00 && unit < 0xe000;
}

struct Fallback {
    const char* text;
    bool bestFit;
    bool used;
};

bool ToUtf8(const char16_t* wide, size_t count, bool strict, Output<char>& out)
{
    for (size_t i = out.PutAscii(wide, count); i < count; i += out.PutAscii(wide + i, count - i)) {
        char32_t value = wide[i++];
        if (IsHigh(static_cast<char16_t>(value)) && i < count && IsLow(wide[i]))
            value = 0x10000 + ((value - 0xd800) << 10) + (wide[i++] - 0xdc00U);
        else if (value >= 0xd800 && value < 0xe000) {
            if (strict)
                return false;
            value = 0xfffd;
        }
        char bytes[4];
        const size_t length = EncodeUtf8(value, bytes);
        for (size_t k = 0; k < length; ++k)
            out.Put(bytes[k]);
    }
    return true;
}

void PutCode(unsigned code, Output<char>& out)
{
    if (code > 0xff)
        out.Put(static_cast<char>(code >> 8));
    out.Put(static_cast<char>(code & 0xff));
}

// A pair of surrogates is one character that no table holds.
void ToTable(const CodePageTable& table, const char16_t* wide, size_t count, Fallback& fallback,
             Output<char>& out)
{
    for (size_t i = out.PutAscii(wide, count); i < count; i += out.PutAscii(wide + i, count - i)) {
        const char16_t unit = wide[i++];
        unsigned code = table.toBytes[unit];
        if (!code && fallback.bestFit)
            code = table.bestFit[unit];
        if (code) {
            PutCode(code, out);
            continue;
        }
        fallback.used = true;
        for (const char* c = fallback.text; *c; ++c)
            out.Put(*c);
        i += IsHigh(unit) && i < count && IsLow(wide[i]) ? 1 : 0;
    }
}

template <class From>
size_t LengthWithTerminator(const From* text, int count)
{
    return count >= 0 ? static_cast<size_t>(count) : std::char_traits<From>::length(text) + 1;
}

bool AreGoodArguments(const void* from, int count, const void* to, int size)
{
    return from && count != 0 && size >= 0 && (size == 0 || to) && from != to;
}

DWORD KnownFlags(UINT codePage)
{
    return codePage == CP_UTF8 ? MB_ERR_INVALID_CHARS
                               : MB_PRECOMPOSED | MB_COMPOSITE | MB_USEGLYPHCHARS | MB_ERR_INVALID_CHARS;
}

DWORD KnownFlagsBack(UINT codePage)
{
    return codePage == CP_UTF8
               ? WC_ERR_INVALID_CHARS
               : WC_COMPOSITECHECK | WC_DISCARDNS | WC_SEPCHARS | WC_DEFAULTCHAR | WC_NO_BEST_FIT_CHARS;
}

} // namespace

int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int bytes, LPWSTR wide, int size)
{
    const UINT page = ActualCodePage(codePage);
    const CodePageTable* table = page == CP_UTF8 ? nullptr : TableOf(page);
    if (!AreGoodArguments(text, bytes, wide, size) || (!table && page != CP_UTF8))
        return Fail(ERROR_INVALID_PARAMETER);
    if (flags & ~KnownFlags(page))
        return Fail(ERROR_INVALID_FLAGS);
    Output<char16_t> out(wide, size);
    const size_t count = LengthWithTerminator(text, bytes);
    const bool strict = flags & MB_ERR_INVALID_CHARS;
    const bool valid =
        table ? FromTable(*table, text, count, strict, out) : FromUtf8(text, count, strict, out);
    return valid ? out.Answer() : Fail(ERROR_NO_UNICODE_TRANSLATION);
}

int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR wide, int units, LPSTR text, int size,
                               LPCSTR fallback, LPBOOL used)
{
    const UINT page = ActualCodePage(codePage);
    const CodePageTable* table = page == CP_UTF8 ? nullptr : TableOf(page);
    if (!AreGoodArguments(wide, units, text, size) || (!table && (page != CP_UTF8 || fallback || used)))
        return Fail(ERROR_INVALID_PARAMETER);
    if (flags & ~KnownFlagsBack(page))
        return Fail(ERROR_INVALID_FLAGS);
    Output<char> out(text, size);
    const size_t count = LengthWithTerminator(wide, units);
    if (!table)
        return ToUtf8(wide, count, flags & WC_ERR_INVALID_CHARS, out) ? out.Answer()
                                                                      : Fail(ERROR_NO_UNICODE_TRANSLATION);
    Fallback rest{fallback ? fallback : "?", !(flags & WC_NO_BEST_FIT_CHARS), false};
    ToTable(*table, wide, count, rest, out);
    if (used)
        *used = rest.used;
    return out.Answer();
}

UINT WINAPI GetACP()
{
    return AnsiCodePage();
}

UINT WINAPI GetOEMCP()
{
    return OemCodePage();
}

BOOL WINAPI IsDBCSLeadByteEx(UINT codePage, BYTE byte)
{
    return LeadBytes(ActualCodePage(codePage))[byte];
}

BOOL WINAPI IsDBCSLeadByte(BYTE byte)
{
    return AnsiLeadBytes()[byte];
}

BOOL WINAPI GetCPInfo(UINT codePage, LPCPINFO info)
{
    const UINT page = ActualCodePage(codePage);
    if (!info || (page != CP_UTF8 && !TableOf(page)))
        return Fail(ERROR_INVALID_PARAMETER);
    *info = CPINFO{};
    info->DefaultChar[0] = '?';
    const LeadTable& leads = LeadBytes(page);
    size_t next = 0;
    for (size_t byte = 1; byte < leads.size(); ++byte)
        if (leads[byte] != leads[byte - 1])
            info->LeadByte[next++] = static_cast<BYTE>(leads[byte] ? byte : byte - 1);
    info->MaxCharSize = page == CP_UTF8 ? 4 : next ? 2 : 1;
    return TRUE;
}
