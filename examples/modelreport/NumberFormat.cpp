#include "NumberFormat.h"

#include <cmath>

namespace {

constexpr int kDigits = 7;
constexpr int kLeastExponent = -3;
constexpr int kMostExponent = 6;
constexpr int kSmallestDigits = 3;

int Exponent(double magnitude)
{
    return static_cast<int>(std::floor(std::log10(magnitude)));
}

} // namespace

void CMagnitudes::Add(double value)
{
    const double magnitude = std::fabs(value);
    if (magnitude == 0)
        return;
    m_high = std::fmax(m_high, magnitude);
    m_low = m_low == 0 ? magnitude : std::fmin(m_low, magnitude);
}

CString CMagnitudes::Format() const
{
    if (m_high == 0)
        return "0";
    const int high = Exponent(m_high);
    const int decimals = kDigits - 1 - high;
    const bool showsSmallest = decimals + Exponent(m_low) >= kSmallestDigits - 1;
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
