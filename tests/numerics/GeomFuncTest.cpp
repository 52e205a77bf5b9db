#include "GeomFunc.h"
#include "MathLib.h"
#include "MathFunc.h"
#include "Random.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <type_traits>

using testing::ElementsAre;

static_assert(std::has_virtual_destructor_v<CGeomFunc> && std::is_default_constructible_v<CGeomFunc>);

namespace {

using Points2D = CArray<T_POINT2D, T_POINT2D&>;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

void Append(Points2D& polygon, double x, double y)
{
    T_POINT2D p = {x, y};
    polygon.Add(p);
}

Points2D& Make(Points2D& polygon, std::initializer_list<T_POINT2D> points)
{
    polygon.RemoveAll();
    for (const T_POINT2D& p : points)
        Append(polygon, p.x, p.y);
    return polygon;
}

T_LINE2D Reversed(const T_LINE2D& line)
{
    return {line.x2, line.y2, line.x1, line.y1};
}

// A motion of the plane that keeps contacts: turned in steps of exact or inexact angles, mirrored, shifted.
struct Motion {
    double degrees, mirror, shift;
    T_POINT2D operator()(double x, double y) const
    {
        T_POINT2D p;
        CMathLib::Rotate(mirror * x, y, degrees, 0, 0, p.x, p.y);
        return {p.x + shift, p.y - 2 * shift};
    }
    T_LINE2D operator()(const T_LINE2D& line) const
    {
        const T_POINT2D p = (*this)(line.x1, line.y1), q = (*this)(line.x2, line.y2);
        return {p.x, p.y, q.x, q.y};
    }
};

} // namespace

TEST(GeomFunc, BoundingRectangle)
{
    T_REGION2D r = {7, 7, 7, 7};
    Points2D points;
    EXPECT_EQ(CGeomFunc::GetMBR(points, r), 0);
    EXPECT_THAT((std::array{r.minX, r.minY, r.maxX, r.maxY}), ElementsAre(7.0, 7.0, 7.0, 7.0));
    EXPECT_EQ(CGeomFunc::GetMBR(Make(points, {{-2, 3}}), r), 1);
    EXPECT_THAT((std::array{r.minX, r.minY, r.maxX, r.maxY}), ElementsAre(-2.0, 3.0, -2.0, 3.0));
    EXPECT_EQ(CGeomFunc::GetMBR(Make(points, {{kNan, 8}, {-2, 3}, {5, -1}, {1, kNan}}), r), 1);
    EXPECT_THAT((std::array{r.minX, r.minY, r.maxX, r.maxY}), ElementsAre(-2.0, -1.0, 5.0, 8.0));

    const T_REGION2D region = {0, 0, 4, 2};
    const struct {
        T_POINT2D p;
        int inside;
    } rows[] = {{{1, 1}, 1},      {{0, 1}, 0},  {{4, 1}, 0}, {{1, 0}, 0}, {{1, 2}, 0},
                {{1e-300, 1}, 1}, {{-1, 1}, 0}, {{5, 1}, 0}, {{1, 3}, 0}, {{kNan, 1}, 0}};
    for (const auto& row : rows)
        EXPECT_EQ(CGeomFunc::IsPointInRegion(row.p, region), row.inside) << row.p.x << ' ' << row.p.y;
}

