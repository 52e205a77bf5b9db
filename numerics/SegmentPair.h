// The test of two segments of polylines, and short cuts to its answer "no".
#pragma once

#include "GeomFunc.h"
#include "MathFunc.h"
#include "Vec3.h"

#include <algorithm>

// A polyline's points; segment i runs from point i to point i + 1.
struct PolylineView {
    const T_POINT3D* points;
    int segments;
};

inline Vec3 Load(const T_POINT3D& p)
{
    return {{p.x, p.y, p.z}};
}

// The room between two segments that no tolerance of the test and no rounding in it bridges, given the
// largest coordinate, the lengths of both and what separates their starts (each as a sum of magnitudes, or
// more).
inline double SafeRoom(double coordinate, double lengths, double distance)
{
    // A contact is a distance below 1e-10. Coordinates err by their last bits. A crossing may lie 1e-7 of a
    // segment's length beyond its end. Where directions are as little as 1e-4 apart, the place of a crossing
    // errs by 4e-11 of the lengths it is computed from.
    return 2e-10 + 1e-13 * coordinate + 2e-7 * lengths + 1e-9 * distance;
}

// Whether such figures hold good: beyond these bounds squares overflow or vanish.
inline bool IsSafeRoom(double room)
{
    return room < 1e80 && CMathFunc::m_NormalZero >= 1e-100;
}

inline double Reach(const Vec3& v)
{
    return std::abs(v[0]) + std::abs(v[1]) + std::abs(v[2]);
}

// Up to that length, the end of a segment that is computed from start, direction and length is within 1e-10
// of itself: it errs by a few last bits of the length.
constexpr double kExactLength = 2e4;

// Segments longer than that which share an end exactly, and turn there by a right angle at most, touch
// nowhere else as far as the test sees; `room` is what it must not be below.
inline double LeastJoined(double room)
{
    return std::max({room, 1e-9, 2.0 * CMathFunc::m_NormalZero});
}

// Exactly what CGeomFunc::CheckLineIntersection() says of the segments that start at `a` and `b`, mostly
// without asking it. bCross == 0 is for segments of one polyline.
bool SegmentsMeet(const T_POINT3D* a, const T_POINT3D* b, int bCross);
