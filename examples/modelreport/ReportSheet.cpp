#include "ReportSheet.h"

#include "TextLines.h"

namespace {

constexpr COLORREF kDarkBlue = RGB(31, 56, 100);
constexpr COLORREF kGrey = RGB(89, 89, 89);
constexpr COLORREF kBand = RGB(217, 226, 243);

} // namespace

CReportSheet::CReportSheet(CReportBook& book, const double* widths, int columnCount)
    : m_book(book), m_widths(widths), m_columnCount(columnCount)
{
    for (int column = 0; column < columnCount; ++column)
        m_book.SetColumnWidth(CellName(0, column), CellName(0, column), widths[column]);
}

double CReportSheet::WidthOf(int first, int last) const
{
    double width = 0;
    for (int column = first; column <= last; ++column)
        width += m_widths[column];
    return width;
}

void CReportSheet::Merge(int first, int last)
{
    if (first < last)
        m_book.SetMergeCell(Cell(first), Cell(last));
}

void CReportSheet::NeedLines(int lines)
{
    if (lines > 1)
        m_book.SetRowHeight(Cell(0), Cell(0), HeightOfLines(lines));
}

void CReportSheet::Line(const CString& text, short size, COLORREF color, int bold)
{
    const CString first = Cell(0), last = Cell(m_columnCount - 1);
    m_book.SetCellInTextFormat(first, last);
    m_book.SetValue(first, text);
    m_book.SetMergeCell(first, last);
    m_book.SetFont(first, last, size, color, "Arial", bold);
    m_book.SetHorAlign(first, last, xlHAlignLeft);
    m_book.SetVerAlign(first, last, xlVAlignCenter);
}

void CReportSheet::Title(const CString& text)
{
    Line(text, 16, kDarkBlue, TRUE);
    m_book.SetRowHeight(Cell(0), Cell(0), 26);
    ++m_row;
}

void CReportSheet::Subtitle(const CString& text)
{
    Line(text, 10, kGrey, FALSE);
    m_book.SetRowHeight(Cell(0), Cell(0), 16);
    ++m_row;
}

void CReportSheet::SectionTitle(const CString& text)
{
    ++m_row;
    Line(text, 12, kDarkBlue, TRUE);
    m_book.SetBackColor(Cell(0), Cell(m_columnCount - 1), kBand);
    m_book.SetRowHeight(Cell(0), Cell(0), 20);
    ++m_row;
}

void CReportSheet::Note(const CString& text)
{
    const int lines = LinesOf(text, WidthOf(0, m_columnCount - 1));
    Line(text, 10, kGrey, FALSE);
    m_book.SetWrap(Cell(0), Cell(m_columnCount - 1));
    NeedLines(lines);
    ++m_row;
}
