#include "ReportSheets.h"

#include "NumberFormat.h"
#include "Remarks.h"
#include "ReportTable.h"
#include "TextLines.h"

namespace {

constexpr double kWidths[] = {14, 22, 18, 11, 11, 18, 28};
constexpr int kColumns = 7;

// ---- the model

constexpr Field kModelFields[] = {
    {"Item", 0, 1, kTextField},
    {"Count", 2, 2, kNumberField},
    {"Ranges", 3, 6, kTextField},
};

struct ModelRow {
    LPCSTR item;
    int count;
    CString ranges;
};

using ModelRows = CArray<ModelRow, const ModelRow&>;

int CountSets(const CModel& model, SetKind kind)
{
    int count = 0;
    for (int i = 0; i < model.sets.GetSize(); ++i)
        count += model.sets[i]->kind == kind;
    return count;
}

// One row, or several when the ranges do not fit in one.
void AddRow(ModelRows& rows, LPCSTR item, CArray<UINT, UINT>& numbers)
{
    CStringArray pieces;
    SplitForRows(Ranges(numbers), static_cast<int>(kWidths[3] + kWidths[4] + kWidths[5] + kWidths[6]) - 1,
                 pieces);
    for (int i = 0; i < pieces.GetSize(); ++i)
        rows.Add({i == 0 ? item : "", numbers.GetSize(), pieces[i]});
}

void GatherModel(const CModelView& view, ModelRows& rows)
{
    const CModel& model = view.Model();
    CArray<UINT, UINT> numbers;
    view.NodeNumbers(numbers);
    AddRow(rows, "Nodes", numbers);
    NumbersOf(model.elements, numbers);
    AddRow(rows, "Elements", numbers);
    if (!view.Selection().IsEmpty()) {
        view.ElementNumbers(numbers);
        AddRow(rows, "Selected elements", numbers);
    }
    rows.Add({"Node sets", CountSets(model, kNodeSet), ""});
    rows.Add({"Element sets", CountSets(model, kElementSet), ""});
    rows.Add({"Sections", model.sections.GetSize(), ""});
    rows.Add({"Materials", model.materials.GetSize(), ""});
}

void WriteModel(CReportSheet& sheet, const CModelView& view)
{
    ModelRows rows;
    GatherModel(view, rows);
    sheet.SectionTitle("Model");
    CReportTable table(sheet, kModelFields, 3);
    table.Headings();
    table.Begin(rows.GetSize());
    table.SetNumberFormat(1, "0");
    for (int i = 0; i < rows.GetSize(); ++i) {
        table.Text(0, rows[i].item);
        if (*rows[i].item)
            table.Number(1, rows[i].count);
        table.Text(2, rows[i].ranges);
        table.NextRow();
    }
    table.End();
}

// ---- measures

constexpr Field kMeasureFields[] = {
    {"Measure", 0, 1, kTextField},
    {"Total", 2, 2, kNumberField},
    {"Elements", 3, 4, kNumberField},
};

struct MeasureRow {
    MeasureKind kind;
    LPCSTR title;
};

constexpr MeasureRow kMeasureRows[] = {
    {kVolume, "Volume of solids"},
    {kArea, "Area of surfaces"},
    {kLength, "Length of lines"},
    {kNoMeasure, "Not measured"},
};

int CountMeasured(const CModelView& view, MeasureKind kind)
{
    int count = 0;
    for (int i = 0; i < view.Groups().GetSize(); ++i)
        if (view.Model().types[view.Groups()[i].type].shape.measure == kind)
            count += view.Groups()[i].count;
    return count;
}

void WriteMeasures(CReportSheet& sheet, const CModelView& view)
{
    sheet.SectionTitle(view.Selection().IsEmpty() ? "Measures" : "Measures of the selected elements");
    CReportTable table(sheet, kMeasureFields, 3);
    table.Headings();
    table.Begin(4);
    table.SetNumberFormat(2, "0");
    for (const MeasureRow& row : kMeasureRows) {
        table.Text(0, row.title);
        if (row.kind != kNoMeasure)
            table.FormattedNumber(1, view.Totals().sums[row.kind]);
        table.Number(2, CountMeasured(view, row.kind));
        table.NextRow();
    }
    table.End();
}

// ---- bounds

constexpr Field kBoundsFields[] = {
    {"Bounds", 0, 1, kTextField},
    {"X", 2, 2, kNumberField},
    {"Y", 3, 4, kNumberField},
    {"Z", 5, 5, kNumberField},
};

void WriteBounds(CReportSheet& sheet, const CModelView& view)
{
    constexpr LPCSTR kTitles[] = {"Lowest", "Highest", "Extent"};
    const double* bounds = view.Bounds();
    sheet.SectionTitle("Bounds of all nodes");
    CReportTable table(sheet, kBoundsFields, 4);
    table.Headings();
    table.Begin(3);
    for (int row = 0; row < 3; ++row) {
        table.Text(0, kTitles[row]);
        for (int axis = 0; axis < 3; ++axis)
            table.FormattedNumber(axis + 1,
                                  row == 2 ? bounds[axis + 3] - bounds[axis] : bounds[row * 3 + axis]);
        table.NextRow();
    }
    table.End();
}

// ---- element types

constexpr Field kGroupFields[] = {
    {"Type", 0, 0, kTextField},       {"Section", 1, 1, kTextField}, {"Material", 2, 2, kTextField},
    {"Elements", 3, 3, kNumberField}, {"Measure", 4, 4, kTextField}, {"Total", 5, 5, kNumberField},
    {"Ranges", 6, 6, kTextField},
};
enum { kType, kSection, kMaterial, kCount, kMeasure, kTotal, kRanges };

void NumbersOfGroup(const CModelView& view, const ElementGroup& group, CArray<UINT, UINT>& numbers)
{
    numbers.RemoveAll();
    for (int i = 0; i < view.ElementCount(); ++i) {
        const ElementRecord& element = view.Element(i);
        if (element.type == group.type && element.section == group.section)
            numbers.Add(element.number);
    }
}

void FillGroup(CReportTable& table, const CModelView& view, const ElementGroup& group, const CString& ranges)
{
    const CModel& model = view.Model();
    const TypeRecord& type = model.types[group.type];
    table.Text(kType, type.name);
    table.Text(kSection, SectionName(model, group.section));
    table.Text(kMaterial, group.section == kNone ? CString() : model.sections[group.section].material);
    table.Number(kCount, group.count);
    table.Text(kMeasure, MeasureName(type.shape.measure));
    if (type.shape.measure != kNoMeasure)
        table.FormattedNumber(kTotal, group.sum);
    table.Text(kRanges, ranges);
}

struct GroupRow {
    int group; // kNone: the ranges of the row above go on
    CString ranges;
};

using GroupRows = CArray<GroupRow, const GroupRow&>;

void GatherGroups(const CModelView& view, GroupRows& rows)
{
    CArray<UINT, UINT> numbers;
    CStringArray pieces;
    for (int i = 0; i < view.Groups().GetSize(); ++i) {
        NumbersOfGroup(view, view.Groups()[i], numbers);
        SplitForRows(Ranges(numbers), static_cast<int>(kWidths[kRanges]) - 1, pieces);
        for (int piece = 0; piece < pieces.GetSize(); ++piece)
            rows.Add({piece == 0 ? i : kNone, pieces[piece]});
    }
}

void WriteGroups(CReportSheet& sheet, const CModelView& view)
{
    GroupRows rows;
    GatherGroups(view, rows);
    sheet.SectionTitle("Element types by section and material");
    CReportTable table(sheet, kGroupFields, 7);
    table.Headings();
    table.Begin(rows.GetSize());
    table.SetNumberFormat(kCount, "0");
    for (int i = 0; i < rows.GetSize(); ++i) {
        if (rows[i].group == kNone)
            table.Text(kRanges, rows[i].ranges);
        else
            FillGroup(table, view, view.Groups()[rows[i].group], rows[i].ranges);
        table.NextRow();
    }
    table.End();
}

// ---- remarks

void WriteRemarks(CReportSheet& sheet, const CModelView& view)
{
    CStringArray remarks;
    GatherRemarks(view, remarks);
    if (remarks.IsEmpty())
        return;
    sheet.SectionTitle("Remarks");
    for (int i = 0; i < remarks.GetSize(); ++i)
        sheet.Note(remarks[i]);
}

} // namespace

void WriteSummarySheet(CReportBook& book, const CModelView& view)
{
    book.AddReportSheet("Summary", xlPortrait, view.Model().name);
    CReportSheet sheet(book, kWidths, kColumns);
    sheet.Title("Finite-element model " + view.Model().name);
    sheet.Subtitle(view.Model().heading);
    WriteModel(sheet, view);
    WriteMeasures(sheet, view);
    WriteBounds(sheet, view);
    WriteGroups(sheet, view);
    WriteRemarks(sheet, view);
}