// With the segments exchanged, and each of them reversed, the code changes as the table of contacts says.
TEST(GeomFunc, TopologyInEveryOrderAndPosition)
{
    const struct {
        const char* label;
        T_LINE2D L1, L2;
        int code, exchanged, reversed1, reversed2;
    } rows[] = {
        {"apart", {0, 0, 1, 0}, {3, 1, 4, 2}, 0, 0, 0, 0},
        {"side by side", {0, 0, 2, 0}, {0, 1, 2, 1}, 0, 0, 0, 0},
        {"in line, apart", {0, 0, 2, 0}, {3, 0, 5, 0}, 0, 0, 0, 0},
        {"lines cross beyond", {0, 0, 2, 0}, {3, -1, 3, 1}, 0, 0, 0, 0},
        {"start on start", {0, 0, 2, 0}, {0, 0, 1, 3}, 1, 1, 4, 2},
        {"start on end", {0, 0, 2, 0}, {1, 3, 0, 0}, 2, 4, 5, 1},
        {"start within", {0, 0, 2, 0}, {-1, -1, 1, 1}, 3, 7, 6, 3},
        {"end on start", {0, 0, 2, 0}, {2, 0, 3, 1}, 4, 2, 1, 5},
        {"end on end", {0, 0, 2, 0}, {3, 1, 2, 0}, 5, 5, 2, 4},
        {"end within", {0, 0, 2, 0}, {1, -1, 3, 1}, 6, 8, 3, 6},
        {"start of the other within", {0, 0, 2, 0}, {1, 0, 2, 5}, 7, 3, 7, 8},
        {"end of the other within", {0, 0, 2, 0}, {2, 5, 1, 0}, 8, 6, 8, 7},
        {"crossing", {0, 0, 2, 0}, {1, -1, 1, 1}, 9, 9, 9, 9},
        {"overlap, start inside", {0, 0, 2, 0}, {1, 0, 3, 0}, 10, 11, 10, 11},
        {"overlap, end inside", {0, 0, 2, 0}, {-1, 0, 1, 0}, 11, 10, 11, 10},
        {"in line, end to start", {0, 0, 2, 0}, {2, 0, 5, 0}, 10, 11, 10, 11},
        {"in line, end to end", {0, 0, 2, 0}, {5, 0, 2, 0}, 11, 11, 11, 10},
        {"inside", {0, 0, 4, 0}, {1, 0, 2, 0}, 12, 13, 12, 12},
        {"inside with a common start", {0, 0, 4, 0}, {0, 0, 2, 0}, 12, 10, 12, 12},
        {"the same", {0, 0, 4, 0}, {0, 0, 4, 0}, 12, 12, 12, 12},
        {"around", {1, 0, 2, 0}, {0, 0, 4, 0}, 13, 12, 13, 13},
    };
    for (const auto& row : rows) {
        for (const Motion& move : {Motion{0, 1, 0}, Motion{0, -1, 0}, Motion{90, 1, 3}, Motion{180, -1, 0},
                                   Motion{37, 1, 0}, Motion{-101, -1, 5}, Motion{45, 1, -8}}) {
            SCOPED_TRACE(testing::Message() << row.label << ", turned by " << move.degrees);
            const T_LINE2D a = move(row.L1), b = move(row.L2);
            EXPECT_EQ(CGeomFunc::GetTopologyOfTwoLines(a, b), row.code);
            EXPECT_EQ(CGeomFunc::GetTopologyOfTwoLines(b, a), row.exchanged);
            EXPECT_EQ(CGeomFunc::GetTopologyOfTwoLines(Reversed(a), b), row.reversed1);
            EXPECT_EQ(CGeomFunc::GetTopologyOfTwoLines(a, Reversed(b)), row.reversed2);
        }
    }
}

