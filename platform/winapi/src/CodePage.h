// The code pages that the adapter knows: lead bytes and tables to and from UTF-16.
#pragma once

#include <windef.h>

#include <array>
#include <string>
#include <string_view>

// The numbers of the ANSI and the OEM code page of the environment's locale, read once.
UINT AnsiCodePage();
UINT OemCodePage();

// Whether each byte leads a double-byte character of `codePage`; all zero for single bytes and UTF-8.
using LeadTable = std::array<bool, 256>;
const LeadTable& LeadBytes(UINT codePage);

// That of the ANSI code page.
const LeadTable& AnsiLeadBytes();

// The bytes of the character at `text` (not its terminator): 2 for a complete pair, else 1.
inline size_t CharacterLength(const LeadTable& leads, const char* text)
{
    return leads[static_cast<unsigned char>(*text)] && text[1] ? 2 : 1;
}

// The other case of one UTF-16 unit; itself if it has none.
char16_t UpperCase(char16_t unit);
char16_t LowerCase(char16_t unit);

// `text` of the ANSI code page with every letter in upper case, to compare names with.
std::string FoldCase(std::string_view text);

// Whether two names of the ANSI code page are equal without regard to case.
bool SameName(std::string_view a, std::string_view b);
