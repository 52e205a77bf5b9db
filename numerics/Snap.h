// Sines and cosines as they are used: those that rounding alone keeps from 0, 1 or -1 are exactly that.
#pragma once

#include "MathFunc.h"

#include <cmath>

struct SineCosine {
    double sine, cosine;
};

// Of radians, the same on every platform to the last bit or two: run-time libraries that leave the whole job
// to the processor lose digits beside the multiples of pi.
SineCosine SineCosineOf(double rad);

inline double Snapped(double r)
{
    const double zero = CMathFunc::m_NormalZero;
    if (std::abs(r) < zero)
        r = 0.0;
    if (std::abs(1.0 - r) < zero)
        r = 1.0;
    if (std::abs(r + 1.0) < zero)
        r = -1.0;
    return r;
}
