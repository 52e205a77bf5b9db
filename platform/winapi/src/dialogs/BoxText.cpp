// How a message's text falls into lines.
#include "BoxLayout.h"

#include <algorithm>

namespace {

// From here on scripts (Hangul, kana, Chinese characters) may be broken between any two characters.
constexpr char16_t kFirstEastAsian = 0x1100;

bool IsBlank(char16_t c)
{
    return c == u' ' || c == u'\t';
}

bool BreaksBefore(std::u16string_view text, size_t at)
{
    const bool pair = (text[at] & 0xfc00) == 0xdc00;
    return !pair && (IsBlank(text[at - 1]) || text[at] >= kFirstEastAsian || text[at - 1] >= kFirstEastAsian);
}

// The length of the word that `text` begins with, the blanks behind it included.
size_t WordLength(std::u16string_view text)
{
    size_t length = 1;
    while (length < text.size() && !BreaksBefore(text, length))
        ++length;
    while (length < text.size() && IsBlank(text[length]))
        ++length;
    return length;
}

std::u16string_view WithoutBlanks(std::u16string_view text)
{
    return text.substr(0, text.find_last_not_of(u" \t") + 1);
}

// The part of a word that fits, at least a character. None is narrower than a pixel.
size_t FittingPart(std::u16string_view word, int width, const MeasureText& measure)
{
    size_t fits = 1;
    size_t tooLong = std::min(word.size(), static_cast<size_t>(width) + 1) + 1;
    while (tooLong - fits > 1) {
        const size_t middle = (fits + tooLong) / 2;
        (measure(word.substr(0, middle)) <= width ? fits : tooLong) = middle;
    }
    const bool halvesPair = fits < word.size() && (word[fits] & 0xfc00) == 0xdc00;
    return halvesPair ? fits + 1 : fits;
}

// As many words as fit, or what fits of the first.
size_t LineLength(std::u16string_view text, int width, const MeasureText& measure)
{
    size_t length = WordLength(text);
    const std::u16string_view first = WithoutBlanks(text.substr(0, length));
    if (first.size() > static_cast<size_t>(width) || measure(first) > width)
        return FittingPart(first, width, measure);
    while (length < text.size()) {
        const size_t next = length + WordLength(text.substr(length));
        if (measure(WithoutBlanks(text.substr(0, next))) > width)
            break;
        length = next;
    }
    return length;
}

int CountParagraph(std::u16string_view text, int width, int most, const MeasureText& measure)
{
    int lines = text.empty() && most > 0 ? 1 : 0;
    for (; !text.empty() && lines < most; text.remove_prefix(LineLength(text, width, measure)))
        ++lines;
    return lines;
}

// Calls `take` with each part between line ends.
template <class Take>
void EachParagraph(std::u16string_view text, Take take)
{
    for (bool more = true; more;) {
        const size_t end = text.find(u'\n');
        more = end != text.npos;
        std::u16string_view paragraph = text.substr(0, end);
        if (!paragraph.empty() && paragraph.back() == u'\r')
            paragraph.remove_suffix(1);
        take(paragraph);
        text.remove_prefix(more ? end + 1 : 0);
    }
}

} // namespace

int CountLines(std::u16string_view text, int width, int most, const MeasureText& measure)
{
    int lines = 0;
    EachParagraph(text, [&](std::u16string_view paragraph) {
        lines += CountParagraph(paragraph, width, most - lines, measure);
    });
    return lines;
}

int WidestWord(std::u16string_view text, int most, const MeasureText& measure)
{
    int widest = 0;
    EachParagraph(text, [&](std::u16string_view paragraph) {
        while (!paragraph.empty() && widest < most) {
            const size_t length = WordLength(paragraph);
            const std::u16string_view word = WithoutBlanks(paragraph.substr(0, length));
            widest = std::max(widest, word.size() > static_cast<size_t>(most) ? most : measure(word));
            paragraph.remove_prefix(length);
        }
    });
    return std::min(widest, most);
}
