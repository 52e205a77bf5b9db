// CMathFunc: lines, planes, their distances and intersections.
#include "MathFunc.h"

#include "Vec3.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kParallel = 1e-4;
constexpr double kNoComponent = 1e-7;
constexpr double kEndSlackBefore = -1e-7;
constexpr double kEndSlackBeyond = 1.0000001;

// The unit vector from p to q; false and zero when they are closer than m_NormalZero.
bool UnitDirection(const Vec3& p, const Vec3& q, Vec3& unit)
{
    return UnitOf(q - p, unit);
}

// How far v reaches along a unit vector; 0 when that has no component to speak of.
double AlongUnit(const Vec3& v, const Vec3& unit)
{
    const double none = CMathFunc::m_NormalZero;
    const bool degenerate = std::abs(unit[0]) < none && std::abs(unit[1]) < none && std::abs(unit[2]) < none;
    return degenerate ? 0.0 : Dot(v, unit) / Dot(unit, unit);
}

bool WithinSegment(double along, double length)
{
    return !(along < kEndSlackBefore * length || along > kEndSlackBeyond * length);
}

// Two lines, each by a point and a unit direction, and the normal that both share.
struct LinePair {
    Vec3 p, u;
    Vec3 q, v;
    Vec3 normal;

    double Distance() const { return std::abs(Dot(q - p, normal)) / Length(normal); }
};

bool MakeLinePair(const double* p1, const double* p2, const double* q1, const double* q2, LinePair& lines)
{
    lines.p = Load(p1);
    lines.q = Load(q1);
    if (!UnitDirection(lines.p, Load(p2), lines.u) || !UnitDirection(lines.q, Load(q2), lines.v))
        return false;
    lines.normal = Cross(lines.u, lines.v);
    return true;
}

// How far along line (q, v) it passes line (p, u), as seen along the axis nearest to their normal.
// False when the normal has no component to speak of.
bool CrossingAlong(const Vec3& p, const Vec3& u, const Vec3& q, const Vec3& v, const Vec3& normal,
                   double& along)
{
    struct View {
        int axis, first, second;
    };
    static constexpr View kViews[] = {{2, 0, 1}, {1, 0, 2}, {0, 1, 2}};

    const auto size = [&normal](int axis) { return std::abs(normal[axis]); };
    const double largest = std::max({size(0), size(1), size(2)});
    if (largest < kNoComponent)
        return false;
    const View* const view =
        std::find_if(kViews, kViews + 2, [&](const View& each) { return size(each.axis) == largest; });
    const int i = view->first;
    const int j = view->second;
    const Vec3 d = q - p;
    along = (d[j] * u[i] - d[i] * u[j]) / (v[i] * u[j] - v[j] * u[i]);
    return true;
}

// The part that both intersections share: the lines pass each other within tol, `along` the second at
// `along`.
bool LinesMeet(const LinePair& lines, double tol, double& dist, double& along)
{
    if (Length(lines.normal) < kParallel)
        return false;
    dist = lines.Distance();
    return !(dist > tol) && CrossingAlong(lines.p, lines.u, lines.q, lines.v, lines.normal, along);
}

} // namespace

int CMathFunc::mathLineEq2D(double* const p1, double* const p2, double& a, double& b, double& c)
{
    const double x = p1[0];
    const double y = p1[1];
    const int result = mathNormalize(p2[1] - y, x - p2[0], a, b);
    c = result ? -(a * x + b * y) : 0.0;
    return result;
}

int CMathFunc::mathPlaneEquation(double* const p1, double* const p2, double* const p3, double& a, double& b,
                                 double& c, double& d)
{
    const Vec3 p = Load(p1);
    const Vec3 normal = Cross(Load(p2) - p, Load(p3) - p);
    const int result = mathNormalize(normal[0], normal[1], normal[2], a, b, c);
    d = result ? -(a * p[0] + b * p[1] + c * p[2]) : 0.0;
    return result;
}

int CMathFunc::mathPlaneEquation(double* const pt, double* const nrm, double& a, double& b, double& c,
                                 double& d)
{
    mathNormalize(nrm, nrm);
    a = nrm[0];
    b = nrm[1];
    c = nrm[2];
    d = -Dot(nrm, pt);
    return 1;
}

void CMathFunc::mathPLCrossPoint(double x0, double y0, double z0, double dx, double dy, double dz, double px,
                                 double py, double pz, double& x, double& y, double& z)
{
    double t = 0.0;
    mathPLCrossPoint(x0, y0, z0, dx, dy, dz, px, py, pz, x, y, z, t);
}

void CMathFunc::mathPLCrossPoint(double x0, double y0, double z0, double dx, double dy, double dz, double px,
                                 double py, double pz, double& x, double& y, double& z, double& t)
{
    const Vec3 origin{{x0, y0, z0}};
    const Vec3 direction{{dx, dy, dz}};
    t = Ratio(::Dot(Vec3{{px, py, pz}} - origin, direction), ::Dot(direction, direction));
    const Vec3 foot = origin + t * direction;
    x = foot[0];
    y = foot[1];
    z = foot[2];
}

