#include "ReportSheets.h"

#include "CountedTable.h"
#include "NumberFormat.h"
#include "Remarks.h"
#include "SummaryGeometry.h"

namespace {

constexpr double kWidths[] = {16, 26, 20, 13, 13, 22};
constexpr int kColumns = 6;
constexpr double kRangesWidth = kWidths[3] + kWidths[4] + kWidths[5];

// ---- the model

constexpr Field kModelFields[] = {
    {"Item", 0, 1, kTextField},
    {"Count", 2, 2, kNumberField},
    {"Ranges, names", 3, 5, kTextField},
};

int CountSets(const CModel& model, SetKind kind)
{
    int count = 0;
    for (int i = 0; i < model.sets.GetSize(); ++i)
        count += model.sets[i]->kind == kind;
    return count;
}

CString MaterialNames(const CModel& model)
{
    CString names;
    for (int i = 0; i < model.materials.GetSize(); ++i)
        names += (i == 0 ? "" : ", ") + model.materials[i];
    return names;
}

void GatherModel(const CModelView& view, CountedRows& rows)
{
    const CModel& model = view.Model();
    CArray<UINT, UINT> numbers;
    view.NodeNumbers(numbers);
    AddCounted(rows, "Nodes", numbers, kRangesWidth);
    NumbersOf(model.elements, numbers);
    AddCounted(rows, "Elements", numbers, kRangesWidth);
    if (!view.Selection().IsEmpty()) {
        view.ElementNumbers(numbers);
        AddCounted(rows, "Selected elements", numbers, kRangesWidth);
    }
    AddCounted(rows, "Node sets", CountSets(model, kNodeSet), "", kRangesWidth);
    AddCounted(rows, "Element sets", CountSets(model, kElementSet), "", kRangesWidth);
    AddCounted(rows, "Sections", model.sections.GetSize(), "", kRangesWidth);
    AddCounted(rows, "Materials", model.materials.GetSize(), MaterialNames(model), kRangesWidth);
}

void WriteModel(CReportSheet& sheet, const CModelView& view)
{
    CountedRows rows;
    GatherModel(view, rows);
    sheet.SectionTitle("Model");
    CReportTable table(sheet, kModelFields, 3);
    WriteCounted(table, rows);
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
            table.FormattedNumber(1, view.Totals().sums[row.kind], FormatFor(view.Totals().sums[row.kind]));
        table.Number(2, CountMeasured(view, row.kind));
        table.NextRow();
    }
    table.End();
}

// ---- element types

constexpr Field kTypeFields[] = {
    {"Type", 0, 1, kTextField},
    {"Elements", 2, 2, kNumberField},
    {"Ranges", 3, 5, kTextField},
};

void WriteTypes(CReportSheet& sheet, const CModelView& view)
{
    CountedRows rows;
    CArray<UINT, UINT> numbers;
    for (int i = 0; i < view.Types().GetSize(); ++i) {
        view.NumbersOfType(view.Types()[i], numbers);
        AddCounted(rows, view.Model().types[view.Types()[i]].name, numbers, kRangesWidth);
    }
    sheet.SectionTitle("Element types");
    CReportTable table(sheet, kTypeFields, 3);
    WriteCounted(table, rows);
}

constexpr Field kGroupFields[] = {
    {"Type", 0, 0, kTextField},       {"Section", 1, 1, kTextField}, {"Material", 2, 2, kTextField},
    {"Elements", 3, 3, kNumberField}, {"Measure", 4, 4, kTextField}, {"Total", 5, 5, kNumberField},
};
enum { kType, kSection, kMaterial, kCount, kMeasure, kTotal };

void FillGroup(CReportTable& table, const CModelView& view, const ElementGroup& group)
{
    const CModel& model = view.Model();
    const TypeRecord& type = model.types[group.type];
    table.Text(kType, type.name);
    table.Text(kSection, SectionName(model, group.section));
    table.Text(kMaterial, group.section == kNone ? CString() : model.sections[group.section].material);
    table.Number(kCount, group.count);
    table.Text(kMeasure, MeasureName(type.shape.measure));
    if (type.shape.measure != kNoMeasure)
        table.FormattedNumber(kTotal, group.sum, FormatFor(group.sum));
}

void WriteGroups(CReportSheet& sheet, const CModelView& view)
{
    sheet.SectionTitle("Element types by section and material");
    CReportTable table(sheet, kGroupFields, 6);
    table.Headings();
    table.Begin(view.Groups().GetSize());
    table.SetNumberFormat(kCount, "0");
    for (int i = 0; i < view.Groups().GetSize(); ++i) {
        FillGroup(table, view, view.Groups()[i]);
        table.NextRow();
    }
    table.End();
}

// ---- the section plane

void WriteCut(CReportSheet& sheet, const CModelView& view, const CPlaneCut& cut)
{
    constexpr Field kFields[] = {
        {"Elements", 0, 1, kTextField}, {"Count", 2, 2, kNumberField}, {"Ranges", 3, 5, kTextField}};
    CountedRows rows;
    CArray<UINT, UINT> numbers;
    cut.Numbers(view, true, numbers);
    AddCounted(rows, "Cut by the plane", numbers, kRangesWidth);
    cut.Numbers(view, false, numbers);
    AddCounted(rows, "Touched only", numbers, kRangesWidth);
    sheet.SectionTitle("Section plane " + PlaneText(cut.SectionPlane()));
    CReportTable table(sheet, kFields, 3);
    WriteCounted(table, rows);
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

void WriteSummarySheet(CReportBook& book, const CModelView& view, const CPlaneCut* cut)
{
    ZEK_PROFILE_SCOPE("summary sheet");
    book.AddReportSheet("Summary", xlPortrait, view.Model().name);
    CReportSheet sheet(book, kWidths, kColumns);
    sheet.Title("Finite-element model " + view.Model().name);
    sheet.Subtitle(view.Model().heading);
    WriteModel(sheet, view);
    WriteMeasures(sheet, view);
    WriteCentroids(sheet, view);
    WriteBounds(sheet, view);
    WriteBoundingSolids(sheet, view);
    if (cut)
        WriteCut(sheet, view, *cut);
    WriteGroups(sheet, view);
    WriteTypes(sheet, view);
    WriteRemarks(sheet, view);
}
