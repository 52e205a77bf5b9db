#include "MathFunc.h"
#include "Random.h"

#include <cmath>
#include <gmock/gmock.h>

using testing::ElementsAre;

TEST(MathFuncLine, LineEquationTellsSignedDistances)
{
    double p1[2] = {1.0, 1.0}, p2[2] = {5.0, 4.0}, a = 9.0, b = 9.0, c = 9.0;
    EXPECT_EQ(CMathFunc::mathLineEq2D(p1, p2, a, b, c), 1);
    EXPECT_NEAR(a, 0.6, 1e-15);
    EXPECT_NEAR(b, -0.8, 1e-15);
    EXPECT_NEAR(a * 4.0 + b * -3.0 + c, 5.0, 1e-14); // (4, -3) is 5 to the right of the line
    EXPECT_EQ(CMathFunc::mathLineEq2D(p1, p1, a, b, c), 0);
    EXPECT_THAT((Point{a, b, c}), ElementsAre(0.0, 0.0, 0.0));
}

TEST(MathFuncLine, PlaneEquationHoldsItsPoints)
{
    Random random(41);
    for (int i = 0; i < 500; ++i) {
        Point p[3] = {random.Vector(), random.Vector(), random.Vector()}, normal{};
        double a = 0, b = 0, c = 0, d = 0;
        ASSERT_EQ(CMathFunc::mathPlaneEquation(p[0].data(), p[1].data(), p[2].data(), a, b, c, d), 1);
        for (const Point& each : p)
            EXPECT_NEAR(a * each[0] + b * each[1] + c * each[2] + d, 0.0, 1e-11);
        CMathFunc::mathNormal(p[0].data(), p[1].data(), p[2].data(), normal.data());
        EXPECT_NEAR(a * normal[0] + b * normal[1] + c * normal[2], CMathFunc::Length(normal.data()), 1e-9);
    }
    double p1[3] = {1, 1, 1}, p2[3] = {2, 2, 2}, p3[3] = {4, 4, 4}, a = 9, b = 9, c = 9, d = 9;
    EXPECT_EQ(CMathFunc::mathPlaneEquation(p1, p2, p3, a, b, c, d), 0);
    EXPECT_THAT((std::array{a, b, c, d}), ElementsAre(0.0, 0.0, 0.0, 0.0));
}

TEST(MathFuncLine, PlaneByPointAndNormal)
{
    double point[3] = {1.0, 2.0, 3.0}, normal[3] = {0.0, 3.0, 4.0}, a = 9, b = 9, c = 9, d = 9;
    EXPECT_EQ(CMathFunc::mathPlaneEquation(point, normal, a, b, c, d), 1);
    EXPECT_THAT((std::array{a, b, c, d}), ElementsAre(0.0, 0.6, 0.8, testing::DoubleNear(-3.6, 1e-15)));
    EXPECT_THAT(normal, ElementsAre(0.0, 0.6, 0.8));
    double none[3] = {0.0, 0.0, 1e-16};
    EXPECT_EQ(CMathFunc::mathPlaneEquation(point, none, a, b, c, d), 1);
    EXPECT_THAT((std::array{a, b, c, d}), ElementsAre(0.0, 0.0, 1e-16, -3e-16));
}

TEST(MathFuncLine, DistancesToAPlane)
{
    const struct {
        const char* label;
        double plane[4];
        Point p;
        double distance;
    } rows[] = {{"above", {0, 0, 2, -4}, {7, 8, 5}, 3.0},
                {"below", {0, 0, 2, -4}, {7, 8, 0}, -2.0},
                {"tilted", {3, 0, 4, 5}, {1, 9, -2}, 0.0},
                {"true -1", {0, 0, 1, 0}, {0, 0, -1}, -1.0}};
    for (const auto& [label, n, p, distance] : rows) {
        SCOPED_TRACE(label);
        EXPECT_NEAR(CMathFunc::mathDistanceToPlaneWithSign(n[0], n[1], n[2], n[3], p[0], p[1], p[2]),
                    distance, 1e-15);
        EXPECT_NEAR(CMathFunc::mathDistanceToPlane(n[0], n[1], n[2], n[3], p[0], p[1], p[2]),
                    std::abs(distance), 1e-15);
    }
    EXPECT_EQ(CMathFunc::mathDistanceToPlane(0, 0, 9e-16, 1, 2, 3, 4), -1.0);
    EXPECT_EQ(CMathFunc::mathDistanceToPlaneWithSign(0, 9e-16, 0, 1, 2, 3, 4), -1.0);
}

