// Families of polylines for the tests of their intersections, and the rule pair by pair.
#pragma once

#include "GeomFunc.h"
#include "MathFunc.h"
#include "Random.h"

#include <cmath>
#include <functional>

using Points3D = CArray<T_POINT3D, T_POINT3D&>;

inline void AddPoint(Points3D& line, double x, double y, double z = 0.0)
{
    T_POINT3D p = {x, y, z};
    line.Add(p);
}

inline int LiteralPair(const Points3D& a, int i, const Points3D& b, int j, int bCross)
{
    double ends[4][3] = {{a[i].x, a[i].y, a[i].z},
                         {a[i + 1].x, a[i + 1].y, a[i + 1].z},
                         {b[j].x, b[j].y, b[j].z},
                         {b[j + 1].x, b[j + 1].y, b[j + 1].z}};
    return CGeomFunc::CheckLineIntersection(ends[0], ends[1], ends[2], ends[3], bCross);
}

inline int LiteralSelf(const Points3D& line)
{
    for (int i = 0; i + 1 < line.GetSize(); ++i)
        for (int j = i + 1; j + 1 < line.GetSize(); ++j)
            if (LiteralPair(line, i, line, j, 0))
                return 1;
    return 0;
}

inline int LiteralCross(const Points3D& a, const Points3D& b)
{
    for (int i = 0; i + 1 < a.GetSize(); ++i)
        for (int j = 0; j + 1 < b.GetSize(); ++j)
            if (LiteralPair(a, i, b, j, 1))
                return 1;
    return 0;
}

// A family makes point `i` of `n`.
struct PolylineFamily {
    const char* label;
    std::function<T_POINT3D(Random&, int i, int n)> point;
};

inline T_POINT3D Turned(const T_POINT3D& p, double angle)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return {c * p.x - s * p.y, s * p.x + c * p.y, p.z};
}

inline T_POINT3D Spiral(int i, double jitter)
{
    const double t = 2.0 * std::sqrt(i + 1.0);
    return {t * std::cos(t) + jitter, t * std::sin(t), 0.0};
}

inline T_POINT3D ZigZag(int i, int n)
{
    return {double(i) / n, i % 2 * 1.0, 0.0};
}

inline const PolylineFamily kPolylineFamilies[] = {
    {"spiral", [](Random& r, int i, int) { return Spiral(i, 0.01 * r.Number(1.0)); }},
    {"spiral far from the origin",
     [](Random&, int i, int) {
         const T_POINT3D p = Spiral(i, 0.0);
         return T_POINT3D{p.x + 3e4, p.y - 7e4, 2e5};
     }},
    {"spiral very far from the origin",
     [](Random&, int i, int) {
         const T_POINT3D p = Spiral(i, 0.0);
         return T_POINT3D{p.x + 1e8, p.y, -3e8};
     }},
    // Rounding of long segments is larger than the distance that counts as a contact.
    {"spiral of long strokes",
     [](Random& r, int i, int) {
         const T_POINT3D p = Spiral(i, 0.01 * r.Number(1.0));
         return T_POINT3D{p.x * 1e6, p.y * 1e6, 0.0};
     }},
    {"long strokes past the origin",
     [](Random& r, int i, int n) {
         return T_POINT3D{(i - n / 2) * 1e6 + r.Number(1e5), r.Number(1e5), 0.0};
     }},
    {"crowd below a far point",
     [](Random&, int i, int n) {
         const T_POINT3D p = Spiral(i, 0.0);
         return i + 1 < n ? T_POINT3D{p.x * 1e-3, p.y * 1e-3, 0.0} : T_POINT3D{p.x * 1e3, p.y * 1e3, 1e6};
     }},
    {"helix",
     [](Random&, int i, int) {
         return T_POINT3D{std::cos(i * 0.3), std::sin(i * 0.3), i * 1e-3};
     }},
    {"zig-zag of long strokes", [](Random&, int i, int n) { return ZigZag(i, n); }},
    {"slanted zig-zag", [](Random&, int i, int n) { return Turned(ZigZag(i, n), 0.7); }},
    {"slanted zig-zag in space",
     [](Random&, int i, int n) {
         const T_POINT3D p = Turned(ZigZag(i, n), 0.7);
         return Turned({p.y, i * 0.01, p.x}, 0.3);
     }},
    {"chords of a square",
     [](Random& r, int, int) {
         return T_POINT3D{r.Number(), r.Number(), 0.0};
     }},
    {"chords of a cube",
     [](Random& r, int, int) {
         return T_POINT3D{r.Number(), r.Number(), r.Number()};
     }},
    {"lattice walk",
     [](Random& r, int i, int) {
         return T_POINT3D{i + std::floor(r.Number(2.0)), std::floor(r.Number(2.0)),
                          std::floor(r.Number(2.0))};
     }},
    {"straight line",
     [](Random&, int i, int) {
         return T_POINT3D{0.1 * i, 0.3 * i, 0.7 * i};
     }},
    {"all in one place",
     [](Random& r, int, int) {
         return T_POINT3D{r.Number(1e-11), r.Number(1e-11), 1.0};
     }},
    {"tiny",
     [](Random&, int i, int) {
         const T_POINT3D p = Spiral(i, 0.0);
         return T_POINT3D{p.x * 1e-9, p.y * 1e-9, 0.0};
     }},
    {"huge",
     [](Random&, int i, int) {
         const T_POINT3D p = Spiral(i, 0.0);
         return T_POINT3D{p.x * 1e120, p.y * 1e120, 0.0};
     }},
};

inline void Fill(Points3D& line, const PolylineFamily& family, Random& random, int n)
{
    line.RemoveAll();
    line.SetSize(0, n);
    for (int i = 0; i < n; ++i) {
        T_POINT3D p = family.point(random, i, n);
        line.Add(p);
    }
}
