// Sheets: add, find, move, copy, name.
#include <MSExcel.h>

#include <mbstring.h>

#include <climits>

namespace {

bool SameName(const CString& a, const CString& b)
{
    return a.Compare(b) == 0;
}

// The program's positions count from 1 and travel as 16-bit numbers.
COleVariant Position(int position)
{
    return COleVariant(static_cast<short>(position));
}

COleVariant ObjectArgument(LPDISPATCH object)
{
    COleVariant argument;
    argument.vt = VT_DISPATCH;
    argument.pdispVal = object;
    if (object)
        object->AddRef();
    return argument;
}

} // namespace

Excel9::Sheets& CMSExcel::TakeSheets()
{
    m_sheets.AttachDispatch(m_workbook.GetSheets());
    return m_sheets;
}

// For the members that go by the sheets as they were listed last.
Excel9::Sheets& CMSExcel::HeldSheets()
{
    return m_sheets.m_lpDispatch ? m_sheets : TakeSheets();
}

void CMSExcel::TakeSheet(const VARIANT& index)
{
    m_worksheet.AttachDispatch(m_sheets.GetItem(index));
}

CString CMSExcel::ProbeName(int position)
{
    m_nameProbe.AttachDispatch(m_sheets.GetItem(Position(position)));
    return m_nameProbe.GetName();
}

// The position of the sheet, which the name probe then holds; the last one when there is no such sheet.
short CMSExcel::FindSheet(const CString& name)
{
    const int count = TakeSheets().GetCount();
    short i = 1;
    while (i <= count && !SameName(ProbeName(i), name) && i < count && i < SHRT_MAX)
        ++i;
    return i;
}

void CMSExcel::AddSheet(CString name)
{
    TakeSheets();
    m_worksheet.AttachDispatch(
        m_sheets.Add(covOptional, covOptional, COleVariant(static_cast<short>(1)), covOptional));
    m_worksheet.SetName(name);
}

void CMSExcel::AddSheet2(CString name)
{
    AddSheet(name);
    TakeSheet(Position(m_sheets.GetCount()));
    MoveSheet(name, m_worksheet.GetName());
}

void CMSExcel::DeleteSheet(CString name)
{
    SetActiveSheet(name);
    m_worksheet.Delete();
}

void CMSExcel::DeleteDefaultSheet()
{
    for (LPCTSTR name : {"Sheet1", "Sheet2", "Sheet3"})
        if (IsExistSheetName(name))
            DeleteSheet(name);
}

void CMSExcel::MoveSheet(CString name, CString afterName)
{
    SetActiveSheet(name);
    FindSheet(afterName);
    m_worksheet.Move(covOptional, ObjectArgument(m_nameProbe.m_lpDispatch));
}

void CMSExcel::CopySheet(CString sourceName, CString newName)
{
    const short position = FindSheet(sourceName);
    m_worksheet.Copy(covOptional, ObjectArgument(m_nameProbe.m_lpDispatch));
    TakeSheet(Position(position + 1));
    m_worksheet.SetName(newName);
}

void CMSExcel::SetActiveSheet(CString name)
{
    TakeSheets();
    TakeSheet(COleVariant(name));
}

void CMSExcel::SetSheetSelection(CString name)
{
    SetActiveSheet(name);
    m_worksheet.Select(covOptional);
}

void CMSExcel::SetSheetName(CString oldName, CString newName)
{
    SetActiveSheet(oldName);
    m_worksheet.SetName(newName);
}

void CMSExcel::SetHideSheet(CString name)
{
    HeldSheets();
    TakeSheet(COleVariant(name));
    m_worksheet.SetVisible(xlSheetHidden);
}

void CMSExcel::GetSheetsName(CStringArray& names)
{
    names.RemoveAll();
    const int count = TakeSheets().GetCount();
    for (int i = 1; i <= count; ++i)
        names.Add(ProbeName(i));
}

CString CMSExcel::GetSheetName(short index)
{
    HeldSheets();
    return ProbeName(index + 1);
}

int CMSExcel::GetWorkSheetCount()
{
    const COleDispatchDriver sheets(m_workbook.GetSheets());
    return GetPropertyCount(sheets.m_lpDispatch);
}

int CMSExcel::IsExistSheetName(CString name)
{
    CStringArray names;
    GetSheetsName(names);
    for (int i = 0; i < static_cast<int>(names.GetSize()); ++i)
        if (SameName(names[i], name))
            return 1;
    return 0;
}

int CMSExcel::IsExistSheetNameInclude(CString text)
{
    CStringArray names;
    GetSheetsName(names);
    for (int i = 0; i < static_cast<int>(names.GetSize()); ++i)
        if (names[i].Find(text) >= 0)
            return 1;
    return 0;
}

CString CMSExcel::GetMaximumSheetName(CString text)
{
    CStringArray names;
    GetSheetsName(names);
    CString longest;
    for (int i = 0; i < static_cast<int>(names.GetSize()); ++i)
        if (names[i].Find(text) >= 0 && names[i].GetLength() > longest.GetLength())
            longest = names[i];
    return longest;
}
