// CMathFunc: constants, tolerances, scalars, vectors and lengths.
#include "MathFunc.h"

#include "Vec3.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

namespace {

constexpr double kZero = 1e-7;
constexpr double kSquareZero = 1e-12;
constexpr double kTinyVector = 1e-6;
constexpr double kTinyVectorScale = 1000.0;

// What a size of "a pointer" is wherever the interface copies by it.
constexpr std::size_t kPointerBytes = 4;

double Snapped(double r)
{
    if (std::abs(r) < CMathFunc::m_NormalZero)
        r = 0.0;
    if (std::abs(1.0 - r) < CMathFunc::m_NormalZero)
        r = 1.0;
    if (std::abs(r + 1.0) < CMathFunc::m_NormalZero)
        r = -1.0;
    return r;
}

// A value that is no number stays one.
double Cosine(double v)
{
    return std::clamp(v, -1.0, 1.0);
}

} // namespace

// Constants, so that they stand before any code of the library or a host runs.
constinit double CMathFunc::m_NormalZero = 1e-15;
constinit double CMathFunc::m_pi = std::numbers::pi;
constinit double CMathFunc::m_trrad = std::numbers::pi * (1.0 / 180.0);
constinit double CMathFunc::m_trang = 180.0 / std::numbers::pi;

int CMathFunc::IsZero(double v)
{
    return v > -kZero && v < kZero;
}

int CMathFunc::IsZero(const double* const v)
{
    return SquareLength(v) < kSquareZero;
}

double CMathFunc::NonZero()
{
    return kZero;
}

double CMathFunc::SquareNonZero()
{
    return kSquareZero;
}

void CMathFunc::MakeNonZero(double& v)
{
    if (IsZero(v))
        v = kZero;
}

void CMathFunc::MakeNonZero(double* const v)
{
    if (IsZero(v))
        Copy(0.0, 0.0, kZero, v);
}

double CMathFunc::mathSin(double rad)
{
    return Snapped(std::sin(rad));
}

double CMathFunc::mathCos(double rad)
{
    return Snapped(std::cos(rad));
}

double CMathFunc::mathAsin(double v)
{
    return std::asin(Cosine(v));
}

double CMathFunc::mathAcos(double v)
{
    return std::acos(Cosine(v));
}

double CMathFunc::mathSqrt(double v)
{
    return v < 0.0 ? 0.0 : std::sqrt(v);
}

int CMathFunc::mathAbs(int v)
{
    // The smallest int has no positive counterpart and stays itself.
    return v < 0 ? static_cast<int>(0U - static_cast<unsigned>(v)) : v;
}

double CMathFunc::mathAbs(double v)
{
    return std::abs(v);
}

double CMathFunc::SquareLength(const double* const v)
{
    return Dot(v, v);
}

double CMathFunc::Length(const double* const v)
{
    return std::sqrt(SquareLength(v));
}

void CMathFunc::Add(const double* const a, const double* const b, double* const out)
{
    (Load(a) + Load(b)).Store(out);
}

void CMathFunc::Add(double* const a, const double* const b)
{
    Add(a, b, a);
}

void CMathFunc::Subtract(const double* const a, const double* const b, double* const out)
{
    (Load(a) - Load(b)).Store(out);
}

void CMathFunc::Subtract(double* const a, const double* const b)
{
    Subtract(a, b, a);
}

void CMathFunc::Multiply(const double* const a, double s, double* const out)
{
    (s * Load(a)).Store(out);
}

void CMathFunc::Multiply(double* const a, double s)
{
    Multiply(a, s, a);
}

void CMathFunc::Copy(double x, double y, double z, double* const out)
{
    Vec3{{x, y, z}}.Store(out);
}

void CMathFunc::Copy(const double* const src, double* const dst, int n)
{
    if (n > 0)
        std::memmove(dst, src, static_cast<std::size_t>(n) * sizeof(double));
}

void CMathFunc::Get4thPoint(const double* const a, const double* const b, const double* const c,
                            double* const out)
{
    (Load(a) + Load(c) - Load(b)).Store(out);
}

double CMathFunc::Dot(const double* const a, const double* const b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

double CMathFunc::mathVecDot(double* const a, double* const b)
{
    return Dot(a, b);
}

double CMathFunc::mathDot(double* const a, double* const b)
{
    return Cosine(Dot(a, b));
}

double CMathFunc::mathDot(double ax, double ay, double bx, double by)
{
    return Cosine(ax * bx + ay * by);
}

void CMathFunc::mathCross(double* const a, double* const b, double* const out)
{
    Cross(Load(a), Load(b)).Store(out);
}

void CMathFunc::mathNormal(double* const a, double* const b, double* const out)
{
    mathCross(a, b, out);
}

void CMathFunc::mathNormal(double* const p1, double* const p2, double* const p3, double* const out)
{
    Cross(Load(p2) - Load(p1), Load(p3) - Load(p1)).Store(out);
}

void CMathFunc::mathVecCross(double* const a, double* const b, double* const out)
{
    const Vec3 cross = Cross(Load(a), Load(b));
    std::memcpy(out, cross.c, kPointerBytes);
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
    for (int axis = 0; axis < 3; ++axis)
        v[axis] /= length;
    return 1;
}

int CMathFunc::mathNormalize(double* const v, double* const out)
{
    const double length = mathLength(v[0], v[1], v[2]);
    if (length < m_NormalZero)
        return 0;
    Copy(v[0] / length, v[1] / length, v[2] / length, out);
    return 1;
}

int CMathFunc::mathNormalize(double x, double y, double z, double& ox, double& oy, double& oz)
{
    double v[3] = {x, y, z};
    double unit[3] = {0.0, 0.0, 0.0};
    const int result = mathNormalize(v, unit);
    ox = unit[0];
    oy = unit[1];
    oz = unit[2];
    return result;
}

int CMathFunc::mathNormalize(double x, double y, double& ox, double& oy)
{
    double unused = 0.0;
    return mathNormalize(x, y, 0.0, ox, oy, unused);
}

double CMathFunc::mathLength(double x, double y, double z)
{
    return std::sqrt(x * x + y * y + z * z);
}

double CMathFunc::mathLength(double x1, double y1, double x2, double y2)
{
    return mathLength(x1, y1, 0.0, x2, y2, 0.0);
}

double CMathFunc::mathLength(double x1, double y1, double z1, double x2, double y2, double z2)
{
    return mathLength(x1 - x2, y1 - y2, z1 - z2);
}

double CMathFunc::mathDistanceToPoint(double* const a, double* const b)
{
    return std::sqrt(PointSquareDistance(a, b));
}

double CMathFunc::PointSquareDistance(const double* const a, const double* const b)
{
    const Vec3 d = Load(a) - Load(b);
    return ::Dot(d, d);
}
