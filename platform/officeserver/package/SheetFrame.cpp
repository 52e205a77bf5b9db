#include "package/SheetPart.h"

#include "package/ContentTypes.h"
#include "package/WorkbookPart.h"
#include "package/XmlText.h"

#include <algorithm>
#include <cmath>

namespace zek::office {
namespace {

constexpr double kPixelsPerDigit = 7;
constexpr int kCellPadding = 5; // pixels
constexpr unsigned kLastRow = kRowCount - 1;
constexpr unsigned kLastColumn = kColumnCount - 1;

void SetNumber(pugi::xml_node node, const char* name, double value)
{
    node.append_attribute(name) = NumberText(value).c_str();
}

void SetFlag(pugi::xml_node node, const char* name, bool differs, const char* value)
{
    if (differs)
        node.append_attribute(name) = value;
}

void AddProperties(pugi::xml_node root, const Sheet& sheet)
{
    if (sheet.page.zoom == 0)
        root.append_child("sheetPr").append_child("pageSetUpPr").append_attribute("fitToPage") = "1";
}

// Merged areas count as used, whether they hold cells or not.
Block Dimension(const Sheet& sheet)
{
    Block used = sheet.UsedBlock();
    for (const Block& area : sheet.Merges().All())
        used = used.Union(area);
    return used;
}

void AddPane(pugi::xml_node view, const SheetView& state)
{
    pugi::xml_node pane = view.append_child("pane");
    if (state.frozenColumns > 0)
        pane.append_attribute("xSplit") = state.frozenColumns;
    if (state.frozenRows > 0)
        pane.append_attribute("ySplit") = state.frozenRows;
    const Block corner = Block::Cell(std::max(state.scrollRow, state.frozenRows),
                                     std::max(state.scrollColumn, state.frozenColumns));
    pane.append_attribute("topLeftCell") = RelativeReference(corner).c_str();
}

const char* ActivePane(const SheetView& state)
{
    if (state.frozenRows > 0 && state.frozenColumns > 0)
        return "bottomRight";
    return state.frozenRows > 0 ? "bottomLeft" : "topRight";
}

void AddSelection(pugi::xml_node view, const SheetView& state)
{
    const bool frozen = state.frozenRows > 0 || state.frozenColumns > 0;
    if (state.selection == Block::Cell(0, 0) && !frozen)
        return;
    pugi::xml_node selection = view.append_child("selection");
    SetFlag(selection, "pane", frozen, ActivePane(state));
    selection.append_attribute("activeCell") =
        RelativeReference(Block::Cell(state.activeRow, state.activeColumn)).c_str();
    selection.append_attribute("sqref") = RelativeReference(state.selection).c_str();
}

void AddZoom(pugi::xml_node view, const SheetView& state)
{
    // Without these a page-break preview opens at 60 per cent.
    if (state.zoom == 100 && !state.pageBreakPreview)
        return;
    view.append_attribute("zoomScale") = state.zoom;
    view.append_attribute("zoomScaleNormal") = state.pageBreakPreview ? 100 : state.zoom;
    if (state.pageBreakPreview)
        view.append_attribute("zoomScaleSheetLayoutView") = state.zoom;
}

void AddViews(pugi::xml_node root, const SheetView& state, bool selected)
{
    pugi::xml_node view = root.append_child("sheetViews").append_child("sheetView");
    SetFlag(view, "showGridLines", !state.gridlines, "0");
    SetFlag(view, "showRowColHeaders", !state.headings, "0");
    SetFlag(view, "showZeros", !state.zeros, "0");
    SetFlag(view, "tabSelected", selected, "1");
    SetFlag(view, "view", state.pageBreakPreview, "pageBreakPreview");
    const bool frozen = state.frozenRows > 0 || state.frozenColumns > 0;
    if (!frozen && (state.scrollRow > 0 || state.scrollColumn > 0))
        view.append_attribute("topLeftCell") =
            RelativeReference(Block::Cell(state.scrollRow, state.scrollColumn)).c_str();
    AddZoom(view, state);
    view.append_attribute("workbookViewId") = "0";
    if (frozen) {
        AddPane(view, state);
        pugi::xml_node pane = view.child("pane");
        pane.append_attribute("activePane") = ActivePane(state);
        pane.append_attribute("state") = "frozen";
    }
    AddSelection(view, state);
}

void AddDefaultSizes(pugi::xml_node root, const Sheet& sheet)
{
    pugi::xml_node sizes = root.append_child("sheetFormatPr");
    if (sheet.DefaultColumnWidth() != kDefaultColumnWidth)
        SetNumber(sizes, "defaultColWidth", StoredColumnWidth(sheet.DefaultColumnWidth()));
    SetNumber(sizes, "defaultRowHeight", sheet.DefaultRowHeight());
    SetFlag(sizes, "customHeight", sheet.HasOwnDefaultRowHeight(), "1");
    SetFlag(sizes, "zeroHeight", sheet.DefaultRowHeight() == 0, "1");
}

void AddColumns(pugi::xml_node root, const Sheet& sheet, const StylesPart& styles)
{
    if (sheet.Columns().empty())
        return;
    pugi::xml_node columns = root.append_child("cols");
    for (const ColumnRun& run : sheet.Columns()) {
        pugi::xml_node column = columns.append_child("col");
        column.append_attribute("min") = run.first + 1;
        column.append_attribute("max") = run.last + 1;
        const double width = run.width < 0 ? sheet.DefaultColumnWidth() : run.width;
        SetNumber(column, "width", StoredColumnWidth(width));
        if (const unsigned format = styles.CellFormat(run.format))
            column.append_attribute("style") = format;
        SetFlag(column, "hidden", run.hidden || run.width == 0, "1");
        SetFlag(column, "customWidth", run.width >= 0, "1");
    }
}

void AddMerges(pugi::xml_node root, const Sheet& sheet)
{
    if (sheet.Merges().IsEmpty())
        return;
    pugi::xml_node merges = root.append_child("mergeCells");
    merges.append_attribute("count") = static_cast<unsigned>(sheet.Merges().Size());
    for (const Block& area : sheet.Merges().All())
        merges.append_child("mergeCell").append_attribute("ref") = RelativeReference(area).c_str();
}

void AddPrintOptions(pugi::xml_node root, const PageSetup& page)
{
    if (!page.centerHorizontally && !page.centerVertically && !page.printHeadings && !page.printGridlines)
        return;
    pugi::xml_node options = root.append_child("printOptions");
    SetFlag(options, "horizontalCentered", page.centerHorizontally, "1");
    SetFlag(options, "verticalCentered", page.centerVertically, "1");
    SetFlag(options, "headings", page.printHeadings, "1");
    SetFlag(options, "gridLines", page.printGridlines, "1");
}

void AddMargins(pugi::xml_node root, const PageSetup& page)
{
    pugi::xml_node margins = root.append_child("pageMargins");
    SetNumber(margins, "left", page.leftMargin / kPointsPerInch);
    SetNumber(margins, "right", page.rightMargin / kPointsPerInch);
    SetNumber(margins, "top", page.topMargin / kPointsPerInch);
    SetNumber(margins, "bottom", page.bottomMargin / kPointsPerInch);
    SetNumber(margins, "header", page.headerMargin / kPointsPerInch);
    SetNumber(margins, "footer", page.footerMargin / kPointsPerInch);
}

void AddFitToPages(pugi::xml_node setup, const PageSetup& page)
{
    // 0 stands for "as many as it takes"; 1 is what a reader assumes.
    if (page.fitToPagesWide != 1)
        setup.append_attribute("fitToWidth") = page.fitToPagesWide.value_or(0);
    if (page.fitToPagesTall != 1)
        setup.append_attribute("fitToHeight") = page.fitToPagesTall.value_or(0);
}

void AddPageSetup(pugi::xml_node root, const PageSetup& page)
{
    pugi::xml_node setup = root.append_child("pageSetup");
    if (page.paperSize > 0)
        setup.append_attribute("paperSize") = page.paperSize;
    if (page.zoom != 100 && page.zoom != 0)
        setup.append_attribute("scale") = page.zoom;
    if (page.firstPageNumber)
        setup.append_attribute("firstPageNumber") = *page.firstPageNumber;
    if (page.zoom == 0)
        AddFitToPages(setup, page);
    SetFlag(setup, "pageOrder", page.overThenDown, "overThenDown");
    const bool asked = setup.first_attribute() || page.landscape || page.blackAndWhite || page.draft;
    SetFlag(setup, "orientation", asked, page.landscape ? "landscape" : "portrait");
    SetFlag(setup, "blackAndWhite", page.blackAndWhite, "1");
    SetFlag(setup, "draft", page.draft, "1");
    SetFlag(setup, "useFirstPageNumber", page.firstPageNumber.has_value(), "1");
    if (!setup.first_attribute())
        root.remove_child(setup);
}

std::string JoinSections(const std::array<std::string, 3>& sections)
{
    constexpr const char* kMarks[] = {"&L", "&C", "&R"};
    std::string text;
    for (std::size_t i = 0; i < sections.size(); ++i)
        if (!sections[i].empty())
            text += kMarks[i] + sections[i];
    return text;
}

void AddHeaderFooter(pugi::xml_node root, const PageSetup& page)
{
    const std::string header = JoinSections(page.header), footer = JoinSections(page.footer);
    if (header.empty() && footer.empty())
        return;
    pugi::xml_node both = root.append_child("headerFooter");
    if (!header.empty())
        both.append_child("oddHeader").text() = StoredText(header).c_str();
    if (!footer.empty())
        both.append_child("oddFooter").text() = StoredText(footer).c_str();
}

void AddBreaks(pugi::xml_node root, const char* name, const std::set<std::uint32_t>& breaks, unsigned last)
{
    if (breaks.empty())
        return;
    pugi::xml_node list = root.append_child(name);
    list.append_attribute("count") = static_cast<unsigned>(breaks.size());
    list.append_attribute("manualBreakCount") = static_cast<unsigned>(breaks.size());
    for (std::uint32_t position : breaks) {
        pugi::xml_node node = list.append_child("brk");
        node.append_attribute("id") = position;
        node.append_attribute("max") = last;
        node.append_attribute("man") = "1";
    }
}

} // namespace

double StoredColumnWidth(double characters)
{
    // Below one character the padding shrinks with the width.
    const double pixels = characters < 1 ? std::floor(characters * (kPixelsPerDigit + kCellPadding) + 0.5)
                                         : std::floor(characters * kPixelsPerDigit + 0.5) + kCellPadding;
    return std::floor(pixels / kPixelsPerDigit * 256) / 256;
}

// The order of the elements is the schema's.
void BuildSheetFrame(pugi::xml_document& document, const Sheet& sheet, const StylesPart& styles,
                     bool selected)
{
    pugi::xml_node root = document.append_child("worksheet");
    root.append_attribute("xmlns") = kSheetNamespace;
    root.append_attribute("xmlns:r") = kRelationNamespace;
    AddProperties(root, sheet);
    root.append_child("dimension").append_attribute("ref") = RelativeReference(Dimension(sheet)).c_str();
    AddViews(root, sheet.view, selected);
    AddDefaultSizes(root, sheet);
    AddColumns(root, sheet, styles);
    root.append_child("sheetData");
    AddMerges(root, sheet);
    AddPrintOptions(root, sheet.page);
    AddMargins(root, sheet.page);
    AddPageSetup(root, sheet.page);
    AddHeaderFooter(root, sheet.page);
    AddBreaks(root, "rowBreaks", sheet.rowBreaks, kLastColumn);
    AddBreaks(root, "colBreaks", sheet.columnBreaks, kLastRow);
}

} // namespace zek::office
