// CMathFunc: angles between vectors, points between coordinate systems.
#include "MathFunc.h"

#include "Vec3.h"

double CMathFunc::mathCrossAngle(double* const a, double* const b)
{
    return mathAcos(Ratio(Dot(a, b), Length(b) * Length(a))) * m_trang;
}

double CMathFunc::mathCrossAngle(double ax, double ay, double az, double bx, double by, double bz)
{
    double a[3] = {ax, ay, az};
    double b[3] = {bx, by, bz};
    return mathCrossAngle(a, b);
}

double CMathFunc::mathCrossAngle(double* const a, double* const b, double* const n)
{
    const double angle = mathCrossAngle(a, b);
    double cross[3];
    mathCross(a, b, cross);
    // Directions too close to tell have no side to lie on, nor a normal that could say so.
    if (angle == 0.0 || Length(cross) == 0.0)
        return angle;
    return mathCrossAngle(n, cross) <= 90.0 ? angle : 360.0 - angle;
}

double CMathFunc::mathCrossAngle2D(double ax, double ay, double bx, double by)
{
    return mathAcos(mathDot(ax, ay, bx, by)) * m_trang;
}

double CMathFunc::mathCrossAngle2D(double* const a, double* const b)
{
    const double angle = mathAcos(mathDot(a, b)) * m_trang;
    return Cross(Load(a), Load(b))[2] <= 0.0 ? -angle : angle;
}

void CMathFunc::mathTranUCS(const double* const X, const double* const Y, const double* const Z, int n,
                            double (*const pts)[3])
{
    if (n <= 0)
        return;
    // Copies, which no point that is written can change.
    double axes[3][3] = {{X[0], X[1], X[2]}, {Y[0], Y[1], Y[2]}, {Z[0], Z[1], Z[2]}};
    for (int i = 0; i < n; ++i)
        mathGCS2UCS(pts[i][0], pts[i][1], pts[i][2], axes);
}
