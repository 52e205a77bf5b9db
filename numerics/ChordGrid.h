// Which segments pass near each other, for long ones that cross the same space: a grid of cubes, each with
// the segments that pass it. Boxes round such segments tell little, for nearly all of them overlap.
#pragma once

#include "Box3.h"
#include "SegmentPair.h"

#include <algorithm>
#include <vector>

class ChordGrid
{
public:
    // `margin` is what rounding may hide, beside the slack of the segments. Nothing is copied.
    ChordGrid(const PolylineView* lines, int count, double margin);

    // Whether a segment of the first polyline meets a later one of it, or one of the second.
    bool AnyMeet() const;

private:
    struct Range {
        int first;
        int last;
    };

    template <class VISIT>
    void VisitCells(VISIT visit) const;
    template <class VISIT>
    void VisitCells(const T_POINT3D* segment, VISIT visit) const;
    void ChooseCells();
    int CellOf(int axis, double at) const;
    Range CellsBetween(int axis, double one, double other, double margin) const;
    std::size_t Index(const int (&cell)[3]) const;
    bool Meet(unsigned one, unsigned other) const;
    const T_POINT3D* SegmentAt(unsigned segment) const;

    const PolylineView* m_lines;
    int m_count;
    double m_margin;
    Box3 m_box;
    double m_size = 1.0; // of a cube; the last one of a row takes what is left
    int m_cells[3] = {1, 1, 1};
    std::vector<unsigned> m_starts; // of each cube's segments, and the end
    std::vector<unsigned> m_items;  // segments of the first polyline, then those of the second
};
