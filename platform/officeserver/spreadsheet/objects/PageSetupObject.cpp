#include "spreadsheet/objects/PageSetupObject.h"

#include "spreadsheet/model/Unicode.h"
#include "spreadsheet/objects/RangeReference.h"
#include "spreadsheet/objects/SheetsObject.h"

namespace zek::office {
namespace {

constexpr LONG kPaperA4 = 9;
constexpr LONG kMostPaper = 118;
constexpr LONG kPaperUser = 256;
constexpr double kMostMargin = 49 * kPointsPerInch;
constexpr std::size_t kLongestLine = 255;
constexpr LONG kLeastZoom = 10;
constexpr LONG kMostZoom = 400;
constexpr LONG kMostPages = 32767;

} // namespace

IDispatch* PageSetupObject::Parent()
{
    return new WorksheetObject(m_sheet);
}

double PageSetupObject::MarginFrom(const Argument& value)
{
    const double margin = value.Number();
    if (!(margin >= 0 && margin < kMostMargin))
        throw AutomationError();
    return margin;
}

std::string PageSetupObject::LineFrom(const Argument& value)
{
    std::string line = value.Text();
    if (Utf16Length(line) > kLongestLine)
        throw AutomationError();
    return line;
}

Value PageSetupObject::PagesValue(std::optional<int> pages)
{
    Value value;
    if (pages)
        StoreResult(*value, static_cast<LONG>(*pages));
    else
        StoreResult(*value, false);
    return value;
}

std::optional<int> PageSetupObject::PagesFrom(const Argument& value)
{
    const LONG pages = value.Long();
    if (pages == 0)
        return std::nullopt;
    if (value.IsBoolean() || pages < 1 || pages > kMostPages)
        throw AutomationError();
    return pages;
}

LONG PageSetupObject::PaperSize()
{
    return Page().paperSize == 0 ? kPaperA4 : Page().paperSize;
}

void PageSetupObject::SetPaperSize(const Argument& value)
{
    const LONG size = value.Long();
    if (size < 1 || (size > kMostPaper && size != kPaperUser))
        throw AutomationError();
    Page().paperSize = size;
}

LONG PageSetupObject::Orientation()
{
    return Page().landscape ? xl::kLandscape : xl::kPortrait;
}

void PageSetupObject::SetOrientation(const Argument& value)
{
    const LONG orientation = value.Long();
    if (orientation != xl::kPortrait && orientation != xl::kLandscape)
        throw AutomationError();
    Page().landscape = orientation == xl::kLandscape;
}

LONG PageSetupObject::Order()
{
    return Page().overThenDown ? xl::kOverThenDown : xl::kDownThenOver;
}

void PageSetupObject::SetOrder(const Argument& value)
{
    const LONG order = value.Long();
    if (order != xl::kDownThenOver && order != xl::kOverThenDown)
        throw AutomationError();
    Page().overThenDown = order == xl::kOverThenDown;
}

Value PageSetupObject::Zoom()
{
    return PagesValue(Page().zoom == 0 ? std::nullopt : std::optional(Page().zoom));
}

void PageSetupObject::SetZoom(const Argument& value)
{
    const LONG zoom = value.Long();
    if (zoom != 0 && (value.IsBoolean() || zoom < kLeastZoom || zoom > kMostZoom))
        throw AutomationError();
    Page().zoom = zoom;
}

LONG PageSetupObject::FirstPageNumber()
{
    return Page().firstPageNumber.value_or(xl::kAutomatic);
}

void PageSetupObject::SetFirstPageNumber(const Argument& value)
{
    const LONG number = value.Long();
    if (number == xl::kAutomatic)
        Page().firstPageNumber.reset();
    else if (number < -kMostPages || number > kMostPages)
        throw AutomationError();
    else
        Page().firstPageNumber = number;
}

// References to this sheet; an empty text is no area.
std::vector<Block> PageSetupObject::AreasFrom(const Argument& value) const
{
    const std::string text = value.Text();
    if (text.empty() || (value.IsBoolean() && !value.Flag()))
        return {};
    const CellsOfSheet cells = ResolveReference(m_sheet, text);
    if (cells.sheet != m_sheet)
        throw AutomationError();
    return cells.areas;
}

std::string PageSetupObject::PrintArea()
{
    return AreasText(Page().printArea);
}

void PageSetupObject::SetPrintArea(const Argument& value)
{
    Page().printArea = AreasFrom(value);
}

std::string PageSetupObject::PrintTitleRows()
{
    const std::optional<Span>& rows = Page().titleRows;
    return rows ? AreasText({{rows->first, 0, rows->last, kColumnCount - 1}}) : "";
}

void PageSetupObject::SetPrintTitleRows(const Argument& value)
{
    const std::vector<Block> areas = AreasFrom(value);
    if (areas.size() > 1 || (!areas.empty() && !areas[0].HasAllColumns()))
        throw AutomationError();
    Page().titleRows =
        areas.empty() ? std::nullopt : std::optional(Span{areas[0].firstRow, areas[0].lastRow});
}

std::string PageSetupObject::PrintTitleColumns()
{
    const std::optional<Span>& columns = Page().titleColumns;
    return columns ? AreasText({{0, columns->first, kRowCount - 1, columns->last}}) : "";
}

void PageSetupObject::SetPrintTitleColumns(const Argument& value)
{
    const std::vector<Block> areas = AreasFrom(value);
    if (areas.size() > 1 || (!areas.empty() && !areas[0].HasAllRows()))
        throw AutomationError();
    Page().titleColumns =
        areas.empty() ? std::nullopt : std::optional(Span{areas[0].firstColumn, areas[0].lastColumn});
}

const MemberTable& PageSetupObject::Members()
{
    using P = PageSetupObject;
    using S = zek::office::PageSetup;
    static const MemberTable table = ModelTable(
        "PageSetup",
        {
            {"LeftMargin", 0x3E7, Property<&P::GetMargin<&S::leftMargin>, &P::SetMargin<&S::leftMargin>>()},
            {"RightMargin", 0x3E8,
             Property<&P::GetMargin<&S::rightMargin>, &P::SetMargin<&S::rightMargin>>()},
            {"TopMargin", 0x3E9, Property<&P::GetMargin<&S::topMargin>, &P::SetMargin<&S::topMargin>>()},
            {"BottomMargin", 0x3EA,
             Property<&P::GetMargin<&S::bottomMargin>, &P::SetMargin<&S::bottomMargin>>()},
            {"HeaderMargin", 0x3F8,
             Property<&P::GetMargin<&S::headerMargin>, &P::SetMargin<&S::headerMargin>>()},
            {"FooterMargin", 0x3F7,
             Property<&P::GetMargin<&S::footerMargin>, &P::SetMargin<&S::footerMargin>>()},
            {"LeftHeader", 0x3FA, Property<&P::GetLine<&S::header, 0>, &P::SetLine<&S::header, 0>>()},
            {"CenterHeader", 0x3F3, Property<&P::GetLine<&S::header, 1>, &P::SetLine<&S::header, 1>>()},
            {"RightHeader", 0x402, Property<&P::GetLine<&S::header, 2>, &P::SetLine<&S::header, 2>>()},
            {"LeftFooter", 0x3F9, Property<&P::GetLine<&S::footer, 0>, &P::SetLine<&S::footer, 0>>()},
            {"CenterFooter", 0x3F2, Property<&P::GetLine<&S::footer, 1>, &P::SetLine<&S::footer, 1>>()},
            {"RightFooter", 0x401, Property<&P::GetLine<&S::footer, 2>, &P::SetLine<&S::footer, 2>>()},
            {"CenterHorizontally", 0x3ED,
             Property<&P::GetFlag<&S::centerHorizontally>, &P::SetFlag<&S::centerHorizontally>>()},
            {"CenterVertically", 0x3EE,
             Property<&P::GetFlag<&S::centerVertically>, &P::SetFlag<&S::centerVertically>>()},
            {"PrintGridlines", 0x3EC,
             Property<&P::GetFlag<&S::printGridlines>, &P::SetFlag<&S::printGridlines>>()},
            {"PrintHeadings", 0x3EB,
             Property<&P::GetFlag<&S::printHeadings>, &P::SetFlag<&S::printHeadings>>()},
            {"BlackAndWhite", 0x3F1,
             Property<&P::GetFlag<&S::blackAndWhite>, &P::SetFlag<&S::blackAndWhite>>()},
            {"Draft", 0x3FC, Property<&P::GetFlag<&S::draft>, &P::SetFlag<&S::draft>>()},
            {"FitToPagesWide", 0x3F6,
             Property<&P::GetPages<&S::fitToPagesWide>, &P::SetPages<&S::fitToPagesWide>>()},
            {"FitToPagesTall", 0x3F5,
             Property<&P::GetPages<&S::fitToPagesTall>, &P::SetPages<&S::fitToPagesTall>>()},
            {"PaperSize", 0x3EF, Property<&P::PaperSize, &P::SetPaperSize>()},
            {"Orientation", 0x86, Property<&P::Orientation, &P::SetOrientation>()},
            {"Order", 0xC0, Property<&P::Order, &P::SetOrder>()},
            {"Zoom", 0x297, Property<&P::Zoom, &P::SetZoom>()},
            {"FirstPageNumber", 0x3F0, Property<&P::FirstPageNumber, &P::SetFirstPageNumber>()},
            {"PrintArea", 0x3FB, Property<&P::PrintArea, &P::SetPrintArea>()},
            {"PrintTitleRows", 0x400, Property<&P::PrintTitleRows, &P::SetPrintTitleRows>()},
            {"PrintTitleColumns", 0x3FF, Property<&P::PrintTitleColumns, &P::SetPrintTitleColumns>()},
        });
    return table;
}

} // namespace zek::office
