#include "spreadsheet/model/MergeTable.h"

#include <algorithm>

namespace zek::office {

void MergeTable::Add(const Block& area)
{
    m_areas.emplace(Key(area.firstRow, area.firstColumn), area);
    if (area.Rows() > kLowRows)
        m_tall.push_back(area);
}

void MergeTable::Remove(const Block& area)
{
    m_areas.erase(Key(area.firstRow, area.firstColumn));
    std::erase(m_tall, area);
}

void MergeTable::Clear()
{
    m_areas.clear();
    m_tall.clear();
}

const Block* MergeTable::Find(std::uint32_t row, std::uint32_t column) const
{
    for (const Block& area : m_tall)
        if (area.Contains(row, column))
            return &area;
    const std::uint32_t top = row >= kLowRows ? row - kLowRows + 1 : 0;
    const auto end = m_areas.upper_bound(Key(row, column));
    for (auto place = m_areas.lower_bound(Key(top, 0)); place != end; ++place)
        if (place->second.Contains(row, column))
            return &place->second;
    return nullptr;
}

std::vector<Block> MergeTable::Overlapping(const Block& block) const
{
    std::vector<Block> found;
    for (const Block& area : m_tall)
        if (area.firstRow + kLowRows <= block.firstRow && area.Overlaps(block))
            found.push_back(area);
    std::ranges::sort(found, {}, [](const Block& area) { return Key(area.firstRow, area.firstColumn); });
    const std::uint32_t top = block.firstRow >= kLowRows ? block.firstRow - kLowRows + 1 : 0;
    const auto end = m_areas.upper_bound(Key(block.lastRow, block.lastColumn));
    for (auto place = m_areas.lower_bound(Key(top, 0)); place != end; ++place)
        if (place->second.Overlaps(block))
            found.push_back(place->second);
    return found;
}

std::vector<Block> MergeTable::All() const
{
    std::vector<Block> all;
    all.reserve(m_areas.size());
    for (const auto& [key, area] : m_areas)
        all.push_back(area);
    return all;
}

} // namespace zek::office
