#include "Snap.h"

#include <numbers>

namespace {

// Half of pi in three parts. Products of the first two with numbers below 2^20 are exact. (W. J. Cody and
// W. Waite, "Software Manual for the Elementary Functions", 1980.)
constexpr double kHalfPi1 = 0x1.921fb544p+0;
constexpr double kHalfPi2 = 0x1.0b4611a6p-34;
constexpr double kHalfPi3 = 0x1.3198a2e037073p-69;
constexpr double kMostQuarters = 1048576.0;

// What is added to a small number and taken off again rounds it to a whole one.
constexpr double kRoundsToWhole = 0x1.8p+52;

// What is left of an angle beside the nearest multiple of a right angle: `rest` and a correction to it.
struct Reduced {
    double rest, correction;
    unsigned quarter;
};

Reduced Reduce(double rad)
{
    const double quarters = rad * (2.0 / std::numbers::pi) + kRoundsToWhole - kRoundsToWhole;
    const double first = rad - quarters * kHalfPi1;
    const double second = quarters * kHalfPi2;
    const double rest = first - second;
    const double back = first - rest; // `second` as far as it went into `rest`
    const double lost = (first - (rest + back)) - (second - back);
    const auto quarter = static_cast<unsigned>(static_cast<int>(quarters)) & 3U;
    return {rest, lost - quarters * kHalfPi3, quarter};
}

} // namespace

SineCosine SineCosineOf(double rad)
{
    const double size = std::abs(rad);
    if (!(size > std::numbers::pi / 4 && size < kMostQuarters))
        return {std::sin(rad), std::cos(rad)};
    const auto [rest, correction, quarter] = Reduce(rad);
    const double s = std::sin(rest);
    const double c = std::cos(rest);
    const double sine = s + correction * c;
    const double cosine = c - correction * s;
    const bool odd = quarter & 1U;
    const double turnedSine = odd ? cosine : sine;
    const double turnedCosine = odd ? -sine : cosine;
    return quarter & 2U ? SineCosine{-turnedSine, -turnedCosine} : SineCosine{turnedSine, turnedCosine};
}
