// CMathFunc: areas, centroids and volumes.
#include "MathFunc.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

// So many vertices are summed side by side in polygons of at least kManyVertices. Fewer are summed one after
// the other, so that what cancels in a small figure cancels exactly.
constexpr int kLanes = 16;
constexpr int kManyVertices = 64;

double Heron(double a, double b, double c)
{
    const double s = (a + b + c) * 0.5;
    return CMathFunc::mathSqrt((s - a) * (s - b) * (s - c) * s);
}

double Trapezoid(const double* x, const double* y, double twiceLowest, int i, int j)
{
    return (y[i] + y[j] - twiceLowest) * 0.5 * (x[i] - x[j]);
}

ZEK_FOR_EACH_PROCESSOR
double Lowest(const double* y, int n)
{
    if (n < kManyVertices)
        return *std::min_element(y, y + n);
    double lanes[kLanes];
    std::copy(y, y + kLanes, lanes);
    int i = kLanes;
    for (; i + kLanes <= n; i += kLanes) {
        for (int lane = 0; lane < kLanes; ++lane)
            lanes[lane] = y[i + lane] < lanes[lane] ? y[i + lane] : lanes[lane];
    }
    return std::min(*std::min_element(lanes, lanes + kLanes), *std::min_element(y + i - 1, y + n));
}

// The trapezoids under the first edges, as many as fill the lanes; `next` is the first edge that is left.
ZEK_FOR_EACH_PROCESSOR
double ManyTrapezoids(const double* x, const double* y, double twiceLowest, int n, int& next)
{
    double lanes[kLanes] = {};
    for (next = 0; next + kLanes < n; next += kLanes) {
        for (int lane = 0; lane < kLanes; ++lane)
            lanes[lane] += Trapezoid(x, y, twiceLowest, next + lane, next + lane + 1);
    }
    return std::accumulate(lanes, lanes + kLanes, 0.0);
}

// Sums over edges of twice the area between edge and origin, bare and times the sum of the ends' coordinates:
// a sum in each lane.
template <int Lanes>
struct Moments {
    double area[Lanes] = {};
    double x[Lanes] = {};
    double y[Lanes] = {};

    // The edges from vertex `from` to vertex `to`, and from so many after them to as many after them.
    void Add(const double* xs, const double* ys, int from, int to)
    {
        for (int lane = 0; lane < Lanes; ++lane) {
            const double x1 = xs[from + lane], y1 = ys[from + lane];
            const double x2 = xs[to + lane], y2 = ys[to + lane];
            const double cross = x1 * y2 - x2 * y1;
            area[lane] += cross;
            x[lane] += (x2 + x1) * cross;
            y[lane] += (y2 + y1) * cross;
        }
    }
};

// Adds the edges that end at vertices from 1 on, as many as fill the lanes; `next` is the first that is left.
ZEK_FOR_EACH_PROCESSOR
void AddMany(Moments<1>& sum, const double* x, const double* y, int n, int& next)
{
    Moments<kLanes> lanes;
    for (; next + kLanes <= n; next += kLanes)
        lanes.Add(x, y, next - 1, next);
    for (int lane = 0; lane < kLanes; ++lane) {
        sum.area[0] += lanes.area[lane];
        sum.x[0] += lanes.x[lane];
        sum.y[0] += lanes.y[lane];
    }
}

} // namespace

double CMathFunc::mathArea(double* const p1, double* const p2, double* const p3)
{
    return Heron(mathDistanceToPoint(p1, p2), mathDistanceToPoint(p2, p3), mathDistanceToPoint(p3, p1));
}

double CMathFunc::mathArea2d(double x1, double y1, double x2, double y2, double x3, double y3)
{
    return Heron(mathLength(x1, y1, x2, y2), mathLength(x2, y2, x3, y3), mathLength(x3, y3, x1, y1));
}

// Trapezoids above the lowest point: the products stay small far from the origin.
double CMathFunc::mathArea2d(int n, double* const x, double* const y)
{
    if (n < 1)
        return 0.0;
    const double twiceLowest = 2.0 * Lowest(y, n);
    int i = 0;
    double area = n >= kManyVertices ? ManyTrapezoids(x, y, twiceLowest, n, i) : 0.0;
    for (; i < n; ++i)
        area += Trapezoid(x, y, twiceLowest, i, i + 1 < n ? i + 1 : 0);
    return std::abs(area);
}

int CMathFunc::mathPolyCentroid(int n, double* const x, double* const y, double& cx, double& cy, double& area)
{
    cx = cy = area = 0.0;
    if (n < 3)
        return 0;
    Moments<1> sum;
    sum.Add(x, y, n - 1, 0);
    int i = 1;
    if (n >= kManyVertices)
        AddMany(sum, x, y, n, i);
    for (; i < n; ++i)
        sum.Add(x, y, i - 1, i);
    if (sum.area[0] == 0.0)
        return 0;
    area = sum.area[0] * 0.5;
    cx = sum.x[0] / (3.0 * sum.area[0]);
    cy = sum.y[0] / (3.0 * sum.area[0]);
    return 1;
}
