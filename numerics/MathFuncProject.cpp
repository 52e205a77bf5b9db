// CMathFunc: projections of points onto planes, and onto cylinders, cones and spheres round the local origin.
#include "MathFunc.h"

#include "Quadric.h"
#include "Vec3.h"

#include <cmath>

namespace {

constexpr double kOneDegreeSine = 0.0174524;
constexpr double kCuttingPlaneSine = 1e-10;
constexpr double kAxisDirection = 0.17452;

double FromAxis(const Vec3& p)
{
    return CMathFunc::mathLength(p[0], p[1], 0.0);
}

// On an axis there is no azimuth to move in, however small the tolerance.
bool OnAxis(const Vec3& p, double tol)
{
    const double rho = FromAxis(p);
    return rho < tol || rho == 0.0;
}

// The half plane from the Z axis through a point, and how far from the axis the point is in it.
struct Meridian {
    double cosine, sine;
    double rho;

    void Store(double atRho, double z, double* out) const
    {
        Vec3{{atRho * cosine, atRho * sine, z}}.Store(out);
    }
};

// Points within tol of the YZ plane count as lying in it.
Meridian MeridianOf(const Vec3& p, double tol)
{
    if (std::abs(p[0]) < tol)
        return {0.0, p[1] < 0.0 ? -1.0 : 1.0, std::abs(p[1])};
    const double rho = FromAxis(p);
    return {p[0] / rho, p[1] / rho, rho};
}

bool MeetPlaneAlong(const double* p, const double* dir, const double* a, const double* b, const double* c,
                    double leastSine, double* out)
{
    const Vec3 origin = Load(a);
    const Vec3 normal = Cross(Load(b) - origin, Load(c) - origin);
    Vec3 n;
    Vec3 u;
    if (!UnitOf(normal, n) || !UnitOf(Load(dir), u))
        return false;
    const double sine = Dot(u, n);
    if (std::abs(sine) < leastSine)
        return false;
    const Vec3 point = Load(p);
    (point + (Dot(n, origin) - Dot(n, point)) / sine * u).Store(out);
    return true;
}

} // namespace

bool CMathFunc::project_on_cylinder_normal(const double* const p, double R, double h, double tol,
                                           double* const out)
{
    const Vec3 point = Load(p);
    if (h <= 0.0 || OnAxis(point, tol))
        return false;
    MeridianOf(point, tol).Store(R, point[2], out);
    return true;
}

bool CMathFunc::project_on_cylinder_mf_vector(const double* const p, const double* const dir, double R,
                                              double h, double tol, double* const out)
{
    Vec3 u;
    if (h <= 0.0 || !UnitOf(Load(dir), u))
        return false;
    if (std::abs(u[0]) < tol && std::abs(u[1]) < tol && std::abs(u[2]) < kAxisDirection)
        return false;
    return MeetAlong({{{1.0, 1.0, 0.0}}, 0.0, R * R}, p, dir, tol, out);
}

bool CMathFunc::project_on_cone_normal(const double* const p, double r1, double r2, double h, double tol,
                                       double* const out)
{
    if (h <= 0.0)
        return false;
    if (std::abs(r1 - r2) < tol || r1 == r2)
        return project_on_cylinder_normal(p, r1, h, tol, out);
    const Vec3 point = Load(p);
    if (OnAxis(point, tol))
        return false;
    const Meridian meridian = MeridianOf(point, tol);
    // The generator is z = k rho + b; the foot of the perpendicular on it has to lie on the frustum.
    const double k = h / (r2 - r1);
    const double b = -k * r1;
    const double rho = (meridian.rho / k + point[2] - b) / (1.0 / k + k);
    const double z = k * rho + b;
    const double across = (rho - r1) / (r2 - r1);
    if (!(across >= 0.0 && across <= 1.0 && z / h >= 0.0 && z / h <= 1.0))
        return false;
    meridian.Store(rho, z, out);
    return true;
}

bool CMathFunc::project_on_cone_mf_vector(const double* const p, const double* const dir, double r1,
                                          double r2, double h, double tol, double* const out)
{
    if (h <= 0.0)
        return false;
    if (std::abs(r1 - r2) < tol || r1 == r2)
        return project_on_cylinder_mf_vector(p, dir, r1, h, tol, out);
    const double slope = (r2 - r1) / h; // of the radius, which is r1 + slope z
    return MeetAlong({{{1.0, 1.0, -slope * slope}}, -2.0 * r1 * slope, r1 * r1}, p, dir, tol, out);
}

bool CMathFunc::project_on_sphere_normal(const double* const p, double R, double tol, double* const out)
{
    const Vec3 point = Load(p);
    if (R <= 0.0)
        return false;
    if (!OnAxis(point, tol)) {
        (R / ::Length(point) * point).Store(out);
        return true;
    }
    if (std::abs(point[2]) < tol)
        return false;
    out[2] = point[2] > 0.0 ? R : -R;
    return true;
}

bool CMathFunc::project_on_sphere_mf_vector(const double* const p, const double* const dir, double R,
                                            double tol, double* const out)
{
    return R > 0.0 && MeetAlong({{{1.0, 1.0, 1.0}}, 0.0, R * R}, p, dir, tol, out);
}

bool CMathFunc::project_on_plane_normal(const double* const p, const double* const a, const double* const b,
                                        const double* const c, double tol, double* const out)
{
    const Vec3 origin = Load(a);
    const Vec3 normal = Cross(Load(b) - origin, Load(c) - origin);
    return project_on_plane_normal(p, normal[0], normal[1], normal[2], ::Dot(normal, origin), tol, out);
}

bool CMathFunc::project_on_plane_normal(const double* const p, double A, double B, double C, double D,
                                        double tol, double* const out)
{
    const Vec3 point = Load(p);
    const Vec3 normal{{A, B, C}};
    const double square = ::Dot(normal, normal);
    if (square < tol || square == 0.0)
        return false;
    (point + (D - ::Dot(normal, point)) / square * normal).Store(out);
    return true;
}

bool CMathFunc::project_on_plane_mf_vector(const double* const p, const double* const dir,
                                           const double* const a, const double* const b,
                                           const double* const c, double, double* const out)
{
    return MeetPlaneAlong(p, dir, a, b, c, kOneDegreeSine, out);
}

bool CMathFunc::project_on_plane_mf_vector_for_CuttingPlane(const double* const p, const double* const dir,
                                                            const double* const a, const double* const b,
                                                            const double* const c, double* const out)
{
    return MeetPlaneAlong(p, dir, a, b, c, kCuttingPlaneSine, out);
}
