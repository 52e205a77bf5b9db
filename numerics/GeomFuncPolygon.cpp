// CGeomFunc: segments and points against polygons.
#include "GeomFunc.h"

#include "MathFunc.h"
#include "MathLib.h"
#include "MatrixLib.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

using Corners = CArray<T_POINT2D, T_POINT2D&>;

constexpr double kOnLine = 1e-10;
// Sines of the angle between two directions below this do not cross (CMathFunc::mathIntersectLine2D).
constexpr double kParallel = 1e-4;

// Counts by the rule for one edge after the other.
class EdgeJudge
{
public:
    EdgeJudge(const T_LINE2D& line, const T_POINT2D* points, int count)
        : m_line(line), m_points(points), m_count(count)
    {
    }

    // What the edge from point `i` to point `next` adds.
    int Count(int i, int next)
    {
        const T_POINT2D& start = m_points[i];
        const T_POINT2D& end = m_points[next];
        switch (CGeomFunc::GetTopologyOfTwoLines(m_line, {start.x, start.y, end.x, end.y})) {
        case 9:
            return 1;
        case 7:
        case 10:
        case 12:
            return OnOrAbove(m_points[i == 0 ? m_count - 1 : i - 1]) == OnOrAbove(end) ? 2 : 1;
        default:
            return 0;
        }
    }

private:
    // Seen with the line turned to run along +X.
    bool OnOrAbove(const T_POINT2D& p)
    {
        if (!m_turn)
            Turn();
        double x = 0.0;
        double y = 0.0;
        CMathLib::ApplyMatrix2D(p.x, p.y, *m_turn, x, y);
        return std::abs(y - m_line.y1) <= kOnLine || y > m_line.y1;
    }

    void Turn()
    {
        const double angle = CMathLib::CalcAngleRadLineAndAxisX(m_line.x1, m_line.y1, m_line.x2, m_line.y2);
        CMatrixLib::RotateM2D(m_turn.emplace(), -angle, m_line.x1, m_line.y1);
    }

    T_LINE2D m_line;
    const T_POINT2D* m_points;
    int m_count;
    std::optional<T_MATRIX_3X3> m_turn;
};

// Tells what most edges add without working the rule out: edges clearly on one side of the line add nothing,
// those clearly across it 1. "Clearly" is by a margin that no slack or rounding of the rule reaches.
class QuickLook
{
public:
    enum Answer { kNothing, kCrosses, kUnclear };

    QuickLook(const T_LINE2D& line, const T_REGION2D& box)
        : m_x(line.x1), m_y(line.y1), m_dx(line.x2 - line.x1), m_dy(line.y2 - line.y1),
          m_squareLength(m_dx * m_dx + m_dy * m_dy)
    {
        const double length = std::sqrt(m_squareLength);
        const double reach = box.maxX - box.minX + box.maxY - box.minY + std::abs(m_dx) + std::abs(m_dy);
        const double farthest = std::max({std::abs(box.minX), std::abs(box.minY), std::abs(box.maxX),
                                          std::abs(box.maxY), std::abs(m_x), std::abs(m_y)});
        const double margin =
            std::max(2e-10 + 2e-7 * reach + 1e-13 * farthest, 2.0 * CMathFunc::m_NormalZero);
        m_margin = std::max(margin * length, 2e-10);
        // Beyond these bounds squares overflow or vanish; comparisons with what is no number fail too.
        m_usable = farthest < 1e100 && CMathFunc::m_NormalZero >= 1e-100 && length > margin;
    }

    bool IsUsable() const { return m_usable; }

    // The point's distance from the line, times the line's length; positive on the left.
    double Height(const T_POINT2D& p) const { return m_dx * (p.y - m_y) - m_dy * (p.x - m_x); }
    // 1 clearly to the left, -1 clearly to the right, 0 neither.
    int Side(double height) const { return (height > m_margin) - (height < -m_margin); }

    // For an edge whose ends lie on different sides.
    Answer LookAcross(const T_POINT2D& a, const T_POINT2D& b, double heightA, double heightB) const
    {
        const double rise = heightB - heightA;
        const double ex = b.x - a.x;
        const double ey = b.y - a.y;
        const double least = 1.01 * 1.01 * kParallel * kParallel * m_squareLength * (ex * ex + ey * ey);
        if (rise * rise < least)
            return kUnclear;
        const double alongA = m_dx * (a.x - m_x) + m_dy * (a.y - m_y);
        const double along = alongA - (m_dx * ex + m_dy * ey) * (heightA / rise);
        if (along < -m_margin || along > m_squareLength + m_margin)
            return kNothing;
        return along > m_margin && along < m_squareLength - m_margin ? kCrosses : kUnclear;
    }

private:
    double m_x, m_y, m_dx, m_dy;
    double m_squareLength;
    double m_margin;
    bool m_usable;
};

int CountAll(EdgeJudge& judge, int count)
{
    int total = 0;
    for (int i = 0; i < count; ++i)
        total += judge.Count(i, i + 1 == count ? 0 : i + 1);
    return total;
}

int CountQuickly(EdgeJudge& judge, const QuickLook& quick, const T_POINT2D* points, int count)
{
    int total = 0;
    double height = quick.Height(points[0]);
    int side = quick.Side(height);
    for (int i = 0; i < count; ++i) {
        const int next = i + 1 == count ? 0 : i + 1;
        const double nextHeight = quick.Height(points[next]);
        const int nextSide = quick.Side(nextHeight);
        if (side * nextSide != 1) {
            const QuickLook::Answer answer =
                side * nextSide == 0 ? QuickLook::kUnclear
                                     : quick.LookAcross(points[i], points[next], height, nextHeight);
            total += answer == QuickLook::kUnclear ? judge.Count(i, next) : answer == QuickLook::kCrosses;
        }
        height = nextHeight;
        side = nextSide;
    }
    return total;
}

int CountCrossings(const T_LINE2D& line, const Corners& polygon, const T_REGION2D& box)
{
    const T_POINT2D* const points = polygon.GetData();
    const int count = polygon.GetSize();
    EdgeJudge judge(line, points, count);
    const QuickLook quick(line, box);
    return quick.IsUsable() ? CountQuickly(judge, quick, points, count) : CountAll(judge, count);
}

} // namespace

int CGeomFunc::IsPointInPolygon(const T_POINT2D& p, const CArray<T_POINT2D, T_POINT2D&>& poly)
{
    T_REGION2D box;
    if (poly.GetSize() < 3 || !GetMBR(poly, box) || !IsPointInRegion(p, box))
        return 0;
    return CountCrossings({p.x, p.y, box.minX - 1.0, p.y}, poly, box) % 2;
}

int CGeomFunc::GetLinePolygonCrossCount(const T_LINE2D& L, const CArray<T_POINT2D, T_POINT2D&>& poly)
{
    T_REGION2D box;
    return GetMBR(poly, box) ? CountCrossings(L, poly, box) : 0;
}
