// A vector as a value, for the routines of numerics/ that would drown in array calls.
#pragma once

#include "MathFunc.h"

#include <cmath>

struct Vec3 {
    double c[3];

    double operator[](int axis) const { return c[axis]; }
    void Store(double* out) const
    {
        for (int axis = 0; axis < 3; ++axis)
            out[axis] = c[axis];
    }
};

inline Vec3 Load(const double* v)
{
    return {{v[0], v[1], v[2]}};
}

inline Vec3 operator+(const Vec3& a, const Vec3& b)
{
    return {{a[0] + b[0], a[1] + b[1], a[2] + b[2]}};
}

inline Vec3 operator-(const Vec3& a, const Vec3& b)
{
    return {{a[0] - b[0], a[1] - b[1], a[2] - b[2]}};
}

inline Vec3 operator*(double s, const Vec3& v)
{
    return {{s * v[0], s * v[1], s * v[2]}};
}

inline double Dot(const Vec3& a, const Vec3& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline Vec3 Cross(const Vec3& a, const Vec3& b)
{
    return {{a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]}};
}

inline double Length(const Vec3& v)
{
    return std::sqrt(Dot(v, v));
}

// The unit vector along v; false, and zero, when v is shorter than m_NormalZero.
inline bool UnitOf(const Vec3& v, Vec3& unit)
{
    return CMathFunc::mathNormalize(v[0], v[1], v[2], unit.c[0], unit.c[1], unit.c[2]) != 0;
}

// a / b where callers are told that a degenerate input gives a value that is not a number: a division by zero
// is meant here, and no sanitizer's business.
template <class Number>
__attribute__((no_sanitize("float-divide-by-zero"))) inline Number Ratio(Number a, Number b)
{
    return a / b;
}
