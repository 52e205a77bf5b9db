// Number formats for cells.
#pragma once

#include <ZEK_lib.h>

#include <bitset>

// Gathers the magnitudes of numbers that share a format.
class CMagnitudes
{
public:
    // Zero does not count.
    void Add(double value);

    // A format that shows 7 digits of the greatest number: fixed point while the greatest one is neither long
    // nor tiny and the smallest one still shows 3 digits in it, with an exponent otherwise. Numbers a
    // thousand million times smaller than the greatest are rounding noise and do not count as the smallest.
    CString Format() const;

private:
    int Highest() const;
    int Lowest(int highest) const;

    // Decimal exponents of doubles range from -324 to 308.
    static constexpr int kOffset = 324;
    std::bitset<kOffset + 309> m_exponents;
};

// The format for one number alone.
CString FormatFor(double value);
