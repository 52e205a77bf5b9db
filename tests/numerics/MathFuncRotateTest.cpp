#include "MathFunc.h"
#include "Random.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>

using testing::ElementsAre;

namespace {

// The turn of p about the unit axis u, by Rodrigues' formula in extended precision.
Point Rodrigues(const Point& p, const Point& u, double degrees)
{
    const long double rad = static_cast<long double>(degrees) * 3.14159265358979323846264L / 180.0L;
    const long double c = std::cos(rad);
    const long double s = std::sin(rad);
    const long double along = LongDot(p, u) * (1.0L - c);
    Point turned{};
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t j = (i + 1) % 3;
        const std::size_t k = (i + 2) % 3;
        const long double cross =
            static_cast<long double>(u[j]) * p[k] - static_cast<long double>(u[k]) * p[j];
        turned[i] = static_cast<double>(p[i] * c + cross * s + u[i] * along);
    }
    return turned;
}

void ExpectNear(const Point& got, const Point& expected, double tolerance)
{
    for (std::size_t axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(got[axis], expected[axis], tolerance) << "axis " << axis;
}

} // namespace

TEST(MathFuncRotate, QuarterTurnsAreExact)
{
    using Rotation = void (*)(double, double&, double&, double&);
    const struct {
        const char* label;
        Rotation rotate;
        double angle;
        Point from, to;
    } rows[] = {
        {"X 90", CMathFunc::mathRotateX, 90.0, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}},
        {"Y 90", CMathFunc::mathRotateY, 90.0, {0.0, 0.0, 1.0}, {1.0, 0.0, 0.0}},
        {"Z 90", CMathFunc::mathRotateZ, 90.0, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}},
        {"Z 180", CMathFunc::mathRotateZ, 180.0, {1.0, 0.0, 0.0}, {-1.0, 0.0, 0.0}},
        {"Z -90", CMathFunc::mathRotateZ, -90.0, {1.0, 0.0, 0.0}, {0.0, -1.0, 0.0}},
        {"tiny coordinates vanish", CMathFunc::mathRotateX, 0.0, {9e-11, 2.0, -9e-11}, {0.0, 2.0, 0.0}},
        {"small ones stay", CMathFunc::mathRotateX, 0.0, {2e-10, 2.0, -2e-10}, {2e-10, 2.0, -2e-10}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        Point p = row.from;
        row.rotate(row.angle, p[0], p[1], p[2]);
        EXPECT_THAT(p, ElementsAre(row.to[0], row.to[1], row.to[2]));
    }
}

TEST(MathFuncRotate, AnyAxisAgreesWithRodrigues)
{
    Random random(31);
    for (int i = 0; i < 2000; ++i) {
        const Point p = random.Vector();
        Point axis = random.Vector();
        if (i % 10 < 3) // axes in the coordinate planes take the branches that skip a turn
            axis[static_cast<std::size_t>(i % 10)] = 0.0;
        const Point centre = random.Vector();
        const double angle = random.Number(720.0);
        Point unit = axis;
        CMathFunc::Normalize(unit.data());

        Point turned = p;
        CMathFunc::mathRotate(angle, axis[0], axis[1], axis[2], turned[0], turned[1], turned[2]);
        ExpectNear(turned, Rodrigues(p, unit, angle), 1e-9);

        turned = p;
        CMathFunc::mathRotate(angle, centre[0], centre[1], centre[2], axis[0], axis[1], axis[2], turned[0],
                              turned[1], turned[2]);
        Point expected = Rodrigues(Minus(p, centre), unit, angle);
        CMathFunc::Add(expected.data(), centre.data());
        ExpectNear(turned, expected, 1e-9);
    }
}

TEST(MathFuncRotate, ZeroAngleTouchesNothing)
{
    Point p = {1e-12, -3e-300, 2.0};
    CMathFunc::mathRotate(0.0, 1.0, 2.0, 3.0, p[0], p[1], p[2]);
    CMathFunc::mathRotate(0.0, 9.0, 9.0, 9.0, 1.0, 2.0, 3.0, p[0], p[1], p[2]);
    EXPECT_THAT(p, ElementsAre(1e-12, -3e-300, 2.0));
    CMathFunc::mathRotate(360.0, 0.0, 0.0, 1.0, p[0], p[1], p[2]);
    EXPECT_THAT(p, ElementsAre(0.0, 0.0, 2.0));
    CMathFunc::mathRotate(90.0, 0.0, 0.0, 0.0, p[2], p[1], p[0]); // no axis: Z, and the first argument is 2
    EXPECT_THAT(p, ElementsAre(0.0, 2.0, 0.0));
}

