// Where a line meets a surface of second order.
#pragma once

#include "Vec3.h"

// The surface k[0] x^2 + k[1] y^2 + k[2] z^2 + m z = n.
struct Quadric {
    Vec3 k;
    double m;
    double n;
};

// The point of the line through p along dir that lies on the surface and nearer to p; of two equally near
// ones that ahead. False, `out` untouched, when the line misses the surface or dir has no length. With
// coefficients of magnitude below tol the line meets the surface once, or not at all.
bool MeetAlong(const Quadric& surface, const double* p, const double* dir, double tol, double* out);
