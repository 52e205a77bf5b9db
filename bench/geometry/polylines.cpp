// Whether polylines meet themselves or each other, and where points lie to polygons, against Boost.Geometry,
// GEOS and the same done literally: nanoseconds of one segment or one point, and growth from 100 to 100,000
// vertices.
//
//   geometry_polylines
#include "Comparison.h"
#include "Workload.h"

#include <ZEK_lib.h>

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/linestring.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#include <cstdio>
#include <geos_c.h>

using namespace bench;

namespace {

namespace bg = boost::geometry;
using BoostPoint = bg::model::d2::point_xy<double>;
using BoostLine = bg::model::linestring<BoostPoint>;
using BoostPolygon = bg::model::polygon<BoostPoint, false>;
using Polyline = CArray<T_POINT3D, T_POINT3D&>;
using Polygon = CArray<T_POINT2D, T_POINT2D&>;

// All pairs of more segments take seconds where none meet.
constexpr std::size_t kMostForLiteral = 10000;
constexpr std::size_t kMostForLiteralElsewhere = 1000;

// A walk of short steps that ends by crossing its own start.
Points Walk(std::size_t n)
{
    Numbers numbers(21);
    Points points(n);
    for (std::size_t i = 0; i < n; ++i)
        points[i] = {static_cast<double>(i), numbers.Next(-0.4, 0.4), 0.0};
    points[n - 2] = {0.5, 5.0, 0.0};
    points[n - 1] = {0.5, -5.0, 0.0};
    return points;
}

// Long segments all over a square: the first few meet.
Points Chords(std::size_t n)
{
    Points points = RandomPoints(n, 100.0, 22);
    for (auto& point : points)
        point[2] = 0.0;
    return points;
}

// Long parallel segments with short ones between.
Points ZigZag(std::size_t n)
{
    Points points(n);
    for (std::size_t i = 0; i < n; ++i)
        points[i] = {i % 2 == 0 ? 0.0 : 1000.0, static_cast<double>(i), 0.0};
    return points;
}

// By half a turn round the origin.
Points Turned(Points points)
{
    for (auto& point : points)
        point = {-point[0], -point[1], point[2]};
    return points;
}

void Fill(Polyline& polyline, const Points& points)
{
    for (const auto& point : points) {
        T_POINT3D p = {point[0], point[1], point[2]};
        polyline.Add(p);
    }
}

BoostLine Boosts(const Points& points)
{
    BoostLine line;
    for (const auto& point : points)
        line.push_back(BoostPoint(point[0], point[1]));
    return line;
}

GEOSCoordSequence* GeosSequence(const Points& points, std::size_t n)
{
    GEOSCoordSequence* const sequence = GEOSCoordSeq_create(static_cast<unsigned>(n), 2);
    for (std::size_t i = 0; i < n; ++i) {
        const auto& point = points[i % points.size()];
        GEOSCoordSeq_setXY(sequence, static_cast<unsigned>(i), point[0], point[1]);
    }
    return sequence;
}

GEOSGeometry* GeosLine(const Points& points)
{
    return GEOSGeom_createLineString(GeosSequence(points, points.size()));
}

int MeetsItselfLiterally(const Points& points)
{
    Points p = points;
    for (std::size_t i = 0; i + 1 < p.size(); ++i) {
        for (std::size_t j = i + 1; j + 1 < p.size(); ++j) {
            if (CGeomFunc::CheckLineIntersection(p[i].data(), p[i + 1].data(), p[j].data(), p[j + 1].data(),
                                                 0))
                return 1;
        }
    }
    return 0;
}

int MeetLiterally(const Points& a, const Points& b)
{
    Points p = a, q = b;
    for (std::size_t i = 0; i + 1 < p.size(); ++i) {
        for (std::size_t j = 0; j + 1 < q.size(); ++j) {
            if (CGeomFunc::CheckLineIntersection(p[i].data(), p[i + 1].data(), q[j].data(), q[j + 1].data(),
                                                 1))
                return 1;
        }
    }
    return 0;
}

// Each answer is moved from 0, so that a ratio of answers tells 0 from 1.
double CompareSelf(const char* name, const Points& points, bool literally)
{
    Polyline ours;
    Fill(ours, points);
    const BoostLine boost = Boosts(points);
    GEOSGeometry* const geos = GeosLine(points);
    std::vector<Rival> rivals = {
        {"library", [&] { return 1.0 + CGeomFunc::CheckPolylineSelfIntersection(ours); }},
        {"GEOS", [&] { return 2.0 - GEOSisSimple(geos); }},
        {"Boost.Geometry", [&] { return bg::intersects(boost) ? 2.0 : 1.0; }}};
    if (literally)
        rivals.push_back({"literally", [&] { return 1.0 + MeetsItselfLiterally(points); }});
    const std::string label = std::string("meets itself, ") + name + ", " + std::to_string(points.size());
    const double each = Compare(label, points.size(), rivals);
    GEOSGeom_destroy(geos);
    return each;
}

double CompareCross(std::size_t n)
{
    // One winds between the turns of the other.
    const Points one = Spiral(n), second = Turned(one);
    Polyline ours, oursToo;
    Fill(ours, one);
    Fill(oursToo, second);
    const BoostLine boost = Boosts(one), boostToo = Boosts(second);
    GEOSGeometry* const geos = GeosLine(one);
    GEOSGeometry* const geosToo = GeosLine(second);
    std::vector<Rival> rivals = {
        {"library", [&] { return 1.0 + CGeomFunc::CheckPolylineCrossIntersection(ours, oursToo); }},
        {"GEOS", [&] { return 1.0 + GEOSIntersects(geos, geosToo); }},
        {"Boost.Geometry", [&] { return bg::intersects(boost, boostToo) ? 2.0 : 1.0; }}};
    if (n <= kMostForLiteralElsewhere)
        rivals.push_back({"literally", [&] { return 1.0 + MeetLiterally(one, second); }});
    const double each = Compare("meets another, " + std::to_string(n), n, rivals);
    GEOSGeom_destroy(geos);
    GEOSGeom_destroy(geosToo);
    return each;
}

void ComparePoints(std::size_t n)
{
    const Points star = Star(n);
    const std::size_t queries = n >= 10000 ? 200 : 10000;
    const Points asked = RandomPoints(queries, 110.0, 6);
    Polygon ours;
    BoostPolygon boost;
    for (const auto& point : star) {
        T_POINT2D p = {point[0], point[1]};
        ours.Add(p);
        bg::append(boost.outer(), BoostPoint(point[0], point[1]));
    }
    bg::correct(boost);
    GEOSGeometry* const geos =
        GEOSGeom_createPolygon(GEOSGeom_createLinearRing(GeosSequence(star, n + 1)), nullptr, 0);
    const GEOSPreparedGeometry* const prepared = GEOSPrepare(geos);
    const auto count = [&](auto inside) {
        return [&asked, inside] {
            double sum = 1.0;
            for (const auto& p : asked)
                sum += inside(p[0], p[1]) ? 1.0 : 0.0;
            return sum;
        };
    };
    Compare(
        "point in polygon, " + std::to_string(n), queries,
        {{"library", count([&](double x, double y) {
              const T_POINT2D p = {x, y};
              return CGeomFunc::IsPointInPolygon(p, ours) != 0;
          })},
         {"Boost.Geometry", count([&](double x, double y) { return bg::within(BoostPoint(x, y), boost); })},
         {"GEOS, prepared", count([&](double x, double y) {
              GEOSGeometry* const point = GEOSGeom_createPointFromXY(x, y);
              const bool inside = GEOSPreparedContains(prepared, point) == 1;
              GEOSGeom_destroy(point);
              return inside;
          })}});
    GEOSPreparedGeom_destroy(prepared);
    GEOSGeom_destroy(geos);
}

void PrintGrowth(double before, double now)
{
    if (before > 0.0)
        std::printf("    ten times the vertices take %.1f times as long\n", 10.0 * now / before);
}

void Silent(const char*, ...)
{
}

} // namespace

int main()
{
    initGEOS(Silent, Silent);
    const std::pair<const char*, Points (*)(std::size_t)> kinds[] = {
        {"spiral", Spiral}, {"walk", Walk}, {"chords", Chords}, {"zigzag", ZigZag}};
    for (const auto& [name, make] : kinds) {
        double before = 0.0;
        for (const std::size_t n : {16U, 100U, 1000U, 10000U, 100000U}) {
            const std::size_t most = make == Spiral ? kMostForLiteral : kMostForLiteralElsewhere;
            const double each = CompareSelf(name, make(n), n <= most || make == Chords);
            if (n > 100)
                PrintGrowth(before, each);
            before = each;
        }
    }
    for (const std::size_t n : {100U, 1000U, 10000U, 100000U})
        CompareCross(n);
    for (const std::size_t n : {4U, 8U, 100U, 1000U, 10000U, 100000U})
        ComparePoints(n);
    finishGEOS();
}
