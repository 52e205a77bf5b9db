#include "NumberFormat.h"

#include <cmath>

namespace {

constexpr int kDigits = 7;
constexpr int kLeastExponent = -3;
constexpr int kMostExponent = 6;
constexpr int kSmallestDigits = 3;
constexpr int kNoise = 9; // decades

} // namespace

void CMagnitudes::Add(double value)
{
    if (value != 0 && std::isfinite(value))
        m_exponents.set(static_cast<size_t>(std::floor(std::log10(std::fabs(value))) + kOffset));
}

int CMagnitudes::Highest() const
{
    size_t at = m_exponents.size() - 1;
    while (!m_exponents[at])
        --at;
    return static_cast<int>(at) - kOffset;
}

int CMagnitudes::Lowest(int highest) const
{
    int exponent = highest > kNoise - kOffset ? highest - kNoise : -kOffset;
    while (!m_exponents[static_cast<size_t>(exponent + kOffset)])
        ++exponent;
    return exponent;
}

CString CMagnitudes::Format() const
{
    if (m_exponents.none())
        return "0";
    const int high = Highest();
    const int decimals = kDigits - 1 - high;
    const bool showsSmallest = decimals + Lowest(high) >= kSmallestDigits - 1;
    if (high < kLeastExponent || high > kMostExponent || !showsSmallest)
        return "0." + CString('0', kDigits - 1) + "E+00";
    return decimals == 0 ? CString("0") : "0." + CString('0', decimals);
}

CString FormatFor(double value)
{
    CMagnitudes one;
    one.Add(value);
    return one.Format();
}
