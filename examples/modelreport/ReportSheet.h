// Lays a sheet of the report out from top to bottom: its titles and tables.
#pragma once

#include "ReportBook.h"

// The current sheet of a book while it is filled. Rows and columns count from 0; the row at hand moves down.
class CReportSheet
{
public:
    // Gives the sheet's columns their widths, in characters.
    CReportSheet(CReportBook& book, const double* widths, int columnCount);

    CReportBook& Book() { return m_book; }
    int Row() const { return m_row; }
    void NextRow() { ++m_row; }

    // A line over all columns: its own look each. Each moves on to the next row.
    void Title(const CString& text);
    void Subtitle(const CString& text);
    void SectionTitle(const CString& text);
    void Note(const CString& text);

    // How many characters the columns take together.
    double WidthOf(int first, int last) const;

    CString Cell(int column) const { return CellName(m_row, column); }
    // Makes the columns of the row at hand one cell; a single column stays as it is.
    void Merge(int first, int last);
    // The row at hand is as high as so many lines of text; may be called several times for a row.
    void NeedLines(int lines);

private:
    void Line(const CString& text, short size, COLORREF color, int bold);

    CReportBook& m_book;
    const double* m_widths;
    int m_columnCount;
    int m_row = 0;
};
