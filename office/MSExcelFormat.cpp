// Formats: alignment, fonts, colours, borders, number formats, styles.
#include <MSExcel.h>

namespace {

constexpr LPCTSTR kTextFormat = "@";
constexpr LPCTSTR kThreeDecimals = "0.000_ "; // "_ ": a space's width to the right of the number
constexpr LPCTSTR kTwoDecimals = "0.00_ ";

COleVariant Flag(int value)
{
    return COleVariant(static_cast<short>(value != 0), VT_BOOL);
}

COleVariant Color(DWORD color)
{
    return COleVariant(static_cast<LONG>(color));
}

} // namespace

Excel9::Font& CMSExcel::TakeFont(const CString& from, const CString& to)
{
    m_font.AttachDispatch(TakeRange(from, to).GetFont());
    return m_font;
}

Excel9::Font& CMSExcel::TakeFont(Excel9::Style& style)
{
    m_font.AttachDispatch(style.GetFont());
    return m_font;
}

void CMSExcel::PutFont(Excel9::Font& font, short size, DWORD color, const CString& face, int bold)
{
    font.SetSize(COleVariant(size));
    font.SetColor(Color(color));
    font.SetName(COleVariant(face));
    font.SetBold(bold);
}

void CMSExcel::SetHorAlign(CString from, CString to, short align)
{
    TakeRange(from, to).SetHorizontalAlignment(COleVariant(align));
}

void CMSExcel::SetVerAlign(CString from, CString to, short align)
{
    TakeRange(from, to).SetVerticalAlignment(COleVariant(align));
}

void CMSExcel::SetFont(CString from, CString to, short size, DWORD color, CString face, int bold)
{
    PutFont(TakeFont(from, to), size, color, face, bold);
}

void CMSExcel::SetFont(CString from, CString to, short size, CString face)
{
    TakeFont(from, to).SetSize(COleVariant(size));
    m_font.SetName(COleVariant(face));
}

void CMSExcel::SetFontFace(CString from, CString to, CString face)
{
    TakeFont(from, to).SetName(COleVariant(face));
}

void CMSExcel::SetFontSize(CString from, CString to, short size)
{
    TakeFont(from, to).SetSize(COleVariant(size));
}

void CMSExcel::SetFontBold(CString from, CString to, int bold)
{
    TakeFont(from, to).SetBold(bold);
}

void CMSExcel::SetFontUnderline(CString from, CString to, int underline)
{
    TakeFont(from, to).SetUnderline(Flag(underline));
}

void CMSExcel::SetFontOutline(CString from, CString to, int outline)
{
    TakeFont(from, to).SetOutlineFont(Flag(outline));
}

void CMSExcel::SetFontStrikethrough(CString from, CString to, int strikethrough)
{
    TakeFont(from, to).SetStrikethrough(Flag(strikethrough));
}

void CMSExcel::SetFontSubscript(CString from, CString to, int subscript)
{
    TakeFont(from, to).SetSubscript(subscript);
}

void CMSExcel::SetFontSuperscript(CString from, CString to, int superscript)
{
    TakeFont(from, to).SetSuperscript(superscript);
}

void CMSExcel::SetTextColor(CString from, CString to, DWORD color)
{
    TakeFont(from, to).SetColor(Color(color));
}

void CMSExcel::SetBackColor(CString from, CString to, DWORD color)
{
    m_interior.AttachDispatch(TakeRange(from, to).GetInterior());
    m_interior.SetColor(Color(color));
}

void CMSExcel::SetBorder(CString from, CString to, short lineStyle, short weight)
{
    m_borders.AttachDispatch(TakeRange(from, to).GetBorders());
    m_borders.SetLineStyle(COleVariant(lineStyle));
    m_borders.SetWeight(COleVariant(weight));
}

void CMSExcel::CellLine(CString from, CString to, short index, short lineStyle, short weight,
                        short colorIndex)
{
    m_borders.AttachDispatch(TakeRange(from, to).GetBorders());
    m_border.AttachDispatch(m_borders.GetItem(index));
    m_border.SetLineStyle(COleVariant(lineStyle));
    m_border.SetWeight(COleVariant(weight));
    m_border.SetColorIndex(COleVariant(colorIndex));
}

void CMSExcel::CellOutLine(CString from, CString to, short lineStyle, short weight, short colorIndex)
{
    TakeRange(from, to).BorderAround(COleVariant(lineStyle), weight, colorIndex, covOptional);
}

void CMSExcel::SetNumberFormat(CString from, CString to, CString format)
{
    TakeRange(from, to).SetNumberFormat(COleVariant(format));
}

void CMSExcel::SetCellInUserFormat(CString from, CString to, CString format)
{
    TakeRange(from, to).SetNumberFormatLocal(COleVariant(format));
}

void CMSExcel::SetCellInTextFormat(CString from, CString to)
{
    SetCellInUserFormat(from, to, kTextFormat);
}

void CMSExcel::SetCellInNumber3DotFormat(CString from, CString to)
{
    SetCellInUserFormat(from, to, kThreeDecimals);
}

void CMSExcel::SetCellInNumber2DotFormat(CString from, CString to)
{
    SetCellInUserFormat(from, to, kTwoDecimals);
}

void CMSExcel::FormatColumns(short first, short last, LPCTSTR format)
{
    m_range2.AttachDispatch(TakeRange(GetCell(0, first), GetCell(0, last)).GetEntireColumn());
    m_range2.SetNumberFormatLocal(COleVariant(format));
}

void CMSExcel::SetColumnInTextFormat(short first, short last)
{
    FormatColumns(first, last, kTextFormat);
}

void CMSExcel::SetColumnInNumber3DotFormat(short first, short last)
{
    FormatColumns(first, last, kThreeDecimals);
}

void CMSExcel::SetColumnInNumber2DotFormat(short first, short last)
{
    FormatColumns(first, last, kTwoDecimals);
}

void CMSExcel::SetStyle(CString from, CString to, CString style)
{
    TakeRange(from, to).SetStyle(COleVariant(style));
}

void CMSExcel::SetSheetStyle(CString style)
{
    TakeAllCells().SetStyle(COleVariant(style));
}

void CMSExcel::AddStyle(CString name, short size, DWORD color, CString face, int bold)
{
    m_styles.AttachDispatch(m_workbook.GetStyles());
    m_style.AttachDispatch(m_styles.Add(name, covOptional));
    PutFont(TakeFont(m_style), size, color, face, bold);
}

void CMSExcel::SetDefaultStyle(short size, DWORD color, CString face, int bold)
{
    m_styles.AttachDispatch(m_workbook.GetStyles());
    m_style.AttachDispatch(m_styles.GetItem(COleVariant("Normal")));
    PutFont(TakeFont(m_style), size, color, face, bold);
}

void CMSExcel::SetStandardFont(CString face, int size)
{
    m_application.SetStandardFont(face);
    m_application.SetStandardFontSize(size);
}
