#include "BoxTree.h"

namespace {

std::vector<Box3> LevelAbove(const std::vector<Box3>& below)
{
    std::vector<Box3> level;
    level.reserve((below.size() + 1) / 2);
    for (std::size_t i = 0; i < below.size(); i += 2) {
        level.push_back(below[i]);
        if (i + 1 < below.size())
            level.back().Include(below[i + 1]);
    }
    return level;
}

} // namespace

BoxTree::BoxTree(const SegmentRuns& runs) : m_runs(runs)
{
    while (At(Top().level).size() > 1)
        m_above.push_back(LevelAbove(At(Top().level)));
}

bool BoxTree::MeetsItself(const Node& node) const
{
    if (node.level == 0)
        return false;
    const Node left = {node.level - 1, 2 * node.index};
    const Node right = {left.level, left.index + 1};
    if (!IsThere(right))
        return MeetsItself(left);
    return MeetsItself(left) || MeetsItself(right) || Meets(left, *this, right, 0);
}

bool BoxTree::Meets(const Node& mine, const BoxTree& other, const Node& its, int bCross) const
{
    if (!BoxOf(mine).Overlaps(other.BoxOf(its)))
        return false;
    if (mine.level == 0 && its.level == 0)
        return m_runs.Meet(mine.index, other.m_runs, its.index, bCross);
    if (mine.level < its.level)
        return other.Meets(its, *this, mine, bCross);
    const Node left = {mine.level - 1, 2 * mine.index};
    const Node right = {left.level, left.index + 1};
    return Meets(left, other, its, bCross) || (IsThere(right) && Meets(right, other, its, bCross));
}
