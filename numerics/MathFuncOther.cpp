// CMathFunc: decimal rounding, the open-air temperature.
#include "MathFunc.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kLargestExact = 22;
constexpr int kBeyondAll = 400; // digits whose power is infinite, or zero

// Powers up to 10^22 are doubles without rounding, and the inverse of one is rounded once: the same on every
// platform, which std::pow is not.
double PowerOfTen(int exponent)
{
    int left = std::abs(exponent);
    double power = 1.0;
    for (; left > kLargestExact; left -= kLargestExact)
        power *= kPowersOfTen[kLargestExact];
    power *= kPowersOfTen[left];
    return exponent < 0 ? 1.0 / power : power;
}

double OnGrid(double v, int digits, double beforeFloor)
{
    const int exponent = std::clamp(digits, -kBeyondAll, kBeyondAll);
    return std::floor(v * PowerOfTen(exponent) + beforeFloor) * PowerOfTen(-exponent);
}

int DaysOfMonth(int month)
{
    static constexpr int kDays[] = {31, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31, 31};
    return month >= 0 && month < 14 ? kDays[month] : 30;
}

// Least at the start of February, largest at the start of August.
double Season(double month)
{
    if (month <= 2.0)
        return 4.0 - month;
    return month <= 8.0 ? month : 16.0 - month;
}

} // namespace

double CMathFunc::mathRoundOff(double v, int digits)
{
    return OnGrid(v, digits, 0.5);
}

double CMathFunc::mathRoundUp(double v, int digits)
{
    return OnGrid(v, digits, 1.0);
}

double CMathFunc::mathRoundDown(double v, int digits)
{
    return OnGrid(v, digits, 0.0);
}

double CMathFunc::calOpenAirTemperature(int month, int day, double site, double height)
{
    const double season = Season(static_cast<double>(day) / DaysOfMonth(month) + month);
    const double base = 4.354 * season - 6.007;
    const double gradient = site < 35.0 ? 0.212 * season - 1.864 : 0.076 * season - 1.355;
    return base + gradient * (site - 35.0) - 0.006 * height;
}
