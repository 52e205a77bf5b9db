#include "SegmentRuns.h"

#include <cmath>
#include <limits>

SegmentRuns::SegmentRuns(const PolylineView& line, const T_POINT3D* seen) : m_line(line), m_seen(seen)
{
    const int runs = (line.segments - 1) / kLength + 1;
    double sum = 0.0; // boxes pass over what is no number
    m_boxes.reserve(static_cast<std::size_t>(runs));
    for (int run = 0; run < runs; ++run) {
        Box3 box;
        for (int point = run * kLength; point <= EndOf(run); ++point) {
            const Vec3 p = Load(m_seen[point]);
            box.Include(p);
            sum += p[0] + p[1] + p[2];
        }
        m_boxes.push_back(box);
    }
    m_isFinite = std::isfinite(sum);
}

void SegmentRuns::Widen(double margin, bool exactEnds)
{
    m_margin = margin;
    m_exactEnds = exactEnds;
    for (Box3& box : m_boxes)
        box.Grow(margin + SafeRoom(0.0, Reach(box.Size()), 0.0));
}

// Whether each segment advances by more than the margin in the direction of the whole: then none comes near
// another but its neighbours, and these in their joint only.
bool SegmentRuns::GoesOn(int first, int end) const
{
    const T_POINT3D* const points = m_line.points;
    const Vec3 way = Load(points[end]) - Load(points[first]);
    const double margin = MarginOf(first / kLength) + MarginOf((end - 1) / kLength);
    const double limit = LeastJoined(margin) * Length(way);
    double from = Dot(Load(points[first]), way);
    double least = std::numeric_limits<double>::infinity();
    for (int i = first; i < end; ++i) {
        const double to = Dot(Load(points[i + 1]), way);
        least = std::min(least, to - from);
        from = to;
    }
    return least > limit;
}

bool SegmentRuns::MeetsOnTheWay(int run) const
{
    const bool isLast = run + 1 == Count();
    if (m_exactEnds && GoesOn(run * kLength, EndOf(isLast ? run : run + 1)))
        return false;
    return MeetsItself(run) || (!isLast && Meet(run, *this, run + 1, 0));
}

Box3 SegmentRuns::BoxOfSegment(int segment) const
{
    const T_POINT3D* const p = m_seen + segment;
    return {{std::min(p[0].x, p[1].x), std::min(p[0].y, p[1].y), std::min(p[0].z, p[1].z)},
            {std::max(p[0].x, p[1].x), std::max(p[0].y, p[1].y), std::max(p[0].z, p[1].z)}};
}

SegmentRuns::Few SegmentRuns::Near(int run, const Box3& box) const
{
    Few few;
    const int end = EndOf(run);
    const double margin = MarginOf(run);
    for (int segment = run * kLength; segment < end; ++segment) {
        few.segments[few.count] = segment;
        few.boxes[few.count] = BoxOfSegment(segment);
        few.boxes[few.count].Grow(margin);
        few.count += few.boxes[few.count].Overlaps(box);
    }
    return few;
}

bool SegmentRuns::MeetsItself(int run) const
{
    const Few all = Near(run, BoxOf(run));
    for (int i = 0; i + 1 < all.count; ++i) {
        const T_POINT3D* const segment = m_line.points + all.segments[i];
        if (SegmentsMeet(segment, segment + 1, 0))
            return true;
        for (int j = i + 2; j < all.count; ++j)
            if (all.boxes[i].Overlaps(all.boxes[j]) &&
                SegmentsMeet(segment, m_line.points + all.segments[j], 0))
                return true;
    }
    return false;
}

// What the points of the run reach along an axis.
SegmentRuns::Span SegmentRuns::Along(const Vec3& axis, int run) const
{
    Span span;
    for (int point = run * kLength; point <= EndOf(run); ++point) {
        const double at = Dot(Load(m_line.points[point]), axis);
        span.low = std::min(span.low, at);
        span.high = std::max(span.high, at);
    }
    return span;
}

// Whether both lie apart as seen along the first one's way: lines side by side in a slanted direction, whose
// boxes overlap, mostly do.
bool SegmentRuns::SideBySide(int run, const SegmentRuns& other, int its) const
{
    const Vec3 start = Load(m_line.points[run * kLength]);
    const Vec3 way = Load(m_line.points[EndOf(run)]) - start;
    const Vec3 across = Load(other.m_line.points[its * kLength]) - start;
    const double squareLength = Dot(way, way);
    if (!(squareLength > 0.0))
        return false;
    const Vec3 axis = across - Dot(across, way) / squareLength * way;
    const Span mine = Along(axis, run);
    const Span theirs = other.Along(axis, its);
    return std::max(theirs.low - mine.high, mine.low - theirs.high) >
           (MarginOf(run) + other.MarginOf(its)) * Length(axis);
}

bool SegmentRuns::Meet(int run, const SegmentRuns& other, int its, int bCross) const
{
    if (SideBySide(run, other, its))
        return false;
    const Few a = Near(run, other.BoxOf(its));
    if (a.count == 0)
        return false;
    const Few b = other.Near(its, BoxOf(run));
    for (int i = 0; i < a.count; ++i) {
        for (int j = 0; j < b.count; ++j)
            if (a.boxes[i].Overlaps(b.boxes[j]) &&
                SegmentsMeet(m_line.points + a.segments[i], other.m_line.points + b.segments[j], bCross))
                return true;
    }
    return false;
}
