// Decimal numbers as texts, amounts and whole numbers hold them, without rounding on the way.
#pragma once

#include <wtypes.h>

#include <array>
#include <string_view>

__extension__ using Wide128 = unsigned __int128;

// digits / 10^scale, with its sign.
struct Exact {
    bool negative = false;
    Wide128 digits = 0;
    int scale = 0;
};

// What a text says: its significant digits (at most kKept, more are only noted) and the power of ten of the
// last of them.
struct NumberText {
    static constexpr int kKept = 38;
    bool negative = false;
    std::array<char, kKept> digits = {};
    int count = 0;
    bool more = false; // something other than zero follows the digits kept
    long long exponent = 0;
};

// Reads a number as US English writes it: blanks around, one sign on either side or parentheses for a
// negative, one '$', commas between digits before the point, an exponent. False when it is anything else.
bool ParseNumber(std::u16string_view text, NumberText& number);

// The nearest double; false beyond its range.
bool ToDouble(const NumberText& number, double& value);

// The number with no more than `decimals` digits after the point, halves to even; false when its digits do
// not fit 96 bits even so.
bool ToExact(const NumberText& number, int decimals, Exact& exact);

// Likewise for a double, taken at `significant` digits (0: all it has).
bool ToExact(double value, int significant, int decimals, Exact& exact);

// Drops digits after the point until no more than `decimals` remain, halves to even.
Exact Round(Exact exact, int decimals);

double ToDouble(const Exact& exact);

Exact FromDecimal(const DECIMAL& value);
DECIMAL ToDecimal(const Exact& exact);
inline Exact FromSigned(long long value, int scale = 0)
{
    const auto magnitude = static_cast<unsigned long long>(value);
    return {value < 0, value < 0 ? 0 - magnitude : magnitude, scale};
}
