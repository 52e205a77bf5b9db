// What cells look like. A cell's own format goes before its row's, that before its column's.
#include "spreadsheet/model/Sheet.h"
#include "spreadsheet/model/SheetRows.h"

#include <map>

namespace zek::office {
namespace {

// Large blocks mostly hold long stretches of one format: the last answer is kept.
class Remembered
{
public:
    Remembered(void* context, FormatId (*change)(void*, FormatId)) : m_context(context), m_change(change) {}

    FormatId operator()(FormatId format)
    {
        if (format != m_from) {
            m_to = m_change(m_context, format);
            m_from = format;
        }
        return m_to;
    }

private:
    void* m_context;
    FormatId (*m_change)(void*, FormatId);
    FormatId m_from = kNoFormat;
    FormatId m_to = kNoFormat;
};

Cell Blank(std::uint32_t column, FormatId format)
{
    Cell cell;
    cell.column = static_cast<std::uint16_t>(column);
    cell.format = format;
    return cell;
}

} // namespace

ColumnRun Sheet::ColumnAt(std::uint32_t column) const
{
    const auto place = std::lower_bound(m_columns.begin(), m_columns.end(), column,
                                        [](const ColumnRun& run, std::uint32_t c) { return run.last < c; });
    if (place != m_columns.end() && place->first <= column)
        return *place;
    ColumnRun plain;
    plain.first = plain.last = column;
    return plain;
}

FormatId Sheet::ColumnFormat(std::uint32_t column) const
{
    return m_columns.empty() ? kDefaultFormat : ColumnAt(column).format;
}

// The format that most columns have.
FormatId Sheet::MainColumnFormat() const
{
    std::map<FormatId, std::uint32_t> columns{{kDefaultFormat, kColumnCount}};
    for (const ColumnRun& run : m_columns) {
        columns[run.format] += run.last - run.first + 1;
        columns[kDefaultFormat] -= run.last - run.first + 1;
    }
    return std::ranges::max_element(columns, {}, [](const auto& entry) { return entry.second; })->first;
}

FormatId Sheet::FormatAt(std::uint32_t row, std::uint32_t column) const
{
    if (const Cell* const cell = Find(row, column))
        return cell->format;
    const Row* const content = FindRow(row);
    return content ? InheritedFormat(*content, column) : ColumnFormat(column);
}

void Sheet::SetFormat(const Block& block, FormatId format)
{
    ChangeFormat(block, [format](FormatId) { return format; });
}

void Sheet::ApplyFormat(const Block& block, void* context, FormatFunction change)
{
    if (block.HasAllRows())
        ApplyToColumns(block, context, change);
    else if (block.HasAllColumns())
        ApplyToRows(block, context, change);
    else
        ApplyToCells(block, context, change);
}

void Sheet::ApplyToColumns(const Block& block, void* context, FormatFunction change)
{
    // Rows with a format of their own hide the columns' one, so their cells must become real.
    WorkRows(0, kRowCount - 1, [&](std::uint32_t number, Row& row) {
        if (row.format != kNoFormat && !block.HasAllColumns())
            ApplyToCells({number, block.firstColumn, number, block.lastColumn}, context, change);
        else
            for (auto [cell, end] = CellsIn(row.cells, block); cell != end; ++cell)
                cell->format = change(context, cell->format);
        if (row.format != kNoFormat && block.HasAllColumns())
            row.format = change(context, row.format);
    });
    WorkColumns(block.firstColumn, block.lastColumn,
                [&](ColumnRun& run) { run.format = change(context, run.format); });
}

void Sheet::ApplyToRows(const Block& block, void* context, FormatFunction change)
{
    Remembered changed(context, change);
    const FormatId main = MainColumnFormat();
    for (std::uint32_t number = block.firstRow; number <= block.lastRow; ++number) {
        Row& row = MakeRow(number);
        const FormatId rowFormat = changed(row.format != kNoFormat ? row.format : main);
        std::vector<Cell> blanks;
        if (row.format == kNoFormat) {
            const auto differing = [&](const ColumnRun& run) {
                for (std::uint32_t c = run.first; c <= run.last && changed(run.format) != rowFormat; ++c)
                    blanks.push_back(Blank(c, changed(run.format)));
            };
            std::uint32_t next = 0;
            for (const ColumnRun& run : m_columns) {
                if (run.first > next)
                    differing({next, run.first - 1, -1, kDefaultFormat, false});
                differing(run);
                next = run.last + 1;
            }
            if (next < kColumnCount)
                differing({next, kColumnCount - 1, -1, kDefaultFormat, false});
        }
        for (Cell& cell : row.cells)
            cell.format = changed(cell.format);
        row.format = rowFormat;
        std::vector<Cell> all;
        std::ranges::set_union(row.cells, blanks, std::back_inserter(all), {}, &Cell::column, &Cell::column);
        row.cells.swap(all);
    }
}

void Sheet::ApplyToCells(const Block& block, void* context, FormatFunction change)
{
    Remembered changed(context, change);
    for (std::uint32_t number = block.firstRow; number <= block.lastRow; ++number) {
        Row& row = MakeRow(number);
        std::vector<Cell>& cells = row.cells;
        auto place = FirstFrom(cells, block.firstColumn);
        for (std::uint32_t column = block.firstColumn; column <= block.lastColumn; ++column) {
            if (place != cells.end() && place->column == column) {
                place->format = changed(place->format);
                ++place;
                continue;
            }
            const FormatId inherited = InheritedFormat(row, column);
            if (const FormatId format = changed(inherited); format != inherited)
                place = cells.insert(place, Blank(column, format)) + 1;
        }
    }
}

bool Sheet::WalkColumnFormats(std::uint32_t first, std::uint32_t last, void* context,
                              VisitFunction visit) const
{
    std::uint32_t next = first;
    for (const ColumnRun& run : m_columns) {
        if (run.last < next || next > last)
            continue;
        if (run.first > last)
            break;
        if ((run.first > next && !visit(context, kDefaultFormat)) || !visit(context, run.format))
            return false;
        next = run.last + 1;
    }
    return next > last || visit(context, kDefaultFormat);
}

bool Sheet::WalkRowFormats(const Row& row, const Block& block, void* context, VisitFunction visit) const
{
    const auto gap = [&](std::uint32_t first, std::uint32_t end) {
        if (first >= end)
            return true;
        return row.format != kNoFormat ? visit(context, row.format)
                                       : WalkColumnFormats(first, end - 1, context, visit);
    };
    std::uint32_t next = block.firstColumn;
    for (auto [cell, end] = CellsIn(row.cells, block); cell != end; ++cell) {
        if (!gap(next, cell->column) || !visit(context, cell->format))
            return false;
        next = cell->column + 1u;
    }
    return gap(next, block.lastColumn + 1);
}

void Sheet::WalkFormats(const Block& block, void* context, VisitFunction visit) const
{
    std::uint32_t seen = 0;
    bool goOn = true;
    const_cast<Sheet*>(this)->WorkRows(block.firstRow, block.lastRow, [&](std::uint32_t, const Row& row) {
        ++seen;
        goOn = goOn && WalkRowFormats(row, block, context, visit);
    });
    if (goOn && seen < block.Rows())
        WalkColumnFormats(block.firstColumn, block.lastColumn, context, visit);
}

} // namespace zek::office
