#include "ReportSheets.h"

#include "Console.h"
#include "LongTable.h"
#include "NumberFormat.h"

namespace {

constexpr double kWidths[] = {12, 12, 26, 14, 22, 22};
constexpr Field kFields[] = {
    {"Element", 0, 0, kNumberField},       {"Type", 1, 1, kTextField},
    {"Section", 2, 2, kTextField},         {"Plane", 3, 3, kTextField},
    {"From distance", 4, 4, kNumberField}, {"To distance", 5, 5, kNumberField},
};
enum { kNumber, kType, kSection, kMeets, kLowest, kHighest };
constexpr LongTable kLayout = {"Cut", xlLandscape, kWidths, kFields, 6};

void FillRow(CReportTable& table, const CModelView& view, const MetElement& met)
{
    const ElementRecord& element = view.Element(met.index);
    table.Number(kNumber, element.number);
    table.Text(kType, view.TypeOf(met.index).name);
    table.Text(kSection, SectionName(view.Model(), element.section));
    table.Text(kMeets, met.cut ? "cuts" : "touches");
    table.Number(kLowest, met.lowest);
    table.Number(kHighest, met.highest);
}

void SetFormats(CReportTable& table, const CPlaneCut& cut)
{
    CMagnitudes magnitudes;
    for (int i = 0; i < cut.Elements().GetSize(); ++i) {
        magnitudes.Add(cut.Elements()[i].lowest);
        magnitudes.Add(cut.Elements()[i].highest);
    }
    table.SetNumberFormat(kNumber, "0");
    table.SetNumberFormat(kLowest, magnitudes.Format());
    table.SetNumberFormat(kHighest, magnitudes.Format());
}

} // namespace

CString PlaneText(const Plane& plane)
{
    const struct {
        double coefficient;
        LPCSTR unknown;
    } terms[] = {{plane.a, " x"}, {plane.b, " y"}, {plane.c, " z"}, {plane.d, ""}};
    CString text;
    for (const auto& [coefficient, unknown] : terms) {
        if (coefficient == 0)
            continue;
        const bool negative = coefficient < 0;
        text += text.IsEmpty() ? (negative ? "-" : "") : negative ? " - " : " + ";
        text += NumberText(negative ? -coefficient : coefficient) + unknown;
    }
    return text + " = 0";
}

void WriteCutSheet(CReportBook& book, const CModelView& view, const CPlaneCut& cut, bool quiet)
{
    LongTableContent content;
    content.model = view.Model().name;
    content.note = "plane " + PlaneText(cut.SectionPlane()) +
                   "; distances of an element's nodes from it, positive on the normal's side";
    content.rows = cut.Elements().GetSize();
    content.format = [&cut](CReportTable& table) { SetFormats(table, cut); };
    content.row = [&](CReportTable& table, int row) { FillRow(table, view, cut.Elements()[row]); };
    WriteLongTable(book, kLayout, content, quiet);
}
