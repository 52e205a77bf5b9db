#include "ReportSheets.h"

#include "NumberFormat.h"
#include "Remarks.h"
#include "ReportTable.h"
#include "TextLines.h"

namespace {

constexpr double kWidths[] = {16, 26, 20, 13, 13, 22};
constexpr int kColumns = 6;
constexpr double kRangesWidth = kWidths[3] + kWidths[4] + kWidths[5];

// ---- tables of counted things

struct CountedRow {
    CString item; // "": the text of the row above goes on
    int count;
    CString text;
};

using CountedRows = CArray<CountedRow, const CountedRow&>;

// One row, or several when the text does not fit in one.
void AddRow(CountedRows& rows, const CString& item, int count, const CString& text)
{
    CStringArray pieces;
    SplitForRows(text, kRangesWidth, pieces);
    for (int i = 0; i < pieces.GetSize(); ++i)
        rows.Add({i == 0 ? item : CString(), count, pieces[i]});
}

void AddRow(CountedRows& rows, const CString& item, CArray<UINT, UINT>& numbers)
{
    AddRow(rows, item, numbers.GetSize(), Ranges(numbers));
}

void WriteRows(CReportTable& table, const CountedRows& rows)
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
    AddRow(rows, "Nodes", numbers);
    NumbersOf(model.elements, numbers);
    AddRow(rows, "Elements", numbers);
    if (!view.Selection().IsEmpty()) {
        view.ElementNumbers(numbers);
        AddRow(rows, "Selected elements", numbers);
    }
    AddRow(rows, "Node sets", CountSets(model, kNodeSet), "");
    AddRow(rows, "Element sets", CountSets(model, kElementSet), "");
    AddRow(rows, "Sections", model.sections.GetSize(), "");
    AddRow(rows, "Materials", model.materials.GetSize(), MaterialNames(model));
}

void WriteModel(CReportSheet& sheet, const CModelView& view)
{
    CountedRows rows;
    GatherModel(view, rows);
    sheet.SectionTitle("Model");
    CReportTable table(sheet, kModelFields, 3);
    WriteRows(table, rows);
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

// ---- bounds

constexpr Field kBoundsFields[] = {
    {"Bounds", 0, 0, kTextField},
    {"X", 1, 1, kNumberField},
    {"Y", 2, 2, kNumberField},
    {"Z", 3, 4, kNumberField},
};

// Lowest, highest and extent along an axis.
void WriteBound(CReportTable& table, const double* bounds, int row, int axis)
{
    const double values[] = {bounds[axis], bounds[axis + 3], bounds[axis + 3] - bounds[axis]};
    CMagnitudes magnitudes;
    for (const double value : values)
        magnitudes.Add(value);
    table.FormattedNumber(axis + 1, values[row], magnitudes.Format());
}

void WriteBounds(CReportSheet& sheet, const CModelView& view)
{
    constexpr LPCSTR kTitles[] = {"Lowest", "Highest", "Extent"};
    sheet.SectionTitle("Bounds of all nodes");
    CReportTable table(sheet, kBoundsFields, 4);
    table.Headings();
    table.Begin(3);
    for (int row = 0; row < 3; ++row) {
        table.Text(0, kTitles[row]);
        for (int axis = 0; axis < 3; ++axis)
            WriteBound(table, view.Bounds(), row, axis);
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
        AddRow(rows, view.Model().types[view.Types()[i]].name, numbers);
    }
    sheet.SectionTitle("Element types");
    CReportTable table(sheet, kTypeFields, 3);
    WriteRows(table, rows);
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
    WriteTypes(sheet, view);
    WriteRemarks(sheet, view);
}
