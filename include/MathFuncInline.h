// The routines of CMathFunc that a host's inner loop wants without a call. MathFunc.h, which includes this,
// says what each does. Each is defined before its first use, as compilers demand of what a DLL exports.
#pragma once

#include "MathFunc.h"

#include <cmath>

// ---- What the others use ----

inline void CMathFunc::Copy(double x, double y, double z, double* const out)
{
    out[0] = x;
    out[1] = y;
    out[2] = z;
}

inline double CMathFunc::Dot(const double* const a, const double* const b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline double CMathFunc::SquareLength(const double* const v)
{
    return Dot(v, v);
}

inline double CMathFunc::Length(const double* const v)
{
    return std::sqrt(SquareLength(v));
}

// ---- Tolerances and scalars ----

inline double CMathFunc::NonZero()
{
    return 1e-7;
}

inline double CMathFunc::SquareNonZero()
{
    return 1e-12;
}

inline int CMathFunc::IsZero(double v)
{
    return v > -NonZero() && v < NonZero();
}

inline int CMathFunc::IsZero(const double* const v)
{
    return SquareLength(v) < SquareNonZero();
}

inline void CMathFunc::MakeNonZero(double& v)
{
    if (IsZero(v))
        v = NonZero();
}

inline void CMathFunc::MakeNonZero(double* const v)
{
    if (IsZero(v))
        Copy(0.0, 0.0, NonZero(), v);
}

inline double CMathFunc::mathSqrt(double v)
{
    return v < 0.0 ? 0.0 : std::sqrt(v);
}

inline int CMathFunc::mathAbs(int v)
{
    // The smallest int has no positive counterpart and stays itself.
    return v < 0 ? static_cast<int>(0U - static_cast<unsigned>(v)) : v;
}

inline double CMathFunc::mathAbs(double v)
{
    return std::abs(v);
}

// ---- Vectors ----

inline double CMathFunc::mathVecDot(double* const a, double* const b)
{
    return Dot(a, b);
}

inline double CMathFunc::mathDot(double* const a, double* const b)
{
    const double product = Dot(a, b);
    return product < -1.0 ? -1.0 : product > 1.0 ? 1.0 : product;
}

inline double CMathFunc::mathDot(double ax, double ay, double bx, double by)
{
    double a[3] = {ax, ay, 0.0};
    double b[3] = {bx, by, 0.0};
    return mathDot(a, b);
}

inline void CMathFunc::Add(const double* const a, const double* const b, double* const out)
{
    Copy(a[0] + b[0], a[1] + b[1], a[2] + b[2], out);
}

inline void CMathFunc::Add(double* const a, const double* const b)
{
    Add(a, b, a);
}

inline void CMathFunc::Subtract(const double* const a, const double* const b, double* const out)
{
    Copy(a[0] - b[0], a[1] - b[1], a[2] - b[2], out);
}

inline void CMathFunc::Subtract(double* const a, const double* const b)
{
    Subtract(a, b, a);
}

inline void CMathFunc::Multiply(const double* const a, double s, double* const out)
{
    Copy(s * a[0], s * a[1], s * a[2], out);
}

inline void CMathFunc::Multiply(double* const a, double s)
{
    Multiply(a, s, a);
}

inline void CMathFunc::Get4thPoint(const double* const a, const double* const b, const double* const c,
                                   double* const out)
{
    Copy(a[0] + c[0] - b[0], a[1] + c[1] - b[1], a[2] + c[2] - b[2], out);
}

inline void CMathFunc::mathCross(double* const a, double* const b, double* const out)
{
    Copy(a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0], out);
}

inline void CMathFunc::mathNormal(double* const a, double* const b, double* const out)
{
    mathCross(a, b, out);
}

inline void CMathFunc::mathNormal(double* const p1, double* const p2, double* const p3, double* const out)
{
    double first[3];
    double second[3];
    Subtract(p2, p1, first);
    Subtract(p3, p1, second);
    mathCross(first, second, out);
}

// ---- Lengths ----

inline double CMathFunc::mathLength(double x, double y, double z)
{
    return std::sqrt(x * x + y * y + z * z);
}

inline double CMathFunc::mathLength(double x1, double y1, double x2, double y2)
{
    return mathLength(x1 - x2, y1 - y2, 0.0);
}

inline double CMathFunc::mathLength(double x1, double y1, double z1, double x2, double y2, double z2)
{
    return mathLength(x1 - x2, y1 - y2, z1 - z2);
}

