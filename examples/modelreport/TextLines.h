// How texts break into the lines of a cell.
#pragma once

#include <ZEK_lib.h>

// How many lines a text takes in a cell of `width` characters, broken at blanks.
int LinesOf(const CString& text, int width);

// Cuts a text at blanks into pieces, each short enough for one row `width` characters wide. The empty text
// is one piece.
void SplitForRows(const CString& text, int width, CStringArray& pieces);

// The height in points of a row with so many lines; more than a row can have count as the most it can.
short HeightOfLines(int lines);
