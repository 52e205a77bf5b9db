// Copying blocks and sheets.
#include "spreadsheet/model/FormulaReferences.h"
#include "spreadsheet/model/Sheet.h"
#include "spreadsheet/model/SheetRows.h"
#include "spreadsheet/model/Workbook.h"

namespace zek::office {
namespace {

Block Moved(const Block& area, std::int64_t rows, std::int64_t columns)
{
    const auto move = [](std::uint32_t at, std::int64_t by) { return static_cast<std::uint32_t>(at + by); };
    return {move(area.firstRow, rows), move(area.firstColumn, columns), move(area.lastRow, rows),
            move(area.lastColumn, columns)};
}

} // namespace

struct Sheet::HeldCell {
    std::uint32_t row;
    Cell cell;
    Formula formula;
};

// In a block of reasonable size, cells that only inherit a look are held with it.
std::vector<Sheet::HeldCell> Sheet::HoldCells(const Block& block) const
{
    constexpr std::uint64_t kReasonable = 1 << 16;
    std::vector<HeldCell> held;
    const auto hold = [&](std::uint32_t row, const Cell& cell) {
        held.push_back({row, cell, cell.kind == CellKind::Formula ? m_formulas[cell.formula] : Formula{}});
    };
    if (block.Cells() > kReasonable) {
        const_cast<Sheet*>(this)->WorkRows(
            block.firstRow, block.lastRow, [&](std::uint32_t number, const Row& row) {
                for (auto [cell, end] = CellsIn(row.cells, block); cell != end; ++cell)
                    hold(number, *cell);
            });
        return held;
    }
    for (std::uint32_t row = block.firstRow; row <= block.lastRow; ++row)
        for (std::uint32_t column = block.firstColumn; column <= block.lastColumn; ++column) {
            Cell blank;
            blank.column = static_cast<std::uint16_t>(column);
            blank.format = FormatAt(row, column);
            const Cell* const cell = Find(row, column);
            hold(row, cell ? *cell : blank);
        }
    return held;
}

void Sheet::PutHeld(const HeldCell& held, std::int64_t rows, std::int64_t columns)
{
    const auto row = static_cast<std::uint32_t>(held.row + rows);
    const auto column = static_cast<std::uint32_t>(held.cell.column + columns);
    if (held.cell.kind == CellKind::Empty && held.cell.format == FormatAt(row, column))
        return;
    if (held.cell.kind == CellKind::Formula)
        SetFormula(row, column, {MovedFormula(held.formula.text, rows, columns), held.formula.result});
    Cell& cell = MakeCell(row, column);
    cell.format = held.cell.format;
    if (held.cell.kind == CellKind::Formula)
        return;
    cell.kind = held.cell.kind;
    cell.number = held.cell.number;
}

bool Sheet::CopyCells(const Block& source, Sheet& target, std::uint32_t row, std::uint32_t column) const
{
    const std::int64_t rows = std::int64_t{row} - source.firstRow;
    const std::int64_t columns = std::int64_t{column} - source.firstColumn;
    const Block place = Moved(source, rows, columns);
    for (const Block& area : target.m_merges.Overlapping(place))
        if (!place.Contains(area))
            return false;
    // The blocks may overlap: everything is read before anything is written.
    const std::vector<HeldCell> held = HoldCells(source);
    std::vector<Block> areas = m_merges.Overlapping(source);
    std::erase_if(areas, [&](const Block& area) { return !source.Contains(area); });
    target.Unmerge(place);
    target.RemoveCells(place);
    CopySizes(source, target, place);
    for (const HeldCell& cell : held)
        target.PutHeld(cell, rows, columns);
    for (const Block& area : areas)
        target.m_merges.Add(Moved(area, rows, columns));
    return true;
}

// Whole rows and columns bring their sizes and their own formats.
void Sheet::CopySizes(const Block& source, Sheet& target, const Block& place) const
{
    if (source.HasAllColumns())
        for (std::uint32_t i = 0; i < source.Rows(); ++i) {
            const Row* const from = FindRow(source.firstRow + i);
            if (!from && !target.FindRow(place.firstRow + i))
                continue;
            Row& to = target.MakeRow(place.firstRow + i);
            to.format = from ? from->format : kNoFormat;
            to.heightTwips = from ? from->heightTwips : std::uint16_t{0};
            to.hidden = from && from->hidden;
        }
    if (source.HasAllRows())
        for (std::uint32_t i = 0; i < source.Columns(); ++i) {
            const ColumnRun from = ColumnAt(source.firstColumn + i);
            target.WorkColumns(place.firstColumn + i, place.firstColumn + i, [&](ColumnRun& to) {
                to.format = from.format;
                to.width = from.width;
                to.hidden = from.hidden;
            });
        }
}

void Sheet::CopyFrom(const Sheet& source)
{
    m_columns = source.m_columns;
    m_formulas = source.m_formulas;
    m_freeFormulas = source.m_freeFormulas;
    m_merges = source.m_merges;
    m_defaultRowHeight = source.m_defaultRowHeight;
    m_defaultColumnWidth = source.m_defaultColumnWidth;
    m_ownDefaultRowHeight = source.m_ownDefaultRowHeight;
    page = source.page;
    view = source.view;
    rowBreaks = source.rowBreaks;
    columnBreaks = source.columnBreaks;
    m_chunks.clear();
    for (const auto& chunk : source.m_chunks)
        m_chunks.push_back(chunk ? std::make_unique<Chunk>(*chunk) : nullptr);
}

} // namespace zek::office
