// Merging, inserting, deleting.
#include "spreadsheet/model/FormulaReferences.h"
#include "spreadsheet/model/Sheet.h"
#include "spreadsheet/model/SheetRows.h"
#include "spreadsheet/model/Workbook.h"

namespace zek::office {
namespace {

bool ShiftBlock(Block& area, const Block& block, Shift shift, bool insert)
{
    return shift == Shift::Vertical
               ? ShiftSpan(area.firstRow, area.lastRow, block.firstRow, block.Rows(), insert, kRowCount)
               : ShiftSpan(area.firstColumn, area.lastColumn, block.firstColumn, block.Columns(), insert,
                           kColumnCount);
}

// Everything that an insertion or deletion at the block moves, the block included.
Block MovedZone(const Block& block, Shift shift)
{
    Block zone = block;
    (shift == Shift::Vertical ? zone.lastRow : zone.lastColumn) =
        shift == Shift::Vertical ? kRowCount - 1 : kColumnCount - 1;
    return zone;
}

// The cells that an insertion pushes over the sheet's edge.
Block PushedOut(const Block& block, Shift shift)
{
    Block zone = MovedZone(block, shift);
    if (shift == Shift::Vertical)
        zone.firstRow = zone.lastRow - block.Rows() + 1;
    else
        zone.firstColumn = zone.lastColumn - block.Columns() + 1;
    return zone;
}

bool LiesAcross(const Block& area, const Block& zone, Shift shift)
{
    return shift == Shift::Vertical ? area.firstColumn < zone.firstColumn || area.lastColumn > zone.lastColumn
                                    : area.firstRow < zone.firstRow || area.lastRow > zone.lastRow;
}

void ShiftBreaks(std::set<std::uint32_t>& breaks, std::uint32_t at, std::uint32_t count, bool insert,
                 std::uint32_t limit)
{
    std::set<std::uint32_t> after;
    for (std::uint32_t position : breaks) {
        std::uint32_t last = position;
        if (ShiftSpan(position, last, at, count, insert, limit) && position > 0)
            after.insert(position);
    }
    breaks.swap(after);
}

void ShiftTitles(std::optional<Span>& titles, std::uint32_t at, std::uint32_t count, bool insert,
                 std::uint32_t limit)
{
    if (titles && !ShiftSpan(titles->first, titles->last, at, count, insert, limit))
        titles.reset();
}

} // namespace

bool Sheet::Merge(const Block& block)
{
    const std::vector<Block> inside = m_merges.Overlapping(block);
    if (inside.size() == 1 && inside[0] == block)
        return true;
    if (std::ranges::any_of(inside, [&](const Block& area) { return !block.Contains(area); }))
        return false;
    for (const Block& area : inside)
        m_merges.Remove(area);
    if (block.IsOneCell())
        return true;
    KeepFirstValue(block);
    const Format first = m_book.Formats().At(FormatAt(block.firstRow, block.firstColumn));
    ChangeFormat(block, [&](FormatId old) {
        Format format = first;
        format.borders = m_book.Formats().At(old).borders;
        return m_book.Formats().Intern(format);
    });
    m_merges.Add(block);
    return true;
}

// The first value in reading order goes to the first cell; the others are lost.
void Sheet::KeepFirstValue(const Block& block)
{
    Cell kept;
    WorkRows(block.firstRow, block.lastRow, [&](std::uint32_t, Row& row) {
        for (auto [cell, end] = CellsIn(row.cells, block); cell != end; ++cell) {
            if (kept.kind == CellKind::Empty)
                kept = std::exchange(*cell, EmptyLike(*cell));
            else
                DropValue(*cell);
        }
    });
    if (kept.kind == CellKind::Empty)
        return;
    Cell& first = MakeCell(block.firstRow, block.firstColumn);
    kept.column = first.column;
    kept.format = first.format;
    first = kept;
}

void Sheet::Unmerge(const Block& block)
{
    for (const Block& area : m_merges.Overlapping(block))
        m_merges.Remove(area);
}

bool Sheet::MergesAfterShift(const Block& block, Shift shift, bool insert, std::vector<Block>& areas) const
{
    const Block zone = MovedZone(block, shift);
    for (const Block& area : m_merges.All()) {
        Block after = area;
        if (area.Overlaps(zone)) {
            if (LiesAcross(area, zone, shift))
                return false;
            if (!ShiftBlock(after, block, shift, insert)) {
                if (insert)
                    return false;
                continue;
            }
        }
        if (!after.IsOneCell())
            areas.push_back(after);
    }
    return true;
}

bool Sheet::InsertCells(const Block& block, Shift shift)
{
    std::vector<Block> areas;
    if (HasValuesIn(PushedOut(block, shift)) || !MergesAfterShift(block, shift, true, areas))
        return false;
    if (shift == Shift::Vertical && block.HasAllColumns())
        ShiftRows(block.firstRow, block.Rows(), true);
    else
        MoveAway(block, shift);
    if (shift == Shift::Horizontal && block.HasAllRows())
        ShiftColumnRuns(block.firstColumn, block.Columns(), true);
    LookLikeNeighbours(block, shift);
    SetMerges(areas);
    ShiftSettings(block, shift, true);
    m_book.ShiftReferences(*this, block, shift, true);
    return true;
}

bool Sheet::DeleteCells(const Block& block, Shift shift)
{
    std::vector<Block> areas;
    if (!MergesAfterShift(block, shift, false, areas))
        return false;
    RemoveCells(block);
    if (shift == Shift::Vertical && block.HasAllColumns())
        ShiftRows(block.firstRow, block.Rows(), false);
    else
        MoveUp(block, shift);
    if (shift == Shift::Horizontal && block.HasAllRows())
        ShiftColumnRuns(block.firstColumn, block.Columns(), false);
    SetMerges(areas);
    ShiftSettings(block, shift, false);
    m_book.ShiftReferences(*this, block, shift, false);
    return true;
}

void Sheet::SetMerges(const std::vector<Block>& areas)
{
    m_merges.Clear();
    for (const Block& area : areas)
        m_merges.Add(area);
}

// Whole cells go, their formats too.
void Sheet::RemoveCells(const Block& block)
{
    WorkRows(block.firstRow, block.lastRow, [&](std::uint32_t, Row& row) {
        const auto [first, last] = CellsIn(row.cells, block);
        for (auto cell = first; cell != last; ++cell)
            DropValue(*cell);
        row.cells.erase(first, last);
    });
}

void Sheet::ShiftRows(std::uint32_t at, std::uint32_t count, bool insert)
{
    const std::uint32_t end = RowEnd();
    if (insert) {
        for (std::uint32_t row = end; row-- > at;)
            if (Row* const content = RowOrNull(row);
                content && !content->IsEmpty() && row + count < kRowCount)
                MakeRow(row + count) = std::exchange(*content, {});
        return;
    }
    for (std::uint32_t row = at; row < std::min(end, at + count); ++row)
        if (Row* const content = RowOrNull(row))
            *content = {};
    for (std::uint32_t row = at + count; row < end; ++row)
        if (Row* const content = RowOrNull(row); content && !content->IsEmpty())
            MakeRow(row - count) = std::exchange(*content, {});
}

void Sheet::ShiftColumnRuns(std::uint32_t at, std::uint32_t count, bool insert)
{
    // Splits the run that the columns are inserted into.
    if (insert)
        WorkColumns(at, kColumnCount - 1, [](ColumnRun&) {});
    std::vector<ColumnRun> after;
    for (ColumnRun run : m_columns) {
        if (insert && run.last >= at) {
            run.first += run.first >= at ? count : 0;
            run.last = std::min(run.last + count, kColumnCount - 1);
            if (run.first >= kColumnCount)
                continue;
        } else if (!insert && !ShiftSpan(run.first, run.last, at, count, false, kColumnCount)) {
            continue;
        }
        after.push_back(run);
    }
    m_columns.swap(after);
    WorkColumns(0, 0, [](ColumnRun&) {}); // joins neighbours that now agree
}

void Sheet::MoveAway(const Block& block, Shift shift)
{
    const Block zone = MovedZone(block, shift);
    if (shift == Shift::Vertical) {
        for (std::uint32_t row = std::min(RowEnd(), zone.lastRow + 1); row-- > zone.firstRow;)
            MoveCells({row, zone.firstColumn, row, zone.lastColumn}, row + block.Rows(), zone.firstColumn);
        return;
    }
    for (std::uint32_t row = zone.firstRow; row <= std::min(zone.lastRow, RowEnd()); ++row)
        MoveCells({row, zone.firstColumn, row, zone.lastColumn}, row, zone.firstColumn + block.Columns());
}

void Sheet::MoveUp(const Block& block, Shift shift)
{
    const Block zone = MovedZone(block, shift);
    if (shift == Shift::Vertical) {
        for (std::uint32_t row = block.lastRow + 1; row < RowEnd(); ++row)
            MoveCells({row, zone.firstColumn, row, zone.lastColumn}, row - block.Rows(), zone.firstColumn);
        return;
    }
    for (std::uint32_t row = zone.firstRow; row <= std::min(zone.lastRow, RowEnd()); ++row)
        MoveCells({row, block.lastColumn + 1, row, zone.lastColumn}, row, block.firstColumn);
}

// Moves the cells of one row; those that would leave the sheet go. The target holds no cells.
void Sheet::MoveCells(const Block& source, std::uint32_t row, std::uint32_t column)
{
    Row* const from = RowOrNull(source.firstRow);
    if (!from || source.firstColumn > source.lastColumn)
        return;
    const auto [first, last] = CellsIn(from->cells, source);
    std::vector<Cell> moved(first, last);
    from->cells.erase(first, last);
    for (Cell& cell : moved)
        cell.column =
            static_cast<std::uint16_t>(std::min(cell.column - source.firstColumn + column, kColumnCount));
    std::erase_if(moved, [&](const Cell& cell) { return cell.column >= kColumnCount || row >= kRowCount; });
    if (moved.empty())
        return;
    std::vector<Cell>& cells = MakeRow(row).cells;
    cells.insert(FirstFrom(cells, moved.front().column), moved.begin(), moved.end());
}

// New cells look like those above or to the left of them.
void Sheet::LookLikeNeighbours(const Block& block, Shift shift)
{
    if (shift == Shift::Vertical ? block.firstRow == 0 : block.firstColumn == 0)
        return;
    if (shift == Shift::Vertical) {
        CopyLook(block.firstRow - 1, block);
        return;
    }
    if (block.HasAllRows()) {
        const ColumnRun left = ColumnAt(block.firstColumn - 1);
        WorkColumns(block.firstColumn, block.lastColumn, [&](ColumnRun& run) {
            run.format = left.format;
            run.width = left.width;
        });
    }
    WorkRows(block.firstRow, block.lastRow, [&](std::uint32_t number, const Row& row) {
        const auto left = FirstFrom(row.cells, block.firstColumn - 1);
        if (left != row.cells.end() && left->column == block.firstColumn - 1)
            ApplyOne({number, block.firstColumn, number, block.lastColumn}, left->format);
    });
}

// Gives the block's rows the formats of the same columns in `above`; whole rows its height, too.
void Sheet::CopyLook(std::uint32_t above, const Block& block)
{
    const Row* const model = FindRow(above);
    if (!model || model->IsEmpty())
        return;
    Row look = *model;
    look.hidden = false;
    const auto [first, last] = CellsIn(look.cells, block);
    std::vector<Cell> cells(first, last);
    for (Cell& cell : cells)
        cell = EmptyLike(cell);
    for (std::uint32_t row = block.firstRow; row <= block.lastRow; ++row) {
        Row& target = MakeRow(row);
        if (block.HasAllColumns()) {
            target.format = look.format;
            target.heightTwips = look.heightTwips;
        }
        target.cells.insert(FirstFrom(target.cells, block.firstColumn), cells.begin(), cells.end());
    }
}

void Sheet::ApplyOne(const Block& cellsOfARow, FormatId format)
{
    for (std::uint32_t column = cellsOfARow.firstColumn; column <= cellsOfARow.lastColumn; ++column)
        MakeCell(cellsOfARow.firstRow, column).format = format;
}

// What lies beside the cells and speaks of whole rows or columns.
void Sheet::ShiftSettings(const Block& block, Shift shift, bool insert)
{
    std::erase_if(page.printArea, [&](Block& area) {
        const bool moves = area.Overlaps(MovedZone(block, shift)) && !LiesAcross(area, block, shift);
        return moves && !ShiftBlock(area, block, shift, insert);
    });
    if (shift == Shift::Vertical && block.HasAllColumns()) {
        ShiftBreaks(rowBreaks, block.firstRow, block.Rows(), insert, kRowCount);
        ShiftTitles(page.titleRows, block.firstRow, block.Rows(), insert, kRowCount);
    } else if (shift == Shift::Horizontal && block.HasAllRows()) {
        ShiftBreaks(columnBreaks, block.firstColumn, block.Columns(), insert, kColumnCount);
        ShiftTitles(page.titleColumns, block.firstColumn, block.Columns(), insert, kColumnCount);
    }
}

} // namespace zek::office
