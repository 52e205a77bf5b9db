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
    {"flat spheroid",
     [](auto p, auto out) { return CMathFunc::project_on_ellipsoid_normal(p, 6.0, 6.0, 2.0, out); },
     [](auto p, auto dir, auto out) {
         return CMathFunc::project_on_ellipsoid_mf_vector(p, dir, 6.0, 6.0, 2.0, out);
     },
     [](const Point& p) { return std::hypot(p[0] / 6.0, p[1] / 6.0, p[2] / 2.0) - 1.0; }},
    {"long spheroid",
     [](auto p, auto out) { return CMathFunc::project_on_ellipsoid_normal(p, 2.0, 2.0, 5.0, out); },
     [](auto p, auto dir, auto out) {
         return CMathFunc::project_on_ellipsoid_mf_vector(p, dir, 2.0, 2.0, 5.0, out);
     },
     [](const Point& p) { return std::hypot(p[0] / 2.0, p[1] / 2.0, p[2] / 5.0) - 1.0; }},
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
            EXPECT_NEAR(surface.miss(foot), 0.0, 1e-13);
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
        EXPECT_GT(found, 20);
    }
}

// With three different semi-axes: the nearest point of the half plane's ellipse, sampled.
TEST(MathFuncProject, EllipsoidsKeepThePointsAzimuth)
{
    Random random(63);
    for (int i = 0; i < 300; ++i) {
        const double a = 6.0 + random.Number(5.0), b = 6.0 + random.Number(5.0), c = 6.0 + random.Number(5.0);
        const Point p = random.Vector();
        Point foot{};
        ASSERT_TRUE(CMathFunc::project_on_ellipsoid_normal(p.data(), a, b, c, foot.data()));
        EXPECT_NEAR(std::hypot(foot[0] / a, foot[1] / b, foot[2] / c), 1.0, 1e-14);
        EXPECT_NEAR(foot[0] * p[1], foot[1] * p[0], 1e-12);
        EXPECT_GT(foot[0] * p[0] + foot[1] * p[1], 0.0);
        const double rho = std::hypot(p[0], p[1]);
        const double radius = 1.0 / std::hypot(p[0] / rho / a, p[1] / rho / b);
        double least = 1e300;
        for (int step = 0; step <= 2000; ++step) {
            const double t = (step / 2000.0 - 0.5) * CMathFunc::m_pi;
            least = std::min(least, std::hypot(radius * std::cos(t) - rho, c * std::sin(t) - p[2]));
        }
        EXPECT_LE(Distance(p, foot), least + 1e-12);
    }
}

TEST(MathFuncProject, EllipsoidsAtTheirAxes)
{
    const struct {
        const char* label;
        Point p, semi;
        bool result;
        Point foot;
    } rows[] = {{"a sphere", {3, 0, 4}, {10, 10, 10}, true, {6, 0, 8}},
                {"outside on X", {9, 0, 0}, {4, 3, 2}, true, {4, 0, 0}},
                {"outside on -Y", {0, -9, 0}, {4, 3, 2}, true, {0, -3, 0}},
                {"near the end of a long axis", {3.5, 0, 0}, {4, 3, 2}, true, {4, 0, 0}},
                {"near the middle of it: up", {1.5, 0, 0}, {4, 3, 2}, true, {2, 0, std::sqrt(3.0)}},
                {"hardly off the Z axis", {1e-12, 0, 1}, {4, 3, 2}, true, {0, 0, 2}},
                {"on the Z axis", {0, 0, -1}, {4, 3, 2}, true, {0, 0, -2}},
                {"centre", {0, 0, 0}, {4, 3, 2}, false, {7, 7, 7}},
                {"no extent", {1, 1, 1}, {4, 0, 2}, false, {7, 7, 7}},
                {"negative extent", {1, 1, 1}, {4, 3, -2}, false, {7, 7, 7}}};
    for (const auto& [label, p, semi, result, foot] : rows) {
        SCOPED_TRACE(label);
        Point out = {7, 7, 7};
        EXPECT_EQ(CMathFunc::project_on_ellipsoid_normal(p.data(), semi[0], semi[1], semi[2], out.data()),
                  result);
        EXPECT_LT(Distance(out, foot), 1e-11);
    }
    const double p[] = {0, 0, 9}, along[] = {0, 0, 1}, across[] = {1, 0, 0};
    double out[3] = {7, 7, 7};
    EXPECT_FALSE(CMathFunc::project_on_ellipsoid_mf_vector(p, across, 4, 3, 2, out));
    EXPECT_FALSE(CMathFunc::project_on_ellipsoid_mf_vector(p, along, 4, 0, 2, out));
    EXPECT_THAT(out, ElementsAre(7, 7, 7));
    EXPECT_TRUE(CMathFunc::project_on_ellipsoid_mf_vector(p, along, 4, 3, 2, out));
    EXPECT_THAT(out, ElementsAre(0, 0, 2));
}

// A tolerance of 0 refuses only what has no answer.
TEST(MathFuncProject, WithoutToleranceOnlyTheDegenerateIsRefused)
{
    const double axis[] = {0, 0, 2}, up[] = {0, 0, 1}, none[] = {0, 0, 0};
    double out[3] = {7, 7, 7};
    EXPECT_FALSE(CMathFunc::project_on_cylinder_normal(axis, 4, 1, 0, out));
    EXPECT_FALSE(CMathFunc::project_on_cone_normal(axis, 4, 2, 1, 0, out));
    EXPECT_FALSE(CMathFunc::project_on_cylinder_mf_vector(axis, up, 4, 1, 0, out));
    EXPECT_FALSE(CMathFunc::project_on_plane_normal(axis, none, none, none, 0, out));
    EXPECT_THAT(out, ElementsAre(7, 7, 7));
    const double aside[] = {3, 0, 2}, centre[] = {0, 0, 0};
    EXPECT_TRUE(CMathFunc::project_on_cone_normal(aside, 4, 4, 1, 0, out)); // a cylinder
    EXPECT_THAT(out, ElementsAre(4, 0, 2));
    EXPECT_TRUE(CMathFunc::project_on_sphere_normal(centre, 4, 0, out));
    EXPECT_THAT(out, ElementsAre(4, 0, -4));
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
