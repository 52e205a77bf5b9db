#include "BoxGrid.h"

#include <cmath>
#include <utility>

namespace {

// For each box on the average: cells of the grid, entries in them, comparisons.
constexpr double kCells = 1.0;
constexpr double kMostEntries = 12.0;
constexpr double kMostComparisons = 64.0;

} // namespace

BoxGrid::BoxGrid(const std::vector<Box3>& boxes) : m_boxes(boxes)
{
    ChooseAxes();
    m_usable = Count();
    if (m_usable)
        Fill();
}

// Cells as large as the boxes are on the average, along the two axes with the most of them.
void BoxGrid::ChooseAxes()
{
    Box3 all;
    double widths[3] = {};
    for (const Box3& box : m_boxes) {
        all.Include(box);
        for (int axis = 0; axis < 3; ++axis)
            widths[axis] += box.high[axis] - box.low[axis];
    }
    const double boxes = static_cast<double>(m_boxes.size());
    std::pair<double, int> wanted[3];
    for (int axis = 0; axis < 3; ++axis) {
        const double extent = all.high[axis] - all.low[axis];
        wanted[axis] = {widths[axis] > 0.0 ? std::min(extent * boxes / widths[axis], boxes) : 1.0, axis};
    }
    std::sort(std::begin(wanted), std::end(wanted), std::greater<>());
    double left = kCells * boxes;
    const double shrink = std::min(1.0, std::sqrt(left / (wanted[0].first * wanted[1].first)));
    for (int k = 1; k >= 0; --k) {
        const int axis = wanted[k].second;
        const double cells =
            std::max(1.0, std::floor(std::min(wanted[k].first * (k == 1 ? shrink : 1.0), left)));
        left /= cells;
        m_axes[k] = {axis, static_cast<int>(cells), all.low[axis], cells / (all.high[axis] - all.low[axis])};
    }
}

// Finds how much each cell holds.
bool BoxGrid::Count()
{
    const double boxes = static_cast<double>(m_boxes.size());
    double entries = 0.0;
    for (const Box3& box : m_boxes) {
        const Cells cells = CellsOf(box);
        entries += (cells.high[0] - cells.low[0] + 1.0) * (cells.high[1] - cells.low[1] + 1.0);
    }
    if (entries > kMostEntries * boxes)
        return false;
    m_starts.assign(Index(0, m_axes[1].cells) + 1, 0);
    for (const Box3& box : m_boxes) {
        const Cells cells = CellsOf(box);
        for (int row = cells.low[1]; row <= cells.high[1]; ++row)
            for (int column = cells.low[0]; column <= cells.high[0]; ++column)
                ++m_starts[Index(column, row)];
    }
    double comparisons = 0.0;
    for (const unsigned count : m_starts)
        comparisons += static_cast<double>(count) * count;
    return comparisons <= kMostComparisons * boxes;
}

// Turns counts into starts: to the ends of the cells first, from where they go back as the items come.
void BoxGrid::Fill()
{
    unsigned end = 0;
    for (unsigned& start : m_starts)
        start = end += start;
    m_items.resize(end);
    for (std::size_t i = m_boxes.size(); i-- > 0;) {
        const Cells cells = CellsOf(m_boxes[i]);
        for (int row = cells.low[1]; row <= cells.high[1]; ++row)
            for (int column = cells.low[0]; column <= cells.high[0]; ++column)
                m_items[--m_starts[Index(column, row)]] = static_cast<unsigned>(i);
    }
}
