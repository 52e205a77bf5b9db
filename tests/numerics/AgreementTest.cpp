// The same results on every platform, to the last four units in the last place: those of one run on Linux
// stand in Agreement.txt. After a change that is meant to move them: ZEK_WRITE_AGREEMENT=1 numerics_test, and
// look at what moved.
#include "Random.h"

#include <GeomFunc.h>
#include <MathFunc.h>
#include <MathLib.h>
#include <MatrixLib.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <numeric>
#include <string>
#include <vector>

namespace {

struct Result {
    const char* routine;
    double value;
    double size; // of what it was computed from, where that may cancel
};

class Results
{
public:
    explicit Results(std::vector<Result>& all, double size = 0.0) : m_all(all), m_size(size) {}

    template <class... VALUES>
    void Of(const char* routine, VALUES... values)
    {
        (m_all.push_back({routine, static_cast<double>(values), m_size}), ...);
    }
    void OfMany(const char* routine, const double* values, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            Of(routine, values[i]);
    }
    void OfPoint(const char* routine, const Point& p) { OfMany(routine, p.data(), p.size()); }

private:
    std::vector<Result>& m_all;
    double m_size;
};

void Vectors(Random& random, Results results)
{
    Point a = random.Vector(), b = random.Vector(), c = random.Vector(), out = {};
    results.Of("mathLength", CMathFunc::mathLength(a[0], a[1], a[2]));
    CMathFunc::mathCross(a.data(), b.data(), out.data());
    results.OfPoint("mathCross", out);
    CMathFunc::mathNormalize(a.data(), out.data());
    results.OfPoint("mathNormalize", out);
    CMathFunc::mathNormal(a.data(), b.data(), c.data(), out.data());
    results.OfPoint("mathNormal", out);
    results.Of("mathCrossAngle", CMathFunc::mathCrossAngle(a.data(), b.data()),
               CMathFunc::mathCrossAngle(a.data(), b.data(), c.data()));
    results.Of("mathCrossAngle2D", CMathFunc::mathCrossAngle2D(a.data(), b.data()));
    double first = 0, second = 0;
    CMathFunc::mathVec2Ang(a[0], a[1], a[2], first, second);
    results.Of("mathVec2Ang", first, second);
    results.Of("mathSin", CMathFunc::mathSin(a[0]), CMathFunc::mathCos(a[0]));
    results.Of("mathAsin", CMathFunc::mathAsin(a[1] / 10), CMathFunc::mathAcos(a[1] / 10));
    results.Of("CalcAngle", CMathLib::CalcAngleDegLineAndAxisX(a[0], a[1], b[0], b[1]),
               CMathLib::CalcAngleRadLineAndAxisX(a[0], a[1], b[0], b[1]));
}

void Rotations(Random& random, std::vector<Result>& all)
{
    Results results(all);
    const double angle = random.Number(400.0);
    const Point axis = random.Vector(), centre = random.Vector();
    Point p = random.Vector();
    CMathFunc::mathRotate(angle, axis[0], axis[1], axis[2], p[0], p[1], p[2]);
    results.OfPoint("mathRotate", p);
    CMathFunc::mathRotate(angle, centre[0], centre[1], centre[2], axis[0], axis[1], axis[2], p[0], p[1],
                          p[2]);
    results.OfPoint("mathRotate about a point", p);
    CMathFunc::mathRotateX(angle, p[0], p[1], p[2]);
    CMathFunc::mathRotateY(angle, p[0], p[1], p[2]);
    CMathFunc::mathRotateZ(angle, p[0], p[1], p[2]);
    results.OfPoint("mathRotateX, Y, Z", p);
    double x = 0, y = 0;
    CMathLib::Rotate(p[0], p[1], angle, centre[0], centre[1], x, y);
    results.Of("Rotate", x, y);
    // An angle stands between: its last bit moves the point by that of the point's distance from the line.
    CMathLib::Mirror(p[0], p[1], centre[0], centre[1], axis[0], axis[1], x, y);
    Results(all, 30.0).Of("Mirror", x, y);
}

void Lines(Random& random, Results results)
{
    Point p = random.Vector(), q = random.Vector(), r = random.Vector(), s = random.Vector(), out = {};
    results.Of("mathDistanceToLine", CMathFunc::mathDistanceToLine(p.data(), q.data(), r.data()),
               CMathFunc::mathDistanceFromIntersectPointToLine(p.data(), q.data(), r.data()));
    results.Of("mathDistanceLine", CMathFunc::mathDistanceLine(p.data(), q.data(), r.data(), s.data()));
    double a = 0, b = 0, c = 0, d = 0;
    CMathFunc::mathPlaneEquation(p.data(), q.data(), r.data(), a, b, c, d);
    results.Of("mathPlaneEquation", a, b, c, d);
    results.Of("mathDistanceToPlane", CMathFunc::mathDistanceToPlane(a, b, c, d, s[0], s[1], s[2]));
    int found = CMathFunc::mathIntersectPointToPlane(p.data(), q.data(), r.data(), s.data(), out.data());
    results.Of("mathIntersectPointToPlane", found);
    results.OfPoint("mathIntersectPointToPlane", out);
    double x = 0, y = 0;
    found = CMathFunc::mathIntersectLine2D(p[0], p[1], q[0], q[1], r[0], r[1], s[0], s[1], x, y, 0);
    results.Of("mathIntersectLine2D", found, x, y);
    double distance = 0;
    found = CMathFunc::mathIntersectLine(p.data(), q.data(), r.data(), s.data(), 100.0, distance, out.data());
    results.Of("mathIntersectLine", found, distance);
    results.OfPoint("mathIntersectLine", out);
}

void Projections(Random& random, Results results)
{
    const Point p = random.Vector(), direction = random.Vector();
    Point out = {};
    const auto put = [&](const char* routine, bool found) {
        results.Of(routine, found);
        if (found)
            results.OfPoint(routine, out);
    };
    put("cylinder", CMathFunc::project_on_cylinder_normal(p.data(), 3.0, 8.0, 1e-6, out.data()));
    put("cylinder, directed",
        CMathFunc::project_on_cylinder_mf_vector(p.data(), direction.data(), 6.0, 30.0, 1e-6, out.data()));
    put("cone", CMathFunc::project_on_cone_normal(p.data(), 5.0, 2.0, 8.0, 1e-6, out.data()));
    put("cone, directed",
        CMathFunc::project_on_cone_mf_vector(p.data(), direction.data(), 9.0, 4.0, 30.0, 1e-6, out.data()));
    put("sphere", CMathFunc::project_on_sphere_normal(p.data(), 4.0, 1e-6, out.data()));
    put("sphere, directed",
        CMathFunc::project_on_sphere_mf_vector(p.data(), direction.data(), 8.0, 1e-6, out.data()));
    put("ellipsoid", CMathFunc::project_on_ellipsoid_normal(p.data(), 5.0, 4.0, 3.0, out.data()));
    put("ellipsoid, directed",
        CMathFunc::project_on_ellipsoid_mf_vector(p.data(), direction.data(), 9.0, 8.0, 7.0, out.data()));
}

void Solids(Random& random, Results results)
{
    double unit[8][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                         {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
    for (auto& corner : unit)
        for (double& coordinate : corner)
            coordinate += random.Number(0.2);
    for (const int corners : {4, 5, 6, 8})
        results.Of("mathVolume", CMathFunc::mathVolume(corners, unit));
    constexpr int kCorners = 100;
    double x[kCorners], y[kCorners];
    for (int i = 0; i < kCorners; ++i) {
        x[i] = 30.0 + (i < kCorners / 2 ? i : kCorners - 1 - i);
        y[i] = (i < kCorners / 2 ? 20.0 : 50.0) + random.Number(2.0);
    }
    double cx = 0, cy = 0, area = 0;
    CMathFunc::mathPolyCentroid(kCorners, x, y, cx, cy, area);
    results.Of("mathPolyCentroid", cx, cy, area);
    results.Of("mathArea2d", CMathFunc::mathArea2d(kCorners, x, y));
}

// Diagonally dominant, so that no digit is lost.
void Inverses(Random& random, Results results)
{
    for (const int n : {3, 7, 40}) {
        std::vector<double> matrix(static_cast<std::size_t>(n * n)), inverse(matrix.size());
        for (double& value : matrix)
            value = random.Number(1.0);
        for (int i = 0; i < n; ++i)
            matrix[static_cast<std::size_t>(i * n + i)] += 2.0 * n;
        results.Of("mathMxInverse", CMathFunc::mathMxInverse(matrix.data(), n, inverse.data()));
        results.OfMany("mathMxInverse", inverse.data(), inverse.size() < 9 ? inverse.size() : 9);
        results.Of("mathMxInverse, sum", std::accumulate(inverse.begin(), inverse.end(), 0.0));
    }
}

std::vector<Result> All()
{
    std::vector<Result> all;
    Results results(all);
    Random random(2'718);
    for (int round = 0; round < 12; ++round) {
        Vectors(random, results);
        Rotations(random, all);
        Lines(random, results);
        Projections(random, results);
        Solids(random, results);
    }
    Inverses(random, results);
    for (int month = 1; month <= 12; ++month)
        results.Of("calOpenAirTemperature", CMathFunc::calOpenAirTemperature(month, 15, 37.5, 50.0));
    return all;
}

// Units in the last place of the expected value, or of what it was computed from.
double Units(const Result& result, double expected)
{
    const double size = std::max(std::abs(expected), result.size);
    const double difference = std::abs(result.value - expected);
    return difference == 0.0 ? 0.0 : difference / (std::nextafter(size, 2.0 * size) - size);
}

void Write(const std::vector<Result>& results)
{
    std::ofstream file(AGREEMENT_FILE, std::ios::binary);
    for (const Result& result : results) {
        char value[40];
        std::snprintf(value, sizeof value, "%a", result.value);
        file << value << ' ' << result.routine << '\n';
    }
}

TEST(Agreement, OfAllPlatforms)
{
    const std::vector<Result> results = All();
    if (std::getenv("ZEK_WRITE_AGREEMENT"))
        Write(results);
    std::ifstream file(AGREEMENT_FILE);
    std::string value, routine;
    for (const Result& result : results) {
        ASSERT_TRUE(file >> value && std::getline(file >> std::ws, routine))
            << AGREEMENT_FILE << " is too short";
        ASSERT_EQ(routine, result.routine);
        const double expected = std::strtod(value.c_str(), nullptr);
        EXPECT_LE(Units(result, expected), 4.0) << routine << ": " << result.value << ", not " << expected;
    }
    EXPECT_FALSE(file >> value) << AGREEMENT_FILE << " is too long";
}

} // namespace
