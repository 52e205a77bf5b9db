#include "CodePage.h"
#include "Error.h"
#include "ProfileFile.h"

#include <winbase.h>

#include <cctype>
#include <cstring>
#include <limits>

namespace {

constexpr char kMainFile[] = "win.ini";

// A text that is cut goes without a last half character.
size_t WholeLength(const std::string& text, size_t room)
{
    const LeadTable& leads = AnsiLeadBytes();
    size_t length = 0;
    while (length < text.size() && length + CharacterLength(leads, text.c_str() + length) <= room)
        length += CharacterLength(leads, text.c_str() + length);
    return length;
}

DWORD AnswerValue(const std::string& text, LPSTR buffer, DWORD size)
{
    if (!buffer || size == 0)
        return 0;
    const size_t length = WholeLength(text, size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = 0;
    SetLastError(length < text.size() ? ERROR_MORE_DATA : NO_ERROR);
    return static_cast<DWORD>(length);
}

// Each name with a terminator, and one more at the end; cut, both terminators stay.
DWORD AnswerList(const std::vector<std::string>& names, LPSTR buffer, DWORD size)
{
    if (!buffer || size < 2)
        return 0;
    std::string list;
    for (const auto& name : names)
        list += name + '\0';
    const size_t length = std::min<size_t>(list.size(), size - 1);
    const bool cut = length < list.size();
    std::memcpy(buffer, list.data(), length);
    if (cut)
        buffer[length - 1] = 0;
    buffer[length] = 0;
    if (list.empty())
        buffer[1] = 0;
    SetLastError(cut ? ERROR_MORE_DATA : NO_ERROR);
    return static_cast<DWORD>(cut ? size - 2 : length);
}

std::string WithoutBlanksAtEnd(const char* text)
{
    std::string result = text ? text : "";
    result.erase(result.find_last_not_of(' ') + 1);
    return result;
}

// Two quotes round the whole value only keep its blanks.
std::string Unquoted(const std::string& value)
{
    const bool quoted =
        value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.front() == value.back();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

// Decimal, octal is unknown; 0x begins a hexadecimal number. Wraps to 32 bits.
UINT LeadingNumber(const std::string& text)
{
    const bool negative = text.starts_with('-');
    size_t at = negative || text.starts_with('+') ? 1 : 0;
    UINT number = 0;
    for (; at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])); ++at)
        number = number * 10 + static_cast<UINT>(text[at] - '0');
    return negative ? 0 - number : number;
}

} // namespace

DWORD WINAPI GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR fallback, LPSTR buffer, DWORD size,
                                      LPCSTR file)
{
    const ProfileFile profile = ReadProfile(file ? file : kMainFile);
    if (!section)
        return AnswerList(profile.Sections(), buffer, size);
    if (!key)
        return AnswerList(profile.Keys(section), buffer, size);
    const auto value = profile.Value(section, key);
    return AnswerValue(value ? Unquoted(*value) : WithoutBlanksAtEnd(fallback), buffer, size);
}

DWORD WINAPI GetProfileStringA(LPCSTR section, LPCSTR key, LPCSTR fallback, LPSTR buffer, DWORD size)
{
    return GetPrivateProfileStringA(section, key, fallback, buffer, size, kMainFile);
}

UINT WINAPI GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT fallback, LPCSTR file)
{
    if (!section || !key)
        return static_cast<UINT>(fallback);
    const auto value = ReadProfile(file ? file : kMainFile).Value(section, key);
    return value && !value->empty() ? LeadingNumber(Unquoted(*value)) : static_cast<UINT>(fallback);
}

UINT WINAPI GetProfileIntA(LPCSTR section, LPCSTR key, INT fallback)
{
    return GetPrivateProfileIntA(section, key, fallback, kMainFile);
}

BOOL WINAPI WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR file)
{
    if (!section)
        return Fail(ERROR_FILE_NOT_FOUND);
    return ChangeProfile(file ? file : kMainFile, [=](ProfileFile& profile) {
        if (!key)
            profile.RemoveSection(section);
        else if (!value)
            profile.RemoveKey(section, key);
        else
            profile.SetValue(section, key, value);
    });
}

BOOL WINAPI WriteProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value)
{
    return WritePrivateProfileStringA(section, key, value, kMainFile);
}
