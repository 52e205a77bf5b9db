// CMathFunc: volumes of solid elements.
#include "MathFunc.h"

#include "Vec3.h"

#include <algorithm>

namespace {

// The abscissa of two-point Gauss quadrature, to the digits that the results have always had.
constexpr double kGauss = 0.5773503;
constexpr double kGaussSquare = kGauss * kGauss;

// Triangle points of the wedge's quadrature and their weights, likewise.
struct TrianglePoint {
    double l1, l2, weight;
};
constexpr double kNearSide = 0.19999995231628418;
constexpr TrianglePoint kTrianglePoints[] = {{0.33333333, 0.33333333, -0.28125},
                                             {0.6, kNearSide, 0.2604166},
                                             {kNearSide, 0.6, 0.2604166},
                                             {kNearSide, kNearSide, 0.2604166}};

// The weights' sum, and those of the weights times either coordinate.
constexpr TrianglePoint WeightSums()
{
    TrianglePoint sums{};
    for (const TrianglePoint& point : kTrianglePoints) {
        sums.weight += point.weight;
        sums.l1 += point.weight * point.l1;
        sums.l2 += point.weight * point.l2;
    }
    return sums;
}

double Determinant(const Vec3& a, const Vec3& b, const Vec3& c)
{
    return Dot(Cross(a, b), c);
}

} // namespace

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

// Corners 1, 2, 3 belong to L1, L2 and 1 - L1 - L2 on the face zeta = -1, corners 4, 5, 6 on zeta = +1. The
// Jacobian's rows along L1 and L2 depend on zeta alone and linearly, its row along zeta on L1 and L2 alone:
// the quadrature's sum is a product of two sums, and what is odd in zeta cancels.
double CMathFunc::Solid_6(double (*const pts)[3])
{
    constexpr TrianglePoint kSums = WeightSums();
    Vec3 middle[3];
    Vec3 rise[3];
    for (int i = 0; i < 3; ++i) {
        const Vec3 bottom = Load(pts[i]);
        const Vec3 top = Load(pts[i + 3]);
        middle[i] = 0.5 * (bottom + top);
        rise[i] = 0.5 * (top - bottom);
    }
    const Vec3 rise1 = rise[0] - rise[2];
    const Vec3 rise2 = rise[1] - rise[2];
    const Vec3 area =
        Cross(middle[0] - middle[2], middle[1] - middle[2]) + kGaussSquare * Cross(rise1, rise2);
    return 2.0 * ::Dot(area, kSums.weight * rise[2] + kSums.l1 * rise1 + kSums.l2 * rise2);
}

// With the mapping written as a polynomial, x = c0 + xi cX + eta cY + zeta cZ + xi eta cXY + ..., the sum of
// the determinants over the eight points keeps only what is even in each of xi, eta and zeta: four
// determinants, three of them times the square of the abscissa. Those with the coefficient of xi eta zeta
// hold a vector twice and vanish. Each vector below is eight times its coefficient.
double CMathFunc::Solid_8(double (*const pts)[3])
{
    const auto edge = [pts](int from, int to) { return Load(pts[to]) - Load(pts[from]); };
    const Vec3 x01 = edge(0, 1), x32 = edge(3, 2), x45 = edge(4, 5), x76 = edge(7, 6);
    const Vec3 y03 = edge(0, 3), y12 = edge(1, 2), y47 = edge(4, 7), y56 = edge(5, 6);
    const Vec3 alongX = (x01 + x32) + (x45 + x76);
    const Vec3 alongY = (y03 + y12) + (y47 + y56);
    const Vec3 alongZ = (edge(0, 4) + edge(1, 5)) + (edge(2, 6) + edge(3, 7));
    const Vec3 alongXY = (x32 - x01) + (x76 - x45);
    const Vec3 alongXZ = (x45 + x76) - (x01 + x32);
    const Vec3 alongYZ = (y47 + y56) - (y03 + y12);
    const double straight = Determinant(alongX, alongY, alongZ);
    const double twisted = Determinant(alongX, alongXY, alongXZ) + Determinant(alongXY, alongY, alongYZ) +
                           Determinant(alongXZ, alongYZ, alongZ);
    return (straight + kGaussSquare * twisted) / 64.0;
}
