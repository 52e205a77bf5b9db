#include "CountedTable.h"

#include "ModelView.h"
#include "TextLines.h"

void AddCounted(CountedRows& rows, const CString& item, int count, const CString& text, double width)
{
    CStringArray pieces;
    SplitForRows(text, width, pieces);
    for (int i = 0; i < pieces.GetSize(); ++i)
        rows.Add({i == 0 ? item : CString(), count, pieces[i]});
}

void AddCounted(CountedRows& rows, const CString& item, CArray<UINT, UINT>& numbers, double width)
{
    AddCounted(rows, item, numbers.GetSize(), Ranges(numbers), width);
}

void WriteCounted(CReportTable& table, const CountedRows& rows)
{
    table.Headings();
    table.Begin(rows.GetSize());
    table.SetNumberFormat(1, "0");
    for (int i = 0; i < rows.GetSize(); ++i) {
        table.Text(0, rows[i].item);
        if (!rows[i].item.IsEmpty())
            table.Number(1, rows[i].count);
        table.Text(2, rows[i].text);
        table.NextRow();
    }
    table.End();
}
