#include "spreadsheet/model/Unicode.h"

#include <algorithm>

namespace zek::office {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendPoint(std::string& target, char32_t point)
{
    const auto put = [&](char32_t bits) { target.push_back(static_cast<char>(bits)); };
    const auto tail = [&](int shift) { put(0x80 | (point >> shift & 0x3F)); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | point >> 6);
        tail(0);
    } else if (point < 0x10000) {
        put(0xE0 | point >> 12);
        tail(6);
        tail(0);
    } else {
        put(0xF0 | point >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

// Takes one character off the front of `text`.
char32_t NextPoint(std::string_view& text)
{
    static constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (lead < 0x80)
        return lead;
    const std::size_t length = lead >= 0xF0 && lead < 0xF8 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC0 || lead >= 0xF8 || text.size() + 1 < length)
        return kReplacement;
    char32_t point = lead & (0xFFu >> (length + 1));
    for (std::size_t i = 0; i + 1 < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80)
            return kReplacement;
        point = point << 6 | (next & 0x3F);
    }
    if (point < kLeast[length] || point > 0x10FFFF || IsHighSurrogate(point) || IsLowSurrogate(point))
        return kReplacement;
    text.remove_prefix(length - 1);
    return point;
}

struct CaseRange {
    char32_t first, last, distance;
};

char32_t Lower(char32_t c)
{
    static constexpr CaseRange kRanges[] = {
        {'A', 'Z', 32},     {0xC0, 0xD6, 32},   {0xD8, 0xDE, 32},   {0x391, 0x3A1, 32},
        {0x3A3, 0x3AB, 32}, {0x400, 0x40F, 80}, {0x410, 0x42F, 32}, {0xFF21, 0xFF3A, 32},
    };
    for (const CaseRange& range : kRanges)
        if (range.first <= c && c <= range.last)
            return c + range.distance;
    // Latin Extended-A alternates capital and small letters, but for a few that pair the other way round.
    const bool oddIsCapital = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
    if (c >= 0x100 && c <= 0x17E && c != 0x130 && c != 0x131 && c != 0x138 && c != 0x149 && c != 0x178)
        return (c % 2 == 1) == oddIsCapital ? c + 1 : c;
    return c;
}

} // namespace

void AppendUtf8(std::string& target, const char16_t* text, std::size_t length)
{
    // Most texts are ASCII, at least up to somewhere.
    const std::size_t ascii = static_cast<std::size_t>(
        std::find_if(text, text + length, [](char16_t c) { return c >= 0x80; }) - text);
    const std::size_t before = target.size();
    target.resize(before + ascii);
    std::transform(text, text + ascii, target.begin() + static_cast<std::ptrdiff_t>(before),
                   [](char16_t c) { return static_cast<char>(c); });
    for (std::size_t i = ascii; i < length; ++i) {
        char32_t point = text[i];
        if (IsHighSurrogate(point) && i + 1 < length && IsLowSurrogate(text[i + 1]))
            point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00u);
        else if (IsHighSurrogate(point) || IsLowSurrogate(point))
            point = kReplacement;
        AppendPoint(target, point);
    }
}

std::string ToUtf8(std::u16string_view text)
{
    std::string result;
    AppendUtf8(result, text.data(), text.size());
    return result;
}

std::u16string ToUtf16(std::string_view text)
{
    std::u16string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const char32_t point = NextPoint(text);
        if (point < 0x10000) {
            result.push_back(static_cast<char16_t>(point));
            continue;
        }
        result.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10)));
        result.push_back(static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF)));
    }
    return result;
}

std::size_t Utf16Length(std::string_view text)
{
    std::size_t length = 0;
    while (!text.empty())
        length += NextPoint(text) < 0x10000 ? 1 : 2;
    return length;
}

std::string FoldCase(std::string_view text)
{
    std::string folded;
    folded.reserve(text.size());
    while (!text.empty())
        AppendPoint(folded, Lower(NextPoint(text)));
    return folded;
}

bool EqualsNoCase(std::string_view left, std::string_view right)
{
    return left == right || FoldCase(left) == FoldCase(right);
}

} // namespace zek::office
