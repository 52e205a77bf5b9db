#include "MathFunc.h"
#include "Random.h"

#include <cmath>
#include <gmock/gmock.h>
#include <numbers>
#include <vector>

using testing::ElementsAre;

namespace {

// Opens what a host reaches only by deriving.
struct Solids : CMathFunc {
    using CMathFunc::Solid_5;
};

// A box whose six faces stay flat under the affine map of `edges`: its volume is their determinant.
struct Skew {
    Point origin, edge[3];

    Point At(double u, double v, double w) const
    {
        Point p = origin;
        for (std::size_t k = 0; k < 3; ++k)
            p[k] += u * edge[0][k] + v * edge[1][k] + w * edge[2][k];
        return p;
    }
    double Determinant() const
    {
        const Point &a = edge[0], &b = edge[1], &c = edge[2];
        return static_cast<double>(
            LongDot(a, {b[1] * c[2] - b[2] * c[1], b[2] * c[0] - b[0] * c[2], b[0] * c[1] - b[1] * c[0]}));
    }
};

void Fill(double (*pts)[3], const Skew& skew, const std::vector<Point>& corners)
{
    for (const Point& corner : corners) {
        const Point p = skew.At(corner[0], corner[1], corner[2]);
        std::copy(p.begin(), p.end(), *pts++);
    }
}

const std::vector<Point> kTetrahedron = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
const std::vector<Point> kPyramid = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0.3, 0.4, 1}};
const std::vector<Point> kWedge = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {0, 1, 1}};
const std::vector<Point> kBox = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                 {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};

// Volume of a closed surface of triangles by the divergence theorem.
double EnclosedVolume(const double (*pts)[3], const std::vector<std::array<int, 3>>& faces)
{
    long double sum = 0.0L;
    for (const auto& [i, j, k] : faces) {
        const double *a = pts[i], *b = pts[j], *c = pts[k];
        sum += a[0] * (static_cast<long double>(b[1]) * c[2] - static_cast<long double>(b[2]) * c[1]) +
               a[1] * (static_cast<long double>(b[2]) * c[0] - static_cast<long double>(b[0]) * c[2]) +
               a[2] * (static_cast<long double>(b[0]) * c[1] - static_cast<long double>(b[1]) * c[0]);
    }
    return static_cast<double>(sum / 6.0L);
}

using Extended = std::array<long double, 3>;

long double ExtendedDeterminant(const Extended (&rows)[3])
{
    const auto& [a, b, c] = rows;
    return a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
           a[2] * (b[0] * c[1] - b[1] * c[0]);
}

constexpr long double kAbscissa = 0.5773503;

// The sum over the eight Gauss points of the Jacobian of N_i = (1 +- xi)(1 +- eta)(1 +- zeta) / 8. Corners
// are taken relative to the first: their sum times the slopes is the same.
double HexahedronQuadrature(const double (*pts)[3])
{
    static constexpr int kSigns[8][3] = {{-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1},
                                         {-1, -1, 1},  {1, -1, 1},  {1, 1, 1},  {-1, 1, 1}};
    long double volume = 0.0L;
    for (const int(&at)[3] : kSigns) {
        Extended rows[3] = {};
        for (int i = 0; i < 8; ++i) {
            const int(&corner)[3] = kSigns[i];
            for (std::size_t r = 0; r < 3; ++r) {
                const std::size_t s = (r + 1) % 3, t = (r + 2) % 3;
                const long double slope =
                    corner[r] * (1 + kAbscissa * at[s] * corner[s]) * (1 + kAbscissa * at[t] * corner[t]) / 8;
                for (std::size_t c = 0; c < 3; ++c)
                    rows[r][c] += slope * (pts[i][c] - pts[0][c]);
            }
        }
        volume += ExtendedDeterminant(rows);
    }
    return static_cast<double>(volume);
}

