#include "MathFunc.h"
#include "Quaternion.h"
#include "Random.h"

#include <cmath>
#include <gmock/gmock.h>

namespace {

// Single precision loses some units of 6e-8 on the way.
constexpr float kClose = 5e-6f;

using Small = std::array<float, 3>;

Small SmallUnit(Random& random)
{
    Point v = random.Vector();
    CMathFunc::Normalize(v.data());
    return {static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2])};
}

Small Moved(const Small& p, const float* m)
{
    Small out{};
    for (std::size_t j = 0; j < 3; ++j)
        out[j] = p[0] * m[j] + p[1] * m[4 + j] + p[2] * m[8 + j] + m[12 + j];
    return out;
}

void ExpectClose(const Small& got, const Small& expected)
{
    for (std::size_t k = 0; k < 3; ++k)
        EXPECT_NEAR(got[k], expected[k], kClose) << k;
}

} // namespace

TEST(MathFuncQuaternion, ArcsCarryOneVectorOntoTheOther)
{
    Random random(71);
    float none[3] = {0, 0, 0}, away[3] = {5, -6, 7}, turn[16];
    for (int i = 0; i < 500; ++i) {
        Small u = SmallUnit(random), v = SmallUnit(random);
        const CQuaternion arc = CMathFunc::RotationArc(u.data(), v.data());
        EXPECT_NEAR(arc.x * u[0] + arc.y * u[1] + arc.z * u[2], 0.0f, kClose); // the shortest way
        CMathFunc::MakeTransformMatrix(turn, arc, none);
        if (arc.w > 0.3f) { // nearly opposite vectors keep few digits
            ExpectClose(Moved(u, turn), v);
        }
    }
    Small x = {1, 0, 0}, y = {0, 1, 0}, back = {-1, 0, 0};
    const CQuaternion quarter = CMathFunc::RotationArc(x.data(), y.data());
    EXPECT_NEAR(quarter.z, 0.70710678f, kClose);
    EXPECT_NEAR(quarter.w, 0.70710678f, kClose);
    CMathFunc::MakeTransformMatrix(turn, quarter, away);
    ExpectClose(Moved(x, turn), {5, -5, 7});
    EXPECT_THAT((std::array{turn[3], turn[7], turn[11], turn[15]}), testing::ElementsAre(0, 0, 0, 1));
    EXPECT_TRUE(std::isnan(CMathFunc::RotationArc(x.data(), back.data()).x));
}

TEST(MathFuncQuaternion, ProductsTurnByTheSecondFirst)
{
    Random random(72);
    float none[3] = {0, 0, 0}, both[16], first[16], second[16];
    for (int i = 0; i < 500; ++i) {
        Small ends[4] = {SmallUnit(random), SmallUnit(random), SmallUnit(random), SmallUnit(random)};
        const CQuaternion a = CMathFunc::RotationArc(ends[0].data(), ends[1].data());
        const CQuaternion b = CMathFunc::RotationArc(ends[2].data(), ends[3].data());
        if (a.w < 0.3f || b.w < 0.3f)
            continue;
        CMathFunc::MakeTransformMatrix(first, b, none);
        CMathFunc::MakeTransformMatrix(second, a, none);
        CMathFunc::MakeTransformMatrix(both, CMathFunc::MultQuaternions(a, b), none);
        ExpectClose(Moved(ends[0], both), Moved(Moved(ends[0], first), second));
    }
    const CQuaternion ij = CMathFunc::MultQuaternions({1, 0, 0, 0}, {0, 1, 0, 0}); // i j = k
    EXPECT_THAT((std::array{ij.x, ij.y, ij.z, ij.w}), testing::ElementsAre(0, 0, 1, 0));
}
