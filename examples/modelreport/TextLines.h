// How texts break into the lines of a cell.
#pragma once

#include <ZEK_lib.h>

// Widths are those of columns: in digits of the default font. Other characters count as wide as they are in
// Arial, none too narrow, so that a cell has room for the lines that are told here.

// How many lines a text takes in cells so wide together, broken at blanks.
int LinesOf(const CString& text, double width);

// Cuts a text at blanks into pieces, each short enough for one row of cells so wide together. The empty text
// is one piece.
void SplitForRows(const CString& text, double width, CStringArray& pieces);

// The height in points of a row with so many lines; more than a row can have count as the most it can.
short HeightOfLines(int lines);