double CMathFunc::mathDistanceToLine(double* const p1, double* const p2, double* const q)
{
    const Vec3 along = Load(p2) - Load(p1);
    const Vec3 fromStart = Load(q) - Load(p1);
    const double squareLength = ::Dot(along, along);
    // Both times the length: what lies at t of the unit direction lies at t / length of the segment.
    const double reach = ::Dot(fromStart, along);
    if (reach <= 0.0 || squareLength < m_NormalZero * m_NormalZero)
        return ::Length(fromStart);
    if (reach >= squareLength)
        return ::Length(Load(q) - Load(p2));
    return ::Length(fromStart - reach / squareLength * along);
}

double CMathFunc::mathDistanceFromIntersectPointToLine(double* const p1, double* const p2, double* const q)
{
    const Vec3 start = Load(p1);
    const Vec3 fromStart = Load(q) - start;
    Vec3 unit;
    UnitDirection(start, Load(p2), unit);
    return ::Length(fromStart - AlongUnit(fromStart, unit) * unit);
}

double CMathFunc::PointLineSquareDistance3D(const double* const p, const double* const a,
                                            const double* const b, double& t, double* const foot)
{
    const Vec3 point = Load(p);
    const Vec3 start = Load(a);
    const Vec3 direction = Load(b) - start;
    t = Ratio(::Dot(direction, point - start), ::Dot(direction, direction));
    const Vec3 nearest = start + t * direction;
    nearest.Store(foot);
    return ::Dot(point - nearest, point - nearest);
}

double CMathFunc::mathDistanceLine(double* const p1, double* const p2, double* const q1, double* const q2)
{
    LinePair lines;
    if (!MakeLinePair(p1, p2, q1, q2, lines) || ::Length(lines.normal) < kNoComponent)
        return -1.0;
    return lines.Distance();
}

int CMathFunc::mathIntersectPointToPlane(double* const dir, double* const pt, double* const nrm,
                                         double* const ppt, double* const out)
{
    const Vec3 point = Load(pt);
    const Vec3 planePoint = Load(ppt);
    mathNormalize(dir, dir);
    mathNormalize(nrm, nrm);
    const Vec3 direction = Load(dir);
    const Vec3 normal = Load(nrm);
    Copy(0.0, 0.0, 0.0, out);
    const double cosine = ::Dot(direction, normal);
    if (std::abs(cosine) < kNoComponent)
        return 0;
    const double t = (::Dot(planePoint, normal) - ::Dot(point, normal)) / cosine;
    (point + t * direction).Store(out);
    return 1;
}

int CMathFunc::mathIntersectLine(double* const p1, double* const p2, double* const q1, double* const q2,
                                 double tol, double& dist, double* const out)
{
    LinePair lines;
    const bool distinct = MakeLinePair(p1, p2, q1, q2, lines);
    Copy(0.0, 0.0, 0.0, out);
    double along = 0.0;
    if (!distinct || !LinesMeet(lines, tol, dist, along))
        return 0;
    (lines.q + along * lines.v).Store(out);
    return 1;
}

int CMathFunc::mathIntersectLine2(double* const p1, double* const p2, double* const q1, double* const q2,
                                  double tol, double& dist, double* const out)
{
    LinePair lines;
    const bool distinct = MakeLinePair(p1, p2, q1, q2, lines);
    const double firstLength = mathDistanceToPoint(p1, p2);
    const double secondLength = mathDistanceToPoint(q1, q2);
    Copy(0.0, 0.0, 0.0, out);
    double alongFirst = 0.0;
    double alongSecond = 0.0;
    if (!distinct || !LinesMeet(lines, tol, dist, alongSecond) ||
        !CrossingAlong(lines.q, lines.v, lines.p, lines.u, lines.normal, alongFirst) ||
        !WithinSegment(alongFirst, firstLength) || !WithinSegment(alongSecond, secondLength))
        return 0;
    (lines.q + alongSecond * lines.v).Store(out);
    return 1;
}

int CMathFunc::mathIntersectLine2D(double x1, double y1, double x2, double y2, double x3, double y3,
                                   double x4, double y4, double& x, double& y, int bSegment)
{
    x = y = 0.0;
    double ux = 0.0, uy = 0.0, vx = 0.0, vy = 0.0;
    if (!mathNormalize(x2 - x1, y2 - y1, ux, uy) || !mathNormalize(x4 - x3, y4 - y3, vx, vy))
        return 0;
    const double cross = ux * vy - uy * vx;
    if (std::abs(cross) < kParallel)
        return 0;
    const double alongFirst = ((y1 - y3) * vx - (x1 - x3) * vy) / cross;
    const double alongSecond = ((y3 - y1) * ux - (x3 - x1) * uy) / -cross;
    if (bSegment && !(WithinSegment(alongSecond, mathLength(x3, y3, x4, y4)) &&
                      WithinSegment(alongFirst, mathLength(x1, y1, x2, y2))))
        return 0;
    x = x3 + alongSecond * vx;
    y = y3 + alongSecond * vy;
    return 1;
}
