#include "BoxView.h"

#include "BoxTree.h"

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
    Box3 box;
    double widths[3] = {};
    double longest = 0.0;
    double segments = 0.0;

    void Add(const Vec3& from, const Vec3& to)
    {
        box.Include(from);
        box.Include(to);
        for (int axis = 0; axis < 3; ++axis)
            widths[axis] += std::abs(to[axis] - from[axis]);
        longest = std::max(longest, Reach(to - from));
        segments += 1.0;
    }

    // How many boxes a segment's box overlaps, were they spread evenly.
    double Overlaps() const
    {
        double part = 1.0;
        for (int axis = 0; axis < 3; ++axis) {
            const double extent = box.high[axis] - box.low[axis];
            if (extent > 0.0)
                part *= std::min(1.0, 2.0 * widths[axis] / segments / extent);
        }
        return part * segments;
    }

    double Margin() const
    {
        double farthest = 0.0;
        for (int axis = 0; axis < 3; ++axis)
            farthest = std::max({farthest, std::abs(box.low[axis]), std::abs(box.high[axis])});
        // Boxes pass over what is no number; widths do not.
        return SafeRoom(3.0 * farthest, 2.0 * longest, Reach(box.Size())) +
               0.0 * (widths[0] + widths[1] + widths[2]);
    }
};

Survey SurveyOwn(const Lines& lines)
{
    Survey survey;
    lines.ForEachSegment([&](const Vec3& from, const Vec3& to) { survey.Add(from, to); });
    return survey;
}

Survey SurveyFrom(const Lines& lines, const Axes& axes)
{
    Survey survey;
    lines.ForEachSegment(
        [&](const Vec3& from, const Vec3& to) { survey.Add(See(axes, from), See(axes, to)); });
    return survey;
}

void MakeUnit(Vec3& v)
{
    v = 1.0 / Length(v) * v;
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

} // namespace

BoxView::BoxView(const PolylineView* lines, int count)
{
    const Survey survey = SurveyOwn({lines, count});
    m_margin = survey.Margin();
    for (int line = 0; line < count; ++line)
        m_points.push_back(lines[line].points);
    if (!IsUsable() || survey.Overlaps() <= kFewOverlaps)
        return;
    const Axes axes = AxesAlongLongest({lines, count});
    if (!(SurveyFrom({lines, count}, axes).Overlaps() < 0.5 * survey.Overlaps()))
        return;
    for (int line = 0; line < count; ++line)
        m_turned.push_back(Turned(lines[line], axes));
    for (int line = 0; line < count; ++line)
        m_points[static_cast<std::size_t>(line)] = m_turned[static_cast<std::size_t>(line)].data();
}
