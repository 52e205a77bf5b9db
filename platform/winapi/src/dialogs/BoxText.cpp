// How a message's text falls into lines.
#include "BoxLayout.h"

#include <algorithm>

namespace {

// From here on scripts (Hangul, kana, Chinese characters) may be broken between any two characters.
constexpr char16_t kFirstEastAsian = 0x1100;

bool BreaksBefore(std::u16string_view text, size_t at)
{
    const bool pair = (text[at] & 0xfc00) == 0xdc00;
    return !pair && (text[at - 1] == u' ' || text[at] >= kFirstEastAsian || text[at - 1] >= kFirstEastAsian);
}

// The length of the word that `text` begins with, the blanks behind it included.
size_t WordLength(std::u16string_view text)
{
    size_t length = 1;
    while (length < text.size() && !BreaksBefore(text, length))
        ++length;
    while (length < text.size() && text[length] == u' ')
        ++length;
    return length;
}

std::u16string_view WithoutBlanks(std::u16string_view text)
{
    return text.substr(0, text.find_last_not_of(u' ') + 1);
}

// As many words as fit, at least one.
size_t LineLength(std::u16string_view text, int width, const MeasureText& measure)
{
    size_t length = WordLength(text);
    while (length < text.size()) {
        const size_t next = length + WordLength(text.substr(length));
        if (measure(WithoutBlanks(text.substr(0, next))) > width)
            break;
        length = next;
    }
    return length;
}

int CountParagraph(std::u16string_view text, int width, const MeasureText& measure)
{
    int lines = text.empty() ? 1 : 0;
    for (; !text.empty(); text.remove_prefix(LineLength(text, width, measure)))
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

int CountLines(std::u16string_view text, int width, const MeasureText& measure)
{
    int lines = 0;
    EachParagraph(text, [&](std::u16string_view paragraph) {
        lines += measure(paragraph) <= width ? 1 : CountParagraph(paragraph, width, measure);
    });
    return lines;
}

int WidestWord(std::u16string_view text, const MeasureText& measure)
{
    int widest = 0;
    EachParagraph(text, [&](std::u16string_view paragraph) {
        while (!paragraph.empty()) {
            const size_t length = WordLength(paragraph);
            widest = std::max(widest, measure(WithoutBlanks(paragraph.substr(0, length))));
            paragraph.remove_prefix(length);
        }
    });
    return widest;
}
