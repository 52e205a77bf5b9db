// CMathFunc: areas, centroids and volumes.
#include "MathFunc.h"

#include <algorithm>
#include <cmath>

namespace {

// So many vertices are summed side by side in polygons of at least kManyVertices. Fewer are summed one after
// the other, so that what cancels in a small figure cancels exactly.
constexpr int kLanes = 4;
constexpr int kManyVertices = 32;

double Heron(double a, double b, double c)
{
    const double s = (a + b + c) * 0.5;
    return CMathFunc::mathSqrt((s - a) * (s - b) * (s - c) * s);
}

double Trapezoid(const double* x, const double* y, double twiceLowest, int i, int j)
{
    return (y[i] + y[j] - twiceLowest) * 0.5 * (x[i] - x[j]);
}

// Sums over edges of twice the area between edge and origin, bare and times the sum of the ends' coordinates.
struct Moments {
    double area = 0.0, x = 0.0, y = 0.0;

    void Add(const double* xs, const double* ys, int from, int to)
    {
        const double cross = xs[from] * ys[to] - xs[to] * ys[from];
        area += cross;
        x += (xs[to] + xs[from]) * cross;
        y += (ys[to] + ys[from]) * cross;
    }
    Moments& operator+=(const Moments& other)
    {
        area += other.area;
        x += other.x;
        y += other.y;
        return *this;
    }
};

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
    const double twiceLowest = 2.0 * *std::min_element(y, y + n);
    double lanes[kLanes] = {};
    int i = 0;
    for (; n >= kManyVertices && i + kLanes < n; i += kLanes) {
        for (int lane = 0; lane < kLanes; ++lane)
            lanes[lane] += Trapezoid(x, y, twiceLowest, i + lane, i + lane + 1);
    }
    double area = lanes[0] + lanes[1] + lanes[2] + lanes[3];
    for (; i < n; ++i)
        area += Trapezoid(x, y, twiceLowest, i, i + 1 < n ? i + 1 : 0);
    return std::abs(area);
}

int CMathFunc::mathPolyCentroid(int n, double* const x, double* const y, double& cx, double& cy, double& area)
{
    cx = cy = area = 0.0;
    if (n < 3)
        return 0;
    Moments sum;
    sum.Add(x, y, n - 1, 0);
    Moments lanes[kLanes];
    int i = 1;
    for (; n >= kManyVertices && i + kLanes <= n; i += kLanes) {
        for (int lane = 0; lane < kLanes; ++lane)
            lanes[lane].Add(x, y, i + lane - 1, i + lane);
    }
    for (; i < n; ++i)
        sum.Add(x, y, i - 1, i);
    for (const Moments& lane : lanes)
        sum += lane;
    if (sum.area == 0.0)
        return 0;
    area = sum.area * 0.5;
    cx = sum.x / (3.0 * sum.area);
    cy = sum.y / (3.0 * sum.area);
    return 1;
}
