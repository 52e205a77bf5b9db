// A rotation as four single-precision numbers, in the order x, y, z, w.
//
//   float axis[3] = {0.0f, 0.0f, 0.70710678f};       // the Z axis times sin(45 degrees)
//   CQuaternion quarterTurn(axis, 1.57079633f);      // (0, 0, 0.7071, 0.7071)
//
// A unit quaternion (sin(t/2) n, cos(t/2)) turns by t about the unit axis n, counter-clockwise as seen from
// its tip. CMathFunc makes, multiplies and applies them (RotationArc, MultQuaternions, MakeTransformMatrix).
//
// Units:   angles are radians here.
// Threads: a value; nothing is shared.
#pragma once

#include <afxver_.h>

#include <cmath>

class AFX_EXT_CLASS CQuaternion
{
public:
    // Turns nothing: (0, 0, 0, 1).
    CQuaternion() : x(0.0f), y(0.0f), z(0.0f), w(1.0f) {}
    CQuaternion(float qx, float qy, float qz, float qw) : x(qx), y(qy), z(qz), w(qw) {}
    // The axis exactly as given, and w = cos(angle / 2). The axis is not multiplied by sin(angle / 2): for a
    // unit quaternion pass it scaled so.
    CQuaternion(float* const axis, float angle)
        : x(axis[0]), y(axis[1]), z(axis[2]), w(static_cast<float>(std::cos(angle * 0.5)))
    {
    }

    // out = (x, y, z) as they are, not normalised.
    void GetAxis(float* const out)
    {
        out[0] = x;
        out[1] = y;
        out[2] = z;
    }
    // 2 acos(w), in [0, 2 pi]; not a number for a w outside [-1, 1].
    void GetAngle(float& angle) { angle = static_cast<float>(2.0 * std::acos(static_cast<double>(w))); }

    float x;
    float y;
    float z;
    float w;
};
