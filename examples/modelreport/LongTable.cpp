#include "LongTable.h"

#include "Console.h"

namespace {

constexpr int kSheetRows = 1048576;
constexpr int kHeadRows = 4; // title, note, an empty row, headings
constexpr int kBodyRows = kSheetRows - kHeadRows;

CString SheetName(LPCSTR name, int part)
{
    CString numbered;
    numbered.Format("%s (%d)", name, part + 1);
    return part == 0 ? CString(name) : numbered;
}

// The rows `first` to `last` - 1 on a sheet of their own.
void WritePart(CReportSheet& sheet, const LongTable& layout, const LongTableContent& content, int first,
               int last, CProgress& progress)
{
    sheet.Title(CString(layout.sheet) + " of model " + content.model);
    sheet.Subtitle(content.note);
    sheet.NextRow();
    sheet.Book().SetPrintTitleRow(sheet.Row());
    CReportTable table(sheet, layout.fields, layout.fieldCount);
    table.Headings();
    table.Begin(last - first);
    if (content.format)
        content.format(table);
    for (int row = first; row < last; ++row) {
        content.row(table, row);
        table.NextRow();
        progress.Step();
    }
    table.End();
}

} // namespace

void WriteLongTable(CReportBook& book, const LongTable& layout, const LongTableContent& content, bool quiet)
{
    CProgress progress(layout.sheet, content.rows, quiet);
    for (int part = 0, first = 0; part == 0 || first < content.rows; ++part) {
        const int left = content.rows - first;
        const int last = first + (left < kBodyRows ? left : kBodyRows);
        book.AddReportSheet(SheetName(layout.sheet, part), layout.orientation, content.model);
        CReportSheet sheet(book, layout.widths, layout.fieldCount);
        WritePart(sheet, layout, content, first, last, progress);
        first = last;
    }
}
