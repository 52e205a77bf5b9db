#include "ReportSheets.h"

#include "Console.h"
#include "LongTable.h"
#include "TextLines.h"

namespace {

constexpr double kWidths[] = {30, 10, 12, 84};
constexpr Field kFields[] = {
    {"Set", 0, 0, kTextField},
    {"Kind", 1, 1, kTextField},
    {"Count", 2, 2, kNumberField},
    {"Ranges", 3, 3, kTextField},
};
enum { kName, kKind, kCount, kRanges };
constexpr LongTable kLayout = {"Sets", xlLandscape, kWidths, kFields, 4};

// A row of the sheet: a set, or a further piece of its ranges.
struct SetRow {
    const NumberSet* set;
    bool first;
    CString ranges;
};

using SetRows = CArray<SetRow, const SetRow&>;

void GatherRows(const CModel& model, SetRows& rows)
{
    CStringArray pieces;
    for (int i = 0; i < model.sets.GetSize(); ++i) {
        SplitForRows(Ranges(model.sets[i]->members), kWidths[kRanges], pieces);
        for (int piece = 0; piece < pieces.GetSize(); ++piece)
            rows.Add({model.sets[i], piece == 0, pieces[piece]});
    }
}

void FillRow(CReportTable& table, const SetRow& row)
{
    if (row.first) {
        table.Text(kName, row.set->name);
        table.Text(kKind, row.set->kind == kNodeSet ? "nodes" : "elements");
        table.Number(kCount, row.set->members.GetSize());
    }
    table.Text(kRanges, row.ranges);
}

} // namespace

void WriteSetsSheet(CReportBook& book, const CModelView& view, bool quiet)
{
    ZEK_PROFILE_SCOPE("sets sheet");
    SetRows rows;
    GatherRows(view.Model(), rows);
    LongTableContent content;
    content.model = view.Model().name;
    content.note = Counted(view.Model().sets.GetSize(), "set") +
                   ", with those of the nodes and elements that the model has";
    content.rows = rows.GetSize();
    content.format = [](CReportTable& table) { table.SetNumberFormat(kCount, "0"); };
    content.row = [&rows](CReportTable& table, int row) { FillRow(table, rows[row]); };
    WriteLongTable(book, kLayout, content, quiet);
}
