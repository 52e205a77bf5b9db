#include "package/XmlText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace zek::office {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// What a byte means for a text that is stored.
enum class Byte : std::uint8_t { Plain, Markup, Underscore, Control, Wide };

constexpr std::array<Byte, 256> MakeByteTable()
{
    std::array<Byte, 256> table{};
    for (unsigned i = 0; i < 256; ++i)
        table[i] = i >= 0x80 ? Byte::Wide : i < 0x20 && i != '\t' && i != '\n' ? Byte::Control : Byte::Plain;
    for (char c : {'&', '<', '>', '"'})
        table[static_cast<unsigned char>(c)] = Byte::Markup;
    table['_'] = Byte::Underscore;
    return table;
}
constexpr std::array<Byte, 256> kBytes = MakeByteTable();

Byte KindOf(char c)
{
    return kBytes[static_cast<unsigned char>(c)];
}

struct Decoded {
    char32_t code;    // kReplacement for bytes that are not UTF-8
    std::size_t size; // bytes taken, at least 1
};

// Decodes the sequence at the front of `text`; surrogates count as characters, overlong forms do not.
Decoded DecodeFront(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < size)
        return {kReplacement, 1};
    char32_t code = lead & (0xFFu >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80)
            return {kReplacement, 1};
        code = code << 6 | (next & 0x3F);
    }
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < kSmallest[size] || code > 0x10FFFF)
        return {kReplacement, 1};
    return {code, size};
}

bool IsStorable(char32_t code)
{
    return !(code >= 0xD800 && code <= 0xDFFF) && code != 0xFFFE && code != 0xFFFF;
}

bool IsHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

// True when what stands at the front of `text` is stored as a code, which begins with an underscore.
bool StartsWithUnderscore(std::string_view text)
{
    if (text.empty())
        return false;
    if (KindOf(text[0]) == Byte::Wide)
        return !IsStorable(DecodeFront(text).code);
    return text[0] == '_' || KindOf(text[0]) == Byte::Control;
}

// True for an underscore with which a reader would begin a code.
bool LooksLikeCode(std::string_view text)
{
    if (text.size() < 7 || text[1] != 'x')
        return false;
    for (std::size_t i = 2; i < 6; ++i)
        if (!IsHexDigit(text[i]))
            return false;
    return StartsWithUnderscore(text.substr(6));
}

void AppendCode(std::string& out, char32_t code)
{
    char text[16];
    std::snprintf(text, sizeof text, "_x%04X_", static_cast<unsigned>(code));
    out += text;
}

std::size_t AppendWide(std::string& out, std::string_view text)
{
    const Decoded front = DecodeFront(text);
    if (!IsStorable(front.code))
        AppendCode(out, front.code);
    else if (front.code == kReplacement)
        out += "\xEF\xBF\xBD";
    else
        out.append(text.substr(0, front.size));
    return front.size;
}

void AppendMarkup(std::string& out, char c)
{
    out += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : "&quot;";
}

// Appends what is not plain at the front of `text`; answers how many bytes that were.
std::size_t AppendSpecial(std::string& out, std::string_view text, bool escapeMarkup)
{
    switch (KindOf(text[0])) {
    case Byte::Wide:
        return AppendWide(out, text);
    case Byte::Control:
        AppendCode(out, static_cast<unsigned char>(text[0]));
        return 1;
    case Byte::Underscore:
        LooksLikeCode(text) ? AppendCode(out, U'_') : out.push_back('_');
        return 1;
    case Byte::Markup:
        escapeMarkup ? AppendMarkup(out, text[0]) : out.push_back(text[0]);
        return 1;
    case Byte::Plain:
        break;
    }
    out.push_back(text[0]);
    return 1;
}

void AppendText(std::string& out, std::string_view text, bool escapeMarkup)
{
    while (!text.empty()) {
        std::size_t plain = 0;
        while (plain < text.size() && KindOf(text[plain]) == Byte::Plain)
            ++plain;
        out.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (!text.empty())
            text.remove_prefix(AppendSpecial(out, text, escapeMarkup));
    }
}

} // namespace

std::string StoredText(std::string_view text)
{
    std::string out;
    AppendText(out, text, false);
    return out;
}

void AppendStoredText(std::string& out, std::string_view text)
{
    AppendText(out, text, true);
}

bool NeedsPreservedSpace(std::string_view text)
{
    auto isSpace = [](char c) { return c == ' ' || c == '\t' || c == '\n'; };
    return !text.empty() && (isSpace(text.front()) || isSpace(text.back()));
}

void AppendNumber(std::string& out, double value)
{
    // Whole numbers are written digit by digit: 100000 and not 1e+05.
    constexpr double kExact = 9007199254740992.0; // 2^53
    char text[40];
    const bool whole = std::fabs(value) <= kExact && value == std::floor(value);
    const auto end = whole ? std::to_chars(text, text + sizeof text, static_cast<std::int64_t>(value))
                           : std::to_chars(text, text + sizeof text, value);
    out.append(text, end.ptr);
}

std::string NumberText(double value)
{
    std::string text;
    AppendNumber(text, value);
    return text;
}

} // namespace zek::office
