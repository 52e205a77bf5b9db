#include "TextLines.h"

namespace {

constexpr int kLineHeight = 13; // points, of the default font
constexpr int kMostLines = 31;  // a row is at most 409 points high

// In hundredths of a digit.
constexpr int kDigit = 100;
constexpr int kMargins = 200; // the indent and the cell's own

// Classes of characters by their width; what is in none counts as two digits, which no letter exceeds.
struct WidthClass {
    const char* characters;
    int width;
};

constexpr WidthClass kWidths[] = {
    {" .,:;!'|fijlt-()/[]I", 57},
    {"0123456789abcdeghknopqsuvxyzrJ\"#*+=<>_?$\\", kDigit},
    {"ABCDEFGHKLNOPQRSTUVXYZ&m", 150},
};

int WidthOf(char ch)
{
    for (const WidthClass& known : kWidths)
        if (ch != '\0' && strchr(known.characters, ch))
            return known.width;
    return 2 * kDigit;
}

int RoomIn(double width)
{
    const int room = static_cast<int>(width * kDigit) - kMargins;
    return room > 2 * kDigit ? room : 2 * kDigit;
}

// Where the line that starts at `start` ends: at the last blank that fits, within a word that is too long.
// `next` is where the line after it starts.
int LineEnd(const CString& text, int start, int room, int& next)
{
    int end = -1, used = 0, at = start;
    for (; at < text.GetLength(); ++at) {
        if (text[at] == ' ')
            end = at;
        used += WidthOf(text[at]);
        if (used > room && text[at] != ' ')
            break;
    }
    if (at == text.GetLength())
        end = at;
    next = end < 0 ? at : end + 1;
    return end < 0 ? at : end;
}

} // namespace

short HeightOfLines(int lines)
{
    return static_cast<short>(kLineHeight * (lines < kMostLines ? lines : kMostLines));
}

int LinesOf(const CString& text, double width)
{
    const int room = RoomIn(width);
    int lines = 0;
    for (int start = 0; start < text.GetLength(); ++lines)
        LineEnd(text, start, room, start);
    return lines > 0 ? lines : 1;
}

void SplitForRows(const CString& text, double width, CStringArray& pieces)
{
    const int room = RoomIn(width);
    pieces.RemoveAll();
    int pieceStart = 0, lines = 0, end = 0;
    for (int start = 0; start < text.GetLength();) {
        if (lines++ == kMostLines) {
            pieces.Add(text.Mid(pieceStart, end - pieceStart));
            pieceStart = start;
            lines = 1;
        }
        end = LineEnd(text, start, room, start);
    }
    pieces.Add(text.Mid(pieceStart));
}
