// Number formats for cells.
#pragma once

#include <ZEK_lib.h>

// Gathers the magnitudes of numbers that share a format. Zeros do not count.
class CMagnitudes
{
public:
    void Add(double value);

    // A format that shows 7 digits of the greatest number: fixed point while the greatest one is neither long
    // nor tiny and the smallest one still shows 3 digits in it, with an exponent otherwise.
    CString Format() const;

private:
    double m_low = 0;
    double m_high = 0;
};

// The format for one number alone.
CString FormatFor(double value);
