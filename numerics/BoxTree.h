// Which segments of polylines lie near each other: a tree of boxes over runs of consecutive segments.
#pragma once

#include "SegmentPair.h"

#include <algorithm>
#include <limits>
#include <vector>

struct Box3 {
    static constexpr double kInfinite = std::numeric_limits<double>::infinity();

    double low[3] = {kInfinite, kInfinite, kInfinite};
    double high[3] = {-kInfinite, -kInfinite, -kInfinite};

    void Include(const Vec3& from, const Vec3& to)
    {
        for (int axis = 0; axis < 3; ++axis) {
            low[axis] = from[axis] < low[axis] ? from[axis] : low[axis];
            high[axis] = to[axis] > high[axis] ? to[axis] : high[axis];
        }
    }
    void Include(const Vec3& p) { Include(p, p); }
    void Include(const Box3& box) { Include(Load(box.low), Load(box.high)); }
    void Grow(double margin)
    {
        for (int axis = 0; axis < 3; ++axis) {
            low[axis] -= margin;
            high[axis] += margin;
        }
    }
    Vec3 Size() const { return Load(high) - Load(low); }
    // Without branches: the answers come in no order that a processor could learn.
    bool Overlaps(const Box3& other) const
    {
        int overlaps = 1;
        for (int axis = 0; axis < 3; ++axis)
            overlaps &= int(low[axis] <= other.high[axis]) & int(other.low[axis] <= high[axis]);
        return overlaps != 0;
    }
};

class BoxTree
{
public:
    // The boxes are made in the view of `seen`, the polyline's points or the same points turned; each is
    // `margin` larger than what it holds, beside the slack of the segments. The points are not copied.
    BoxTree(const PolylineView& line, const T_POINT3D* seen, double margin);

    // Whether two segments of this polyline meet, or one of this and one of the other.
    bool MeetsItself() const { return MeetsItself(Top()); }
    bool Meets(const BoxTree& other) const { return Meets(Top(), other, other.Top(), 1); }

private:
    static constexpr int kRun = 8;

    // Level 0 holds the runs; a node of another level stands over two of the level below, the last one
    // perhaps over one.
    struct Node {
        int level;
        int index;
    };
    struct Level {
        std::size_t first;
        int count;
    };
    // The segments of a run that come near a box.
    struct Few {
        int count = 0;
        int segments[kRun];
        Box3 boxes[kRun];
    };

    Node Top() const { return {static_cast<int>(m_levels.size()) - 1, 0}; }
    const Level& At(int level) const { return m_levels[static_cast<std::size_t>(level)]; }
    const Box3& BoxOf(const Node& node) const
    {
        return m_boxes[At(node.level).first + static_cast<std::size_t>(node.index)];
    }
    int EndOfRun(int run) const { return std::min((run + 1) * kRun, m_line.segments); }
    Box3 BoxOfSegment(int segment) const;
    Few Near(int run, const Box3& box) const;
    void AddRuns();
    void AddLevel();

    bool MeetsItself(const Node& node) const;
    bool Meets(const Node& mine, const BoxTree& other, const Node& its, int bCross) const;
    bool RunMeetsItself(int run) const;
    bool RunsMeet(int mine, const BoxTree& other, int its, int bCross) const;

    PolylineView m_line;
    const T_POINT3D* m_seen;
    double m_margin;
    std::vector<Box3> m_boxes;
    std::vector<Level> m_levels;
};