TEST(MathFuncLine, DistancesToALine)
{
    const struct {
        const char* label;
        Point p1, p2, q;
        double segment, line;
    } rows[] = {{"beside", {0, 0, 0}, {10, 0, 0}, {4, 3, 4}, 5, 5},
                {"beyond the end", {0, 0, 0}, {10, 0, 0}, {13, 0, 4}, 5, 4},
                {"before the start", {0, 0, 0}, {10, 0, 0}, {-3, 4, 0}, 5, 4},
                {"level with the end", {0, 0, 0}, {10, 0, 0}, {10, 0, 2}, 2, 2},
                {"no length", {1, 2, 3}, {1, 2, 3}, {1, 5, 7}, 5, 5}};
    for (auto row : rows) {
        SCOPED_TRACE(row.label);
        double *const p1 = row.p1.data(), *const p2 = row.p2.data(), *const q = row.q.data();
        EXPECT_NEAR(CMathFunc::mathDistanceToLine(p1, p2, q), row.segment, 1e-14);
        EXPECT_NEAR(CMathFunc::mathDistanceFromIntersectPointToLine(p1, p2, q), row.line, 1e-14);
    }
}

TEST(MathFuncLine, SegmentDistanceIsTheLeastOfItsPoints)
{
    Random random(42);
    for (int i = 0; i < 200; ++i) {
        Point p1 = random.Vector(), p2 = random.Vector(), q = random.Vector();
        double least = 1e300;
        for (int step = 0; step <= 2000; ++step) {
            const double t = step / 2000.0;
            least = std::min(least, CMathFunc::mathLength(p1[0] + t * (p2[0] - p1[0]) - q[0],
                                                          p1[1] + t * (p2[1] - p1[1]) - q[1],
                                                          p1[2] + t * (p2[2] - p1[2]) - q[2]));
        }
        const double distance = CMathFunc::mathDistanceToLine(p1.data(), p2.data(), q.data());
        EXPECT_LE(distance, least + 1e-12);
        EXPECT_GT(distance, least - 0.01); // the samples lie at most 0.0175 apart
    }
}

// What a host sets as zero decides which directions are none.
TEST(MathFuncLine, DirectionsAreMeasuredByTheHostsZero)
{
    double p1[3] = {0, 0, 0}, p2[3] = {2, 2, 2}, q[3] = {3, 0, 4};
    const double before = CMathFunc::mathDistanceFromIntersectPointToLine(p1, p2, q);
    CMathFunc::m_NormalZero = 0.6; // above each component of (2, 2, 2) / |(2, 2, 2)|, below its length
    const double after = CMathFunc::mathDistanceFromIntersectPointToLine(p1, p2, q);
    CMathFunc::m_NormalZero = 1e-15;
    EXPECT_NEAR(before, std::sqrt(25.0 - 49.0 / 3), 1e-14);
    EXPECT_NEAR(after, 5.0, 1e-15);
}

TEST(MathFuncLine, FootOfThePerpendicular)
{
    double x = 0, y = 0, z = 0, t = 0;
    CMathFunc::mathPLCrossPoint(1, 1, 1, 0, 2, 0, 4, 7, 5, x, y, z, t);
    EXPECT_THAT((std::array{x, y, z, t}), ElementsAre(1.0, 7.0, 1.0, 3.0));
    CMathFunc::mathPLCrossPoint(1, 1, 1, 0, 0, -2, 4, 7, 5, x, y, z);
    EXPECT_THAT((Point{x, y, z}), ElementsAre(1.0, 1.0, 5.0));
    CMathFunc::mathPLCrossPoint(1, 1, 1, 0, 0, 0, 4, 7, 5, x, y, z, t);
    EXPECT_TRUE(std::isnan(t));

    const Point p = {4, 7, 5}, a = {1, 1, 1}, b = {1, 3, 1};
    Point foot{};
    EXPECT_EQ(CMathFunc::PointLineSquareDistance3D(p.data(), a.data(), b.data(), t, foot.data()), 25.0);
    EXPECT_EQ(t, 3.0);
    EXPECT_THAT(foot, ElementsAre(1.0, 7.0, 1.0));
}

