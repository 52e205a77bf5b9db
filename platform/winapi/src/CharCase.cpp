#include "CodePage.h"
#include "Error.h"

#include <winbase.h>
#include <winnls.h>
#include <winuser.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace {

using CaseOf = char16_t (*)(char16_t);

// The character at `text` in the other case, written over it if it takes the same bytes there.
void ConvertCharacter(char* text, size_t length, CaseOf convert)
{
    char16_t wide[2];
    const int units =
        MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, text, static_cast<int>(length), wide, 2);
    if (units != 1)
        return;
    wide[0] = convert(wide[0]);
    char bytes[4];
    const int count = WideCharToMultiByte(CP_ACP, 0, wide, 1, bytes, sizeof bytes, nullptr, nullptr);
    if (count == static_cast<int>(length))
        std::memcpy(text, bytes, length);
}

// In UTF-8 a character goes on as long as its bytes begin with the bits 10.
size_t WholeCharacter(const char* text, size_t left)
{
    size_t length =
        std::min(left, AnsiLeadBytes()[static_cast<unsigned char>(*text)] ? size_t{2} : size_t{1});
    while (AnsiCodePage() == CP_UTF8 && length < left && (text[length] & 0xc0) == 0x80)
        ++length;
    return length;
}

void ConvertText(char* text, size_t count, CaseOf convert)
{
    const DWORD lastError = GetLastError();
    for (size_t i = 0; i < count;) {
        const size_t length = WholeCharacter(text + i, count - i);
        ConvertCharacter(text + i, length, convert);
        i += length;
    }
    SetLastError(lastError);
}

LPSTR ConvertTextOrCharacter(LPSTR text, CaseOf convert)
{
    const auto value = reinterpret_cast<size_t>(text);
    if (value > 0xffff) {
        ConvertText(text, std::strlen(text), convert);
        return text;
    }
    char character = static_cast<char>(value);
    ConvertText(&character, 1, convert);
    return reinterpret_cast<LPSTR>(static_cast<size_t>(static_cast<unsigned char>(character)));
}

// Through UTF-16, as the code pages differ by character only where both have single bytes.
BOOL Recode(UINT fromPage, UINT toPage, LPCSTR from, LPSTR to)
{
    if (!from || !to)
        return Fail(ERROR_INVALID_PARAMETER);
    const size_t length = std::strlen(from);
    std::u16string wide(length + 1, 0);
    const int units = MultiByteToWideChar(fromPage, 0, from, -1, wide.data(), static_cast<int>(wide.size()));
    return WideCharToMultiByte(toPage, 0, wide.data(), units, to, static_cast<int>(length + 1), nullptr,
                               nullptr) > 0;
}

} // namespace

LPSTR WINAPI CharNextA(LPCSTR current)
{
    return const_cast<LPSTR>(current) + (*current ? CharacterLength(AnsiLeadBytes(), current) : 0);
}

LPSTR WINAPI CharPrevA(LPCSTR start, LPCSTR current)
{
    const char* previous = start;
    for (const char* at = start; at < current && *at; at += CharacterLength(AnsiLeadBytes(), at))
        previous = at;
    return const_cast<LPSTR>(previous);
}

LPSTR WINAPI CharUpperA(LPSTR text)
{
    return ConvertTextOrCharacter(text, UpperCase);
}

LPSTR WINAPI CharLowerA(LPSTR text)
{
    return ConvertTextOrCharacter(text, LowerCase);
}

BOOL WINAPI CharToOemA(LPCSTR from, LPSTR to)
{
    return Recode(CP_ACP, CP_OEMCP, from, to);
}

BOOL WINAPI OemToCharA(LPCSTR from, LPSTR to)
{
    return Recode(CP_OEMCP, CP_ACP, from, to);
}

int WINAPI lstrlenA(LPCSTR text)
{
    return text ? static_cast<int>(std::strlen(text)) : 0;
}
