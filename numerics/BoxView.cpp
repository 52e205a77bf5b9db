#include "BoxView.h"

#include "Box3.h"

#include <algorithm>
#include <array>

namespace {

using Axes = std::array<Vec3, 3>;

constexpr Axes kOwnAxes = {{{{1.0, 0.0, 0.0}}, {{0.0, 1.0, 0.0}}, {{0.0, 0.0, 1.0}}}};
// So many overlaps for each segment are no reason to look for a better view.
constexpr double kFewOverlaps = 8.0;

struct Lines {
    const PolylineView* lines;
    int count;

    template <class VISIT>
    void ForEachSegment(VISIT visit) const
    {
        for (int line = 0; line < count; ++line)
            for (int i = 0; i < lines[line].segments; ++i)
                visit(Load(lines[line].points[i]), Load(lines[line].points[i + 1]));
    }
};

Vec3 See(const Axes& axes, const Vec3& p)
{
    return {{Dot(axes[0], p), Dot(axes[1], p), Dot(axes[2], p)}};
}

struct Survey {
    explicit Survey(const std::vector<SegmentRuns>& lines)
    {
        for (const SegmentRuns& runs : lines)
            for (const Box3& each : runs.Boxes())
                Add(each);
    }

    void Add(const Box3& each)
    {
        const Vec3 size = each.Size();
        box.Include(each);
        for (int axis = 0; axis < 3; ++axis)
            widths[axis] += size[axis];
        largest = std::max(largest, Reach(size));
        boxes += 1.0;
    }

    // How many boxes a box overlaps, were they spread evenly.
    double Overlaps() const
    {
        double part = 1.0;
        for (int axis = 0; axis < 3; ++axis) {
            const double extent = box.high[axis] - box.low[axis];
            if (extent > 0.0)
                part *= std::min(1.0, 2.0 * widths[axis] / boxes / extent);
        }
        return part * boxes;
    }

    double Farthest() const
    {
        double farthest = 0.0;
        for (int axis = 0; axis < 3; ++axis)
            farthest = std::max({farthest, std::abs(box.low[axis]), std::abs(box.high[axis])});
        return farthest;
    }

    Box3 box;
    double widths[3] = {};
    double largest = 0.0; // no segment is longer
    double boxes = 0.0;
};

// Nothing stays nothing.
void MakeUnit(Vec3& v)
{
    const double length = Length(v);
    if (length > 0.0)
        v = 1.0 / length * v;
}

// Along the longest segment, towards what lies farthest from its line, and across: many long parallel
// segments have thin boxes there.
Axes AxesAlongLongest(const Lines& lines)
{
    Axes axes = kOwnAxes;
    Vec3 start{};
    Vec3 longest{};
    lines.ForEachSegment([&](const Vec3& from, const Vec3& to) {
        if (Dot(to - from, to - from) > Dot(longest, longest)) {
            start = from;
            longest = to - from;
        }
    });
    axes[0] = longest;
    MakeUnit(axes[0]);
    Vec3 aside{};
    lines.ForEachSegment([&](const Vec3& from, const Vec3&) {
        const Vec3 way = from - start;
        const Vec3 across = way - Dot(way, axes[0]) * axes[0];
        if (Dot(across, across) > Dot(aside, aside))
            aside = across;
    });
    axes[2] = Cross(axes[0], aside);
    MakeUnit(axes[2]);
    axes[1] = Cross(axes[2], axes[0]);
    return axes;
}

std::vector<T_POINT3D> Turned(const PolylineView& line, const Axes& axes)
{
    std::vector<T_POINT3D> points;
    points.reserve(static_cast<std::size_t>(line.segments) + 1);
    for (int i = 0; i <= line.segments; ++i) {
        const Vec3 p = See(axes, Load(line.points[i]));
        points.push_back({p[0], p[1], p[2]});
    }
    return points;
}

bool IsTangled(const Survey& survey)
{
    return survey.Overlaps() > std::max(kFewOverlaps, std::sqrt(survey.boxes));
}

} // namespace

BoxView::BoxView(const PolylineView* lines, int count)
{
    for (int line = 0; line < count; ++line)
        m_runs.emplace_back(lines[line], lines[line].points);
    const Survey survey(m_runs);
    m_margin = SafeRoom(3.0 * survey.Farthest(), 0.0, Reach(survey.box.Size()));
    m_isTangle = false;
    m_usable = IsSafeRoom(m_margin) && std::all_of(m_runs.begin(), m_runs.end(),
                                                   [](const SegmentRuns& runs) { return runs.IsFinite(); });
    if (!m_usable)
        return;
    if (survey.Overlaps() > kFewOverlaps)
        Turn(lines);
    m_isTangle = IsTangled(Survey(m_runs));
    for (SegmentRuns& runs : m_runs)
        runs.Widen(m_margin, survey.largest < kExactLength);
}

void BoxView::Turn(const PolylineView* lines)
{
    const int count = static_cast<int>(m_runs.size());
    const Axes axes = AxesAlongLongest({lines, count});
    std::vector<SegmentRuns> turned;
    for (int line = 0; line < count; ++line) {
        m_turned.push_back(Turned(lines[line], axes));
        turned.emplace_back(lines[line], m_turned.back().data());
    }
    if (Survey(turned).Overlaps() < 0.5 * Survey(m_runs).Overlaps())
        m_runs.swap(turned);
    else
        m_turned.clear();
}