inline double CMathFunc::PointSquareDistance(const double* const a, const double* const b)
{
    double difference[3];
    Subtract(a, b, difference);
    return SquareLength(difference);
}

inline double CMathFunc::mathDistanceToPoint(double* const a, double* const b)
{
    return std::sqrt(PointSquareDistance(a, b));
}

// Where a host sets m_NormalZero to 0, the components of a zero vector are meant to be no numbers: the
// division by zero is no sanitizer's business.
#ifdef __GNUC__
__attribute__((no_sanitize("float-divide-by-zero")))
#endif
inline int
CMathFunc::mathNormalize(double* const v, double* const out)
{
    const double length = Length(v);
    if (length < m_NormalZero)
        return 0;
    Copy(v[0] / length, v[1] / length, v[2] / length, out);
    return 1;
}

inline int CMathFunc::mathNormalize(double x, double y, double z, double& ox, double& oy, double& oz)
{
    double v[3] = {x, y, z};
    double unit[3] = {0.0, 0.0, 0.0};
    const int result = mathNormalize(v, unit);
    ox = unit[0];
    oy = unit[1];
    oz = unit[2];
    return result;
}

inline int CMathFunc::mathNormalize(double x, double y, double& ox, double& oy)
{
    double unused = 0.0;
    return mathNormalize(x, y, 0.0, ox, oy, unused);
}

// ---- Matrices ----

// The sums start at 0, which no product of -0 turns negative.
inline void CMathFunc::mathMxMult(double (*const A)[4], double (*const B)[4], double (*const C)[4])
{
    double product[4][4];
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j)
            product[i][j] =
                0.0 + A[i][0] * B[0][j] + A[i][1] * B[1][j] + A[i][2] * B[2][j] + A[i][3] * B[3][j];
    }
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j)
            C[i][j] = product[i][j];
    }
}

inline void CMathFunc::mathVecMult(double* const v, double (*const M)[4], double* const out)
{
    double product[4];
    for (int j = 0; j < 4; ++j)
        product[j] = 0.0 + v[0] * M[0][j] + v[1] * M[1][j] + v[2] * M[2][j] + v[3] * M[3][j];
    for (int j = 0; j < 4; ++j)
        out[j] = product[j];
}

// ---- Distances to planes ----

inline double CMathFunc::mathDistanceToPlaneWithSign(double a, double b, double c, double d, double x,
                                                     double y, double z)
{
    const double length = mathLength(a, b, c);
    return length < m_NormalZero ? -1.0 : (a * x + b * y + c * z + d) / length;
}

inline double CMathFunc::mathDistanceToPlane(double a, double b, double c, double d, double x, double y,
                                             double z)
{
    const double length = mathLength(a, b, c);
    return length < m_NormalZero ? -1.0 : std::abs((a * x + b * y + c * z + d) / length);
}

// ---- Coordinate systems ----

inline void CMathFunc::mathGCS2UCS(double& x, double& y, double& z, double (*const M)[3])
{
    const double p[3] = {x, y, z};
    x = Dot(M[0], p);
    y = Dot(M[1], p);
    z = Dot(M[2], p);
}

inline void CMathFunc::mathUCS2GCS(double& x, double& y, double& z, double (*const M)[3])
{
    const double p[3] = {x, y, z};
    x = M[0][0] * p[0] + M[1][0] * p[1] + M[2][0] * p[2];
    y = M[0][1] * p[0] + M[1][1] * p[1] + M[2][1] * p[2];
    z = M[0][2] * p[0] + M[1][2] * p[1] + M[2][2] * p[2];
}

inline void CMathFunc::mathGCS2UCS(double& x, double& y, double (*const M)[2])
{
    const double alongX = M[0][0] * x + M[0][1] * y;
    y = M[1][0] * x + M[1][1] * y;
    x = alongX;
}

inline void CMathFunc::mathUCS2GCS(double& x, double& y, double (*const M)[2])
{
    const double alongX = M[0][0] * x + M[1][0] * y;
    y = M[0][1] * x + M[1][1] * y;
    x = alongX;
}

inline void CMathFunc::mathGCS2UCS(double& x, double& y, double (*const M)[2], double ox, double oy)
{
    x -= ox;
    y -= oy;
    mathGCS2UCS(x, y, M);
}

inline void CMathFunc::mathUCS2GCS(double& x, double& y, double (*const M)[2], double ox, double oy)
{
    mathUCS2GCS(x, y, M);
    x += ox;
    y += oy;
}