// The same for N = L_i (1 +- zeta) / 2 at four points of the triangle.
double WedgeQuadrature(const double (*pts)[3])
{
    static constexpr double kNear = 0.19999995231628418;
    static constexpr double kPoints[4][3] = {{0.33333333, 0.33333333, -0.28125},
                                             {0.6, kNear, 0.2604166},
                                             {kNear, 0.6, 0.2604166},
                                             {kNear, kNear, 0.2604166}};
    long double volume = 0.0L;
    for (const double(&at)[3] : kPoints) {
        for (const long double zeta : {-kAbscissa, kAbscissa}) {
            const long double share[3] = {at[0], at[1], 1.0L - at[0] - at[1]};
            Extended rows[3] = {};
            for (std::size_t i = 0; i < 6; ++i) {
                const int side = i < 3 ? -1 : 1;
                const long double half = (1 + side * zeta) / 2;
                const long double slopes[3] = {i % 3 == 2 ? -half : (i % 3 == 0) * half,
                                               i % 3 == 2 ? -half : (i % 3 == 1) * half,
                                               side * share[i % 3] / 2};
                for (std::size_t r = 0; r < 3; ++r) {
                    for (std::size_t c = 0; c < 3; ++c)
                        rows[r][c] += slopes[r] * (pts[i][c] - pts[0][c]);
                }
            }
            volume += at[2] * ExtendedDeterminant(rows);
        }
    }
    return static_cast<double>(volume);
}

} // namespace

TEST(MathFuncMeasure, SolidsUnderAffineMaps)
{
    const struct {
        const char* label;
        const std::vector<Point>& corners;
        double share, tolerance;
    } rows[] = {{"tetrahedron", kTetrahedron, 1.0 / 6, 1e-14},
                {"wedge", kWedge, 0.5, 1e-6}, // the wedge's weights have seven digits
                {"hexahedron", kBox, 1.0, 1e-13}};
    Random random(51);
    for (int i = 0; i < 300; ++i) {
        const Skew skew = {random.Vector(), {random.Vector(), random.Vector(), random.Vector()}};
        for (const auto& row : rows) {
            SCOPED_TRACE(row.label);
            double pts[8][3];
            Fill(pts, skew, row.corners);
            EXPECT_NEAR(CMathFunc::mathVolume(static_cast<int>(row.corners.size()), pts),
                        skew.Determinant() * row.share, row.tolerance * 1000.0);
        }
        double pts[5][3];
        Fill(pts, skew, kPyramid);
        EXPECT_NEAR(Solids::Solid_5(pts), skew.Determinant() / 3.0, 2e-5);
        EXPECT_EQ(CMathFunc::mathVolume(5, pts), 0.0);
    }
}

TEST(MathFuncMeasure, SolidsOfAnyShapeAreTheirQuadrature)
{
    Random random(54);
    const Point away[] = {{0, 0, 0}, {1e6, -1e6, 1e6}};
    for (int i = 0; i < 300; ++i) {
        const Point& origin = away[i % 2];
        double pts[8][3];
        for (double(&p)[3] : pts) {
            for (std::size_t k = 0; k < 3; ++k)
                p[k] = origin[k] + random.Number();
        }
        EXPECT_NEAR(CMathFunc::mathVolume(8, pts), HexahedronQuadrature(pts), 1e-9);
        EXPECT_NEAR(CMathFunc::mathVolume(6, pts), WedgeQuadrature(pts), 1e-9);
    }
}

TEST(MathFuncMeasure, SolidsOfTaperedShapes)
{
    // Frusta with flat faces, told by triangles: here the Jacobian is no constant.
    double frustum[8][3] = {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0},
                            {1, 1, 3}, {2, 1, 3}, {2, 2, 3}, {1, 2, 3}};
    const std::vector<std::array<int, 3>> box = {{0, 2, 1}, {0, 3, 2}, {4, 5, 6}, {4, 6, 7},
                                                 {0, 1, 5}, {0, 5, 4}, {1, 2, 6}, {1, 6, 5},
                                                 {2, 3, 7}, {2, 7, 6}, {3, 0, 4}, {3, 4, 7}};
    EXPECT_NEAR(EnclosedVolume(frustum, box), 21.0, 1e-12);
    const double g = 0.5773503; // the quadrature's abscissa: two sections of side 2.5 +- 1.5 g
    EXPECT_NEAR(CMathFunc::mathVolume(8, frustum), 3.0 * (6.25 + 2.25 * g * g), 1e-13);
    double wedge[6][3] = {{0, 0, 0}, {4, 0, 0}, {0, 4, 0}, {0, 0, 3}, {2, 0, 3}, {0, 2, 3}};
    const std::vector<std::array<int, 3>> prism = {{0, 2, 1}, {3, 4, 5}, {0, 1, 4}, {0, 4, 3},
                                                   {1, 2, 5}, {1, 5, 4}, {2, 0, 3}, {2, 3, 5}};
    EXPECT_NEAR(EnclosedVolume(wedge, prism), 14.0, 1e-12);
    EXPECT_NEAR(CMathFunc::mathVolume(6, wedge), 14.0, 1e-5);
}

