#include "MathFunc.h"
#include "Random.h"

#include <cmath>
#include <functional>
#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

constexpr double kTolerance = 1e-9;

// A surface with its projections, and how far off it a point is.
struct Surface {
    const char* label;
    std::function<bool(const double*, double*)> normal;
    std::function<bool(const double*, const double*, double*)> along;
    std::function<double(const Point&)> miss;
};

const Surface kSurfaces[] = {
    {"cylinder",
     [](auto p, auto out) { return CMathFunc::project_on_cylinder_normal(p, 4.0, 1.0, kTolerance, out); },
     [](auto p, auto dir, auto out) {
         return CMathFunc::project_on_cylinder_mf_vector(p, dir, 4.0, 1.0, kTolerance, out);
     },
     [](const Point& p) { return std::hypot(p[0], p[1]) - 4.0; }},
    {"cone", // so long that most feet lie on it
     [](auto p, auto out) {
         return CMathFunc::project_on_cone_normal(p, 1.0, 101.0, 200.0, kTolerance, out);
     },
     [](auto p, auto dir, auto out) {
         return CMathFunc::project_on_cone_mf_vector(p, dir, 1.0, 101.0, 200.0, kTolerance, out);
     },
     [](const Point& p) { return std::hypot(p[0], p[1]) - std::abs(1.0 + p[2] / 2.0); }},
    {"sphere", [](auto p, auto out) { return CMathFunc::project_on_sphere_normal(p, 4.0, kTolerance, out); },
     [](auto p, auto dir, auto out) {
         return CMathFunc::project_on_sphere_mf_vector(p, dir, 4.0, kTolerance, out);
     },
     [](const Point& p) { return std::hypot(p[0], p[1], p[2]) - 4.0; }},
    {"plane",
     [](auto p, auto out) {
         return CMathFunc::project_on_plane_normal(p, 2.0, -1.0, 2.0, 6.0, kTolerance, out);
     },
     [](auto p, auto dir, auto out) {
         const double a[] = {3, 0, 0}, b[] = {0, -6, 0}, c[] = {0, 0, 3};
         return CMathFunc::project_on_plane_mf_vector(p, dir, a, b, c, kTolerance, out);
     },
     [](const Point& p) { return (2 * p[0] - p[1] + 2 * p[2] - 6) / 3; }},
};

double Distance(Point a, Point b)
{
    return CMathFunc::mathDistanceToPoint(a.data(), b.data());
}

// How little a step along either side of the line changes the sign of the distance: the nearest crossing
// found by walking outwards from the point.
double NearestCrossing(const Surface& surface, const Point& p, const Point& unit)
{
    const auto miss = [&](double s) {
        return surface.miss({p[0] + s * unit[0], p[1] + s * unit[1], p[2] + s * unit[2]});
    };
    const bool outside = miss(0.0) > 0.0;
    for (double s = 0.0; s < 100.0; s += 0.01) {
        if ((miss(s) > 0.0) != outside || (miss(-s) > 0.0) != outside)
            return s;
    }
    return -1.0;
}

} // namespace

TEST(MathFuncProject, PerpendicularFeetAreTheNearest)
{
    Random random(61);
    for (const Surface& surface : kSurfaces) {
        SCOPED_TRACE(surface.label);
        int found = 0;
        for (int i = 0; i < 300; ++i) {
            const Point p = random.Vector();
            Point foot{};
            if (!surface.normal(p.data(), foot.data()))
                continue;
            ++found;
            EXPECT_NEAR(surface.miss(foot), 0.0, 1e-12);
            for (int k = 0; k < 20; ++k) { // no other point of the surface close by is nearer
                const Point jittered = Minus(foot, random.Vector(0.3));
                Point other{};
                if (surface.normal(jittered.data(), other.data())) {
                    EXPECT_GE(Distance(p, other), Distance(p, foot) - 1e-9);
                }
            }
        }
        EXPECT_GT(found, 100);
    }
}

TEST(MathFuncProject, DirectionsReachTheNearestCrossing)
{
    Random random(62);
    for (const Surface& surface : kSurfaces) {
        SCOPED_TRACE(surface.label);
        int found = 0;
        for (int i = 0; i < 300; ++i) {
            const Point p = random.Vector(), dir = random.Vector();
            Point unit = dir, out = {7, 7, 7};
            CMathFunc::Normalize(unit.data());
            if (std::abs(2 * unit[0] - unit[1] + 2 * unit[2]) < 0.06)
                continue; // within a degree of the plane, which refuses them
            const double nearest = NearestCrossing(surface, p, unit);
            if (!surface.along(p.data(), dir.data(), out.data())) {
                EXPECT_THAT(out, ElementsAre(7, 7, 7));
                EXPECT_EQ(nearest, -1.0);
                continue;
            }
            ++found;
            EXPECT_NEAR(surface.miss(out), 0.0, 1e-9);
            Point step = Minus(out, p), cross{};
            CMathFunc::mathCross(step.data(), unit.data(), cross.data());
            EXPECT_NEAR(CMathFunc::Length(cross.data()), 0.0, 1e-9);
            if (nearest >= 0.0) { // grazing lines cross between two steps
                EXPECT_LE(CMathFunc::Length(step.data()), nearest + 1e-9);
            }
        }
        EXPECT_GT(found, 40);
    }
}

