// Area and centroid of polygons of 100 to 100,000 vertices against Boost.Geometry and GEOS: nanoseconds of
// one vertex.
//
//   geometry_polygons
#include "Comparison.h"
#include "Workload.h"

#include <ZEK_lib.h>

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#include <cstdio>
#include <geos_c.h>

using namespace bench;

namespace {

namespace bg = boost::geometry;
using BoostPoint = bg::model::d2::point_xy<double>;
using BoostPolygon = bg::model::polygon<BoostPoint, false>;

BoostPolygon Boosts(const Points& points)
{
    BoostPolygon polygon;
    for (const auto& point : points)
        bg::append(polygon.outer(), BoostPoint(point[0], point[1]));
    bg::correct(polygon);
    return polygon;
}

GEOSGeometry* Geoses(const Points& points)
{
    const auto n = static_cast<unsigned>(points.size());
    GEOSCoordSequence* const sequence = GEOSCoordSeq_create(n + 1, 2);
    for (unsigned i = 0; i <= n; ++i)
        GEOSCoordSeq_setXY(sequence, i, points[i % n][0], points[i % n][1]);
    return GEOSGeom_createPolygon(GEOSGeom_createLinearRing(sequence), nullptr, 0);
}

void Silent(const char*, ...)
{
}

void CompareMoments(std::size_t n)
{
    const Points star = Star(n);
    const BoostPolygon boost = Boosts(star);
    GEOSGeometry* const geos = Geoses(star);
    std::vector<double> x(n), y(n);
    for (std::size_t i = 0; i < n; ++i) {
        x[i] = star[i][0];
        y[i] = star[i][1];
    }
    const int count = static_cast<int>(n);
    Compare("area and centroid, " + std::to_string(n), n,
            {{"library",
              [&] {
                  double cx = 0, cy = 0, area = 0;
                  CMathFunc::mathPolyCentroid(count, x.data(), y.data(), cx, cy, area);
                  return area + cx;
              }},
             {"Boost.Geometry",
              [&] {
                  BoostPoint centre(0, 0);
                  bg::centroid(boost, centre);
                  return bg::area(boost) + centre.x();
              }},
             {"GEOS", [&] {
                  GEOSGeometry* const centre = GEOSGetCentroid(geos);
                  double area = 0, cx = 0;
                  GEOSArea(geos, &area);
                  GEOSGeomGetX(centre, &cx);
                  GEOSGeom_destroy(centre);
                  return area + cx;
              }}});
    Compare("area, " + std::to_string(n), n,
            {{"library", [&] { return CMathFunc::mathArea2d(count, x.data(), y.data()); }},
             {"Boost.Geometry", [&] { return bg::area(boost); }},
             {"GEOS", [&] {
                  double area = 0;
                  GEOSArea(geos, &area);
                  return area;
              }}});
    GEOSGeom_destroy(geos);
}

} // namespace

int main()
{
    initGEOS(Silent, Silent);
    for (const std::size_t n : {4U, 100U, 1000U, 10000U, 100000U})
        CompareMoments(n);
    finishGEOS();
}
