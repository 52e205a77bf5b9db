// Where segments meet, and how far points are from them, against Boost.Geometry and GEOS: nanoseconds of one
// pair. Ours work in three dimensions unless "2-D" is said; the peers' intersections in two.
//
//   geometry_segments
#include "Comparison.h"
#include "Workload.h"

#include <ZEK_lib.h>

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/segment.hpp>
#include <geos_c.h>

using namespace bench;

namespace {

namespace bg = boost::geometry;
using FlatPoint = bg::model::d2::point_xy<double>;
using FlatSegment = bg::model::segment<FlatPoint>;
using SpacePoint = bg::model::point<double, 3, bg::cs::cartesian>;
using SpaceSegment = bg::model::segment<SpacePoint>;

constexpr std::size_t kPairs = 10000;

Points InPlane()
{
    Points points = RandomPoints(4 * kPairs, 5.0, 8);
    for (auto& point : points)
        point[2] = 0.0;
    return points;
}

Points s_flat = InPlane();
Points s_space = RandomPoints(3 * kPairs, 5.0, 10);

// Sums up the answers for all pairs, each of four points.
template <class Each>
Work OverPairs(Each each)
{
    return [each] {
        double sum = 0.0;
        for (std::size_t i = 0; i < 4 * kPairs; i += 4)
            sum += each(s_flat[i], s_flat[i + 1], s_flat[i + 2], s_flat[i + 3]);
        return sum;
    };
}

using P = std::array<double, 3>;

FlatPoint Flat(const P& p)
{
    return {p[0], p[1]};
}

SpacePoint Space(const P& p)
{
    return {p[0], p[1], p[2]};
}

void CompareIntersections()
{
    const Work boost = OverPairs([](const P& a, const P& b, const P& c, const P& d) {
        static std::vector<FlatPoint> out;
        out.clear();
        bg::intersection(FlatSegment(Flat(a), Flat(b)), FlatSegment(Flat(c), Flat(d)), out);
        return out.empty() ? 0.0 : out[0].x();
    });
    const Work geos = OverPairs([](const P& a, const P& b, const P& c, const P& d) {
        double x = 0.0, y = 0.0;
        const int met = GEOSSegmentIntersection(a[0], a[1], b[0], b[1], c[0], c[1], d[0], d[1], &x, &y);
        return met == 1 ? x : 0.0;
    });
    Compare("segments meet", kPairs,
            {{"library", OverPairs([](P& a, P& b, P& c, P& d) {
                  double distance = 0.0, out[3];
                  CMathFunc::mathIntersectLine2(a.data(), b.data(), c.data(), d.data(), 1e-9, distance, out);
                  return out[0];
              })},
             {"Boost.Geometry", boost},
             {"GEOS", geos}},
            1e-6);
    Compare("segments meet, 2-D", kPairs,
            {{"library", OverPairs([](const P& a, const P& b, const P& c, const P& d) {
                  double x = 0.0, y = 0.0;
                  CMathFunc::mathIntersectLine2D(a[0], a[1], b[0], b[1], c[0], c[1], d[0], d[1], x, y, 1);
                  return x;
              })},
             {"Boost.Geometry", boost},
             {"GEOS", geos}},
            1e-6);
}

void CompareDistances()
{
    Compare("point to segment", kPairs,
            {{"library",
              [] {
                  double sum = 0.0;
                  for (std::size_t i = 0; i < 3 * kPairs; i += 3)
                      sum += CMathFunc::mathDistanceToLine(s_space[i].data(), s_space[i + 1].data(),
                                                           s_space[i + 2].data());
                  return sum;
              }},
             {"Boost.Geometry", [] {
                  double sum = 0.0;
                  for (std::size_t i = 0; i < 3 * kPairs; i += 3)
                      sum += bg::distance(Space(s_space[i + 2]),
                                          SpaceSegment(Space(s_space[i]), Space(s_space[i + 1])));
                  return sum;
              }}});
}

void Silent(const char*, ...)
{
}

} // namespace

int main()
{
    initGEOS(Silent, Silent);
    CompareIntersections();
    CompareDistances();
    finishGEOS();
}
