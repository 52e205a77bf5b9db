// From where to look at polylines so that the boxes round their segments overlap little.
#pragma once

#include "SegmentRuns.h"

class BoxView
{
public:
    // `count` polylines that are to be compared with each other, or one with itself.
    BoxView(const PolylineView* lines, int count);

    // False for coordinates and tolerances that SafeRoom() does not cover.
    bool IsUsable() const { return m_usable; }
    double Margin() const { return m_margin; }
    // Whether nearly all boxes overlap: there are long segments all over the place.
    bool IsTangle() const { return m_isTangle; }
    const SegmentRuns& Runs(int line) const { return m_runs[static_cast<std::size_t>(line)]; }

private:
    void Turn(const PolylineView* lines);

    std::vector<std::vector<T_POINT3D>> m_turned; // points, where they are not seen as they are
    std::vector<SegmentRuns> m_runs;
    double m_margin;
    bool m_usable;
    bool m_isTangle;
};
