#include "ReportWriter.h"

#include "Console.h"
#include "Folder.h"
#include "Messages.h"
#include "Paths.h"
#include "ReportSheets.h"

namespace {

void FillBook(CReportBook& book, const CModelView& view, const CPlaneCut* cut, bool quiet)
{
    book.Begin();
    WriteSummarySheet(book, view, cut);
    if (cut)
        WriteCutSheet(book, view, *cut, quiet);
    WriteNodesSheet(book, view, quiet);
    WriteElementsSheet(book, view, quiet);
    WriteSetsSheet(book, view, quiet);
    WriteProfileSheet(book, view, quiet);
    book.End("Summary");
}

// The office server's current folder is not ours, and its path has to start at a root.
CString PathToStore(const CString& file)
{
    return IsAbsolute(file) ? file : FullPath(file);
}

// How the user would type the path that the file really has.
CString TypedPath(const CString& file, const CString& stored)
{
    const CString asked = PathToStore(file);
    if (stored == asked)
        return file;
    const bool sameFolder = FolderPart(stored) == FolderPart(asked);
    return sameFolder ? FolderPart(file) + NamePart(stored) : stored;
}

bool FillAndStore(const CModelView& view, const CPlaneCut* cut, bool quiet, CString& file, CString& problem)
{
    CReportBook book;
    if (!book.IsExcel()) {
        problem = "the office server does not start";
        return false;
    }
    try {
        FillBook(book, view, cut, quiet);
    } catch (CException* e) {
        problem = "the office server refuses: " + MessageOf(e);
        return false;
    }
    CString stored;
    if (!book.Store(PathToStore(file), stored, problem))
        return false;
    file = TypedPath(file, stored);
    return true;
}

} // namespace

bool WriteReport(const CModelView& view, const CPlaneCut* cut, const CString& folder, bool quiet,
                 CString& file, CString& problem)
{
    if (!CReportBook::IsServerInstalled()) {
        problem = "no office server is installed that answers to Excel.Application";
        return false;
    }
    CNewFolder made(folder);
    if (!made.Exists()) {
        problem = "cannot make the folder " + folder;
        return false;
    }
    file = Joined(folder, view.Model().name + ".xlsx");
    const CString asked = file;
    if (!FillAndStore(view, cut, quiet, file, problem)) {
        problem = asked + ": " + problem;
        return false;
    }
    if (file != asked)
        PrintProblem(asked + " could not be written; the report was saved as " + file);
    made.Keep();
    return true;
}
