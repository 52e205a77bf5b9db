#include "SegmentPair.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLeastTurn = 1e-9;
// An axis shorter than that has lost its direction to rounding near zero.
constexpr double kLeastSquare = 1e-200;

struct Pair {
    Pair(const T_POINT3D* a, const T_POINT3D* b)
        : start(Load(b[0]) - Load(a[0])), u(Load(a[1]) - Load(a[0])), v(Load(b[1]) - Load(b[0])),
          room(SafeRoom(Reach(Load(a[0])) + Reach(Load(b[0])), Reach(u) + Reach(v), Reach(start)))
    {
    }

    // Whether there is room between the shadows of both on an axis of the given squared length.
    bool ApartAlong(const Vec3& axis, double squareLength) const
    {
        const double a = Dot(u, axis);
        const double b = Dot(start, axis);
        const double c = b + Dot(v, axis);
        const double gap = std::max(std::min(b, c) - std::max(0.0, a), std::min(0.0, a) - std::max(b, c));
        return gap > 0.0 && gap * gap > room * room * squareLength;
    }

    bool ApartAlong(const Vec3& axis) const
    {
        const double squareLength = Dot(axis, axis);
        return squareLength > kLeastSquare && ApartAlong(axis, squareLength);
    }

    Vec3 start; // from the first segment's start to the second's
    Vec3 u, v;
    double room;
};

bool BoxesApart(const Pair& pair)
{
    double gap = 0.0;
    for (int axis = 0; axis < 3; ++axis) {
        const double a = pair.u[axis];
        const double b = pair.start[axis];
        const double c = b + pair.v[axis];
        gap = std::max({gap, std::min(b, c) - std::max(0.0, a), std::min(0.0, a) - std::max(b, c)});
    }
    return gap > pair.room;
}

// Segments with a plane between them (the separating axis theorem) neither touch nor cross.
bool SurelyApart(const T_POINT3D* a, const T_POINT3D* b)
{
    const Pair pair(a, b);
    if (!IsSafeRoom(pair.room))
        return false;
    if (BoxesApart(pair))
        return true;
    const Vec3 normal = Cross(pair.u, pair.v);
    return pair.ApartAlong(normal) || pair.ApartAlong(Cross(normal, pair.u)) ||
           pair.ApartAlong(Cross(normal, pair.v));
}

// Neighbours that touch at their common point only: they go on forwards or turn by more than rounding.
bool SurelyJoined(const T_POINT3D* a)
{
    const Vec3 first = Load(a[0]);
    const Vec3 joint = Load(a[1]);
    const Vec3 last = Load(a[2]);
    const Vec3 u = joint - first;
    const Vec3 v = last - joint;
    const double shorter = std::min(Dot(u, u), Dot(v, v));
    const double least = LeastJoined(0.0);
    if (!(Reach(u) + Reach(v) < kExactLength && shorter > least * least && IsSafeRoom(0.0)))
        return false;
    if (Dot(u, v) >= 0.0)
        return true;
    const Vec3 normal = Cross(u, v);
    return Dot(normal, normal) > kLeastTurn * kLeastTurn * std::max(Dot(u, u), Dot(v, v));
}

bool TestMeets(const T_POINT3D* a, const T_POINT3D* b, int bCross)
{
    double ends[4][3];
    Load(a[0]).Store(ends[0]);
    Load(a[1]).Store(ends[1]);
    Load(b[0]).Store(ends[2]);
    Load(b[1]).Store(ends[3]);
    return CGeomFunc::CheckLineIntersection(ends[0], ends[1], ends[2], ends[3], bCross) != 0;
}

} // namespace

bool SegmentsMeet(const T_POINT3D* a, const T_POINT3D* b, int bCross)
{
    if (bCross == 0 && b == a + 1)
        return !SurelyJoined(a) && TestMeets(a, b, bCross);
    return !SurelyApart(a, b) && TestMeets(a, b, bCross);
}
