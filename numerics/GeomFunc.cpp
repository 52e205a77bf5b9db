// CGeomFunc: regions, and how two segments lie to each other.
#include "GeomFunc.h"

#include "MathFunc.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kSame = 1e-10;

bool Same(double ax, double ay, double bx, double by)
{
    return std::abs(ax - bx) <= kSame && std::abs(ay - by) <= kSame;
}

// Where (x, y), known to lie on the segment, lies on it: 1 at the start, 2 at the end, 3 between.
int PlaceOn(const T_LINE2D& line, double x, double y)
{
    if (Same(x, y, line.x1, line.y1))
        return 1;
    return Same(x, y, line.x2, line.y2) ? 2 : 3;
}

T_REGION2D BoxOf(const T_LINE2D& line)
{
    return {std::min(line.x1, line.x2), std::min(line.y1, line.y2), std::max(line.x1, line.x2),
            std::max(line.y1, line.y2)};
}

bool Apart(const T_REGION2D& a, const T_REGION2D& b)
{
    return std::max(a.minX - b.maxX, b.minX - a.maxX) > kSame ||
           std::max(a.minY - b.maxY, b.minY - a.maxY) > kSame;
}

bool Within(double x, double y, const T_REGION2D& box)
{
    return x >= box.minX - kSame && x <= box.maxX + kSame && y >= box.minY - kSame && y <= box.maxY + kSame;
}

bool InLine(const T_LINE2D& L1, const T_LINE2D& L2)
{
    const double dx = L1.x2 - L1.x1;
    const double dy = L1.y2 - L1.y1;
    return !(std::abs(dx * (L2.y2 - L2.y1) - dy * (L2.x2 - L2.x1)) > kSame) &&
           !(std::abs(dx * (L2.y1 - L1.y1) - dy * (L2.x1 - L1.x1)) > kSame);
}

int TopologyInLine(const T_LINE2D& L1, const T_LINE2D& L2)
{
    const T_REGION2D box = BoxOf(L1);
    if (Apart(box, BoxOf(L2)))
        return 0;
    const bool start = Within(L2.x1, L2.y1, box);
    const bool end = Within(L2.x2, L2.y2, box);
    if (start)
        return end ? 12 : 10;
    return end ? 11 : 13;
}

} // namespace

int CGeomFunc::GetMBR(const CArray<T_POINT2D, T_POINT2D&>& pts, T_REGION2D& r)
{
    const int count = pts.GetSize();
    if (count == 0)
        return 0;
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    T_REGION2D box = {kInfinite, kInfinite, -kInfinite, -kInfinite};
    const T_POINT2D* const end = pts.GetData() + count;
    for (const T_POINT2D* p = pts.GetData(); p != end; ++p) {
        box.minX = p->x < box.minX ? p->x : box.minX;
        box.minY = p->y < box.minY ? p->y : box.minY;
        box.maxX = p->x > box.maxX ? p->x : box.maxX;
        box.maxY = p->y > box.maxY ? p->y : box.maxY;
    }
    r = box;
    return 1;
}

int CGeomFunc::IsPointInRegion(const T_POINT2D& p, const T_REGION2D& r)
{
    return r.minX < p.x && p.x < r.maxX && r.minY < p.y && p.y < r.maxY;
}

int CGeomFunc::GetTopologyOfTwoLines(const T_LINE2D& L1, const T_LINE2D& L2)
{
    double x = 0.0;
    double y = 0.0;
    if (CMathFunc::mathIntersectLine2D(L1.x1, L1.y1, L1.x2, L1.y2, L2.x1, L2.y1, L2.x2, L2.y2, x, y, 1))
        return (PlaceOn(L1, x, y) - 1) * 3 + PlaceOn(L2, x, y);
    return InLine(L1, L2) ? TopologyInLine(L1, L2) : 0;
}
