#include "ReportBook.h"

#include "Messages.h"
#include "Paths.h"

namespace {

constexpr int kLetters = 26;
constexpr double kSideMargin = 15; // mm
constexpr double kEndMargin = 20;
constexpr short kFontSize = 10;
constexpr COLORREF kBlack = RGB(0, 0, 0);

CString ColumnName(int column)
{
    CString name;
    for (int rest = column + 1; rest > 0; rest = (rest - 1) / kLetters)
        name.Insert(0, static_cast<char>('A' + (rest - 1) % kLetters));
    return name;
}

// In headers and footers '&' starts a code; two of them are the character itself.
CString FooterText(CString text)
{
    text.Replace("&", "&&");
    return text;
}

// An object that a property of `object` answers; the caller's.
COleDispatchDriver ObjectOf(IDispatch* object, LPCOLESTR property)
{
    COleVariant result;
    AfxCheckError(CMSExcel::AutoWrap(DISPATCH_PROPERTYGET, &result, object, property, 0));
    if (result.vt != VT_DISPATCH)
        AfxThrowOleException(DISP_E_TYPEMISMATCH);
    return COleDispatchDriver(result.Detach().pdispVal);
}

void Put(IDispatch* object, LPCOLESTR property, const VARIANT& value)
{
    AfxCheckError(CMSExcel::AutoWrap(DISPATCH_PROPERTYPUT, nullptr, object, property, 1, value));
}

} // namespace

CString CellName(int row, int column)
{
    CString name;
    name.Format("%s%d", LPCSTR(ColumnName(column)), row + 1);
    return name;
}

bool CReportBook::IsServerInstalled()
{
    CLSID server;
    return SUCCEEDED(CLSIDFromProgID(OLESTR("Excel.Application"), &server));
}

CReportBook::~CReportBook()
{
    try {
        Quit();
    } catch (CException* e) {
        e->Delete(); // the server is gone already
    }
}

void CReportBook::Begin()
{
    AddBook();
    SetDefaultStyle(kFontSize, kBlack, "Arial", FALSE);
}

void CReportBook::AddReportSheet(const CString& name, XlPageOrientation orientation, const CString& footer)
{
    AddSheet2(name);
    SetGraduation(FALSE);
    SetPageSetup(orientation, xlPaperA4);
    SetMargin(kSideMargin, kSideMargin, kEndMargin, kEndMargin);
    SetPage(OLESTR("Zoom"), COleVariant(short{FALSE}, VT_BOOL));
    SetPage(OLESTR("FitToPagesWide"), COleVariant(short{1}));
    SetPage(OLESTR("FitToPagesTall"), COleVariant(short{FALSE}, VT_BOOL));
    SetPage(OLESTR("LeftFooter"), COleVariant(FooterText(footer)));
    SetPage(OLESTR("CenterFooter"), COleVariant("&A"));
    SetPage(OLESTR("RightFooter"), COleVariant("Page &P of &N"));
}

void CReportBook::SetPrintTitleRow(int row)
{
    CString rows;
    rows.Format("$%d:$%d", row + 1, row + 1);
    SetPage(OLESTR("PrintTitleRows"), COleVariant(rows));
}

void CReportBook::SetWrap(const CString& from, const CString& to)
{
    Put(TakeRange(from, to), OLESTR("WrapText"), COleVariant(short{TRUE}, VT_BOOL));
}

void CReportBook::SetIndent(const CString& from, const CString& to, short steps)
{
    Put(TakeRange(from, to), OLESTR("IndentLevel"), COleVariant(steps));
}

void CReportBook::End(const CString& name)
{
    DeleteDefaultSheet();
    SetSheetSelection(name);
}

void CReportBook::SetPage(LPCOLESTR member, const COleVariant& value)
{
    COleDispatchDriver page = ObjectOf(m_worksheet, OLESTR("PageSetup"));
    Put(page, member, value);
}

bool CReportBook::Store(const CString& path, CString& stored, CString& problem)
{
    // Where the library's second try puts the file.
    const CString second = path.SpanExcluding(".") + "_bak.xls";
    CString name;
    try {
        SaveAs(GetBookName(), path);
        name = GetBookName();
    } catch (CException* e) {
        problem = MessageOf(e);
        return false;
    }
    stored = name.CompareNoCase(NamePart(second)) == 0 ? second : path;
    const bool found = name.CompareNoCase(NamePart(stored)) == 0 && FileExists(stored);
    if (!found)
        problem = "the office server did not write it";
    return found;
}
