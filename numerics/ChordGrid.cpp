#include "ChordGrid.h"

#include <cmath>

namespace {

// For each segment. More cubes hold fewer segments each, but every segment stands in more of them.
constexpr double kCubes = 2.0;
constexpr double kShrink = 0.8;

int LongestAxis(const Vec3& v)
{
    const int longer = std::abs(v[1]) > std::abs(v[0]) ? 1 : 0;
    return std::abs(v[2]) > std::abs(v[longer]) ? 2 : longer;
}

} // namespace

ChordGrid::ChordGrid(const PolylineView* lines, int count, double margin)
    : m_lines(lines), m_count(count), m_margin(margin)
{
    ChooseCells();
    m_starts.assign(Index({0, 0, m_cells[2]}) + 1, 0);
    VisitCells([this](std::size_t cell, unsigned) { ++m_starts[cell]; });
    unsigned end = 0;
    for (unsigned& start : m_starts)
        start = end += start;
    m_items.resize(end);
    VisitCells([this](std::size_t cell, unsigned segment) { m_items[--m_starts[cell]] = segment; });
}

void ChordGrid::ChooseCells()
{
    double segments = 0.0;
    for (int line = 0; line < m_count; ++line) {
        segments += m_lines[line].segments;
        for (int i = 0; i <= m_lines[line].segments; ++i)
            m_box.Include(Load(m_lines[line].points[i]));
    }
    m_box.Grow(m_margin);
    const Vec3 extent = m_box.Size();
    const auto along = [&extent](int axis, double size) {
        return std::max(1.0, std::floor(extent[axis] / size));
    };
    m_size = std::max({extent[0], extent[1], extent[2]});
    while (along(0, m_size * kShrink) * along(1, m_size * kShrink) * along(2, m_size * kShrink) <=
           kCubes * segments)
        m_size *= kShrink;
    for (int axis = 0; axis < 3; ++axis)
        m_cells[axis] = static_cast<int>(along(axis, m_size));
}

int ChordGrid::CellOf(int axis, double at) const
{
    return static_cast<int>(std::min(std::max((at - m_box.low[axis]) / m_size, 0.0), m_cells[axis] - 1.0));
}

ChordGrid::Range ChordGrid::CellsBetween(int axis, double one, double other, double margin) const
{
    return {CellOf(axis, std::min(one, other) - margin), CellOf(axis, std::max(one, other) + margin)};
}

std::size_t ChordGrid::Index(const int (&cell)[3]) const
{
    const auto columns = static_cast<std::size_t>(m_cells[0]);
    const auto rows = static_cast<std::size_t>(m_cells[1]);
    return (static_cast<std::size_t>(cell[2]) * rows + static_cast<std::size_t>(cell[1])) * columns +
           static_cast<std::size_t>(cell[0]);
}

template <class VISIT>
void ChordGrid::VisitCells(VISIT visit) const
{
    unsigned segment = 0;
    for (int line = 0; line < m_count; ++line)
        for (int i = 0; i < m_lines[line].segments; ++i, ++segment)
            VisitCells(m_lines[line].points + i, [&](std::size_t cell) { visit(cell, segment); });
}

// Slab by slab along the axis of its greatest extent: the cubes that the part of the segment within the slab
// passes, and what is round it within the margin.
template <class VISIT>
void ChordGrid::VisitCells(const T_POINT3D* segment, VISIT visit) const
{
    const Vec3 from = Load(segment[0]);
    const Vec3 way = Load(segment[1]) - from;
    const double margin = m_margin + SafeRoom(0.0, Reach(way), 0.0);
    const int x = LongestAxis(way), y = (x + 1) % 3, z = (x + 2) % 3;
    const auto partAt = [&](double at) { return std::clamp((at - from[x]) / way[x], 0.0, 1.0); };
    const bool isPoint = std::abs(way[x]) <= margin;
    const Range slabs = CellsBetween(x, from[x], from[x] + way[x], margin);
    int cell[3];
    for (cell[x] = slabs.first; cell[x] <= slabs.last; ++cell[x]) {
        const double low = m_box.low[x] + cell[x] * m_size;
        const double high = cell[x] + 1 == m_cells[x] ? m_box.high[x] : low + m_size;
        const double a = isPoint ? 0.0 : partAt(low - margin);
        const double b = isPoint ? 1.0 : partAt(high + margin);
        const Range rows = CellsBetween(y, from[y] + a * way[y], from[y] + b * way[y], margin);
        const Range columns = CellsBetween(z, from[z] + a * way[z], from[z] + b * way[z], margin);
        for (cell[y] = rows.first; cell[y] <= rows.last; ++cell[y])
            for (cell[z] = columns.first; cell[z] <= columns.last; ++cell[z])
                visit(Index(cell));
    }
}

const T_POINT3D* ChordGrid::SegmentAt(unsigned segment) const
{
    const auto ofFirst = static_cast<unsigned>(m_lines[0].segments);
    return segment < ofFirst ? m_lines[0].points + segment : m_lines[1].points + (segment - ofFirst);
}

bool ChordGrid::Meet(unsigned one, unsigned other) const
{
    const unsigned a = std::min(one, other);
    const unsigned b = std::max(one, other);
    const auto ofFirst = static_cast<unsigned>(m_lines[0].segments);
    if (m_count == 1)
        return SegmentsMeet(SegmentAt(a), SegmentAt(b), 0);
    return a < ofFirst && b >= ofFirst && SegmentsMeet(SegmentAt(a), SegmentAt(b), 1);
}

bool ChordGrid::AnyMeet() const
{
    for (std::size_t cell = 0; cell + 1 < m_starts.size(); ++cell)
        for (unsigned one = m_starts[cell]; one < m_starts[cell + 1]; ++one)
            for (unsigned other = one + 1; other < m_starts[cell + 1]; ++other)
                if (Meet(m_items[one], m_items[other]))
                    return true;
    return false;
}
