// The forms that name a block by its rows and columns: each converts them and calls the form that takes
// references.
#include <MSExcel.h>

void CMSExcel::SetValue(short row, short column, CString value)
{
    SetValue(GetCell(row, column), value);
}

void CMSExcel::SetValue(short row, short column, double value)
{
    SetValue(GetCell(row, column), value);
}

double CMSExcel::GetValue(short row, short column)
{
    return GetValue(GetCell(row, column));
}

CString CMSExcel::GetValueString(short row, short column)
{
    return GetValueString(GetCell(row, column));
}

void CMSExcel::SetHPageBreakBeforeActiveCell(short row, short column)
{
    SetHPageBreakBeforeActiveCell(GetCell(row, column));
}

void CMSExcel::SetColumnWidth(short row1, short column1, short row2, short column2, short width)
{
    SetColumnWidth(GetCell(row1, column1), GetCell(row2, column2), width);
}

void CMSExcel::SetColumnWidth(short row1, short column1, short row2, short column2, double width)
{
    SetColumnWidth(GetCell(row1, column1), GetCell(row2, column2), width);
}

void CMSExcel::SetRowHeight(short row1, short column1, short row2, short column2, short height)
{
    SetRowHeight(GetCell(row1, column1), GetCell(row2, column2), height);
}

void CMSExcel::SetMergeCell(short row1, short column1, short row2, short column2)
{
    SetMergeCell(GetCell(row1, column1), GetCell(row2, column2));
}

void CMSExcel::InsertCell(short row1, short column1, short row2, short column2, short shift)
{
    InsertCell(GetCell(row1, column1), GetCell(row2, column2), shift);
}

void CMSExcel::DeletCell(short row1, short column1, short row2, short column2, short shift)
{
    DeletCell(GetCell(row1, column1), GetCell(row2, column2), shift);
}

void CMSExcel::Clear(short row1, short column1, short row2, short column2)
{
    Clear(GetCell(row1, column1), GetCell(row2, column2));
}

void CMSExcel::SetHorAlign(short row1, short column1, short row2, short column2, short align)
{
    SetHorAlign(GetCell(row1, column1), GetCell(row2, column2), align);
}

void CMSExcel::SetVerAlign(short row1, short column1, short row2, short column2, short align)
{
    SetVerAlign(GetCell(row1, column1), GetCell(row2, column2), align);
}

void CMSExcel::SetFont(short row1, short column1, short row2, short column2, short size, DWORD color,
                       CString face, int bold)
{
    SetFont(GetCell(row1, column1), GetCell(row2, column2), size, color, face, bold);
}

void CMSExcel::SetFont(short row1, short column1, short row2, short column2, short size, CString face)
{
    SetFont(GetCell(row1, column1), GetCell(row2, column2), size, face);
}

void CMSExcel::SetFontFace(short row1, short column1, short row2, short column2, CString face)
{
    SetFontFace(GetCell(row1, column1), GetCell(row2, column2), face);
}

void CMSExcel::SetFontSize(short row1, short column1, short row2, short column2, short size)
{
    SetFontSize(GetCell(row1, column1), GetCell(row2, column2), size);
}

void CMSExcel::SetFontBold(short row1, short column1, short row2, short column2, int bold)
{
    SetFontBold(GetCell(row1, column1), GetCell(row2, column2), bold);
}

void CMSExcel::SetFontUnderline(short row1, short column1, short row2, short column2, int underline)
{
    SetFontUnderline(GetCell(row1, column1), GetCell(row2, column2), underline);
}

void CMSExcel::SetFontOutline(short row1, short column1, short row2, short column2, int outline)
{
    SetFontOutline(GetCell(row1, column1), GetCell(row2, column2), outline);
}

void CMSExcel::SetFontStrikethrough(short row1, short column1, short row2, short column2, int strikethrough)
{
    SetFontStrikethrough(GetCell(row1, column1), GetCell(row2, column2), strikethrough);
}

void CMSExcel::SetFontSubscript(short row1, short column1, short row2, short column2, int subscript)
{
    SetFontSubscript(GetCell(row1, column1), GetCell(row2, column2), subscript);
}

void CMSExcel::SetFontSuperscript(short row1, short column1, short row2, short column2, int superscript)
{
    SetFontSuperscript(GetCell(row1, column1), GetCell(row2, column2), superscript);
}

void CMSExcel::SetTextColor(short row1, short column1, short row2, short column2, DWORD color)
{
    SetTextColor(GetCell(row1, column1), GetCell(row2, column2), color);
}

void CMSExcel::SetBackColor(short row1, short column1, short row2, short column2, DWORD color)
{
    SetBackColor(GetCell(row1, column1), GetCell(row2, column2), color);
}

void CMSExcel::SetBorder(short row1, short column1, short row2, short column2, short lineStyle, short weight)
{
    SetBorder(GetCell(row1, column1), GetCell(row2, column2), lineStyle, weight);
}

void CMSExcel::CellLine(short row1, short column1, short row2, short column2, short index, short lineStyle,
                        short weight, short colorIndex)
{
    CellLine(GetCell(row1, column1), GetCell(row2, column2), index, lineStyle, weight, colorIndex);
}

void CMSExcel::CellOutLine(short row1, short column1, short row2, short column2, short lineStyle,
                           short weight, short colorIndex)
{
    CellOutLine(GetCell(row1, column1), GetCell(row2, column2), lineStyle, weight, colorIndex);
}

void CMSExcel::SetNumberFormat(short row1, short column1, short row2, short column2, CString format)
{
    SetNumberFormat(GetCell(row1, column1), GetCell(row2, column2), format);
}

void CMSExcel::SetCellInTextFormat(short row1, short column1, short row2, short column2)
{
    SetCellInTextFormat(GetCell(row1, column1), GetCell(row2, column2));
}

void CMSExcel::SetCellInNumber3DotFormat(short row1, short column1, short row2, short column2)
{
    SetCellInNumber3DotFormat(GetCell(row1, column1), GetCell(row2, column2));
}

void CMSExcel::SetCellInNumber2DotFormat(short row1, short column1, short row2, short column2)
{
    SetCellInNumber2DotFormat(GetCell(row1, column1), GetCell(row2, column2));
}

void CMSExcel::SetCellInUserFormat(short row1, short column1, short row2, short column2, CString format)
{
    SetCellInUserFormat(GetCell(row1, column1), GetCell(row2, column2), format);
}

void CMSExcel::SetColumnInTextFormat(short row1, short column1, short row2, short column2)
{
    SetCellInTextFormat(GetCell(row1, column1), GetCell(row2, column2));
}

void CMSExcel::SetStyle(short row1, short column1, short row2, short column2, CString style)
{
    SetStyle(GetCell(row1, column1), GetCell(row2, column2), style);
}
