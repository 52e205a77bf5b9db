// Workbooks: add, open, save, close.
#include <MSExcel.h>

#include <afxwin.h>

#include <memory>

namespace {

// "saved as", for a notice that follows the new path. In code page 949.
constexpr LPCTSTR kSavedAs = "\xB7\xCE\x20\xC0\xFA\xC0\xE5\xC7\xD5\xB4\xCF\xB4\xD9\x2E";

struct DeleteException {
    void operator()(CException* e) const { e->Delete(); }
};
using CaughtException = std::unique_ptr<CException, DeleteException>;

// The first dot counts, also one in a folder's name.
CString BackupPath(const CString& path)
{
    return path.SpanExcluding(".") + "_bak" + ".xls";
}

} // namespace

void CMSExcel::AddBook()
{
    m_workbook.AttachDispatch(m_workbooks.Add(covOptional));
}

void CMSExcel::Open(CString path)
{
    const COleVariant& none = covOptional;
    m_workbook.AttachDispatch(m_workbooks.Open(COleVariant(path), none, none, none, none, none, none, none,
                                               none, none, none, none, none));
    m_application.SetDisplayAlerts(FALSE);
}

void CMSExcel::SetActiveBook(CString name)
{
    m_workbook.AttachDispatch(m_workbooks.GetItem(COleVariant(name)));
}

CString CMSExcel::GetBookName()
{
    return m_workbook.GetName();
}

void CMSExcel::Save(CString name)
{
    try {
        SetActiveBook(name);
        m_workbook.Save();
    } catch (CException* e) {
        e->Delete();
    } catch (...) {
    }
}

void CMSExcel::SaveWorkbookAs(const CString& path)
{
    const COleVariant& none = covOptional;
    m_workbook.SaveAs(COleVariant(path), none, none, none, none, none, 0, none, none, none, none);
}

void CMSExcel::SaveAs(CString name, CString path)
{
    SetActiveBook(name);
    try {
        SaveWorkbookAs(path);
    } catch (CException* e) {
        const CaughtException failure(e);
        const CString backup = BackupPath(path);
        const CString notice = backup + kSavedAs;
        AfxMessageBox(backup); // the path alone, as users know it; the notice is not shown
        SaveWorkbookAs(backup);
    } catch (...) {
    }
}

void CMSExcel::Close()
{
    if (!m_workbooks.m_lpDispatch)
        return;
    m_workbooks.Close();
    m_workbooks.ReleaseDispatch();
}

void CMSExcel::Close(CString name)
{
    SetActiveBook(name);
    if (!m_workbook.m_lpDispatch)
        return;
    m_workbook.Close(covOptional, COleVariant(name), covOptional);
    m_workbook.ReleaseDispatch();
}
