// CMathFunc: rotations as quaternions, in single precision.
#include "MathFunc.h"

#include "Quaternion.h"
#include "Vec3.h"

#include <algorithm>
#include <cmath>

// With t between u and v, sqrt(2 (1 + cos t)) is 2 cos(t / 2), and |u x v| is 2 sin(t / 2) cos(t / 2).
// Opposite vectors divide by zero, as callers are told.
CQuaternion CMathFunc::RotationArc(float* const u, float* const v)
{
    const float s = std::sqrt(2.0f * (1.0f + (u[0] * v[0] + u[1] * v[1] + u[2] * v[2])));
    return {Ratio(u[1] * v[2] - u[2] * v[1], s), Ratio(u[2] * v[0] - u[0] * v[2], s),
            Ratio(u[0] * v[1] - u[1] * v[0], s), s * 0.5f};
}

void CMathFunc::MakeTransformMatrix(float* const M, CQuaternion q, float* const t)
{
    const float xx = q.x * q.x, yy = q.y * q.y, zz = q.z * q.z;
    const float xy = q.x * q.y, xz = q.x * q.z, yz = q.y * q.z;
    const float wx = q.w * q.x, wy = q.w * q.y, wz = q.w * q.z;
    const float rows[16] = {1.0f - 2.0f * (yy + zz),
                            2.0f * (xy + wz),
                            2.0f * (xz - wy),
                            0.0f,
                            2.0f * (xy - wz),
                            1.0f - 2.0f * (xx + zz),
                            2.0f * (yz + wx),
                            0.0f,
                            2.0f * (xz + wy),
                            2.0f * (yz - wx),
                            1.0f - 2.0f * (xx + yy),
                            0.0f,
                            t[0],
                            t[1],
                            t[2],
                            1.0f};
    std::copy(rows, rows + 16, M);
}

CQuaternion CMathFunc::MultQuaternions(CQuaternion a, CQuaternion b)
{
    return {a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y, a.w * b.y + a.y * b.w + a.z * b.x - a.x * b.z,
            a.w * b.z + a.z * b.w + a.x * b.y - a.y * b.x, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z};
}
