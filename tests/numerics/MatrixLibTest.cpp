#include "MathFunc.h"
#include "MathLib.h"
#include "MatrixLib.h"
#include "Quaternion.h"
#include "Random.h"

#include <cmath>
#include <gmock/gmock.h>
#include <numbers>
#include <type_traits>

using testing::ElementsAre;
using testing::FloatNear;

static_assert(sizeof(T_MATRIX_3X3) == 9 * sizeof(double) && sizeof(T_MATRIX_1X3) == 3 * sizeof(double));
static_assert(sizeof(CQuaternion) == 4 * sizeof(float) && !std::is_polymorphic_v<CQuaternion>);
static_assert(!std::is_polymorphic_v<CMathLib> && !std::is_default_constructible_v<CMathLib>);
static_assert(std::has_virtual_destructor_v<CMatrixLib> && !std::is_default_constructible_v<CMatrixLib>);

namespace {

constexpr long double kPi = std::numbers::pi_v<long double>;

// A transform of the plane in extended precision, as a table of what it does to (0, 0), (1, 0) and (0, 1).
struct Plane {
    long double ox, oy, xx, xy, yx, yy;
};

Plane Turn(long double rad, long double cx, long double cy)
{
    const long double c = std::cos(rad), s = std::sin(rad);
    return {cx - c * cx + s * cy, cy - s * cx - c * cy, c, s, -s, c};
}

// Reflection by the unit normal, without any angle.
Plane Reflection(const double (&p)[2], const double (&q)[2])
{
    const long double dx = static_cast<long double>(q[0]) - p[0], dy = static_cast<long double>(q[1]) - p[1];
    const long double length = std::sqrt(dx * dx + dy * dy), nx = -dy / length, ny = dx / length;
    const long double away = -2 * (nx * p[0] + ny * p[1]);
    return {-away * nx, -away * ny, 1 - 2 * nx * nx, -2 * nx * ny, -2 * nx * ny, 1 - 2 * ny * ny};
}

void ExpectNear(const T_MATRIX_3X3& M, const Plane& plane, double tolerance)
{
    EXPECT_NEAR(M[0][0], double(plane.xx), tolerance);
    EXPECT_NEAR(M[0][1], double(plane.xy), tolerance);
    EXPECT_NEAR(M[1][0], double(plane.yx), tolerance);
    EXPECT_NEAR(M[1][1], double(plane.yy), tolerance);
    EXPECT_NEAR(M[2][0], double(plane.ox), tolerance);
    EXPECT_NEAR(M[2][1], double(plane.oy), tolerance);
    EXPECT_THAT((std::array{M[0][2], M[1][2], M[2][2]}), ElementsAre(0.0, 0.0, 1.0));
}

T_MATRIX_3X3 Garbage()
{
    return {{{7, 7, 7}, {7, 7, 7}, {7, 7, 7}}};
}

} // namespace

