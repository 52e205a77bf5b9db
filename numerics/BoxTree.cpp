#include "BoxTree.h"

BoxTree::BoxTree(const PolylineView& line, const T_POINT3D* seen, double margin)
    : m_line(line), m_seen(seen), m_margin(margin)
{
    const auto runs = static_cast<std::size_t>((line.segments - 1) / kRun + 1);
    m_boxes.reserve(2 * runs + 32);
    AddRuns();
    while (m_levels.back().count > 1)
        AddLevel();
}

Box3 BoxTree::BoxOfSegment(int segment) const
{
    const T_POINT3D* const p = m_seen + segment;
    return {{std::min(p[0].x, p[1].x), std::min(p[0].y, p[1].y), std::min(p[0].z, p[1].z)},
            {std::max(p[0].x, p[1].x), std::max(p[0].y, p[1].y), std::max(p[0].z, p[1].z)}};
}

BoxTree::Few BoxTree::Near(int run, const Box3& box) const
{
    Few few;
    const int end = EndOfRun(run);
    for (int segment = run * kRun; segment < end; ++segment) {
        few.segments[few.count] = segment;
        few.boxes[few.count] = BoxOfSegment(segment);
        few.count += few.boxes[few.count].Overlaps(box);
    }
    return few;
}

void BoxTree::AddRuns()
{
    m_levels.push_back({0, (m_line.segments - 1) / kRun + 1});
    for (int run = 0; run < m_levels[0].count; ++run) {
        Box3 box;
        for (int point = run * kRun; point <= EndOfRun(run); ++point)
            box.Include(Load(m_seen[point]));
        box.Grow(m_margin);
        m_boxes.push_back(box);
    }
}

void BoxTree::AddLevel()
{
    const Level below = m_levels.back();
    m_levels.push_back({m_boxes.size(), (below.count + 1) / 2});
    for (int index = 0; index < below.count; index += 2) {
        Box3 box = m_boxes[below.first + static_cast<std::size_t>(index)];
        if (index + 1 < below.count)
            box.Include(m_boxes[below.first + static_cast<std::size_t>(index) + 1]);
        m_boxes.push_back(box);
    }
}

bool BoxTree::MeetsItself(const Node& node) const
{
    if (node.level == 0)
        return RunMeetsItself(node.index);
    const Node left = {node.level - 1, 2 * node.index};
    const Node right = {left.level, left.index + 1};
    if (right.index == At(right.level).count)
        return MeetsItself(left);
    return MeetsItself(left) || MeetsItself(right) || Meets(left, *this, right, 0);
}

bool BoxTree::Meets(const Node& mine, const BoxTree& other, const Node& its, int bCross) const
{
    if (!BoxOf(mine).Overlaps(other.BoxOf(its)))
        return false;
    if (mine.level == 0 && its.level == 0)
        return RunsMeet(mine.index, other, its.index, bCross);
    if (mine.level < its.level)
        return other.Meets(its, *this, mine, bCross);
    const Node left = {mine.level - 1, 2 * mine.index};
    const Node right = {left.level, left.index + 1};
    return Meets(left, other, its, bCross) ||
           (right.index < At(right.level).count && Meets(right, other, its, bCross));
}

bool BoxTree::RunMeetsItself(int run) const
{
    const Few all = Near(run, BoxOf({0, run}));
    for (int i = 0; i + 1 < all.count; ++i) {
        const T_POINT3D* const segment = m_line.points + all.segments[i];
        if (SegmentsMeet(segment, segment + 1, 0))
            return true;
        Box3 box = all.boxes[i];
        box.Grow(m_margin);
        for (int j = i + 2; j < all.count; ++j)
            if (box.Overlaps(all.boxes[j]) && SegmentsMeet(segment, m_line.points + all.segments[j], 0))
                return true;
    }
    return false;
}

bool BoxTree::RunsMeet(int mine, const BoxTree& other, int its, int bCross) const
{
    const Few a = Near(mine, other.BoxOf({0, its}));
    if (a.count == 0)
        return false;
    const Few b = other.Near(its, BoxOf({0, mine}));
    for (int i = 0; i < a.count; ++i) {
        Box3 box = a.boxes[i];
        box.Grow(m_margin);
        for (int j = 0; j < b.count; ++j)
            if (box.Overlaps(b.boxes[j]) &&
                SegmentsMeet(m_line.points + a.segments[i], other.m_line.points + b.segments[j], bCross))
                return true;
    }
    return false;
}
