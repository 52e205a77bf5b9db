// Range: sizes, merging, inserting, deleting, copying.
#include "spreadsheet/Constants.h"
#include "spreadsheet/objects/RangeObject.h"

#include <algorithm>
#include <cmath>

namespace zek::office {
namespace {

const char* const kPartOfMerge = "Cannot change part of a merged cell.";

// What is common to the items from first to last; steps over long stretches where nothing was ever set.
template <class Read>
std::optional<double> CommonSize(std::uint32_t first, std::uint32_t last, Read&& read)
{
    const double size = read(first);
    for (std::uint32_t i = first + 1; i <= last; ++i)
        if (read(i) != size)
            return std::nullopt;
    return size;
}

// Sizes of cells are asked for up to where rows exist; the rest are default ones.
std::uint32_t LastOfInterest(const Sheet& sheet, const Block& area)
{
    std::uint32_t last = area.firstRow;
    sheet.VisitRows([&](std::uint32_t row, const Row&) { last = std::max(last, row + 1); });
    return std::min(last, area.lastRow);
}

std::uint32_t TextColumns(std::string_view text)
{
    std::uint32_t widest = 0;
    std::uint32_t columns = 0;
    for (const char16_t c : ToUtf16(text)) {
        // Asian characters are twice as wide as digits.
        columns = c == u'\n' ? 0 : columns + (c >= 0x1100 ? 2 : 1);
        widest = std::max(widest, columns);
    }
    return widest;
}

// An estimate of what the cell shows, in digits of its font.
double ShownColumns(const Sheet& sheet, const Cell& cell)
{
    constexpr double kNumberColumns = 11; // "General" shows no more of a number
    constexpr double kWordColumns = 5;    // "FALSE"
    constexpr double kDefaultTwips = 220;
    constexpr double kBoldFactor = 1.1;
    const Workbook& book = sheet.Book();
    const Format& format = book.Formats().At(cell.format);
    double columns = 0;
    if (cell.kind == CellKind::Text) {
        columns = TextColumns(book.Texts().Text(cell.text));
    } else if (cell.kind == CellKind::Number) {
        Value text;
        StoreResult(*text, cell.number);
        VariantChangeTypeEx(&*text, &*text, 0x409, 0, VT_BSTR);
        columns = std::min<double>(SysStringLen(text->bstrVal), kNumberColumns);
    } else if (cell.kind != CellKind::Empty) {
        columns = kWordColumns;
    }
    return columns * format.font.twips / kDefaultTwips * (format.font.bold ? kBoldFactor : 1);
}

} // namespace

std::optional<double> RangeObject::ColumnWidth()
{
    const Sheet& sheet = Live(m_sheet);
    return CommonSize(m_first.firstColumn, m_first.lastColumn,
                      [&](std::uint32_t column) { return sheet.ColumnWidth(column); });
}

void RangeObject::SetColumnWidth(const Argument& value)
{
    const double width = value.Number();
    if (!(width >= 0 && width <= kMaxColumnWidth))
        throw AutomationError();
    ForAreas(
        [&](const Block& area) { Live(m_sheet).SetColumnWidth(area.firstColumn, area.lastColumn, width); });
}

std::optional<double> RangeObject::RowHeight()
{
    const Sheet& sheet = Live(m_sheet);
    return CommonSize(m_first.firstRow, LastOfInterest(sheet, m_first),
                      [&](std::uint32_t row) { return sheet.RowHeight(row); });
}

void RangeObject::SetRowHeight(const Argument& value)
{
    const double height = value.Number();
    if (!(height >= 0 && height <= kMaxRowHeight))
        throw AutomationError();
    ForAreas([&](const Block& area) { Live(m_sheet).SetRowHeight(area.firstRow, area.lastRow, height); });
}

double RangeObject::Width()
{
    return Live(m_sheet).ColumnsPoints(m_first.firstColumn, m_first.lastColumn);
}

double RangeObject::Height()
{
    return Live(m_sheet).RowsPoints(m_first.firstRow, m_first.lastRow);
}

double RangeObject::Left()
{
    return Live(m_sheet).LeftOf(m_first.firstColumn);
}

double RangeObject::Top()
{
    return Live(m_sheet).TopOf(m_first.firstRow);
}

std::optional<bool> RangeObject::Hidden()
{
    const Sheet& sheet = Live(m_sheet);
    if (m_first.HasAllRows() == m_first.HasAllColumns())
        throw AutomationError();
    const auto hidden =
        m_first.HasAllRows()
            ? CommonSize(m_first.firstColumn, m_first.lastColumn,
                         [&](std::uint32_t column) { return sheet.ColumnAt(column).hidden ? 1.0 : 0.0; })
            : CommonSize(m_first.firstRow, LastOfInterest(sheet, m_first),
                         [&](std::uint32_t row) { return sheet.IsRowHidden(row) ? 1.0 : 0.0; });
    return hidden ? std::optional(*hidden != 0) : std::nullopt;
}

void RangeObject::SetHidden(const Argument& value)
{
    const bool hidden = value.Flag();
    ForAreas([&](const Block& area) {
        if (area.HasAllRows() == area.HasAllColumns())
            throw AutomationError();
        if (area.HasAllRows())
            Live(m_sheet).SetColumnsHidden(area.firstColumn, area.lastColumn, hidden);
        else
            Live(m_sheet).SetRowsHidden(area.firstRow, area.lastRow, hidden);
    });
}

// Rows go back to the default height, which readers widen as they need; columns are estimated.
bool RangeObject::AutoFit()
{
    constexpr double kMargin = 0.71; // of a digit, beside the longest text
    Sheet& sheet = Live(m_sheet);
    if (m_first.HasAllColumns() || m_unit == Unit::Rows) {
        sheet.ResetRowHeight(m_first.firstRow, m_first.lastRow);
        return true;
    }
    if (!m_first.HasAllRows() && m_unit != Unit::Columns)
        throw AutomationError();
    std::vector<double> widths(m_first.Columns(), 0);
    sheet.VisitRows([&](std::uint32_t number, const zek::office::Row& row) {
        for (const Cell& cell : row.cells)
            if (m_first.Contains(number, cell.column) && !sheet.Merges().Find(number, cell.column))
                widths[cell.column - m_first.firstColumn] =
                    std::max(widths[cell.column - m_first.firstColumn], ShownColumns(sheet, cell));
    });
    for (std::uint32_t i = 0; i < widths.size(); ++i)
        if (widths[i] > 0)
            sheet.SetColumnWidth(m_first.firstColumn + i, m_first.firstColumn + i,
                                 std::min(std::ceil(widths[i]) + kMargin, kMaxColumnWidth));
    return true;
}

std::optional<bool> RangeObject::MergeCells()
{
    std::uint64_t merged = 0;
    std::uint64_t cells = 0;
    ForAreas([&](const Block& block) {
        cells += block.Cells();
        for (const Block& area : Live(m_sheet).Merges().Overlapping(block)) {
            const Block both{
                std::max(area.firstRow, block.firstRow), std::max(area.firstColumn, block.firstColumn),
                std::min(area.lastRow, block.lastRow), std::min(area.lastColumn, block.lastColumn)};
            merged += both.Cells();
        }
    });
    if (merged != 0 && merged != cells)
        return std::nullopt;
    return merged != 0;
}

void RangeObject::SetMergeCells(const Argument& value)
{
    const bool merge = value.Number() != 0;
    ForAreas([&](const Block& area) {
        if (!merge)
            Live(m_sheet).Unmerge(area);
        else if (!Live(m_sheet).Merge(area))
            throw AutomationError(kPartOfMerge);
    });
}

void RangeObject::Merge(const Arguments& across)
{
    const bool rowByRow = across[0].FlagOr(false);
    ForAreas([&](const Block& area) {
        for (std::uint32_t row = area.firstRow; row <= area.lastRow; row += rowByRow ? 1 : area.Rows()) {
            const Block part{row, area.firstColumn, rowByRow ? row : area.lastRow, area.lastColumn};
            if (!Live(m_sheet).Merge(part))
                throw AutomationError(kPartOfMerge);
        }
    });
}

void RangeObject::UnMerge()
{
    ForAreas([&](const Block& area) { Live(m_sheet).Unmerge(area); });
}

IDispatch* RangeObject::MergeArea()
{
    if (!m_first.IsOneCell())
        throw AutomationError();
    const Block* const area = Live(m_sheet).Merges().Find(m_first.firstRow, m_first.firstColumn);
    return Sibling(area ? *area : m_first);
}

bool RangeObject::Insert(const Arguments& shift)
{
    const bool down =
        m_first.HasAllColumns() || (!m_first.HasAllRows() && m_first.Rows() <= m_first.Columns());
    const LONG direction = shift[0].LongOr(down ? xl::kShiftDown : xl::kShiftToRight);
    if (!m_more.empty() || (direction != xl::kShiftDown && direction != xl::kShiftToRight))
        throw AutomationError();
    const bool vertical = !m_first.HasAllRows() && (m_first.HasAllColumns() || direction == xl::kShiftDown);
    if (!Live(m_sheet).InsertCells(m_first, vertical ? Shift::Vertical : Shift::Horizontal))
        throw AutomationError();
    return true;
}

bool RangeObject::Delete(const Arguments& shift)
{
    const bool up = m_first.HasAllColumns() || (!m_first.HasAllRows() && m_first.Rows() <= m_first.Columns());
    const LONG direction = shift[0].LongOr(up ? xl::kShiftUp : xl::kShiftToLeft);
    if (!m_more.empty() || (direction != xl::kShiftUp && direction != xl::kShiftToLeft))
        throw AutomationError();
    const bool vertical = !m_first.HasAllRows() && (m_first.HasAllColumns() || direction == xl::kShiftUp);
    if (!Live(m_sheet).DeleteCells(m_first, vertical ? Shift::Vertical : Shift::Horizontal))
        throw AutomationError(kPartOfMerge);
    return true;
}

// Without a target there is only the clipboard, which this server has not got.
bool RangeObject::Copy(const Arguments& destination)
{
    if (destination[0].IsMissing())
        throw AutomationError("Copying to the clipboard is not available; name a destination.");
    const RangeObject* const target = From(destination[0].Object());
    if (!target)
        destination[0].Refuse();
    if (!m_more.empty() || target->m_sheet->book != m_sheet->book)
        throw AutomationError();
    Sheet& sheet = Live(target->m_sheet);
    const Block& place = target->m_first;
    if (place.firstRow + m_first.Rows() > kRowCount || place.firstColumn + m_first.Columns() > kColumnCount)
        throw AutomationError();
    if (!Live(m_sheet).CopyCells(m_first, sheet, place.firstRow, place.firstColumn))
        throw AutomationError(kPartOfMerge);
    return true;
}

LONG RangeObject::PageBreak()
{
    const Sheet& sheet = Live(m_sheet);
    const bool manual = m_first.HasAllRows() ? sheet.columnBreaks.contains(m_first.firstColumn)
                                             : sheet.rowBreaks.contains(m_first.firstRow);
    return manual ? xl::kPageBreakManual : xl::kNone;
}

void RangeObject::SetPageBreak(const Argument& value)
{
    const LONG kind = value.Long();
    Sheet& sheet = Live(m_sheet);
    auto& breaks = m_first.HasAllRows() ? sheet.columnBreaks : sheet.rowBreaks;
    const std::uint32_t at = m_first.HasAllRows() ? m_first.firstColumn : m_first.firstRow;
    if (kind == xl::kPageBreakManual && at > 0)
        breaks.insert(at);
    else if (kind == xl::kNone || kind == xl::kAutomatic)
        breaks.erase(at);
    else
        throw AutomationError();
}

} // namespace zek::office
