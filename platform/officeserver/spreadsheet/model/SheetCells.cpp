// Cells and their values.
#include "spreadsheet/model/Sheet.h"
#include "spreadsheet/model/SheetRows.h"
#include "spreadsheet/model/Workbook.h"

#include <cmath>

namespace zek::office {

Sheet::Sheet(Workbook& book, std::string name) : m_book(book), m_name(std::move(name))
{
}

Row& Sheet::MakeRow(std::uint32_t row)
{
    const std::size_t chunk = row / kChunkRows;
    if (chunk >= m_chunks.size())
        m_chunks.resize(chunk + 1);
    if (!m_chunks[chunk])
        m_chunks[chunk] = std::make_unique<Chunk>();
    return (*m_chunks[chunk])[row % kChunkRows];
}

Row* Sheet::RowOrNull(std::uint32_t row)
{
    const std::size_t chunk = row / kChunkRows;
    return chunk < m_chunks.size() && m_chunks[chunk] ? &(*m_chunks[chunk])[row % kChunkRows] : nullptr;
}

const Row* Sheet::FindRow(std::uint32_t row) const
{
    return const_cast<Sheet*>(this)->RowOrNull(row);
}

const Cell* Sheet::Find(std::uint32_t row, std::uint32_t column) const
{
    const Row* const content = FindRow(row);
    if (!content)
        return nullptr;
    const auto place = FirstFrom(content->cells, column);
    return place != content->cells.end() && place->column == column ? &*place : nullptr;
}

Cell& Sheet::MakeCell(std::uint32_t row, std::uint32_t column)
{
    Row& content = MakeRow(row);
    std::vector<Cell>& cells = content.cells;
    // Reports are written from left to right: behind the last cell is where a new one mostly goes.
    auto place = cells.end();
    if (!cells.empty() && cells.back().column >= column) {
        place = FirstFrom(cells, column);
        if (place->column == column)
            return *place;
    }
    Cell cell;
    cell.column = static_cast<std::uint16_t>(column);
    cell.format = InheritedFormat(content, column);
    return *cells.insert(place, cell);
}

void Sheet::DropValue(Cell& cell)
{
    if (cell.kind == CellKind::Formula) {
        m_formulas[cell.formula] = {};
        m_freeFormulas.push_back(cell.formula);
    }
    cell.kind = CellKind::Empty;
    cell.number = 0;
}

Cell& Sheet::ValueCell(std::uint32_t row, std::uint32_t column, CellKind kind)
{
    Cell& cell = MakeCell(row, column);
    if (cell.kind == CellKind::Formula)
        DropValue(cell);
    cell.kind = kind;
    return cell;
}

void Sheet::SetNumber(std::uint32_t row, std::uint32_t column, double value)
{
    if (!std::isfinite(value))
        return SetError(row, column, CellError::Number);
    ValueCell(row, column, CellKind::Number).number = value;
}

void Sheet::SetText(std::uint32_t row, std::uint32_t column, TextId text)
{
    ValueCell(row, column, CellKind::Text).text = text;
}

void Sheet::SetBoolean(std::uint32_t row, std::uint32_t column, bool value)
{
    ValueCell(row, column, CellKind::Boolean).boolean = value;
}

void Sheet::SetError(std::uint32_t row, std::uint32_t column, CellError error)
{
    ValueCell(row, column, CellKind::Error).error = error;
}

void Sheet::SetFormula(std::uint32_t row, std::uint32_t column, Formula formula)
{
    FormulaId id = static_cast<FormulaId>(m_formulas.size());
    if (m_freeFormulas.empty()) {
        m_formulas.push_back(std::move(formula));
    } else {
        id = m_freeFormulas.back();
        m_freeFormulas.pop_back();
        m_formulas[id] = std::move(formula);
    }
    ValueCell(row, column, CellKind::Formula).formula = id;
}

void Sheet::SetEmpty(std::uint32_t row, std::uint32_t column)
{
    ClearValues(Block::Cell(row, column));
}

void Sheet::Prune(Row& row)
{
    std::erase_if(row.cells, [&](const Cell& cell) {
        return cell.kind == CellKind::Empty && cell.format == InheritedFormat(row, cell.column);
    });
}

void Sheet::ClearValues(const Block& block)
{
    WorkRows(block.firstRow, block.lastRow, [&](std::uint32_t, Row& row) {
        const auto [first, last] = CellsIn(row.cells, block);
        for (auto cell = first; cell != last; ++cell)
            DropValue(*cell);
        if (first != last)
            Prune(row);
    });
}

bool Sheet::HasValuesIn(const Block& block) const
{
    bool found = false;
    const_cast<Sheet*>(this)->WorkRows(block.firstRow, block.lastRow, [&](std::uint32_t, const Row& row) {
        const auto [first, last] = CellsIn(row.cells, block);
        found |= std::any_of(first, last, [](const Cell& cell) { return cell.kind != CellKind::Empty; });
    });
    return found;
}

Block Sheet::UsedBlock() const
{
    Block used;
    bool found = false;
    VisitRows([&](std::uint32_t number, const Row& row) {
        if (row.cells.empty())
            return;
        const Block cells{number, row.cells.front().column, number, row.cells.back().column};
        used = found ? used.Union(cells) : cells;
        found = true;
    });
    return used;
}

} // namespace zek::office