TEST(MathFuncProject, RefusedPoints)
{
    const double axis[] = {0, 0, 2}, centre[] = {0, 0, 0}, beside[] = {5, 0, 3}, up[] = {0, 0, 1},
                 none[] = {0, 0, 0};
    const double across[] = {0, 1, 0}, out2[] = {9, 9, 0}, high[] = {5, 0, 9};
    const struct {
        const char* label;
        std::function<bool(double*)> project;
    } rows[] = {
        {"cylinder axis",
         [&](double* o) { return CMathFunc::project_on_cylinder_normal(axis, 4, 1, 1e-9, o); }},
        {"cylinder height",
         [&](double* o) { return CMathFunc::project_on_cylinder_normal(beside, 4, 0, 1e-9, o); }},
        {"along the axis",
         [&](double* o) { return CMathFunc::project_on_cylinder_mf_vector(beside, up, 4, 1, 1e-9, o); }},
        {"past the cylinder",
         [&](double* o) { return CMathFunc::project_on_cylinder_mf_vector(beside, across, 4, 1, 1e-9, o); }},
        {"no direction",
         [&](double* o) { return CMathFunc::project_on_cylinder_mf_vector(beside, none, 4, 1, 1e-9, o); }},
        {"cylinder height along",
         [&](double* o) { return CMathFunc::project_on_cylinder_mf_vector(beside, across, 4, -1, 1e-9, o); }},
        {"cone height",
         [&](double* o) { return CMathFunc::project_on_cone_normal(beside, 4, 2, 0, 1e-9, o); }},
        {"cone axis", [&](double* o) { return CMathFunc::project_on_cone_normal(axis, 4, 2, 5, 1e-9, o); }},
        {"above the frustum",
         [&](double* o) { return CMathFunc::project_on_cone_normal(high, 4, 2, 1, 1e-9, o); }},
        {"cone height along",
         [&](double* o) { return CMathFunc::project_on_cone_mf_vector(beside, across, 4, 2, 0, 1e-9, o); }},
        {"sphere centre", [&](double* o) { return CMathFunc::project_on_sphere_normal(centre, 4, 1e-9, o); }},
        {"no sphere", [&](double* o) { return CMathFunc::project_on_sphere_normal(beside, 0, 1e-9, o); }},
        {"past the sphere",
         [&](double* o) { return CMathFunc::project_on_sphere_mf_vector(beside, up, 4, 1e-9, o); }},
        {"no plane",
         [&](double* o) { return CMathFunc::project_on_plane_normal(beside, 0, 0, 3e-5, 1, 1e-9, o); }},
        {"points on a line",
         [&](double* o) { return CMathFunc::project_on_plane_normal(axis, centre, up, axis, 1e-9, o); }},
        {"within a degree of the plane", [&](double* o) {
             const double low[] = {1, 0, 0.0174};
             return CMathFunc::project_on_plane_mf_vector(axis, low, centre, across, out2, 0, o);
         }}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        double out[3] = {7, 7, 7};
        EXPECT_FALSE(row.project(out));
        EXPECT_THAT(out, ElementsAre(7, 7, 7));
    }
}

TEST(MathFuncProject, SpecialPlaces)
{
    double out[3] = {7, 7, 7};
    const double above[] = {0, 0, 2}, below[] = {1e-12, 0, -2}, beside[] = {0, -5, 3}, up[] = {0, 0, -3};
    EXPECT_TRUE(CMathFunc::project_on_sphere_normal(above, 4, 1e-9, out));
    EXPECT_THAT(out, ElementsAre(7, 7, 4)); // on the axis only z is written
    EXPECT_TRUE(CMathFunc::project_on_sphere_normal(below, 4, 1e-9, out));
    EXPECT_THAT(out, ElementsAre(7, 7, -4));
    EXPECT_TRUE(CMathFunc::project_on_cylinder_normal(beside, 4, 1, 1e-9, out));
    EXPECT_THAT(out, ElementsAre(testing::DoubleNear(0, 1e-15), -4, 3));
    EXPECT_TRUE(CMathFunc::project_on_cone_normal(beside, 4, 4, 1, 1e-9, out)); // a cylinder
    EXPECT_THAT(out, ElementsAre(testing::DoubleNear(0, 1e-15), -4, 3));
    EXPECT_TRUE(
        CMathFunc::project_on_cone_mf_vector(beside, up, 3, 9, 6, 1e-9, out)); // straight up: radius 3 + z
    EXPECT_THAT(out, ElementsAre(0, -5, testing::DoubleNear(2, 1e-14)));
    const double centre[] = {0, 0, 0};
    EXPECT_TRUE(
        CMathFunc::project_on_sphere_mf_vector(centre, up, 4, 1e-9, out)); // equally near: the one ahead
    EXPECT_THAT(out, ElementsAre(0, 0, -4));
    const double slope[] = {0, 6, -6}; // along a generator of the cone rho = 3 + z: one crossing only
    EXPECT_TRUE(CMathFunc::project_on_cone_mf_vector(beside, slope, 3, 9, 6, 1e-9, out));
    EXPECT_NEAR(std::abs(out[1]), 3 + out[2], 1e-12);
}

TEST(MathFuncProject, CuttingPlanesTakeNearlyParallelDirections)
{
    const double p[] = {0, 0, 1}, a[] = {0, 0, 0}, b[] = {1, 0, 0}, c[] = {0, 1, 0};
    const double low[] = {1, 0, -1e-3}, flat[] = {1, 0, -1e-11};
    double out[3] = {7, 7, 7};
    EXPECT_FALSE(CMathFunc::project_on_plane_mf_vector(p, low, a, b, c, 0, out));
    EXPECT_FALSE(CMathFunc::project_on_plane_mf_vector_for_CuttingPlane(p, flat, a, b, c, out));
    EXPECT_THAT(out, ElementsAre(7, 7, 7));
    EXPECT_TRUE(CMathFunc::project_on_plane_mf_vector_for_CuttingPlane(p, low, a, b, c, out));
    EXPECT_THAT(out, ElementsAre(testing::DoubleNear(1000, 1e-9), 0, testing::DoubleNear(0, 1e-12)));
}
