// CMathFunc: the identity matrix, rotations, direction angles.
#include "MathFunc.h"

#include "Snap.h"

#include <cmath>
#include <initializer_list>

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

// A turn in a plane, by cosine and sine.
struct Turn {
    double cosine = 1.0;
    double sine = 0.0;

    // Turns the coordinates (u, v) from the plane's first axis towards its second.
    void Apply(double& u, double& v) const
    {
        const double turned = u * cosine - v * sine;
        v = u * sine + v * cosine;
        u = turned;
    }
    Turn Back() const { return {cosine, -sine}; }
    bool IsNone() const { return sine == 0.0 && cosine > 0.0; }
};

Turn TurnBy(double degrees)
{
    const auto [sine, cosine] = SineCosineOf(degrees * CMathFunc::m_trrad);
    return {Snapped(cosine), Snapped(sine)};
}

// The turn whose angle has this sine and, where it tells, cosine: without the way over the angle and back.
Turn TurnOf(double cosine, double sine)
{
    return {Snapped(cosine), Snapped(sine)};
}

// The turns about X, and back about Y, that carry an axis onto Z.
struct OntoZ {
    Turn aboutX, aboutY;

    OntoZ(double x, double y, double z)
    {
        const double inPlane = CMathFunc::mathLength(0.0, y, z);
        if (inPlane >= kNoDirection)
            aboutX = TurnOf(z / inPlane, y / inPlane);
        const double length = CMathFunc::mathLength(x, y, z);
        if (length >= kNoDirection)
            aboutY = TurnOf(inPlane / length, x / length);
    }
};

void AboutX(const Turn& turn, double& x, double& y, double& z)
{
    turn.Apply(y, z);
    CleanUp(x, y, z);
}

void AboutY(const Turn& turn, double& x, double& y, double& z)
{
    turn.Apply(z, x);
    CleanUp(x, y, z);
}

} // namespace

void CMathFunc::mathMxIdentity(double (*const M)[4])
{
    Copy(&kIdentity[0][0], &M[0][0], 16);
}

void CMathFunc::mathRotateX(double angle, double& x, double& y, double& z)
{
    AboutX(TurnBy(angle), x, y, z);
}

void CMathFunc::mathRotateY(double angle, double& x, double& y, double& z)
{
    AboutY(TurnBy(angle), x, y, z);
}

void CMathFunc::mathRotateZ(double angle, double& x, double& y, double& z)
{
    TurnBy(angle).Apply(x, y);
    CleanUp(x, y, z);
}

void CMathFunc::mathRotate(double angle, double ax, double ay, double az, double& x, double& y, double& z)
{
    if (angle == 0.0)
        return;
    const OntoZ axis(ax, ay, az);
    if (!axis.aboutX.IsNone())
        AboutX(axis.aboutX, x, y, z);
    if (!axis.aboutY.IsNone())
        AboutY(axis.aboutY.Back(), x, y, z);
    mathRotateZ(angle, x, y, z);
    if (!axis.aboutY.IsNone())
        AboutY(axis.aboutY, x, y, z);
    if (!axis.aboutX.IsNone())
        AboutX(axis.aboutX.Back(), x, y, z);
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
    a1 = a2 = 0.0;
    const double inPlane = mathLength(0.0, y, z);
    if (inPlane >= kNoDirection) {
        a1 = mathAsin(y / inPlane) * m_trang;
        if (z < 0.0)
            a1 = 180.0 - a1;
    }
    const double length = mathLength(x, y, z);
    if (length >= kNoDirection)
        a2 = mathAsin(x / length) * m_trang;
    a1 = -a1;
}
