// The report's workbook: what the report asks of the office server as a whole.
#pragma once

#include <ZEK_lib.h>

// The name of a cell given by 0-based row and column ("A1"), for every row and column of a sheet.
CString CellName(int row, int column);

// A workbook of an own, invisible office server.
//
// Errors: every operation may throw COleException or COleDispatchException.
// Threads: that of the automation's other calls; AfxOleInit must have been called there.
class CReportBook : public CMSExcel
{
public:
    // Whether an office server is installed here. Ask before making a book: without a server its constructor
    // stops for a message box.
    static bool IsServerInstalled();

    CReportBook() = default;
    // Ends the server, whatever has become of the book.
    ~CReportBook() override;

    // Starts the workbook.
    void Begin();
    // Adds a sheet behind the others and makes it the current one: A4, margins, one page wide, page numbers
    // beside `footer`, no grid on the screen.
    void AddReportSheet(const CString& name, XlPageOrientation orientation, const CString& footer);
    // The row of the current sheet that every page repeats, 0-based.
    void SetPrintTitleRow(int row);
    // Lets the texts of a block of the current sheet take several lines.
    void SetWrap(const CString& from, const CString& to);
    // Keeps what is in the block away from the edge that it is aligned to, by so many steps.
    void SetIndent(const CString& from, const CString& to, short steps);
    // Removes the sheets that a new workbook has and shows `name` first.
    void End(const CString& name);

    // Saves under an absolute path; when that fails, the library's second try may succeed. `stored` is the
    // path that the file really has. False when no file was written; `problem` says why.
    bool Store(const CString& path, CString& stored, CString& problem);

private:
    void SetPage(LPCOLESTR member, const COleVariant& value);
};