TEST(MathFuncLine, LineThroughPlane)
{
    double direction[3] = {0, 3, 4}, point[3] = {1, 0, 0}, normal[3] = {0, 0, 5}, onPlane[3] = {9, 9, 8};
    double out[3] = {7, 7, 7};
    EXPECT_EQ(CMathFunc::mathIntersectPointToPlane(direction, point, normal, onPlane, out), 1);
    EXPECT_THAT(out, ElementsAre(1.0, testing::DoubleNear(6.0, 1e-14), testing::DoubleNear(8.0, 1e-14)));
    EXPECT_THAT(direction, ElementsAre(0.0, 0.6, 0.8));
    EXPECT_THAT(normal, ElementsAre(0.0, 0.0, 1.0));
    const struct {
        double slope;
        int result;
    } rows[] = {{0.0, 0}, {0.9e-7, 0}, {1.1e-7, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.slope);
        double flat[3] = {1.0, 0.0, row.slope};
        EXPECT_EQ(CMathFunc::mathIntersectPointToPlane(flat, point, normal, onPlane, out), row.result);
        if (row.result == 0) {
            EXPECT_THAT(out, ElementsAre(0.0, 0.0, 0.0));
        }
    }
}

namespace {

// Two lines that pass at a known gap: as seen along `axis`, at s of the first and t of the second.
struct BuiltLines {
    Point p1, p2, q1, q2, meeting;
    double gap, s, t;
};

BuiltLines Build(Random& random, bool touching)
{
    for (;;) {
        BuiltLines lines{};
        Point u = random.Vector(), v = random.Vector(), normal{};
        CMathFunc::mathCross(u.data(), v.data(), normal.data());
        if (CMathFunc::Length(normal.data()) <
            0.05 * CMathFunc::Length(u.data()) * CMathFunc::Length(v.data()))
            continue;
        CMathFunc::Normalize(normal.data());
        std::size_t axis = 0;
        for (const std::size_t each : {1U, 2U})
            axis = std::abs(normal[each]) > std::abs(normal[axis]) ? each : axis;
        const double lift = touching ? 0.0 : random.Number();
        lines.gap = std::abs(lift * normal[axis]);
        lines.s = random.Number(2.0);
        lines.t = random.Number(2.0);
        lines.meeting = random.Vector();
        for (std::size_t k = 0; k < 3; ++k) {
            lines.p1[k] = lines.meeting[k] - lines.s * u[k] + (k == axis ? lift : 0.0);
            lines.p2[k] = lines.p1[k] + u[k];
            lines.q1[k] = lines.meeting[k] - lines.t * v[k];
            lines.q2[k] = lines.q1[k] + v[k];
        }
        return lines;
    }
}

bool Inside(double t)
{
    return t > 0.0 && t < 1.0; // random numbers do not hit the slack
}

} // namespace

TEST(MathFuncLine, LinesMeetWhereTheyWereBuilt)
{
    Random random(43);
    for (int i = 0; i < 2000; ++i) {
        BuiltLines lines = Build(random, i % 2 == 0);
        double *const p1 = lines.p1.data(), *const p2 = lines.p2.data();
        double *const q1 = lines.q1.data(), *const q2 = lines.q2.data();
        Point out = {5, 5, 5};
        double dist = -5.0;
        EXPECT_NEAR(CMathFunc::mathDistanceLine(p1, p2, q1, q2), lines.gap, 1e-9);
        ASSERT_EQ(CMathFunc::mathIntersectLine(p1, p2, q1, q2, lines.gap + 1e-6, dist, out.data()), 1);
        EXPECT_NEAR(dist, lines.gap, 1e-9);
        EXPECT_LT(CMathFunc::mathDistanceToPoint(out.data(), lines.meeting.data()), 1e-8);
        EXPECT_EQ(CMathFunc::mathIntersectLine2(p1, p2, q1, q2, lines.gap + 1e-6, dist, out.data()),
                  Inside(lines.s) && Inside(lines.t));
        EXPECT_EQ(CMathFunc::mathIntersectLine(p1, p2, q1, q2, lines.gap - 1e-6, dist, out.data()), 0);
        EXPECT_THAT(out, ElementsAre(0.0, 0.0, 0.0));
    }
}

