// CMathFunc: areas, centroids and volumes.
#include "MathFunc.h"

#include "Vec3.h"

#include <algorithm>
#include <cmath>

namespace {

// The abscissa of two-point Gauss quadrature, to the digits that the results have always had.
constexpr double kGauss = 0.5773503;

// Triangle points of the wedge's quadrature and their weights, likewise.
struct TrianglePoint {
    double l1, l2, weight;
};
constexpr double kNearSide = 0.19999995231628418;
constexpr TrianglePoint kTrianglePoints[] = {{0.33333333, 0.33333333, -0.28125},
                                             {0.6, kNearSide, 0.2604166},
                                             {kNearSide, 0.6, 0.2604166},
                                             {kNearSide, kNearSide, 0.2604166}};

// The natural coordinates of the hexahedron's corners.
constexpr double kHexahedron[8][3] = {{-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1},
                                      {-1, -1, 1},  {1, -1, 1},  {1, 1, 1},  {-1, 1, 1}};

double Determinant(const Vec3& a, const Vec3& b, const Vec3& c)
{
    return Dot(Cross(a, b), c);
}

double Heron(double a, double b, double c)
{
    const double s = (a + b + c) * 0.5;
    return CMathFunc::mathSqrt((s - a) * (s - b) * (s - c) * s);
}

double HexahedronJacobian(double (*const pts)[3], const double* at)
{
    Vec3 row[3] = {};
    for (int i = 0; i < 8; ++i) {
        const double* const corner = kHexahedron[i];
        const double factor[3] = {1.0 + at[0] * corner[0], 1.0 + at[1] * corner[1], 1.0 + at[2] * corner[2]};
        for (int r = 0; r < 3; ++r) {
            const double slope = corner[r] * factor[(r + 1) % 3] * factor[(r + 2) % 3] / 8.0;
            row[r] = row[r] + slope * Load(pts[i]);
        }
    }
    return Determinant(row[0], row[1], row[2]);
}

// Corners 1, 2, 3 belong to L1, L2 and 1 - L1 - L2 on the face zeta = -1, corners 4, 5, 6 on zeta = +1.
double WedgeJacobian(double (*const pts)[3], const TrianglePoint& at, double zeta)
{
    const double share[3] = {at.l1, at.l2, 1.0 - at.l1 - at.l2};
    Vec3 corner[3];
    Vec3 alongZeta{};
    for (int i = 0; i < 3; ++i) {
        const Vec3 bottom = Load(pts[i]);
        const Vec3 top = Load(pts[i + 3]);
        corner[i] = 0.5 * (1.0 - zeta) * bottom + 0.5 * (1.0 + zeta) * top;
        alongZeta = alongZeta + 0.5 * share[i] * (top - bottom);
    }
    return Determinant(corner[0] - corner[2], corner[1] - corner[2], alongZeta);
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

double CMathFunc::mathArea2d(int n, double* const x, double* const y)
{
    if (n < 1)
        return 0.0;
    // Trapezoids above the lowest point: the products stay small far from the origin.
    const double lowest = *std::min_element(y, y + n);
    double area = 0.0;
    for (int i = 0; i < n; ++i) {
        const int j = (i + 1) % n;
        area += (y[i] + y[j] - 2.0 * lowest) * 0.5 * (x[i] - x[j]);
    }
    return std::abs(area);
}

int CMathFunc::mathPolyCentroid(int n, double* const x, double* const y, double& cx, double& cy, double& area)
{
    cx = cy = area = 0.0;
    if (n < 3)
        return 0;
    double sum = 0.0;
    double sumX = 0.0;
    double sumY = 0.0;
    for (int i = 0, previous = n - 1; i < n; previous = i++) {
        const double cross = x[previous] * y[i] - x[i] * y[previous];
        sum += cross;
        sumX += (x[i] + x[previous]) * cross;
        sumY += (y[i] + y[previous]) * cross;
    }
    if (sum == 0.0)
        return 0;
    area = sum * 0.5;
    cx = sumX / (3.0 * sum);
    cy = sumY / (3.0 * sum);
    return 1;
}

double CMathFunc::mathVolume(int n, double (*const pts)[3])
{
    switch (n) {
    case 4:
        return Solid_4(pts);
    case 6:
        return Solid_6(pts);
    case 8:
        return Solid_8(pts);
    default:
        return 0.0;
    }
}

double CMathFunc::Solid_4(double (*const pts)[3])
{
    const Vec3 first = Load(pts[0]);
    return Determinant(Load(pts[1]) - first, Load(pts[2]) - first, Load(pts[3]) - first) * (1.0 / 6.0);
}

// A hexahedron whose upper face has shrunk to the apex.
double CMathFunc::Solid_5(double (*const pts)[3])
{
    double corners[8][3];
    for (int i = 0; i < 8; ++i)
        Load(pts[std::min(i, 4)]).Store(corners[i]);
    return Solid_8(corners);
}

double CMathFunc::Solid_6(double (*const pts)[3])
{
    double volume = 0.0;
    for (const TrianglePoint& point : kTrianglePoints) {
        for (const double zeta : {-kGauss, kGauss})
            volume += point.weight * WedgeJacobian(pts, point, zeta);
    }
    return volume;
}

double CMathFunc::Solid_8(double (*const pts)[3])
{
    double volume = 0.0;
    for (const double* const sign : kHexahedron) {
        const double at[3] = {kGauss * sign[0], kGauss * sign[1], kGauss * sign[2]};
        volume += HexahedronJacobian(pts, at);
    }
    return volume;
}
