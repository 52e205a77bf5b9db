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
    const SegmentRuns& Runs(int line) const { return m_runs[static_cast<std::size_t>(line)]; }

private:
    void Turn(const PolylineView* lines);

    std::vector<std::vector<T_POINT3D>> m_turned; // points, where they are not seen as they are
    std::vector<SegmentRuns> m_runs;
    bool m_usable;
};