TEST(GeomFunc, TopologyAtItsTolerances)
{
    const struct {
        const char* label;
        T_LINE2D L1, L2;
        int code;
    } rows[] = {
        {"crosses at the start, within 1e-10", {0, 0, 2, 0}, {0.9e-10, -1, 0.9e-10, 1}, 3},
        {"crosses beyond 1e-10 of the start", {0, 0, 2, 0}, {1.1e-10, -1, 1.1e-10, 1}, 9},
        {"beyond the start, in the slack", {0, 0, 2, 0}, {-1.9e-7, -1, -1.9e-7, 1}, 9},
        {"beyond the slack", {0, 0, 2, 0}, {-2.1e-7, -1, -2.1e-7, 1}, 0},
        {"side by side, cross products within 1e-10", {0, 0, 1, 0}, {0.5, 0.9e-10, 1.5, 0.9e-10}, 10},
        {"side by side, beyond it", {0, 0, 1, 0}, {0.5, 1.1e-10, 1.5, 1.1e-10}, 0},
        {"in line, 0.9e-10 apart", {0, 0, 1, 0}, {1 + 0.9e-10, 0, 2, 0}, 10},
        {"in line, 1.1e-10 apart", {0, 0, 1, 0}, {1 + 1.1e-10, 0, 2, 0}, 0},
        {"nearly parallel, crossing", {-1, 0, 1, 0}, {-1, -0.9e-4, 1, 0.9e-4}, 0},
        {"less parallel, crossing", {-1, 0, 1, 0}, {-1, -1.1e-4, 1, 1.1e-4}, 9},
        {"first without length, inside the box", {1, 1, 1, 1}, {0, 0, 3, 2}, 13},
        {"first without length, outside the box", {1, 5, 1, 5}, {0, 0, 3, 2}, 0},
        {"second without length, in line", {0, 0, 3, 3}, {1, 1, 1, 1}, 12},
        {"second without length, off the line", {0, 0, 3, 3}, {1, 2, 1, 2}, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(CGeomFunc::GetTopologyOfTwoLines(row.L1, row.L2), row.code);
    }
}

TEST(GeomFunc, CountsCrossings)
{
    Points2D square, roof, none;
    Make(square, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
    Make(roof, {{0, 0}, {8, 0}, {8, 3}, {6, 3}, {4, 1}, {2, 3}, {0, 3}}); // a notch down to (4, 1)
    Points2D flat, lessFlat;
    Make(flat, {{-5, -4e-4}, {5, 4e-4}, {0, 5}}); // an edge nearly along the X axis
    Make(lessFlat, {{-5, -6e-4}, {5, 6e-4}, {0, 5}});
    const struct {
        const char* label;
        const Points2D* polygon;
        T_LINE2D line;
        int count, backwards;
    } rows[] = {
        {"none", &none, {0, 0, 1, 1}, 0, 0},
        {"through", &square, {-1, 1, 5, 2}, 2, 2},
        {"into", &square, {-1, 1, 2, 2}, 1, 1},
        {"outside", &square, {-1, 5, 5, 6}, 0, 0},
        {"through two corners", &square, {-1, -1, 5, 5}, 2, 2},
        {"touching a corner from outside", &square, {-1, 1, 1, -1}, 2, 2},
        {"along an edge", &square, {-1, 0, 5, 0}, 4, 2},
        {"ending on an edge", &square, {-1, 1, 0, 1}, 0, 0},
        {"starting at a corner", &square, {0, 0, 5, 7}, 1, 1},
        {"touching the notch", &roof, {-1, 1, 9, 1}, 4, 4},
        {"below the notch", &roof, {-1, 0.5, 9, 0.5}, 2, 2},
        {"above it", &roof, {-1, 2, 9, 2}, 4, 4},
        {"across an edge nearly along it", &flat, {-10, 0, 10, 0}, 1, 1},
        {"across an edge less along it", &lessFlat, {-10, 0, 10, 0}, 2, 2},
        {"without length", &square, {0, 1, 0, 1}, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(CGeomFunc::GetLinePolygonCrossCount(row.line, *row.polygon), row.count);
        EXPECT_EQ(CGeomFunc::GetLinePolygonCrossCount(Reversed(row.line), *row.polygon), row.backwards);
    }
}

TEST(GeomFunc, PointInPolygon)
{
    Points2D two, square, ell, diamond;
    Make(two, {{0, 0}, {4, 4}});
    Make(square, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
    Make(ell, {{0, 0}, {0, 6}, {2, 6}, {2, 2}, {6, 2}, {6, 0}});
    Make(diamond, {{0, -2}, {2, 0}, {0, 2}, {-2, 0}});
    const struct {
        const char* label;
        const Points2D* polygon;
        T_POINT2D p;
        int inside;
    } rows[] = {
        {"two points only", &two, {1, 2}, 0},
        {"inside", &square, {1, 3}, 1},
        {"outside", &square, {5, 1}, 0},
        {"on the bounding rectangle", &square, {0, 2}, 0},
        {"a corner", &square, {4, 4}, 0},
        {"in the arm", &ell, {5, 1}, 1},
        {"in the crook", &ell, {4, 4}, 0},
        {"level with an edge, inside", &ell, {1, 2}, 1},
        {"level with corners", &diamond, {1, 0}, 1},
        {"beside a corner", &diamond, {1.5, 1.5}, 0},
        {"not a number", &square, {kNan, 1}, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(CGeomFunc::IsPointInPolygon(row.p, *row.polygon), row.inside);
    }
}

namespace {

// Independent of the library: which side of each edge, in extended precision.
int CrossingNumber(const T_POINT2D& p, const Points2D& polygon)
{
    int inside = 0;
    for (int i = 0, j = polygon.GetSize() - 1; i < polygon.GetSize(); j = i++) {
        const long double ax = polygon[j].x, ay = polygon[j].y, bx = polygon[i].x, by = polygon[i].y;
        if ((ay > p.y) != (by > p.y) && p.x > ax + (bx - ax) * (p.y - ay) / (by - ay))
            inside ^= 1;
    }
    return inside;
}

// A concave polygon round `centre`, simple.
void MakeStar(Points2D& polygon, Random& random, int corners, double size, double shift)
{
    polygon.RemoveAll();
    for (int i = 0; i < corners; ++i) {
        const double angle = 2 * CMathFunc::m_pi * i / corners,
                     radius = size * (0.6 + 0.4 * random.Number(1.0));
        Append(polygon, shift + radius * std::cos(angle), -shift + radius * std::sin(angle));
    }
}

} // namespace

TEST(GeomFunc, PointInConcavePolygons)
{
    const struct {
        const char* label;
        double size, shift;
    } places[] = {{"at the origin", 100, 0}, {"far away", 100, 1e6}, {"small", 1e-2, 3}, {"large", 1e12, 0}};
    Random random(81);
    for (const auto& place : places) {
        SCOPED_TRACE(place.label);
        int inside = 0;
        for (int round = 0; round < 400; ++round) {
            Points2D polygon;
            MakeStar(polygon, random, 3 + round % 60, place.size, place.shift);
            for (int i = 0; i < 20; ++i) {
                const T_POINT2D p = {place.shift + random.Number(1.1 * place.size),
                                     -place.shift + random.Number(1.1 * place.size)};
                const int expected = CrossingNumber(p, polygon);
                inside += expected;
                ASSERT_EQ(CGeomFunc::IsPointInPolygon(p, polygon), expected) << polygon.GetSize();
            }
        }
        EXPECT_GT(inside, 1000);
    }
}

namespace {

// The rule edge by edge, with the turned polygon.
int LiteralCrossCount(const T_LINE2D& line, const Points2D& polygon)
{
    const double degrees = -CMathLib::CalcAngleDegLineAndAxisX(line.x1, line.y1, line.x2, line.y2);
    const int n = polygon.GetSize();
    const auto above = [&](int i) {
        double x = 0, y = 0;
        CMathLib::Rotate(polygon[i].x, polygon[i].y, degrees, line.x1, line.y1, x, y);
        return y > line.y1 || std::abs(y - line.y1) <= 1e-10;
    };
    int total = 0;
    for (int i = 0; i < n; ++i) {
        const int next = (i + 1) % n;
        const int code = CGeomFunc::GetTopologyOfTwoLines(
            line, {polygon[i].x, polygon[i].y, polygon[next].x, polygon[next].y});
        if (code == 9)
            ++total;
        if (code == 7 || code == 10 || code == 12)
            total += above((i + n - 1) % n) == above(next) ? 2 : 1;
    }
    return total;
}

} // namespace

// Corners on a coarse lattice make every kind of contact; tiny, distant and odd ones as well.
TEST(GeomFunc, CountsAsEdgeByEdge)
{
    const double usual = CMathFunc::m_NormalZero;
    const struct {
        const char* label;
        double scale, shift, tolerance;
    } rows[] = {{"lattice", 1, 0, 1e-15},        {"tiny lattice", 1e-6, 0, 1e-15},
                {"tinier", 1e-11, 0, 1e-15},     {"lattice far away", 1, 1e7, 1e-15},
                {"huge", 1e130, 0, 1e-15},       {"infinite", kInfinite, 0, 1e-15},
                {"coarse tolerance", 1, 0, 1.5}, {"no tolerance", 1, 0, 0.0},
                {"odd tolerance", 1, 0, kNan}};
    Random random(82);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        CMathFunc::m_NormalZero = row.tolerance;
        const auto number = [&] { return row.shift + row.scale * std::floor(random.Number(4.0)); };
        for (int round = 0; round < 3000; ++round) {
            Points2D polygon;
            for (int i = round % 9; i >= 0; --i)
                Append(polygon, number(), number() + (i % 4 ? 0.0 : random.Number(1e-9)));
            const T_LINE2D line = {number(), number(), number(), number()};
            ASSERT_EQ(CGeomFunc::GetLinePolygonCrossCount(line, polygon), LiteralCrossCount(line, polygon));
        }
    }
    CMathFunc::m_NormalZero = usual;
}
