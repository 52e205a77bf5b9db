// Numbers as text, as printf writes them in the "C" locale.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// Flags, width, precision and conversion letter of one printf conversion.
struct CFormatSpec {
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zero = false;
    int width = 0;
    int precision = -1; // -1: not given
    char conversion = '\0';
};

// Adds an integer; `bytes` (1, 2, 4 or 8) is how much of the value counts.
void AfxWriteInteger(std::string& out, const CFormatSpec& spec, LONGLONG value, int bytes);

// Adds a floating-point number (conversions a, e, f, g in either case).
void AfxWriteReal(std::string& out, const CFormatSpec& spec, double value);

// Adds `sign`, `base` ("0x") and `body` in the width of the conversion; zeros go before the body.
void AfxWritePadded(std::string& out, const CFormatSpec& spec, std::string_view sign, std::string_view base,
                    std::string_view body, bool zeros);
