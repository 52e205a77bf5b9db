#include "MathFunc.h"
#include "Random.h"

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstring>
#include <gmock/gmock.h>
#include <limits>

using testing::ElementsAre;

namespace {

const double kNoNumber = std::numeric_limits<double>::quiet_NaN();

// A double whose low and high halves are told by the caller.
double FromHalves(unsigned low, unsigned high)
{
    const unsigned halves[2] = {low, high};
    double value = 0.0;
    std::memcpy(&value, halves, sizeof value);
    return value;
}

} // namespace

TEST(MathFunc, ConstantsStandAtLoad)
{
    static const double early = CMathFunc::m_pi;
    EXPECT_EQ(early, 4.0 * std::atan(1.0));
    EXPECT_EQ(CMathFunc::m_trrad, CMathFunc::m_pi * (1.0 / 180.0));
    EXPECT_EQ(CMathFunc::m_trang, 180.0 / CMathFunc::m_pi);
    EXPECT_EQ(CMathFunc::m_NormalZero, 1e-15);
    EXPECT_EQ(CMathFunc::NonZero(), 1e-7);
    EXPECT_EQ(CMathFunc::SquareNonZero(), 1e-12);
}

TEST(MathFunc, ZeroOfScalars)
{
    const struct {
        double value;
        int isZero;
        double nonZero;
    } rows[] = {{0.0, 1, 1e-7},  {9.99e-8, 1, 1e-7}, {-5e-8, 1, 1e-7},
                {1e-7, 0, 1e-7}, {-1e-7, 0, -1e-7},  {2.0, 0, 2.0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        EXPECT_EQ(CMathFunc::IsZero(row.value), row.isZero);
        double value = row.value;
        CMathFunc::MakeNonZero(value);
        EXPECT_EQ(value, row.nonZero);
    }
    EXPECT_EQ(CMathFunc::IsZero(kNoNumber), 0);
}

TEST(MathFunc, ZeroOfVectors)
{
    double tiny[3] = {5e-7, -5e-7, 5e-7};
    double small[3] = {0.0, 1.1e-6, 0.0};
    EXPECT_EQ(CMathFunc::IsZero(tiny), 1);
    EXPECT_EQ(CMathFunc::IsZero(small), 0);
    CMathFunc::MakeNonZero(tiny);
    CMathFunc::MakeNonZero(small);
    EXPECT_THAT(tiny, ElementsAre(0.0, 0.0, 1e-7));
    EXPECT_THAT(small, ElementsAre(0.0, 1.1e-6, 0.0));
}

TEST(MathFunc, SinesAndCosinesSnap)
{
    const double pi = CMathFunc::m_pi;
    EXPECT_EQ(CMathFunc::mathSin(pi), 0.0);
    EXPECT_EQ(CMathFunc::mathSin(-pi / 2), -1.0);
    EXPECT_EQ(CMathFunc::mathCos(pi / 2), 0.0);
    EXPECT_EQ(CMathFunc::mathCos(0.0), 1.0);
    EXPECT_EQ(CMathFunc::mathCos(pi), -1.0);
    EXPECT_EQ(CMathFunc::mathSin(2e-15), std::sin(2e-15));
    EXPECT_NEAR(CMathFunc::mathSin(1.0), 0.8414709848078965, 1e-15);
}

// Computed with a hundred digits. Beside multiples of pi the processor's own instructions lose some.
TEST(MathFunc, SinesAndCosinesKeepTheirDigits)
{
    const struct {
        double angle, sine, cosine;
    } rows[] = {{0.5, 0x1.eaee8744b05f0p-2, 0x1.c1528065b7d50p-1},
                {1.0, 0x1.aed548f090ceep-1, 0x1.14a280fb5068cp-1},
                {-2.5, -0x1.326af0dcfcab1p-1, -0x1.9a2f7ef858b7dp-1},
                {3.1415, 0x1.849e08cbf6175p-14, -0x1.ffffffdb21094p-1},
                {22.0, -0x1.220a29f6eb9f4p-7, -0x1.fffadd8d4acdap-1},
                {355.0, -0x1.f9bd0307d1de3p-16, -0x1.fffffffc18e4cp-1},
                {-710.0, -0x1.f9bd0303f6fafp-15, 0x1.fffffff063930p-1},
                {918.91576300877875, 0x1.ffffffde9d2ecp-1, 0x1.71cbc651db9fbp-14},
                {103993.0, -0x1.40efdf1eb8de7p-16, 0x1.fffffffe6da77p-1},
                {100000.0, 0x1.24daa9c527e96p-5, -0x1.ffac3841b3da7p-1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.angle);
        EXPECT_DOUBLE_EQ(CMathFunc::mathSin(row.angle), row.sine); // to four units in the last place
        EXPECT_DOUBLE_EQ(CMathFunc::mathCos(row.angle), row.cosine);
        EXPECT_DOUBLE_EQ(CMathFunc::mathSin(-row.angle), -row.sine);
    }
    EXPECT_NEAR(CMathFunc::mathSin(1e15), std::sin(1e15), 1e-3);
    EXPECT_TRUE(std::isnan(CMathFunc::mathSin(kNoNumber)));
}

TEST(MathFunc, HostMaySetTheSnapTolerance)
{
    CMathFunc::m_NormalZero = 0.01;
    double unit[3] = {7.0, 7.0, 7.0};
    double shortVector[3] = {0.0, 0.009, 0.0};
    EXPECT_EQ(CMathFunc::mathSin(0.005), 0.0);
    EXPECT_EQ(CMathFunc::mathNormalize(shortVector, unit), 0);
    CMathFunc::m_NormalZero = 1e-15;
    EXPECT_GT(CMathFunc::mathSin(0.005), 0.0);
    EXPECT_EQ(CMathFunc::mathNormalize(shortVector, unit), 1);
}

TEST(MathFunc, LimitedFunctions)
{
    EXPECT_EQ(CMathFunc::mathAcos(1.0000001), 0.0);
    EXPECT_EQ(CMathFunc::mathAcos(-1.5), CMathFunc::m_pi);
    EXPECT_EQ(CMathFunc::mathAsin(2.0), CMathFunc::m_pi / 2);
    EXPECT_EQ(CMathFunc::mathAsin(-2.0), -CMathFunc::m_pi / 2);
    EXPECT_TRUE(std::isnan(CMathFunc::mathAcos(kNoNumber)));
    EXPECT_EQ(CMathFunc::mathSqrt(-4.0), 0.0);
    EXPECT_EQ(CMathFunc::mathSqrt(2.25), 1.5);
    EXPECT_EQ(CMathFunc::mathAbs(-3), 3);
    EXPECT_EQ(CMathFunc::mathAbs(INT_MIN), INT_MIN);
    EXPECT_EQ(CMathFunc::mathAbs(-3.5), 3.5);
    double big[3] = {3.0, 0.0, 0.0}, back[3] = {-3.0, 0.0, 0.0};
    EXPECT_EQ(CMathFunc::mathDot(big, big), 1.0);
    EXPECT_EQ(CMathFunc::mathDot(big, back), -1.0);
    EXPECT_EQ(CMathFunc::mathDot(0.5, 0.5, 0.5, 0.25), 0.375);
}

TEST(MathFunc, Arithmetic)
{
    double a[3] = {1.0, 2.0, 3.0}, b[3] = {4.0, -5.0, 6.0}, c[3] = {1.0, 1.0, 1.0}, out[3];
    CMathFunc::Add(a, b, out);
    EXPECT_THAT(out, ElementsAre(5.0, -3.0, 9.0));
    CMathFunc::Subtract(a, b, out);
    EXPECT_THAT(out, ElementsAre(-3.0, 7.0, -3.0));
    CMathFunc::Multiply(a, -2.0, out);
    EXPECT_THAT(out, ElementsAre(-2.0, -4.0, -6.0));
    CMathFunc::Get4thPoint(a, b, c, out);
    EXPECT_THAT(out, ElementsAre(-2.0, 8.0, -2.0));
    CMathFunc::mathNormal(c, a, b, out); // (0,1,2) x (3,-6,5)
    EXPECT_THAT(out, ElementsAre(17.0, 6.0, -3.0));
    CMathFunc::Add(a, a);
    CMathFunc::Subtract(a, c);
    CMathFunc::Multiply(a, 10.0);
    EXPECT_THAT(a, ElementsAre(10.0, 30.0, 50.0));
    EXPECT_EQ(CMathFunc::SquareLength(b), 77.0);
    EXPECT_EQ(CMathFunc::Length(b), std::sqrt(77.0));
    EXPECT_EQ(CMathFunc::Dot(c, b), 5.0);
    EXPECT_EQ(CMathFunc::mathVecDot(c, b), 5.0);
}

TEST(MathFunc, CopiesCountDoubles)
{
    const double source[4] = {1.0, 2.0, 3.0, 4.0};
    double target[4] = {9.0, 9.0, 9.0, 9.0};
    CMathFunc::Copy(source, target, 0);
    CMathFunc::Copy(source, target, -2);
    EXPECT_THAT(target, ElementsAre(9.0, 9.0, 9.0, 9.0));
    CMathFunc::Copy(source, target, 3);
    EXPECT_THAT(target, ElementsAre(1.0, 2.0, 3.0, 9.0));
    CMathFunc::Copy(5.0, 6.0, 7.0, target);
    EXPECT_THAT(target, ElementsAre(5.0, 6.0, 7.0, 9.0));
}

TEST(MathFunc, CrossMayOverwriteItsInputs)
{
    for (auto* const cross : {static_cast<void (*)(double*, double*, double*)>(CMathFunc::mathCross),
                              static_cast<void (*)(double*, double*, double*)>(CMathFunc::mathNormal)}) {
        double a[3] = {1.0, 2.0, 3.0}, b[3] = {4.0, -5.0, 6.0};
        cross(a, b, b);
        EXPECT_THAT(b, ElementsAre(27.0, 6.0, -13.0));
        cross(a, b, a);
        EXPECT_THAT(a, ElementsAre(-44.0, 94.0, -48.0));
    }
}

TEST(MathFunc, TwoCopiesOfFourBytes)
{
    double a[3] = {0.0, 1.1, 2.3}, b[3] = {0.0, 3.7, 4.9};
    const double x = 1.1 * 4.9 - 2.3 * 3.7;
    unsigned low = 0;
    std::memcpy(&low, &x, 4);
    double out[3] = {FromHalves(0x12345678U, 0x40090000U), 2.0, 3.0};
    CMathFunc::mathVecCross(a, b, out);
    EXPECT_THAT(out, ElementsAre(FromHalves(low, 0x40090000U), 2.0, 3.0));

    double source[4][4] = {{FromHalves(0xCAFEBABEU, 0x3FF00000U), 5.0}, {6.0}};
    double target[4][4] = {{FromHalves(1U, 0x40100000U), 7.0}, {8.0}};
    CMathFunc::mathMxCopy(source, target);
    EXPECT_THAT(target[0], ElementsAre(FromHalves(0xCAFEBABEU, 0x40100000U), 7.0, 0.0, 0.0));
    EXPECT_THAT(target[1], ElementsAre(8.0, 0.0, 0.0, 0.0));
}

TEST(MathFunc, NormalizeRescuesTinyVectors)
{
    const struct {
        const char* label;
        double vector[3];
        double unit[3];
    } rows[] = {{"ordinary", {0.0, 3.0, 4.0}, {0.0, 0.6, 0.8}},
                {"tiny", {0.0, -3e-8, 4e-8}, {0.0, -0.6, 0.8}},
                {"square would vanish", {0.0, 3e-161, 4e-161}, {0.0, 0.6, 0.8}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        double v[3] = {row.vector[0], row.vector[1], row.vector[2]};
        EXPECT_EQ(CMathFunc::Normalize(v), 1);
        for (int axis = 0; axis < 3; ++axis)
            EXPECT_NEAR(v[axis], row.unit[axis], 1e-5); // denormal squares keep few digits
    }
    double zero[3] = {0.0, 0.0, 0.0};
    EXPECT_EQ(CMathFunc::Normalize(zero), 1);
    EXPECT_TRUE(std::isnan(zero[0]));
}

TEST(MathFunc, NormalizeRefusesShortVectors)
{
    double shortVector[3] = {0.0, 9e-16, 0.0}, out[3] = {1.0, 2.0, 3.0};
    EXPECT_EQ(CMathFunc::mathNormalize(shortVector, out), 0);
    EXPECT_THAT(out, ElementsAre(1.0, 2.0, 3.0));
    double x = 1.0, y = 2.0, z = 3.0;
    EXPECT_EQ(CMathFunc::mathNormalize(0.0, 0.0, 9e-16, x, y, z), 0);
    EXPECT_THAT((Point{x, y, z}), ElementsAre(0.0, 0.0, 0.0));
    x = y = 5.0;
    EXPECT_EQ(CMathFunc::mathNormalize(9e-16, 0.0, x, y), 0);
    EXPECT_EQ(x, 0.0);
    EXPECT_EQ(y, 0.0);

    double v[3] = {2.0, 3.0, 6.0};
    EXPECT_EQ(CMathFunc::mathNormalize(v, v), 1);
    EXPECT_THAT(v, ElementsAre(2.0 / 7, 3.0 / 7, 6.0 / 7));
    EXPECT_EQ(CMathFunc::mathNormalize(2.0, -3.0, 6.0, x, y, z), 1);
    EXPECT_THAT((Point{x, y, z}), ElementsAre(2.0 / 7, -3.0 / 7, 6.0 / 7));
    EXPECT_EQ(CMathFunc::mathNormalize(-3.0, 4.0, x, y), 1);
    EXPECT_EQ(x, -0.6);
    EXPECT_EQ(y, 0.8);
}

TEST(MathFunc, Lengths)
{
    double a[3] = {1.0, 2.0, 3.0}, b[3] = {3.0, 5.0, 9.0};
    EXPECT_EQ(CMathFunc::mathLength(2.0, 3.0, 6.0), 7.0);
    EXPECT_EQ(CMathFunc::mathLength(1.0, 2.0, 4.0, 6.0), 5.0);
    EXPECT_EQ(CMathFunc::mathLength(1.0, 2.0, 3.0, 3.0, 5.0, 9.0), 7.0);
    EXPECT_EQ(CMathFunc::mathDistanceToPoint(a, b), 7.0);
    EXPECT_EQ(CMathFunc::PointSquareDistance(a, b), 49.0);
}
