// CMathFunc: matrices, rotations, angles between vectors, coordinate systems.
#include "MathFunc.h"

#include "Vec3.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kCleanUp = 1e-10;
constexpr double kNoDirection = 1e-15;
constexpr double kIdentity[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};

void CleanUp(double& x, double& y, double& z)
{
    for (double* const value : {&x, &y, &z}) {
        if (std::abs(*value) < kCleanUp)
            *value = 0.0;
    }
}

// Turns the coordinates (u, v) of a plane from its first axis towards its second.
void Turn(double angle, double& u, double& v)
{
    const double rad = angle * CMathFunc::m_trrad;
    const double c = CMathFunc::mathCos(rad);
    const double s = CMathFunc::mathSin(rad);
    const double turned = u * c - v * s;
    v = u * s + v * c;
    u = turned;
}

// The turns about X (by aboutX) and about Y (by -aboutY) that carry a direction onto the Z axis.
void AnglesOntoZ(double x, double y, double z, double& aboutX, double& aboutY)
{
    const double inPlane = std::sqrt(y * y + z * z);
    aboutX = inPlane < kNoDirection ? 0.0 : CMathFunc::mathAsin(y / inPlane) * CMathFunc::m_trang;
    if (inPlane >= kNoDirection && z < 0.0)
        aboutX = 180.0 - aboutX;
    const double length = CMathFunc::mathLength(x, y, z);
    aboutY = length < kNoDirection ? 0.0 : CMathFunc::mathAsin(x / length) * CMathFunc::m_trang;
}

} // namespace

void CMathFunc::mathMxIdentity(double (*const M)[4])
{
    Copy(&kIdentity[0][0], &M[0][0], 16);
}

void CMathFunc::mathMxMult(double (*const A)[4], double (*const B)[4], double (*const C)[4])
{
    double product[4][4] = {};
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            for (int k = 0; k < 4; ++k)
                product[i][j] += A[i][k] * B[k][j];
        }
    }
    Copy(&product[0][0], &C[0][0], 16);
}

void CMathFunc::mathVecMult(double* const v, double (*const M)[4], double* const out)
{
    double product[4] = {};
    for (int j = 0; j < 4; ++j) {
        for (int i = 0; i < 4; ++i)
            product[j] += v[i] * M[i][j];
    }
    Copy(product, out, 4);
}

void CMathFunc::mathRotateX(double angle, double& x, double& y, double& z)
{
    Turn(angle, y, z);
    CleanUp(x, y, z);
}

void CMathFunc::mathRotateY(double angle, double& x, double& y, double& z)
{
    Turn(angle, z, x);
    CleanUp(x, y, z);
}

void CMathFunc::mathRotateZ(double angle, double& x, double& y, double& z)
{
    Turn(angle, x, y);
    CleanUp(x, y, z);
}

void CMathFunc::mathRotate(double angle, double ax, double ay, double az, double& x, double& y, double& z)
{
    if (angle == 0.0)
        return;
    double aboutX = 0.0;
    double aboutY = 0.0;
    AnglesOntoZ(ax, ay, az, aboutX, aboutY);
    if (aboutX != 0.0)
        mathRotateX(aboutX, x, y, z);
    if (aboutY != 0.0)
        mathRotateY(-aboutY, x, y, z);
    mathRotateZ(angle, x, y, z);
    if (aboutY != 0.0)
        mathRotateY(aboutY, x, y, z);
    if (aboutX != 0.0)
        mathRotateX(-aboutX, x, y, z);
}

void CMathFunc::mathRotate(double angle, double cx, double cy, double cz, double ax, double ay, double az,
                           double& x, double& y, double& z)
{
    if (angle == 0.0)
        return;
    x -= cx;
    y -= cy;
    z -= cz;
    mathRotate(angle, ax, ay, az, x, y, z);
    x += cx;
    y += cy;
    z += cz;
    CleanUp(x, y, z);
}

void CMathFunc::mathVec2Ang(double x, double y, double z, double& a1, double& a2)
{
    AnglesOntoZ(x, y, z, a1, a2);
    a1 = -a1;
}

double CMathFunc::mathCrossAngle(double* const a, double* const b)
{
    return mathAcos(Dot(a, b) / (Length(b) * Length(a))) * m_trang;
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
    // Parallel vectors have no cross product to compare: their angle is no number, and `angle` itself stands.
    const bool clockwise = mathCrossAngle(n, cross) > 90.0;
    return clockwise && angle > 0.0 ? 360.0 - angle : angle;
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
    for (int i = 0; i < n; ++i)
        Copy(Dot(pts[i], X), Dot(pts[i], Y), Dot(pts[i], Z), pts[i]);
}

void CMathFunc::mathGCS2UCS(double& x, double& y, double& z, double (*const M)[3])
{
    const double p[3] = {x, y, z};
    x = Dot(M[0], p);
    y = Dot(M[1], p);
    z = Dot(M[2], p);
}

void CMathFunc::mathUCS2GCS(double& x, double& y, double& z, double (*const M)[3])
{
    const Vec3 p = x * Load(M[0]) + y * Load(M[1]) + z * Load(M[2]);
    x = p[0];
    y = p[1];
    z = p[2];
}

void CMathFunc::mathGCS2UCS(double& x, double& y, double (*const M)[2])
{
    const double alongX = M[0][0] * x + M[0][1] * y;
    y = M[1][0] * x + M[1][1] * y;
    x = alongX;
}

void CMathFunc::mathUCS2GCS(double& x, double& y, double (*const M)[2])
{
    const double alongX = M[0][0] * x + M[1][0] * y;
    y = M[0][1] * x + M[1][1] * y;
    x = alongX;
}

void CMathFunc::mathGCS2UCS(double& x, double& y, double (*const M)[2], double ox, double oy)
{
    x -= ox;
    y -= oy;
    mathGCS2UCS(x, y, M);
}

void CMathFunc::mathUCS2GCS(double& x, double& y, double (*const M)[2], double ox, double oy)
{
    mathUCS2GCS(x, y, M);
    x += ox;
    y += oy;
}
