// CMathFunc: constants, scalars, vectors.
#include "MathFunc.h"

#include "Snap.h"
#include "Vec3.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

namespace {

constexpr double kTinyVector = 1e-6;
constexpr double kTinyVectorScale = 1000.0;

// What a size of "a pointer" is wherever the interface copies by it.
constexpr std::size_t kPointerBytes = 4;

} // namespace

// Constants, so that they stand before any code of the library or a host runs.
constinit double CMathFunc::m_NormalZero = 1e-15;
constinit double CMathFunc::m_pi = std::numbers::pi;
constinit double CMathFunc::m_trrad = std::numbers::pi * (1.0 / 180.0);
constinit double CMathFunc::m_trang = 180.0 / std::numbers::pi;

double CMathFunc::mathSin(double rad)
{
    return Snapped(SineCosineOf(rad).sine);
}

double CMathFunc::mathCos(double rad)
{
    return Snapped(SineCosineOf(rad).cosine);
}

// A value that is no number stays one when it is limited.
double CMathFunc::mathAsin(double v)
{
    return std::asin(std::clamp(v, -1.0, 1.0));
}

double CMathFunc::mathAcos(double v)
{
    return std::acos(std::clamp(v, -1.0, 1.0));
}

void CMathFunc::Copy(const double* const src, double* const dst, int n)
{
    if (n > 0)
        std::memmove(dst, src, static_cast<std::size_t>(n) * sizeof(double));
}

void CMathFunc::mathVecCross(double* const a, double* const b, double* const out)
{
    const double x = a[1] * b[2] - a[2] * b[1];
    std::memcpy(out, &x, kPointerBytes);
}

void CMathFunc::mathMxCopy(double (*const src)[4], double (*const dst)[4])
{
    std::memmove(dst, src, kPointerBytes);
}

int CMathFunc::Normalize(double* const v)
{
    if (Length(v) < kTinyVector)
        Multiply(v, kTinyVectorScale);
    const double length = Length(v);
    Copy(Ratio(v[0], length), Ratio(v[1], length), Ratio(v[2], length), v);
    return 1;
}
