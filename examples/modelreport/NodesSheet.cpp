#include "ReportSheets.h"

#include "Console.h"
#include "LongTable.h"
#include "NumberFormat.h"

namespace {

constexpr double kWidths[] = {14, 24, 24, 24};
constexpr Field kFields[] = {
    {"Node", 0, 0, kNumberField},
    {"X", 1, 1, kNumberField},
    {"Y", 2, 2, kNumberField},
    {"Z", 3, 3, kNumberField},
};
constexpr LongTable kLayout = {"Nodes", xlPortrait, kWidths, kFields, 4};

CString FormatOfAxis(const CModel& model, int axis)
{
    CMagnitudes magnitudes;
    for (int i = 0; i < model.nodes.GetSize(); ++i)
        magnitudes.Add(model.nodes[i].at[axis]);
    return magnitudes.Format();
}

void SetFormats(CReportTable& table, const CModel& model)
{
    table.SetNumberFormat(0, "0");
    for (int axis = 0; axis < 3; ++axis)
        table.SetNumberFormat(axis + 1, FormatOfAxis(model, axis));
}

void FillRow(CReportTable& table, const NodeRecord& node)
{
    table.Number(0, node.number);
    for (int axis = 0; axis < 3; ++axis)
        table.Number(axis + 1, node.at[axis]);
}

} // namespace

void WriteNodesSheet(CReportBook& book, const CModelView& view, bool quiet)
{
    ZEK_PROFILE_SCOPE("nodes sheet");
    const CModel& model = view.Model();
    LongTableContent content;
    content.model = model.name;
    content.note = Counted(model.nodes.GetSize(), "node") + "; coordinates in the model's length unit";
    content.rows = model.nodes.GetSize();
    content.format = [&model](CReportTable& table) { SetFormats(table, model); };
    content.row = [&model](CReportTable& table, int row) { FillRow(table, model.nodes[row]); };
    WriteLongTable(book, kLayout, content, quiet);
}
