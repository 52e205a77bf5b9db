#include "Quadric.h"

#include <cmath>

namespace {

Vec3 Times(const Vec3& a, const Vec3& b)
{
    return {{a[0] * b[0], a[1] * b[1], a[2] * b[2]}};
}

// The root of a s^2 + b s + c = 0 nearer to 0.
bool NearerRoot(double a, double b, double c, double tol, double& s)
{
    if (std::abs(a) < tol || a == 0.0) {
        if (std::abs(b) < tol || b == 0.0)
            return false;
        s = -c / b;
        return true;
    }
    const double discriminant = b * b - 4.0 * a * c;
    if (!(discriminant >= 0.0))
        return false;
    const double root = std::sqrt(discriminant);
    if (b == 0.0) {
        s = root / (2.0 * std::abs(a));
        return true;
    }
    // Adding what has b's sign loses no digits: this is the farther root's numerator.
    s = -2.0 * c / (b + std::copysign(root, b));
    return true;
}

} // namespace

bool MeetAlong(const Quadric& surface, const double* p, const double* dir, double tol, double* out)
{
    const Vec3 point = Load(p);
    Vec3 u;
    if (!UnitOf(Load(dir), u))
        return false;
    const Vec3 scaled = Times(surface.k, point);
    const double a = Dot(Times(surface.k, u), u);
    const double b = 2.0 * Dot(scaled, u) + surface.m * u[2];
    const double c = Dot(scaled, point) + surface.m * point[2] - surface.n;
    double s = 0.0;
    if (!NearerRoot(a, b, c, tol, s))
        return false;
    (point + s * u).Store(out);
    return true;
}
