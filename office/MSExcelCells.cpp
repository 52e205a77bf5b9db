// Cells: references, values, sizes, structure.
#include <MSExcel.h>

#include <charconv>

namespace {

constexpr SCODE kProgramError = static_cast<SCODE>(0x800A03EC); // the program's error 1004

constexpr int kLetters = 26;
constexpr int kColumnsWithLetters = 255; // the sheet's last column is left without letters

// Writes the column's letters; returns their end.
char* WriteColumn(char* out, int column)
{
    if (column < kLetters) {
        *out++ = static_cast<char>('A' + column);
    } else if (column < kColumnsWithLetters) {
        *out++ = static_cast<char>(64 + column / kLetters);
        *out++ = static_cast<char>('A' + column % kLetters);
    }
    return out;
}

CString Reference(int row, int column, bool absolute)
{
    char text[16];
    char* out = text;
    if (absolute)
        *out++ = '$';
    out = WriteColumn(out, column);
    if (absolute)
        *out++ = '$';
    out = std::to_chars(out, text + sizeof text, row + 1).ptr;
    return CString(text, static_cast<int>(out - text));
}

// Takes over what a driver handed out.
COleVariant Owned(VARIANT value)
{
    COleVariant owner;
    owner.Attach(value);
    return owner;
}

double Points(VARIANT value)
{
    COleVariant points = Owned(value);
    points.ChangeType(VT_R8);
    return points.dblVal;
}

CString Text(const VARIANT& value)
{
    return value.vt == VT_BSTR ? CString(value.bstrVal, static_cast<int>(SysStringLen(value.bstrVal)))
                               : CString();
}

// Range.Name answers a name object; its own name is the text.
CString TextOfName(VARIANT value)
{
    COleVariant owner = Owned(value);
    if (owner.vt != VT_DISPATCH)
        return Text(owner);
    Excel9::Name name(owner.Detach().pdispVal);
    return name.GetName();
}

} // namespace

Excel9::Range& CMSExcel::TakeRange(const CString& from, const CString& to)
{
    m_range.AttachDispatch(m_worksheet.GetRange(COleVariant(from), COleVariant(to)));
    return m_range;
}

Excel9::Range& CMSExcel::TakeRange(const CString& cell)
{
    m_range.AttachDispatch(m_worksheet.GetRange(COleVariant(cell), covOptional));
    return m_range;
}

Excel9::Range& CMSExcel::TakeAllCells()
{
    m_range.AttachDispatch(m_worksheet.GetCells());
    return m_range;
}

CString CMSExcel::GetCell(short row, short column)
{
    return Reference(row, column, false);
}

CString CMSExcel::GetCellOrgExp(short row, short column)
{
    return Reference(row, column, true);
}

void CMSExcel::GetCellSize(short row1, short column1, short row2, short column2, double& width,
                           double& height, double& left, double& top)
{
    TakeRange(GetCell(row1, column1), GetCell(row2, column2));
    width = Points(m_range.GetWidth());
    height = Points(m_range.GetHeight());
    left = Points(m_range.GetLeft());
    top = Points(m_range.GetTop());
}

void CMSExcel::SetValue(CString cell, CString value)
{
    TakeRange(cell).SetValue(COleVariant(value));
}

void CMSExcel::SetValue(CString cell, double value)
{
    TakeRange(cell).SetValue(COleVariant(value));
}

void CMSExcel::SetValueInUserFormat(CString cell, CString value, CString format)
{
    TakeRange(cell).SetValue(COleVariant(value));
    m_range.SetNumberFormatLocal(COleVariant(format));
}

double CMSExcel::GetValue(CString cell)
{
    const COleVariant value = Owned(TakeRange(cell).GetValue());
    return value.vt == VT_R8 || value.vt == VT_DATE ? value.dblVal : 0.0;
}

CString CMSExcel::GetValueString(CString cell)
{
    return Text(Owned(TakeRange(cell).GetValue()));
}

void CMSExcel::SetCellName(CString cell, CString name)
{
    TakeRange(cell).SetName(COleVariant(name));
}

CString CMSExcel::GetCellName(CString cell)
{
    TakeRange(cell);
    try {
        return TextOfName(m_range.GetName());
    } catch (COleDispatchException* e) {
        if (e->m_scError != kProgramError)
            throw;
        e->Delete(); // what the program raises for a cell without a name
        return CString();
    }
}

void CMSExcel::SetColumnWidth(CString from, CString to, short width)
{
    TakeRange(from, to).SetColumnWidth(COleVariant(width));
}

void CMSExcel::SetColumnWidth(CString from, CString to, double width)
{
    TakeRange(from, to).SetColumnWidth(COleVariant(width));
}

void CMSExcel::SetRowHeight(CString from, CString to, short height)
{
    TakeRange(from, to).SetRowHeight(COleVariant(height));
}

void CMSExcel::SetRowHeight(short height)
{
    TakeAllCells().SetRowHeight(COleVariant(height));
}

// The program takes any number but 0 as true.
void CMSExcel::SetMergeCell(CString from, CString to)
{
    const COleVariant height = Owned(TakeRange(from, to).GetHeight());
    m_range.SetMergeCells(height);
}

void CMSExcel::InsertCell(CString from, CString to, short shift)
{
    TakeRange(from, to).Insert(COleVariant(static_cast<LONG>(shift)));
}

void CMSExcel::DeletCell(CString from, CString to, short shift)
{
    TakeRange(from, to).Delete(COleVariant(static_cast<LONG>(shift)));
}

void CMSExcel::Clear(CString from, CString to)
{
    TakeRange(from, to).Clear();
}