TEST(MathFuncLine, FlatLinesMeetWhereTheyWereBuilt)
{
    Random random(44);
    for (int i = 0; i < 2000; ++i) {
        const double s = random.Number(2.0), t = random.Number(2.0), angle = 0.01 + i * 0.0015;
        const Point at = random.Vector();
        const double ux = 3.0, uy = 4.0, vx = ux * std::cos(angle) - uy * std::sin(angle),
                     vy = ux * std::sin(angle) + uy * std::cos(angle);
        const double x1 = at[0] - s * ux, y1 = at[1] - s * uy, x3 = at[0] - t * vx, y3 = at[1] - t * vy;
        double x = 7, y = 7;
        EXPECT_EQ(CMathFunc::mathIntersectLine2D(x1, y1, x1 + ux, y1 + uy, x3, y3, x3 + vx, y3 + vy, x, y, 0),
                  1);
        EXPECT_NEAR(std::hypot(x - at[0], y - at[1]), 0.0, 1e-10);
        EXPECT_EQ(CMathFunc::mathIntersectLine2D(x1, y1, x1 + ux, y1 + uy, x3, y3, x3 + vx, y3 + vy, x, y, 1),
                  Inside(s) && Inside(t));
    }
}

TEST(MathFuncLine, SegmentEndsHaveSlack)
{
    const struct {
        const char* label;
        Point q1, q2;
        int result;
    } rows[] = {{"touches at its start", {3, 0, 0}, {3, 2, 0}, 1},
                {"touches at its end", {3, 2, 0}, {3, 0, 0}, 1},
                {"touches the other's end", {10, 0, 0}, {10, 2, 0}, 1},
                {"stops 1e-8 short", {3, 2e-8, 0}, {3, 2, 0}, 1},
                {"stops 1e-6 short", {3, 2e-6, 0}, {3, 2, 0}, 0},
                {"1e-8 beyond the other's end", {10 + 1e-7, 0, 0}, {10 + 1e-7, 2, 0}, 1},
                {"1e-6 beyond the other's end", {10 + 1e-5, 0, 0}, {10 + 1e-5, 2, 0}, 0},
                {"overlaps in line", {3, 0, 0}, {12, 0, 0}, 0},
                {"no length", {3, 0, 0}, {3, 0, 0}, 0}};
    for (auto row : rows) {
        SCOPED_TRACE(row.label);
        double p1[3] = {0, 0, 0}, p2[3] = {10, 0, 0}, dist = -5.0, out[3] = {7, 7, 7};
        double x = 7, y = 7;
        const auto &q1 = row.q1, &q2 = row.q2;
        EXPECT_EQ(CMathFunc::mathIntersectLine2(p1, p2, row.q1.data(), row.q2.data(), 0.0, dist, out),
                  row.result);
        EXPECT_EQ(CMathFunc::mathIntersectLine2D(0, 0, 10, 0, q1[0], q1[1], q2[0], q2[1], x, y, 1),
                  row.result);
        EXPECT_NEAR(out[0], row.result * q1[0], 1e-12);
        EXPECT_NEAR(x, row.result * q1[0], 1e-12);
        EXPECT_NEAR(y, 0.0, 1e-12);
    }
}

TEST(MathFuncLine, ParallelLinesNeverMeet)
{
    const struct {
        const char* label;
        double slope;
        int meet;
        double distance;
    } rows[] = {{"parallel", 0.0, 0, -1.0},
                {"below the tolerance of meeting", 0.9e-4, 0, 1.0},
                {"above it", 1.1e-4, 1, 1.0},
                {"below the tolerance of distances", 0.9e-7, 0, -1.0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        double p1[3] = {0, 0, 0}, p2[3] = {10, 0, 0}, q1[3] = {0, 0, 1}, q2[3] = {1, row.slope, 1};
        double dist = -5.0, out[3], x = 7, y = 7;
        EXPECT_EQ(CMathFunc::mathIntersectLine(p1, p2, q1, q2, 1.0, dist, out), row.meet);
        EXPECT_EQ(dist, row.meet ? 1.0 : -5.0);
        EXPECT_EQ(CMathFunc::mathIntersectLine2D(0, 0, 10, 0, 0, 1, 1, 1 + row.slope, x, y, 0), row.meet);
        EXPECT_NEAR(CMathFunc::mathDistanceLine(p1, p2, q1, q2), row.distance, 1e-12);
    }
}
