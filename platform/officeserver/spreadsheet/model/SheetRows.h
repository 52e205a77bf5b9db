// How the sheet's sources walk over rows and the cells in them; for them only.
#pragma once

#include "spreadsheet/model/Sheet.h"

#include <algorithm>
#include <utility>

namespace zek::office {

// The first cell of that column or behind it.
template <class Cells>
auto FirstFrom(Cells& cells, std::uint32_t column)
{
    return std::lower_bound(cells.begin(), cells.end(), column,
                            [](const Cell& cell, std::uint32_t wanted) { return cell.column < wanted; });
}

// The cells in the block's columns.
template <class Cells>
auto CellsIn(Cells& cells, const Block& block)
{
    return std::pair(FirstFrom(cells, block.firstColumn), FirstFrom(cells, block.lastColumn + 1));
}

// The cell without its value.
inline Cell EmptyLike(const Cell& cell)
{
    Cell empty;
    empty.column = cell.column;
    empty.format = cell.format;
    return empty;
}

template <class Work>
void Sheet::WorkRows(std::uint32_t first, std::uint32_t last, Work&& work)
{
    const std::uint32_t end = std::min(last + 1, RowEnd());
    for (std::uint32_t row = first; row < end; ++row) {
        if (Row* const content = RowOrNull(row))
            work(row, *content);
        else
            row |= kChunkRows - 1; // nothing in the whole chunk
    }
}

template <class Work>
void Sheet::WorkColumns(std::uint32_t first, std::uint32_t last, Work&& work)
{
    std::vector<ColumnRun> result;
    const auto put = [&](ColumnRun run) {
        if (run.first > run.last || run.IsPlain())
            return;
        if (!result.empty() && result.back().last + 1 == run.first && result.back().LooksLike(run))
            result.back().last = run.last;
        else
            result.push_back(run);
    };
    const auto clip = [](ColumnRun run, std::uint32_t from, std::uint32_t to) {
        run.first = from;
        run.last = to;
        return run;
    };
    std::uint32_t next = first; // the first column between the ends that work() has not seen
    const auto workOn = [&](ColumnRun run, std::uint32_t to) {
        if (next > to)
            return;
        ColumnRun piece = clip(run, next, to);
        work(piece);
        put(piece);
        next = to + 1;
    };
    for (const ColumnRun& run : m_columns) {
        if (run.first > last)
            workOn(ColumnRun{}, last);
        else if (run.first > next)
            workOn(ColumnRun{}, run.first - 1);
        if (run.last < first || run.first > last) {
            put(run);
            continue;
        }
        if (run.first < first)
            put(clip(run, run.first, first - 1));
        workOn(run, std::min(run.last, last));
        if (run.last > last)
            put(clip(run, last + 1, run.last));
    }
    workOn(ColumnRun{}, last);
    m_columns = std::move(result);
}

} // namespace zek::office
