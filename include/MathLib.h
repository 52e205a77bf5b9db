// Turning and mirroring of 2-D points, and the direction of a line.
//
//   double x, y;
//   CMathLib::Rotate(5.0, 2.0, 90.0, 4.0, 2.0, x, y);                        // (4, 3)
//   CMathLib::Mirror(1.0, 1.0, 0.0, 0.0, 1.0, 0.0, x, y);                    // (1, -1)
//   double angle = CMathLib::CalcAngleDegLineAndAxisX(0.0, 0.0, -1.0, 0.0);  // 180
//
// Units:   degrees, but for the members named ...Rad; angles run counter-clockwise.
// Errors:  none; what is not finite goes through the arithmetic. Results are not snapped: a quarter turn
//          leaves 6e-17 where a zero is meant.
// Aliases: an output may be the variable an input was read from.
// Threads: reentrant; nothing is stored.
#pragma once

#include <afxver_.h>

struct T_MATRIX_3X3;

class AFX_EXT_CLASS CMathLib
{
public:
    static double ConvDeg2Rad(double deg);

    // The direction from (x1, y1) to (x2, y2) against the X axis, in (-180, 180] degrees or (-pi, pi]
    // radians; negative below the axis. 0 for points closer than CMathFunc::m_NormalZero. It is taken from a
    // cosine, as CMathFunc::mathCrossAngle() does: directions within 1e-8 radians of the axis are on it.
    static double CalcAngleDegLineAndAxisX(double x1, double y1, double x2, double y2);
    static double CalcAngleRadLineAndAxisX(double x1, double y1, double x2, double y2);

    // (ox, oy) = the first two of (x, y, 1) M; the third is not looked at.
    static void ApplyMatrix2D(double x, double y, const T_MATRIX_3X3& M, double& ox, double& oy);
    // (x, y) turned by `deg` about (cx, cy).
    static void Rotate(double x, double y, double deg, double cx, double cy, double& ox, double& oy);
    // (x, y) mirrored about the line through (x1, y1) and (x2, y2); about the horizontal through the first
    // when they are closer than CMathFunc::m_NormalZero.
    static void Mirror(double x, double y, double x1, double y1, double x2, double y2, double& ox,
                       double& oy);

protected:
    CMathLib() = default;
};
