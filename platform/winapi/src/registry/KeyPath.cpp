#include "KeyPath.h"

#include <winnls.h>
#include <winreg.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <wctype.h>

namespace {

constexpr UINT kLatin1 = 1252;
constexpr char kSeparator = '\0';

bool IsLead(UINT page, unsigned char byte)
{
    return page != CP_UTF8 && page != kLatin1 && IsDBCSLeadByteEx(page, byte);
}

// Bytes of the UTF-8 character at the front of `text`; 1 for what is none.
std::size_t Utf8Length(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
    if (length > text.size())
        return 1;
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    return std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(length), continues)
               ? length
               : 1;
}

std::size_t CharacterLength(UINT page, std::string_view text)
{
    if (static_cast<unsigned char>(text[0]) < 0x80)
        return 1;
    if (page == CP_UTF8)
        return Utf8Length(text);
    return text.size() > 1 && IsLead(page, static_cast<unsigned char>(text[0])) ? 2 : 1;
}

char UpperAscii(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// The process's locale must not decide what two names have in common (Turkish has another i).
wint_t UpperWide(wint_t c)
{
    static const locale_t kPlain = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return kPlain ? towupper_l(c, kPlain) : c;
}

wint_t DecodeUtf8(std::string_view character)
{
    constexpr std::array<unsigned, 5> kLeadBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
    wint_t code = static_cast<unsigned char>(character[0]) & kLeadBits[character.size()];
    for (const char c : character.substr(1))
        code = code << 6 | (static_cast<unsigned char>(c) & 0x3F);
    return code;
}

void AppendUtf8(std::string& text, wint_t code)
{
    const auto tail = [&](unsigned shift) { text += static_cast<char>(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0 | code >> 6);
        tail(0);
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0 | code >> 12);
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0 | code >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

// Small letters of code page 1252 lie 0x20 above their capitals, but for these.
char UpperLatin1(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    if (byte == 0xFF)
        return '\x9F';
    if (byte == 0x9A || byte == 0x9C || byte == 0x9E)
        return static_cast<char>(byte - 0x10);
    return byte >= 0xE0 && byte != 0xF7 ? static_cast<char>(byte - 0x20) : c;
}

void AppendFolded(std::string& folded, UINT page, std::string_view character)
{
    if (static_cast<unsigned char>(character[0]) < 0x80)
        folded += UpperAscii(character[0]);
    else if (page == CP_UTF8 && character.size() > 1)
        AppendUtf8(folded, UpperWide(DecodeUtf8(character)));
    else if (page == kLatin1)
        folded += UpperLatin1(character[0]);
    else
        folded += character;
}

bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

template <class Visitor>
void ForEachCharacter(std::string_view text, Visitor&& visit)
{
    const UINT page = GetACP();
    while (!text.empty()) {
        const std::size_t length = CharacterLength(page, text);
        visit(page, text.substr(0, length));
        text.remove_prefix(length);
    }
}

const auto& Roots()
{
    static const std::array<std::pair<HKEY, const char*>, 5> kRoots = {{{HKEY_CLASSES_ROOT, "HKCR"},
                                                                        {HKEY_CURRENT_USER, "HKCU"},
                                                                        {HKEY_LOCAL_MACHINE, "HKLM"},
                                                                        {HKEY_USERS, "HKU"},
                                                                        {HKEY_CURRENT_CONFIG, "HKCC"}}};
    return kRoots;
}

} // namespace

std::vector<std::string> SplitKeyText(std::string_view text)
{
    std::vector<std::string> names;
    std::string name;
    const auto finish = [&] {
        if (!name.empty())
            names.push_back(std::move(name));
        name.clear();
    };
    ForEachCharacter(text, [&](UINT, std::string_view character) {
        if (character == "\\")
            finish();
        else
            name += character;
    });
    finish();
    return names;
}

std::string FoldName(std::string_view name)
{
    std::string folded;
    folded.reserve(name.size());
    if (IsAscii(name)) {
        for (const char c : name)
            folded += UpperAscii(c);
        return folded;
    }
    ForEachCharacter(name, [&](UINT page, std::string_view c) { AppendFolded(folded, page, c); });
    return folded;
}

std::size_t CountCharacters(std::string_view name)
{
    std::size_t count = 0;
    ForEachCharacter(name, [&](UINT, std::string_view) { ++count; });
    return count;
}

std::string ChildPath(const std::string& parent, std::string_view name)
{
    return parent + kSeparator + FoldName(name);
}

std::size_t LevelOf(const std::string& path)
{
    return static_cast<std::size_t>(std::count(path.begin(), path.end(), kSeparator));
}

std::string RootPath(HKEY key)
{
    const auto* found =
        std::find_if(Roots().begin(), Roots().end(), [&](auto& root) { return root.first == key; });
    return found == Roots().end() ? "" : found->second;
}

HKEY RootHandle(std::string_view path)
{
    const auto* found =
        std::find_if(Roots().begin(), Roots().end(), [&](auto& root) { return root.second == path; });
    return found == Roots().end() ? nullptr : found->first;
}
