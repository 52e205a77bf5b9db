// A polyline in runs of consecutive segments, with a box round each run.
#pragma once

#include "Box3.h"
#include "SegmentPair.h"

#include <algorithm>
#include <vector>

class SegmentRuns
{
public:
    // The boxes are made in the view of `seen`, the polyline's points or the same points turned. Neither is
    // copied.
    SegmentRuns(const PolylineView& line, const T_POINT3D* seen);

    // Makes all boxes larger, by the margin and by the slack of their segments: after that, runs whose boxes
    // lie apart have no segments that meet. `exactEnds` tells that no segment is longer than kExactLength.
    void Widen(double margin, bool exactEnds);

    int Count() const { return static_cast<int>(m_boxes.size()); }
    const std::vector<Box3>& Boxes() const { return m_boxes; }
    const Box3& BoxOf(int run) const { return m_boxes[static_cast<std::size_t>(run)]; }
    // Whether all coordinates are numbers, and their sum is one.
    bool IsFinite() const { return m_isFinite; }

    // Whether two segments meet of which one is in the run and the other in it or in the next.
    bool MeetsOnTheWay(int run) const;
    // Whether a segment of the run meets one of another's, which is a run of the same polyline for bCross ==
    // 0.
    bool Meet(int run, const SegmentRuns& other, int its, int bCross) const;

private:
    static constexpr int kLength = 8;

    // The segments of a run that come near a box.
    struct Few {
        int count = 0;
        int segments[kLength];
        Box3 boxes[kLength];
    };

    struct Span {
        double low = Box3::kInfinite;
        double high = -Box3::kInfinite;
    };

    int EndOf(int run) const { return std::min((run + 1) * kLength, m_line.segments); }
    // What the box of the run was made larger by, or more.
    double MarginOf(int run) const { return m_margin + SafeRoom(0.0, Reach(BoxOf(run).Size()), 0.0); }
    Box3 BoxOfSegment(int segment) const;
    Few Near(int run, const Box3& box) const;
    Span Along(const Vec3& axis, int run) const;
    bool SideBySide(int run, const SegmentRuns& other, int its) const;
    bool GoesOn(int first, int end) const;
    bool MeetsItself(int run) const;

    PolylineView m_line;
    const T_POINT3D* m_seen;
    double m_margin = 0.0;
    bool m_exactEnds = false;
    bool m_isFinite;
    std::vector<Box3> m_boxes;
};