TEST(MathFuncMeasure, VolumesKeepTheCornersSign)
{
    double unit[4][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    EXPECT_EQ(CMathFunc::mathVolume(4, unit), 1.0 / 6);
    std::swap(unit[1], unit[2]);
    EXPECT_EQ(CMathFunc::mathVolume(4, unit), -1.0 / 6);
    for (const int n : {-1, 0, 3, 5, 7, 9, 20})
        EXPECT_EQ(CMathFunc::mathVolume(n, nullptr), 0.0) << n;
}

TEST(MathFuncMeasure, TriangleAreas)
{
    Random random(52);
    for (int i = 0; i < 500; ++i) {
        Point a = random.Vector(), b = random.Vector(), c = random.Vector(), normal{};
        CMathFunc::mathNormal(a.data(), b.data(), c.data(), normal.data());
        EXPECT_NEAR(CMathFunc::mathArea(a.data(), b.data(), c.data()), CMathFunc::Length(normal.data()) / 2,
                    1e-5);
        EXPECT_NEAR(CMathFunc::mathArea2d(a[0], a[1], b[0], b[1], c[0], c[1]), std::abs(normal[2]) / 2, 1e-5);
    }
    double a[3] = {0, 0, 0}, b[3] = {3, 0, 0}, c[3] = {3, 4, 0};
    EXPECT_EQ(CMathFunc::mathArea(a, b, c), 6.0);
    // Needles whose radicand rounds below zero.
    for (int i = 1; i < 200; ++i) {
        const double x = i * 0.1, y = i * 0.7;
        EXPECT_LT(CMathFunc::mathArea2d(0, 0, x, y, 3 * x, 3 * y), 5e-8 * 9 * (x * x + y * y)) << i;
    }
}

TEST(MathFuncMeasure, PolygonsEitherWayRound)
{
    const struct {
        const char* label;
        std::vector<double> x, y;
        double area, cx, cy;
    } rows[] = {{"square", {0, 1, 1, 0}, {0, 0, 1, 1}, 1.0, 0.5, 0.5},
                {"square backwards", {0, 0, 1, 1}, {0, 1, 1, 0}, -1.0, 0.5, 0.5},
                {"far away", {1e6, 1e6 + 2, 1e6}, {-1e6, -1e6, -1e6 + 3}, 3.0, 1e6 + 2.0 / 3, -1e6 + 1},
                {"notched", {0, 4, 4, 2, 0}, {0, 0, 4, 2, 4}, 12.0, 2.0, 14.0 / 9}};
    for (auto row : rows) {
        SCOPED_TRACE(row.label);
        double cx = 9, cy = 9, area = 9;
        const int n = static_cast<int>(row.x.size());
        EXPECT_NEAR(CMathFunc::mathArea2d(n, row.x.data(), row.y.data()), std::abs(row.area), 1e-8);
        EXPECT_EQ(CMathFunc::mathPolyCentroid(n, row.x.data(), row.y.data(), cx, cy, area), 1);
        const double size = row.x[0] > 1e5 ? 1e3 : 1e-12; // cross products of 1e12 cancel down to 3
        EXPECT_NEAR(area, row.area, size);
        EXPECT_NEAR(cx, row.cx, size);
        EXPECT_NEAR(cy, row.cy, size);
    }
    double x[3] = {0, 1, 2}, y[3] = {0, 1, 2}, cx = 9, cy = 9, area = 9;
    EXPECT_EQ(CMathFunc::mathPolyCentroid(3, x, y, cx, cy, area), 0);
    EXPECT_THAT((Point{cx, cy, area}), ElementsAre(0.0, 0.0, 0.0));
    cx = 9;
    EXPECT_EQ(CMathFunc::mathPolyCentroid(2, x, y, cx, cy, area), 0);
    EXPECT_EQ(cx, 0.0);
    EXPECT_EQ(CMathFunc::mathArea2d(0, x, y), 0.0);
    EXPECT_EQ(CMathFunc::mathArea2d(1, x, y), 0.0);
}

TEST(MathFuncMeasure, LongPolygonsAddUp)
{
    Random random(55);
    for (const std::size_t n : {3U, 63U, 64U, 65U, 79U, 80U, 81U, 82U, 1000U}) {
        SCOPED_TRACE(n);
        std::vector<double> x(n), y(n);
        for (std::size_t i = 0; i < n; ++i) {
            const double angle = 2.0 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(n);
            const double radius = 80.0 + random.Number(20.0);
            x[i] = 50.0 + radius * std::cos(angle);
            y[i] = -30.0 + radius * std::sin(angle);
        }
        long double sum = 0.0L, sumX = 0.0L, sumY = 0.0L;
        for (std::size_t i = 0; i < n; ++i) {
            const std::size_t j = (i + 1) % n;
            const long double cross =
                static_cast<long double>(x[i]) * y[j] - static_cast<long double>(x[j]) * y[i];
            sum += cross;
            sumX += (static_cast<long double>(x[i]) + x[j]) * cross;
            sumY += (static_cast<long double>(y[i]) + y[j]) * cross;
        }
        double cx = 9, cy = 9, area = 9;
        const int count = static_cast<int>(n);
        EXPECT_NEAR(CMathFunc::mathArea2d(count, x.data(), y.data()), static_cast<double>(sum / 2), 1e-9);
        EXPECT_EQ(CMathFunc::mathPolyCentroid(count, x.data(), y.data(), cx, cy, area), 1);
        EXPECT_NEAR(area, static_cast<double>(sum / 2), 1e-9);
        EXPECT_NEAR(cx, static_cast<double>(sumX / (3 * sum)), 1e-11);
        EXPECT_NEAR(cy, static_cast<double>(sumY / (3 * sum)), 1e-11);
    }
}

TEST(MathFuncMeasure, DecimalRounding)
{
    const struct {
        double value;
        int digits;
        double off, up, down;
    } rows[] = {{2.346, 2, 2.35, 2.35, 2.34}, {2.0, 0, 2.0, 3.0, 2.0},      {-1.5, 0, -1.0, -1.0, -2.0},
                {-2.5, 0, -2.0, -2.0, -3.0},  {1234, -2, 1200, 1300, 1200}, {1250, -2, 1300, 1300, 1200},
                {0.0, 3, 0.0, 0.001, 0.0},    {-7.0, 1, -7.0, -6.9, -7.0},  {1e30, -29, 1e30, 1.1e30, 1e30},
                {4e-25, 24, 0.0, 1e-24, 0.0}, {6e-25, 24, 1e-24, 1e-24, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        const double up = CMathFunc::mathRoundUp(row.value, row.digits);
        const double down = CMathFunc::mathRoundDown(row.value, row.digits);
        EXPECT_DOUBLE_EQ(CMathFunc::mathRoundOff(row.value, row.digits), row.off);
        EXPECT_DOUBLE_EQ(up, row.up);
        EXPECT_DOUBLE_EQ(down, row.down);
    }
}

TEST(MathFuncMeasure, OpenAirTemperature)
{
    const struct {
        const char* label;
        int month, day;
        double site, height, expected;
    } rows[] = {
        {"August", 8, 1, 35, 0, 4.354 * (16.0 - (8 + 1.0 / 31)) - 6.007},
        {"end of February", 1, 31, 35, 0, 4.354 * 2.0 - 6.007},
        {"April has 30 days", 4, 15, 35, 1000, 4.354 * 4.5 - 6.007 - 6.0},
        {"south", 2, 14, 30, 0, 4.354 * 2.5 - 6.007 + (0.212 * 2.5 - 1.864) * -5},
        {"north", 2, 14, 40, 0, 4.354 * 2.5 - 6.007 + (0.076 * 2.5 - 1.355) * 5},
        {"month 13", 13, 31, 35, 0, 4.354 * 2.0 - 6.007},
        {"month 14", 14, 15, 35, 0, 4.354 * 1.5 - 6.007},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_NEAR(CMathFunc::calOpenAirTemperature(row.month, row.day, row.site, row.height), row.expected,
                    1e-12);
    }
}
