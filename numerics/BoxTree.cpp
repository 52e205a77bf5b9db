#include "BoxTree.h"

#include <algorithm>

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
    Box3 box;
    box.Include(Load(m_seen[segment]));
    box.Include(Load(m_seen[segment + 1]));
    box.Grow(m_margin + SafeRoom(0.0, LengthOf(segment), 0.0));
    return box;
}

double BoxTree::LengthOf(int segment) const
{
    return Reach(Load(m_line.points[segment + 1]) - Load(m_line.points[segment]));
}

BoxTree::Run BoxTree::Open(int run) const
{
    Run opened;
    opened.first = run * kRun;
    opened.count = std::min(kRun, m_line.segments - opened.first);
    for (int i = 0; i < opened.count; ++i)
        opened.boxes[i] = BoxOfSegment(opened.first + i);
    return opened;
}

void BoxTree::AddRuns()
{
    m_levels.push_back({0, (m_line.segments - 1) / kRun + 1});
    for (int first = 0; first < m_line.segments; first += kRun) {
        const int end = std::min(first + kRun, m_line.segments);
        Box3 box;
        double longest = 0.0;
        box.Include(Load(m_seen[first]));
        for (int i = first; i < end; ++i) {
            box.Include(Load(m_seen[i + 1]));
            longest = std::max(longest, LengthOf(i));
        }
        box.Grow(m_margin + SafeRoom(0.0, longest, 0.0));
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
    const Run opened = Open(run);
    const T_POINT3D* const points = m_line.points + opened.first;
    for (int i = 0; i < opened.count; ++i)
        for (int j = i + 1; j < opened.count; ++j)
            if (opened.boxes[i].Overlaps(opened.boxes[j]) && SegmentsMeet(points + i, points + j, 0))
                return true;
    return false;
}

bool BoxTree::RunsMeet(int mine, const BoxTree& other, int its, int bCross) const
{
    const Box3& itsBox = other.BoxOf({0, its});
    const Run a = Open(mine);
    const Run b = other.Open(its);
    for (int i = 0; i < a.count; ++i) {
        if (!a.boxes[i].Overlaps(itsBox))
            continue;
        for (int j = 0; j < b.count; ++j)
            if (a.boxes[i].Overlaps(b.boxes[j]) &&
                SegmentsMeet(m_line.points + a.first + i, other.m_line.points + b.first + j, bCross))
                return true;
    }
    return false;
}