TEST(MatrixLib, FillsAndReturnsItsFirstArgument)
{
    T_MATRIX_3X3 M;
    const struct {
        const char* label;
        T_MATRIX_3X3& (*make)(T_MATRIX_3X3&);
        double expected[9];
    } rows[] = {
        {"identity",
         [](T_MATRIX_3X3& m) -> T_MATRIX_3X3& { return CMatrixLib::IdentityM2D(m); },
         {1, 0, 0, 0, 1, 0, 0, 0, 1}},
        {"shift",
         [](T_MATRIX_3X3& m) -> T_MATRIX_3X3& { return CMatrixLib::TransM2D(m, 2, -3); },
         {1, 0, 0, 0, 1, 0, 2, -3, 1}},
        {"scale",
         [](T_MATRIX_3X3& m) -> T_MATRIX_3X3& { return CMatrixLib::ScaleM2D(m, 2, -3); },
         {2, 0, 0, 0, -3, 0, 0, 0, 1}},
        {"mirror",
         [](T_MATRIX_3X3& m) -> T_MATRIX_3X3& { return CMatrixLib::MirrorM2D(m, -1, 1); },
         {-1, 0, 0, 0, 1, 0, 0, 0, 1}},
        {"turn",
         [](T_MATRIX_3X3& m) -> T_MATRIX_3X3& { return CMatrixLib::RotateM2D(m, 0.5); },
         {std::cos(0.5), std::sin(0.5), 0, -std::sin(0.5), std::cos(0.5), 0, 0, 0, 1}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        M = Garbage();
        EXPECT_EQ(&row.make(M), &M);
        for (int i = 0; i < 9; ++i)
            EXPECT_DOUBLE_EQ(M[i / 3][i % 3], row.expected[i]) << i;
    }
    // No snapping: what the cosine leaves of a quarter turn stays.
    EXPECT_NE(CMatrixLib::RotateM2D(M, CMathLib::ConvDeg2Rad(90.0))[0][0], 0.0);
}

TEST(MatrixLib, TurnsAndMirrorsAnywhere)
{
    Random random(71);
    for (int i = 0; i < 1000; ++i) {
        T_MATRIX_3X3 M = Garbage();
        const double rad = random.Number(7.0), p[2] = {random.Number(), random.Number()},
                     q[2] = {random.Number(), random.Number()};
        EXPECT_EQ(&CMatrixLib::RotateM2D(M, rad, p[0], p[1]), &M);
        ExpectNear(M, Turn(rad, p[0], p[1]), 1e-14);
        EXPECT_EQ(&CMatrixLib::MirrorM2D(M, p[0], p[1], q[0], q[1]), &M);
        ExpectNear(M, Reflection(p, q), 1e-12); // the line's angle comes from a cosine
    }
    T_MATRIX_3X3 M;
    CMatrixLib::MirrorM2D(M, 3, 4, 3, 4);
    ExpectNear(M, {0, 8, 1, 0, 0, -1}, 0.0);
}

TEST(MatrixLib, Products)
{
    const T_MATRIX_3X3 A = {{{1, 2, 3}, {4, 5, 6}, {7, 8, 10}}}, B = {{{-1, 0, 2}, {3, 1, -2}, {5, 4, 1}}};
    const double expected[9] = {20, 14, 1, 41, 29, 4, 67, 48, 8};
    T_MATRIX_3X3 C = Garbage();
    EXPECT_EQ(&CMatrixLib::Mul33x33(C, A, B), &C);
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(C[i / 3][i % 3], expected[i]) << i;
    T_MATRIX_1X3 r;
    EXPECT_EQ(&CMatrixLib::Mul13x33(r, {{1, -2, 3}}, A), &r);
    EXPECT_THAT(r.m, ElementsAre(14.0, 16.0, 21.0));
}

TEST(MathLib, DirectionOfALine)
{
    const double below = -0.0;
    const struct {
        const char* label;
        double x1, y1, x2, y2, degrees;
    } rows[] = {{"right", 0, 0, 5, 0, 0},
                {"up", 2, 3, 2, 9, 90},
                {"left", 0, 0, -1, 0, 180},
                {"left from below zero", 0, 0, -1, below, 180},
                {"down", 0, 0, 0, -1, -90},
                {"just below left", 0, 0, -1, -1e-3, -179.9427042395855},
                {"first quadrant", 1, 1, 4, 4, 45},
                {"third quadrant", 0, 0, -3, -3, -135},
                {"no direction", 4, 5, 4, 5, 0},
                {"shorter than the tolerance", 0, 0, 0, 9e-16, 0},
                {"longer than it", 0, 0, 0, 2e-15, 90}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_NEAR(CMathLib::CalcAngleDegLineAndAxisX(row.x1, row.y1, row.x2, row.y2), row.degrees, 3e-11);
        EXPECT_NEAR(CMathLib::CalcAngleRadLineAndAxisX(row.x1, row.y1, row.x2, row.y2),
                    double(row.degrees * kPi / 180), 1e-12);
    }
    Random random(72);
    for (int i = 0; i < 1000; ++i) {
        const double x1 = random.Number(), y1 = random.Number(), x2 = random.Number(), y2 = random.Number();
        const long double expected =
            std::atan2(static_cast<long double>(y2) - y1, static_cast<long double>(x2) - x1);
        EXPECT_NEAR(CMathLib::CalcAngleRadLineAndAxisX(x1, y1, x2, y2), double(expected), 1e-12);
    }
    EXPECT_EQ(CMathLib::ConvDeg2Rad(180.0), CMathFunc::m_pi);
}

TEST(MathLib, TurnsMirrorsAndAppliesToPoints)
{
    double x = 7, y = 7;
    CMathLib::Rotate(1, 0, 90, 0, 0, x, y);
    EXPECT_NEAR(x, 0.0, 1e-16);
    EXPECT_NEAR(y, 1.0, 1e-16);
    CMathLib::Mirror(1, 1, 0, 0, 1, 0, x, y);
    EXPECT_THAT((std::array{x, y}), ElementsAre(1.0, -1.0));
    CMathLib::Mirror(x, y, 2, 2, 2, 2, x, y); // no direction: about the horizontal; in place
    EXPECT_THAT((std::array{x, y}), ElementsAre(1.0, 5.0));
    CMathLib::ApplyMatrix2D(2, 3, {{{1, 10, 0}, {100, 1000, 0}, {0.5, 0.25, 1}}}, x, y);
    EXPECT_THAT((std::array{x, y}), ElementsAre(302.5, 3020.25));

    Random random(73);
    for (int i = 0; i < 1000; ++i) {
        const double px = random.Number(), py = random.Number(), deg = random.Number(720.0);
        const double c[2] = {random.Number(), random.Number()}, d[2] = {random.Number(), random.Number()};
        const Plane turn = Turn(deg * kPi / 180, c[0], c[1]), mirror = Reflection(c, d);
        CMathLib::Rotate(px, py, deg, c[0], c[1], x, y);
        EXPECT_NEAR(x, double(turn.ox + px * turn.xx + py * turn.yx), 1e-13);
        EXPECT_NEAR(y, double(turn.oy + px * turn.xy + py * turn.yy), 1e-13);
        CMathLib::Mirror(px, py, c[0], c[1], d[0], d[1], x, y);
        EXPECT_NEAR(x, double(mirror.ox + px * mirror.xx + py * mirror.yx), 1e-11);
        EXPECT_NEAR(y, double(mirror.oy + px * mirror.xy + py * mirror.yy), 1e-11);
    }
}

TEST(Quaternion, IsMadeAndTakenApart)
{
    const float pi = std::numbers::pi_v<float>;
    float axis[3] = {0, 0, 1}, angle = 7, out[3] = {7, 7, 7};
    const CQuaternion none, given(1, 2, 3, 4);
    EXPECT_THAT((std::array{none.x, none.y, none.z, none.w}), ElementsAre(0.0f, 0.0f, 0.0f, 1.0f));
    EXPECT_THAT((std::array{given.x, given.y, given.z, given.w}), ElementsAre(1.0f, 2.0f, 3.0f, 4.0f));
    CQuaternion half(axis, pi);
    EXPECT_THAT((std::array{half.x, half.y, half.z, half.w}),
                ElementsAre(0.0f, 0.0f, 1.0f, FloatNear(0, 1e-7f)));
    half.GetAngle(angle);
    EXPECT_FLOAT_EQ(angle, pi);
    float long3[3] = {3, -4, 12}; // neither scaled nor normalised
    CQuaternion unscaled(long3, 1.0f);
    unscaled.GetAxis(out);
    EXPECT_THAT(out, ElementsAre(3.0f, -4.0f, 12.0f));
    EXPECT_FLOAT_EQ(unscaled.w, std::cos(0.5f));
    const struct {
        float w, angle;
    } rows[] = {{1, 0}, {-1, 2 * pi}, {0, pi}, {0.5f, 2 * pi / 3}};
    for (const auto& row : rows) {
        CQuaternion(0, 0, 0, row.w).GetAngle(angle);
        EXPECT_FLOAT_EQ(angle, row.angle) << row.w;
    }
    CQuaternion(0, 0, 0, 1.5f).GetAngle(angle);
    EXPECT_TRUE(std::isnan(angle));
}