TEST(MathFuncRotate, DirectionAnglesCarryOntoZ)
{
    Random random(32);
    for (int i = 0; i < 500; ++i) {
        Point p = random.Vector();
        const double length = CMathFunc::Length(p.data());
        double a1 = 0.0, a2 = 0.0;
        CMathFunc::mathVec2Ang(p[0], p[1], p[2], a1, a2);
        CMathFunc::mathRotateX(-a1, p[0], p[1], p[2]);
        CMathFunc::mathRotateY(-a2, p[0], p[1], p[2]);
        ExpectNear(p, {0.0, 0.0, length}, 1e-11);
    }
    const struct {
        Point direction;
        double a1, a2;
    } rows[] = {{{0, 0, 1}, 0, 0},      {{0, 0, -1}, -180, 0}, {{0, 1, 0}, -90, 0},
                {{0, -1, -1}, -225, 0}, {{-1, 0, 0}, 0, -90},  {{0, 0, 0}, 0, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.direction));
        double a1 = 5.0, a2 = 5.0;
        CMathFunc::mathVec2Ang(row.direction[0], row.direction[1], row.direction[2], a1, a2);
        EXPECT_NEAR(a1, row.a1, 1e-12);
        EXPECT_NEAR(a2, row.a2, 1e-12);
    }
    double a1 = 5.0, a2 = 5.0;
    CMathFunc::mathVec2Ang(0.0, 0.0, 0.0, a1, a2);
    EXPECT_TRUE(std::signbit(a1));
    CMathFunc::mathVec2Ang(0.0, NAN, 0.0, a1, a2); // no length that would be long enough
    EXPECT_EQ(a1, 0.0);
    EXPECT_EQ(a2, 0.0);
}

TEST(MathFuncRotate, AnglesBetweenVectors)
{
    const struct {
        const char* label;
        Point a, b, normal;
        double angle, round;
    } rows[] = {{"quarter", {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, 90, 90},
                {"quarter from below", {1, 0, 0}, {0, 1, 0}, {0, 0, -1}, 90, 270},
                {"lengths do not matter", {4, 0, 0}, {0.1, 0.1, 0}, {0, 0, 7}, 45, 45},
                {"equal", {2, 0, 0}, {2, 0, 0}, {0, 0, 1}, 0, 0},
                {"opposite", {1, 0, 0}, {-3, 0, 0}, {0, 0, -1}, 180, 180},
                {"too close to tell", {1, 0, 0}, {1, 1e-10, 0}, {0, 0, -1}, 0, 0}};
    for (auto row : rows) {
        SCOPED_TRACE(row.label);
        double *const a = row.a.data(), *const b = row.b.data();
        EXPECT_NEAR(CMathFunc::mathCrossAngle(a, b), row.angle, 1e-12);
        EXPECT_NEAR(CMathFunc::mathCrossAngle(a[0], a[1], a[2], b[0], b[1], b[2]), row.angle, 1e-12);
        EXPECT_NEAR(CMathFunc::mathCrossAngle(a, b, row.normal.data()), row.round, 1e-12);
    }
    EXPECT_TRUE(std::isnan(CMathFunc::mathCrossAngle(0.0, 0.0, 0.0, 1.0, 0.0, 0.0)));
    for (int k = 1; k < 30; ++k) { // parallel, though rounding sees an angle
        double one[3] = {1, 7, 3}, multiple[3] = {k * 1.0, k * 7.0, k * 3.0}, up[3] = {0, 0, 1};
        EXPECT_LT(CMathFunc::mathCrossAngle(one, multiple, up), 1e-5) << k;
    }
    double a[3] = {1, 0, 0}, b[3] = {0, 1, 0}, none[3] = {0, 0, 0};
    EXPECT_NEAR(CMathFunc::mathCrossAngle(a, b, none), 270.0, 1e-12); // no side is not that of a x b
}

TEST(MathFuncRotate, AngleRoundANormalIsTheTurn)
{
    Random random(33);
    for (int i = 0; i < 500; ++i) {
        Point a = random.Vector(), other = random.Vector(), normal{};
        CMathFunc::mathCross(a.data(), other.data(), normal.data());
        const double angle = 180.0 + random.Number(179.0);
        Point b = a;
        CMathFunc::mathRotate(angle, normal[0], normal[1], normal[2], b[0], b[1], b[2]);
        EXPECT_NEAR(CMathFunc::mathCrossAngle(a.data(), b.data(), normal.data()), angle, 1e-6);
    }
}

TEST(MathFuncRotate, AnglesOfUnitVectorsInThePlane)
{
    const struct {
        Point b;
        double angle, flat;
    } rows[] = {{{1, 0, 0}, -0.0, 0}, {{-1, 0, 0}, -180, 180}, {{0, 1, 0}, 90, 90}, {{0, -1, 0}, -90, 90}};
    for (auto row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.b));
        double a[3] = {1.0, 0.0, 0.0};
        const double angle = CMathFunc::mathCrossAngle2D(a, row.b.data());
        EXPECT_NEAR(angle, row.angle, 1e-12);
        EXPECT_EQ(std::signbit(angle), std::signbit(row.angle));
        EXPECT_NEAR(CMathFunc::mathCrossAngle2D(1.0, 0.0, row.b[0], row.b[1]), row.flat, 1e-12);
    }
    EXPECT_EQ(CMathFunc::mathCrossAngle2D(9.0, 0.0, 9.0, 1.0), 0.0); // not normalised: the product is limited
}

