// Which boxes lie near each other, for boxes of similar size that are spread evenly: a grid over the two axes
// that tell most.
#pragma once

#include "Box3.h"

#include <algorithm>
#include <vector>

class BoxGrid
{
public:
    // The boxes are not copied.
    explicit BoxGrid(const std::vector<Box3>& boxes);

    // False when boxes take too many cells or cells hold too many boxes to be of use.
    bool IsUsable() const { return m_usable; }

    // Calls visit(index) once for each box that overlaps `box`, until it answers true; whether it did.
    template <class VISIT>
    bool AnyNear(const Box3& box, VISIT visit) const
    {
        const Cells cells = CellsOf(box);
        for (int row = cells.low[1]; row <= cells.high[1]; ++row)
            for (int column = cells.low[0]; column <= cells.high[0]; ++column)
                if (AnyNear(box, column, row, visit))
                    return true;
        return false;
    }

    // Calls visit(one, other) once for each pair of boxes that overlap, one < other, until it answers true;
    // whether it did.
    template <class VISIT>
    bool AnyPair(VISIT visit) const
    {
        std::size_t cell = 0;
        for (int row = 0; row < m_axes[1].cells; ++row)
            for (int column = 0; column < m_axes[0].cells; ++column, ++cell)
                for (unsigned one = m_starts[cell]; one < m_starts[cell + 1]; ++one)
                    for (unsigned other = one + 1; other < m_starts[cell + 1]; ++other)
                        if (IsNear(BoxAt(one), BoxAt(other), column, row) &&
                            visit(static_cast<int>(m_items[one]), static_cast<int>(m_items[other])))
                            return true;
        return false;
    }

private:
    struct Axis {
        int axis = 0;
        int cells = 1;
        double low = 0.0;
        double scale = 0.0;
    };
    // Columns and rows that a box takes.
    struct Cells {
        int low[2];
        int high[2];
    };

    int CellOf(const Axis& axis, double value) const
    {
        return static_cast<int>(std::min(std::max((value - axis.low) * axis.scale, 0.0), axis.cells - 1.0));
    }
    Cells CellsOf(const Box3& box) const
    {
        Cells cells;
        for (int k = 0; k < 2; ++k) {
            cells.low[k] = CellOf(m_axes[k], box.low[m_axes[k].axis]);
            cells.high[k] = CellOf(m_axes[k], box.high[m_axes[k].axis]);
        }
        return cells;
    }
    std::size_t Index(int column, int row) const
    {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_axes[0].cells) +
               static_cast<std::size_t>(column);
    }

    const Box3& BoxAt(unsigned item) const { return m_boxes[m_items[item]]; }

    // Two boxes may share several cells; they are told of in the first.
    bool IsNear(const Box3& a, const Box3& b, int column, int row) const
    {
        return a.Overlaps(b) && column == FirstCommon(m_axes[0], a, b) && row == FirstCommon(m_axes[1], a, b);
    }
    int FirstCommon(const Axis& axis, const Box3& a, const Box3& b) const
    {
        return CellOf(axis, std::max(a.low[axis.axis], b.low[axis.axis]));
    }

    template <class VISIT>
    bool AnyNear(const Box3& box, int column, int row, VISIT& visit) const
    {
        const std::size_t cell = Index(column, row);
        for (unsigned item = m_starts[cell]; item < m_starts[cell + 1]; ++item)
            if (IsNear(box, BoxAt(item), column, row) && visit(static_cast<int>(m_items[item])))
                return true;
        return false;
    }

    void ChooseAxes();
    bool Count();
    void Fill();

    const std::vector<Box3>& m_boxes;
    Axis m_axes[2];
    std::vector<unsigned> m_starts; // of each cell's items, and the end
    std::vector<unsigned> m_items;
    bool m_usable;
};
