#include "TextLines.h"

namespace {

constexpr int kLineHeight = 13; // points, of the default font
constexpr int kMostLines = 31;  // a row is at most 409 points high

// Where the line that starts at `start` ends: at the last blank that fits, or after the first word.
int LineEnd(const CString& text, int start, int width)
{
    const int length = text.GetLength();
    if (length - start <= width)
        return length;
    int end = text.Find(' ', start);
    if (end < 0)
        return length;
    for (int next = end; next >= 0 && next - start <= width; next = text.Find(' ', next + 1))
        end = next;
    return end;
}

// A word wider than its cell is broken anywhere.
int LinesOfWord(int length, int width)
{
    return length <= width ? 1 : (length + width - 1) / width;
}

} // namespace

short HeightOfLines(int lines)
{
    return static_cast<short>(kLineHeight * (lines < kMostLines ? lines : kMostLines));
}

int LinesOf(const CString& text, int width)
{
    int lines = 0;
    for (int start = 0; start < text.GetLength();) {
        const int end = LineEnd(text, start, width);
        lines += LinesOfWord(end - start, width);
        start = end + 1;
    }
    return lines > 0 ? lines : 1;
}

void SplitForRows(const CString& text, int width, CStringArray& pieces)
{
    pieces.RemoveAll();
    int pieceStart = 0, lines = 0;
    for (int start = 0; start < text.GetLength();) {
        const int end = LineEnd(text, start, width);
        if (++lines > kMostLines) {
            pieces.Add(text.Mid(pieceStart, start - 1 - pieceStart));
            pieceStart = start;
            lines = 1;
        }
        start = end + 1;
    }
    pieces.Add(text.Mid(pieceStart));
}
