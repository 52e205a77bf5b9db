// Sines and cosines as they are used: those that rounding alone keeps from 0, 1 or -1 are exactly that.
#pragma once

#include "MathFunc.h"

#include <cmath>

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
