// CMathFunc: projections of points onto ellipsoids.
#include "MathFunc.h"

#include "Quadric.h"
#include "Vec3.h"

#include <algorithm>
#include <cmath>

namespace {

// Newton's steps, which converge from one side; a handful is the rule.
constexpr int kMostSteps = 100;
constexpr double kOnEllipse = 1e-15;

struct Flat {
    double along, across;
};

// The point of the ellipse (x / longer)^2 + (y / shorter)^2 = 1 nearest to a point of the first quadrant that
// is not the centre. It is (longer^2 x / (s + gap), shorter^2 y / s) with the largest s that puts it there.
// (D. Eberly, "Distance from a Point to an Ellipse, an Ellipsoid, or a Hyperellipsoid".)
Flat NearestOnEllipse(double longer, double shorter, const Flat& from)
{
    const double gap = (longer - shorter) * (longer + shorter);
    double s = std::max(shorter * from.across, longer * from.along - gap);
    if (s <= 0.0) { // on the longer axis, nearer to the centre than its ends' centres of curvature
        const double ratio = std::min(longer * from.along / gap, 1.0);
        return {longer * ratio, shorter * std::sqrt(1.0 - ratio * ratio)};
    }
    double u = 0.0;
    double v = 0.0;
    for (int step = 0; step < kMostSteps; ++step) {
        u = longer * from.along / (s + gap);
        v = shorter * from.across / s;
        const double excess = u * u + v * v - 1.0;
        if (!(excess > kOnEllipse))
            break;
        s += excess / (2.0 * (u * u / (s + gap) + v * v / s));
    }
    const double size = std::sqrt(u * u + v * v);
    return {longer * u / size, shorter * v / size};
}

// The same for semi-axes of either order.
Flat Nearest(double alongAxis, double acrossAxis, const Flat& from)
{
    if (alongAxis >= acrossAxis)
        return NearestOnEllipse(alongAxis, acrossAxis, from);
    const Flat turned = NearestOnEllipse(acrossAxis, alongAxis, {from.across, from.along});
    return {turned.across, turned.along};
}

bool IsEllipsoid(double a, double b, double c)
{
    return a > 0.0 && b > 0.0 && c > 0.0;
}

} // namespace

bool CMathFunc::project_on_ellipsoid_normal(const double* const p, double a, double b, double c,
                                            double* const out)
{
    if (!IsEllipsoid(a, b, c))
        return false;
    const Vec3 point = Load(p);
    const double rho = mathLength(point[0], point[1], 0.0);
    const double height = std::abs(point[2]);
    const double side = point[2] < 0.0 ? -1.0 : 1.0;
    if (rho == 0.0 || rho < m_NormalZero) {
        if (height == 0.0 || height < m_NormalZero)
            return false;
        Copy(0.0, 0.0, side * c, out);
        return true;
    }
    const double cosine = point[0] / rho;
    const double sine = point[1] / rho;
    const Flat foot = Nearest(1.0 / mathLength(cosine / a, sine / b, 0.0), c, {rho, height});
    Copy(foot.along * cosine, foot.along * sine, side * foot.across, out);
    return true;
}

bool CMathFunc::project_on_ellipsoid_mf_vector(const double* const p, const double* const dir, double a,
                                               double b, double c, double* const out)
{
    if (!IsEllipsoid(a, b, c))
        return false;
    return MeetAlong({{{1.0 / (a * a), 1.0 / (b * b), 1.0 / (c * c)}}, 0.0, 1.0}, p, dir, 0.0, out);
}