TEST(MathFuncRotate, MatricesAreForRowVectors)
{
    double turn[4][4], move[4][4], both[4][4];
    CMathFunc::mathMxIdentity(turn);
    CMathFunc::mathMxIdentity(move);
    turn[0][0] = turn[1][1] = 0.0;
    turn[0][1] = 1.0;
    turn[1][0] = -1.0;
    move[3][0] = 10.0;
    move[3][2] = 3.0;
    CMathFunc::mathMxMult(turn, move, both);
    double v[4] = {1.0, 2.0, 5.0, 1.0};
    CMathFunc::mathVecMult(v, both, v);
    EXPECT_THAT(v, ElementsAre(8.0, 1.0, 8.0, 1.0));
    CMathFunc::mathMxMult(turn, move, move);
    for (int row = 0; row < 4; ++row)
        EXPECT_THAT(move[row], testing::ElementsAreArray(both[row]));
}

TEST(MathFuncRotate, CoordinateSystemsAreInverse)
{
    const double c = 0.6, s = 0.8;
    double frame[3][3] = {{c, s, 0.0}, {-s, c, 0.0}, {0.0, 0.0, 1.0}};
    double flat[2][2] = {{c, s}, {-s, c}};
    double x = 3.0, y = 4.0, z = 5.0;
    CMathFunc::mathGCS2UCS(x, y, z, frame);
    EXPECT_THAT((Point{x, y, z}),
                ElementsAre(testing::DoubleNear(5.0, 1e-15), testing::DoubleNear(0.0, 1e-15), 5.0));
    CMathFunc::mathUCS2GCS(x, y, z, frame);
    EXPECT_NEAR(x, 3.0, 1e-15);
    EXPECT_NEAR(y, 4.0, 1e-15);

    CMathFunc::mathGCS2UCS(x, y, flat);
    EXPECT_NEAR(x, 5.0, 1e-14);
    EXPECT_NEAR(y, 0.0, 1e-14);
    CMathFunc::mathUCS2GCS(x, y, flat);
    CMathFunc::mathGCS2UCS(x, y, flat, 3.0, 3.0);
    EXPECT_NEAR(x, 0.8, 1e-14);
    EXPECT_NEAR(y, 0.6, 1e-14);
    CMathFunc::mathUCS2GCS(x, y, flat, 3.0, 3.0);
    EXPECT_NEAR(x, 3.0, 1e-14);
    EXPECT_NEAR(y, 4.0, 1e-14);

    double points[2][3] = {{3.0, 4.0, 5.0}, {6.0, 8.0, 10.0}};
    CMathFunc::mathTranUCS(frame[1], frame[2], frame[0], 1, points);
    CMathFunc::mathTranUCS(nullptr, nullptr, nullptr, -1, points);
    EXPECT_NEAR(points[0][0], 0.0, 1e-14);
    EXPECT_NEAR(points[0][1], 5.0, 1e-14);
    EXPECT_NEAR(points[0][2], 5.0, 1e-14);
    EXPECT_EQ(points[1][0], 6.0);
}
