// Which runs of polylines lie near each other, for any run lengths and places: a tree of boxes over
// neighbours in the polyline.
#pragma once

#include "SegmentRuns.h"

class BoxTree
{
public:
    // The runs are not copied.
    explicit BoxTree(const SegmentRuns& runs);

    // Whether segments of different runs of this polyline meet, or one of this and one of the other.
    bool MeetsItself() const { return MeetsItself(Top()); }
    bool Meets(const BoxTree& other) const { return Meets(Top(), other, other.Top(), 1); }

private:
    // Level 0 holds the runs; a node of another level stands over two of the level below, the last one
    // perhaps over one.
    struct Node {
        int level;
        int index;
    };
    using Level = std::vector<Box3>;

    Node Top() const { return {static_cast<int>(m_above.size()), 0}; }
    const Level& At(int level) const
    {
        return level == 0 ? m_runs.Boxes() : m_above[static_cast<std::size_t>(level) - 1];
    }
    const Box3& BoxOf(const Node& node) const { return At(node.level)[static_cast<std::size_t>(node.index)]; }
    bool IsThere(const Node& node) const
    {
        return static_cast<std::size_t>(node.index) < At(node.level).size();
    }

    bool MeetsItself(const Node& node) const;
    bool Meets(const Node& mine, const BoxTree& other, const Node& its, int bCross) const;

    const SegmentRuns& m_runs;
    std::vector<Level> m_above;
};
