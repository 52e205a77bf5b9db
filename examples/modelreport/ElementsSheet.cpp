#include "ReportSheets.h"

#include "Console.h"
#include "LongTable.h"
#include "NumberFormat.h"

namespace {

constexpr double kWidths[] = {12, 12, 26, 66, 20};
constexpr Field kFields[] = {
    {"Element", 0, 0, kNumberField}, {"Type", 1, 1, kTextField},      {"Section", 2, 2, kTextField},
    {"Nodes", 3, 3, kTextField},     {"Measure", 4, 4, kNumberField},
};
enum { kNumber, kType, kSection, kNodes, kMeasure };
constexpr LongTable kLayout = {"Elements", xlLandscape, kWidths, kFields, 5};

CString NodesOf(const CModel& model, const ElementRecord& element)
{
    CString nodes;
    for (int i = 0; i < element.nodeCount; ++i)
        nodes.AppendFormat(i == 0 ? "%u" : " %u", model.NodeOf(element, i));
    return nodes;
}

void FillRow(CReportTable& table, const CModelView& view, int index)
{
    const ElementRecord& element = view.Element(index);
    table.Number(kNumber, element.number);
    table.Text(kType, view.TypeOf(index).name);
    table.Text(kSection, SectionName(view.Model(), element.section));
    table.Text(kNodes, NodesOf(view.Model(), element));
    if (view.TypeOf(index).shape.measure != kNoMeasure)
        table.Number(kMeasure, view.Measure(index));
}

void SetFormats(CReportTable& table, const CModelView& view)
{
    CMagnitudes magnitudes;
    for (int i = 0; i < view.ElementCount(); ++i)
        magnitudes.Add(view.Measure(i));
    table.SetNumberFormat(kNumber, "0");
    table.SetNumberFormat(kMeasure, magnitudes.Format());
}

CString Note(const CModelView& view)
{
    CString note = Counted(view.ElementCount(), "element");
    if (!view.Selection().IsEmpty())
        note += " (selected: " + view.Selection() + ")";
    return note + "; measure: volume of solids, area of surfaces, length of lines, by corner nodes";
}

} // namespace

CString SectionName(const CModel& model, int section)
{
    if (section == kNone)
        return "";
    return CString(model.sections[section].kind) + " " + model.sections[section].elementSet;
}

void WriteElementsSheet(CReportBook& book, const CModelView& view, bool quiet)
{
    ZEK_PROFILE_SCOPE("elements sheet");
    LongTableContent content;
    content.model = view.Model().name;
    content.note = Note(view);
    content.rows = view.ElementCount();
    content.format = [&view](CReportTable& table) { SetFormats(table, view); };
    content.row = [&view](CReportTable& table, int row) { FillRow(table, view, row); };
    WriteLongTable(book, kLayout, content, quiet);
}
