#include "ReportTable.h"

#include "TextLines.h"

namespace {

constexpr COLORREF kHeadingColor = RGB(31, 56, 100);
constexpr COLORREF kWhite = RGB(255, 255, 255);

// Longer texts show as hash marks in cells of the text format in older programs.
constexpr int kLongestInTextFormat = 255;

// Keeps numbers away from the right border by the width of a blank. Behind an exponent some programs would
// take it as a digit place.
CString WithSpace(const CString& format)
{
    return format.Find('E') < 0 ? format + "_ " : format;
}

} // namespace

void CReportTable::Headings()
{
    CReportBook& book = m_sheet.Book();
    const CString first = m_sheet.Cell(m_fields[0].first);
    const CString last = m_sheet.Cell(m_fields[m_fieldCount - 1].last);
    book.SetCellInTextFormat(first, last);
    for (int i = 0; i < m_fieldCount; ++i) {
        book.SetValue(m_sheet.Cell(m_fields[i].first), CString(m_fields[i].heading));
        m_sheet.Merge(m_fields[i].first, m_fields[i].last);
    }
    book.SetFont(first, last, 10, kWhite, "Arial", TRUE);
    book.SetBackColor(first, last, kHeadingColor);
    book.SetHorAlign(first, last, xlHAlignCenter);
    book.SetVerAlign(first, last, xlVAlignCenter);
    book.SetBorder(first, last, xlContinuous, xlThin);
    book.SetRowHeight(first, last, 18);
    m_sheet.NextRow();
}

void CReportTable::Begin(int rows)
{
    m_firstRow = m_runStart = m_sheet.Row();
    m_lastRow = m_firstRow + rows - 1;
    if (rows == 0)
        return;
    CReportBook& book = m_sheet.Book();
    for (int i = 0; i < m_fieldCount; ++i)
        FormatField(m_fields[i]);
    const CString first = CellName(m_firstRow, m_fields[0].first);
    const CString last = CellName(m_lastRow, m_fields[m_fieldCount - 1].last);
    book.SetBorder(first, last, xlContinuous, xlHairline);
    book.CellOutLine(first, last, xlContinuous, xlThin, xlColorIndexAutomatic);
}

void CReportTable::FormatField(const Field& field)
{
    CReportBook& book = m_sheet.Book();
    const CString first = CellName(m_firstRow, field.first);
    const CString last = CellName(m_lastRow, field.last);
    const bool text = field.kind == kTextField;
    book.SetHorAlign(first, last, text ? xlHAlignLeft : xlHAlignRight);
    book.SetVerAlign(first, last, xlVAlignTop);
    if (!text)
        return;
    book.SetCellInTextFormat(first, last);
    book.SetIndent(first, last, 1);
    book.SetWrap(first, last);
}

void CReportTable::SetNumberFormat(int field, const CString& format)
{
    if (m_lastRow >= m_firstRow)
        m_sheet.Book().SetNumberFormat(CellName(m_firstRow, m_fields[field].first),
                                       CellName(m_lastRow, m_fields[field].first), WithSpace(format));
}

void CReportTable::Text(int field, const CString& text)
{
    const Field& at = m_fields[field];
    const CString cell = m_sheet.Cell(at.first);
    if (text.GetLength() > kLongestInTextFormat)
        m_sheet.Book().SetNumberFormat(cell, cell, "General");
    if (!text.IsEmpty())
        m_sheet.Book().SetValue(cell, text);
    m_sheet.Merge(at.first, at.last);
    const int lines = LinesOf(text, m_sheet.WidthOf(at.first, at.last));
    m_lines = lines > m_lines ? lines : m_lines;
}

void CReportTable::Number(int field, double value)
{
    m_sheet.Book().SetValue(m_sheet.Cell(m_fields[field].first), value);
    m_sheet.Merge(m_fields[field].first, m_fields[field].last);
}

void CReportTable::FormattedNumber(int field, double value, const CString& format)
{
    const CString cell = m_sheet.Cell(m_fields[field].first);
    m_sheet.Book().SetNumberFormat(cell, cell, WithSpace(format));
    Number(field, value);
}

void CReportTable::NextRow()
{
    if (m_lines != m_runLines) {
        SetHeights();
        m_runStart = m_sheet.Row();
        m_runLines = m_lines;
    }
    m_lines = 1;
    m_sheet.NextRow();
}

void CReportTable::End()
{
    SetHeights();
    m_runLines = 1;
}

// One call for neighbouring rows of the same height.
void CReportTable::SetHeights()
{
    if (m_runLines > 1)
        m_sheet.Book().SetRowHeight(CellName(m_runStart, 0), CellName(m_sheet.Row() - 1, 0),
                                    HeightOfLines(m_runLines));
}
