// The merged areas of a sheet; no two of them overlap.
#pragma once

#include "spreadsheet/model/Block.h"

#include <cstdint>
#include <map>
#include <vector>

namespace zek::office {

class MergeTable
{
public:
    // Must not overlap an area that is already there, and must hold more than one cell.
    void Add(const Block& area);
    void Remove(const Block& area);
    void Clear();

    // The area that holds the cell; null when it is not merged. Valid until the table changes.
    const Block* Find(std::uint32_t row, std::uint32_t column) const;

    // The areas that share a cell with `block`, by first row and column.
    std::vector<Block> Overlapping(const Block& block) const;

    // Every area, by first row and column.
    std::vector<Block> All() const;

    bool IsEmpty() const { return m_areas.empty(); }
    std::size_t Size() const { return m_areas.size(); }

private:
    // Areas by the position of their first cell. Areas of more than kLowRows rows are also kept apart, so
    // that a search need not go back further than that.
    static constexpr std::uint32_t kLowRows = 64;
    static std::uint64_t Key(std::uint32_t row, std::uint32_t column)
    {
        return std::uint64_t{row} * kColumnCount + column;
    }
    std::map<std::uint64_t, Block> m_areas;
    std::vector<Block> m_tall;
};

} // namespace zek::office
