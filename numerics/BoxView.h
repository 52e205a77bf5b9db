// From where to look at polylines so that the boxes round their segments overlap little.
#pragma once

#include "SegmentPair.h"

#include <vector>

class BoxView
{
public:
    // `count` polylines that are to be compared with each other, or one with itself.
    BoxView(const PolylineView* lines, int count);

    // False for coordinates and tolerances that SafeRoom() does not cover.
    bool IsUsable() const { return IsSafeRoom(m_margin); }
    double Margin() const { return m_margin; }
    // The points as they are seen from there: the polyline's own, or turned ones kept here.
    const T_POINT3D* Points(int line) const { return m_points[static_cast<std::size_t>(line)]; }

private:
    std::vector<std::vector<T_POINT3D>> m_turned;
    std::vector<const T_POINT3D*> m_points;
    double m_margin;
};
