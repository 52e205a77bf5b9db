// Rectangles of cells.
//
// Rows and columns are counted from 0, both ends belong to the block. Nothing here is bounds-checked: a
// block that reaches the model lies inside the sheet.
#pragma once

#include <algorithm>
#include <compare>
#include <cstdint>

namespace zek::office {

constexpr std::uint32_t kRowCount = 1048576;
constexpr std::uint32_t kColumnCount = 16384;

struct Block {
    std::uint32_t firstRow = 0;
    std::uint32_t firstColumn = 0;
    std::uint32_t lastRow = 0;
    std::uint32_t lastColumn = 0;

    static Block Cell(std::uint32_t row, std::uint32_t column) { return {row, column, row, column}; }
    static Block WholeSheet() { return {0, 0, kRowCount - 1, kColumnCount - 1}; }

    std::uint32_t Rows() const { return lastRow - firstRow + 1; }
    std::uint32_t Columns() const { return lastColumn - firstColumn + 1; }
    std::uint64_t Cells() const { return std::uint64_t{Rows()} * Columns(); }
    bool HasAllRows() const { return firstRow == 0 && lastRow == kRowCount - 1; }
    bool HasAllColumns() const { return firstColumn == 0 && lastColumn == kColumnCount - 1; }
    bool IsOneCell() const { return firstRow == lastRow && firstColumn == lastColumn; }

    bool Contains(std::uint32_t row, std::uint32_t column) const
    {
        return firstRow <= row && row <= lastRow && firstColumn <= column && column <= lastColumn;
    }
    bool Contains(const Block& other) const
    {
        return Contains(other.firstRow, other.firstColumn) && Contains(other.lastRow, other.lastColumn);
    }
    bool Overlaps(const Block& other) const
    {
        return firstRow <= other.lastRow && other.firstRow <= lastRow && firstColumn <= other.lastColumn &&
               other.firstColumn <= lastColumn;
    }
    // The smallest block that holds both.
    Block Union(const Block& other) const
    {
        return {std::min(firstRow, other.firstRow), std::min(firstColumn, other.firstColumn),
                std::max(lastRow, other.lastRow), std::max(lastColumn, other.lastColumn)};
    }

    bool operator==(const Block&) const = default;
};

} // namespace zek::office
