#include "spreadsheet/objects/PageBreaksObject.h"

#include "spreadsheet/objects/Enumerator.h"
#include "spreadsheet/objects/RangeObject.h"
#include "spreadsheet/objects/SheetsObject.h"

#include <algorithm>

namespace zek::office {
namespace {

struct Paper {
    int number;
    double width; // points, upright
    double height;
};

constexpr Paper kPapers[] = {
    {1, 612, 792},         // Letter
    {3, 792, 1224},        // Tabloid
    {5, 612, 1008},        // Legal
    {7, 522, 756},         // Executive
    {8, 841.89, 1190.55},  // A3
    {9, 595.28, 841.89},   // A4
    {11, 419.53, 595.28},  // A5
    {12, 728.50, 1031.81}, // B4
    {13, 515.91, 728.50},  // B5
    {14, 612, 936},        // Folio
};
constexpr int kA4 = 9;

// What one page holds of the sheet, in points of the sheet.
double PageExtent(const PageSetup& page, PageBreakKind kind)
{
    const auto find = [](int number) { return std::ranges::find(kPapers, number, &Paper::number); };
    auto paper = find(page.paperSize);
    if (paper == std::end(kPapers))
        paper = find(kA4);
    const bool rows = kind == PageBreakKind::Rows;
    const double edge = rows == page.landscape ? paper->width : paper->height;
    const double margins = rows ? page.topMargin + page.bottomMargin : page.leftMargin + page.rightMargin;
    return (edge - margins) * 100 / page.zoom;
}

double SizeOf(const Sheet& sheet, PageBreakKind kind, std::uint32_t at)
{
    return kind == PageBreakKind::Rows ? sheet.RowHeight(at) : sheet.ColumnsPoints(at, at);
}

double TitleSize(const Sheet& sheet, PageBreakKind kind)
{
    const std::optional<Span>& titles =
        kind == PageBreakKind::Rows ? sheet.page.titleRows : sheet.page.titleColumns;
    if (!titles)
        return 0;
    return kind == PageBreakKind::Rows ? sheet.RowsPoints(titles->first, titles->last)
                                       : sheet.ColumnsPoints(titles->first, titles->last);
}

Span PrintedSpan(const Sheet& sheet, PageBreakKind kind)
{
    const Block printed = sheet.page.printArea.empty()
                              ? Block{0, 0, sheet.UsedBlock().lastRow, sheet.UsedBlock().lastColumn}
                              : sheet.page.printArea.front();
    return kind == PageBreakKind::Rows ? Span{printed.firstRow, printed.lastRow}
                                       : Span{printed.firstColumn, printed.lastColumn};
}

} // namespace

std::vector<PagePlace> PagePlaces(const Sheet& sheet, PageBreakKind kind)
{
    const std::set<std::uint32_t>& manual =
        kind == PageBreakKind::Rows ? sheet.rowBreaks : sheet.columnBreaks;
    std::vector<PagePlace> places;
    for (const std::uint32_t at : manual)
        places.push_back({at, true});
    const Span span = PrintedSpan(sheet, kind);
    const double extent = sheet.page.zoom == 0 ? 0 : PageExtent(sheet.page, kind);
    if (extent <= 0)
        return places;
    const double titles = TitleSize(sheet, kind);
    double used = 0;
    for (std::uint32_t at = span.first; at <= span.last; ++at) {
        const double size = SizeOf(sheet, kind, at);
        const bool broken = manual.contains(at);
        if (at > span.first && !broken && used + size > extent) {
            places.push_back({at, false});
            used = titles;
        } else if (broken) {
            used = titles;
        }
        used += size;
    }
    std::ranges::sort(places, {}, &PagePlace::at);
    return places;
}

IDispatch* PageBreakObject::Parent()
{
    return new WorksheetObject(m_sheet);
}

std::set<std::uint32_t>& PageBreakObject::Manual() const
{
    return m_kind == PageBreakKind::Rows ? Live(m_sheet).rowBreaks : Live(m_sheet).columnBreaks;
}

IDispatch* PageBreakObject::Location()
{
    Live(m_sheet);
    return new RangeObject(m_sheet,
                           m_kind == PageBreakKind::Rows ? Block::Cell(m_at, 0) : Block::Cell(0, m_at));
}

void PageBreakObject::SetLocation(const Argument& value)
{
    const RangeObject* const range = RangeObject::From(value.Object());
    if (!range)
        value.Refuse();
    const Block first = range->Areas().front();
    const std::uint32_t at = m_kind == PageBreakKind::Rows ? first.firstRow : first.firstColumn;
    if (at == 0 || range->TheSheet() != m_sheet)
        throw AutomationError();
    Manual().erase(m_at);
    Manual().insert(at);
    m_at = at;
}

LONG PageBreakObject::Type()
{
    return Manual().contains(m_at) ? xl::kPageBreakManual : xl::kAutomatic;
}

void PageBreakObject::SetType(const Argument& value)
{
    const LONG type = value.Long();
    if (type == xl::kPageBreakManual)
        Manual().insert(m_at);
    else if (type == xl::kAutomatic || type == xl::kNone)
        Manual().erase(m_at);
    else
        throw AutomationError();
}

void PageBreakObject::Delete()
{
    if (Manual().erase(m_at) == 0)
        throw AutomationError();
}

const MemberTable& PageBreakObject::Members(PageBreakKind kind)
{
    using P = PageBreakObject;
    static const std::vector<Member> members = {
        {"Location", 0x575, Property<&P::Location, &P::SetLocation>()},
        {"Type", 0x6C, Property<&P::Type, &P::SetType>()},
        {"Delete", 0x75, Call<&P::Delete>()},
    };
    static const MemberTable rows = ModelTable("HPageBreak", members);
    static const MemberTable columns = ModelTable("VPageBreak", members);
    return kind == PageBreakKind::Rows ? rows : columns;
}

IDispatch* PageBreaksObject::Parent()
{
    return new WorksheetObject(m_sheet);
}

IDispatch* PageBreaksObject::Add(const Arguments& arguments)
{
    const RangeObject* const before = RangeObject::From(arguments[0].Object());
    if (!before)
        arguments[0].Refuse();
    Sheet& sheet = Live(m_sheet);
    const Block first = before->Areas().front();
    const bool rows = m_kind == PageBreakKind::Rows;
    const std::uint32_t at = rows ? first.firstRow : first.firstColumn;
    if (at == 0 || before->TheSheet() != m_sheet)
        throw AutomationError();
    (rows ? sheet.rowBreaks : sheet.columnBreaks).insert(at);
    return new PageBreakObject(m_sheet, m_kind, at);
}

IDispatch* PageBreaksObject::Item(const Arguments& index)
{
    const std::vector<PagePlace> places = PagePlaces(Live(m_sheet), m_kind);
    const LONG number = index[0].Long();
    if (number < 1 || static_cast<std::size_t>(number) > places.size())
        throw AutomationError::BadIndex();
    return new PageBreakObject(m_sheet, m_kind, places[static_cast<std::size_t>(number) - 1].at);
}

LONG PageBreaksObject::Count()
{
    return static_cast<LONG>(PagePlaces(Live(m_sheet), m_kind).size());
}

IUnknown* PageBreaksObject::NewEnum()
{
    const std::vector<PagePlace> places = PagePlaces(Live(m_sheet), m_kind);
    return new Enumerator(places.size(),
                          [sheet = m_sheet, kind = m_kind, places](std::uint64_t index) -> IDispatch* {
                              return new PageBreakObject(sheet, kind, places[index].at);
                          });
}

const MemberTable& PageBreaksObject::Members(PageBreakKind kind)
{
    using P = PageBreaksObject;
    static const std::vector<Member> members = {
        {"Add", 0xB5, Call<&P::Add>(1, 1)},
        {"Item", 0xAA, Get<&P::Item>(1, 1)},
        {"_Default", 0x0, Get<&P::Item>(1, 1)},
        {"Count", 0x76, Get<&P::Count>()},
        {"_NewEnum", DISPID_NEWENUM, Get<&P::NewEnum>()},
    };
    static const MemberTable rows = ModelTable("HPageBreaks", members);
    static const MemberTable columns = ModelTable("VPageBreaks", members);
    return kind == PageBreakKind::Rows ? rows : columns;
}

} // namespace zek::office
