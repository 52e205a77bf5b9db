#include "FormatNumber.h"

#include <charconv>
#include <cmath>

namespace {

bool IsUpper(char conversion)
{
    return conversion >= 'A' && conversion <= 'Z';
}

void ToUpper(std::string& text)
{
    for (char& ch : text)
        if (ch >= 'a' && ch <= 'z')
            ch = static_cast<char>(ch - 'a' + 'A');
}

std::string_view Sign(const CFormatSpec& spec, bool negative)
{
    return negative ? "-" : (spec.plus ? "+" : (spec.blank ? " " : ""));
}

std::string Digits(ULONGLONG value, int base)
{
    char buffer[24];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, base).ptr;
    return {buffer, end};
}

ULONGLONG CutTo(LONGLONG value, int bytes)
{
    const auto bits = static_cast<ULONGLONG>(value);
    return bytes >= 8 ? bits : bits & ((ULONGLONG{1} << (8 * bytes)) - 1);
}

int BaseOf(char conversion)
{
    switch (conversion) {
    case 'o':
        return 8;
    case 'x':
    case 'X':
    case 'p':
        return 16;
    default:
        return 10;
    }
}

std::string_view HexPrefix(char conversion)
{
    return IsUpper(conversion) ? "0X" : "0x";
}

// An integer's digits with the zeros that precision and the # flag of %o ask for.
std::string IntegerDigits(const CFormatSpec& spec, ULONGLONG magnitude)
{
    std::string digits;
    if (magnitude != 0 || spec.precision != 0)
        digits = Digits(magnitude, BaseOf(spec.conversion));
    std::size_t zeros = 0;
    if (spec.precision > 0 && digits.size() < static_cast<std::size_t>(spec.precision))
        zeros = static_cast<std::size_t>(spec.precision) - digits.size();
    else if (spec.alternate && spec.conversion == 'o' && (digits.empty() || digits.front() != '0'))
        zeros = 1;
    std::string result(zeros, '0');
    result += digits;
    return result;
}

} // namespace

void AfxWritePadded(std::string& out, const CFormatSpec& spec, std::string_view sign, std::string_view base,
                    std::string_view body, bool zeros)
{
    const std::size_t length = sign.size() + base.size() + body.size();
    const auto width = static_cast<std::size_t>(spec.width);
    const std::size_t padding = width > length ? width - length : 0;
    if (!spec.left && !zeros)
        out.append(padding, ' ');
    out += sign;
    out += base;
    if (!spec.left && zeros)
        out.append(padding, '0');
    out += body;
    if (spec.left)
        out.append(padding, ' ');
}

void AfxWriteInteger(std::string& out, const CFormatSpec& spec, LONGLONG value, int bytes)
{
    const bool isSigned = spec.conversion == 'd' || spec.conversion == 'i';
    ULONGLONG magnitude = CutTo(value, bytes);
    const bool negative = isSigned && (magnitude >> (8 * bytes - 1)) != 0;
    if (negative)
        magnitude = CutTo(static_cast<LONGLONG>(0 - magnitude), bytes);
    std::string digits = IntegerDigits(spec, magnitude);
    if (IsUpper(spec.conversion))
        ToUpper(digits);
    const bool hex = spec.alternate && magnitude != 0 && (spec.conversion | 0x20) == 'x';
    AfxWritePadded(out, spec, isSigned ? Sign(spec, negative) : "", hex ? HexPrefix(spec.conversion) : "",
                   digits, spec.zero && spec.precision < 0);
}

namespace {

// std::to_chars with as much room as the number needs.
std::string RealDigits(double value, std::chars_format format, int precision)
{
    constexpr std::size_t kLongestWhole = 330; // sign, 309 digits, point, exponent
    constexpr int kUsual = 60;
    if (precision <= kUsual) {
        char buffer[kLongestWhole + kUsual];
        return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value, format, precision).ptr};
    }
    std::string text(kLongestWhole + static_cast<std::size_t>(precision), '\0');
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, format, precision).ptr;
    text.resize(static_cast<std::size_t>(end - text.data()));
    return text;
}

// The # flag: a decimal point even where no digit follows.
void AddPoint(std::string& digits)
{
    if (digits.find('.') != std::string::npos)
        return;
    const std::size_t exponent = digits.find_first_of("ep");
    digits.insert(exponent == std::string::npos ? digits.size() : exponent, 1, '.');
}

// %#g: as %g, but the zeros at the end stay.
std::string GeneralWithZeros(double value, int precision)
{
    const std::string scientific = RealDigits(value, std::chars_format::scientific, precision - 1);
    const int exponent = std::stoi(scientific.substr(scientific.find('e') + 1));
    if (exponent < -4 || exponent >= precision)
        return scientific;
    return RealDigits(value, std::chars_format::fixed, precision - 1 - exponent);
}

std::string FiniteDigits(const CFormatSpec& spec, double value)
{
    constexpr int kHexDigits = 13; // all of a double's 52 bits
    const int precision = spec.precision < 0 ? 6 : spec.precision;
    std::string digits;
    switch (spec.conversion | 0x20) {
    case 'a':
        digits = RealDigits(value, std::chars_format::hex, spec.precision < 0 ? kHexDigits : spec.precision);
        break;
    case 'e':
        digits = RealDigits(value, std::chars_format::scientific, precision);
        break;
    case 'f':
        digits = RealDigits(value, std::chars_format::fixed, precision);
        break;
    default: {
        const int significant = precision == 0 ? 1 : precision;
        digits = spec.alternate ? GeneralWithZeros(value, significant)
                                : RealDigits(value, std::chars_format::general, significant);
        break;
    }
    }
    if (spec.alternate)
        AddPoint(digits);
    return digits;
}

} // namespace

void AfxWriteReal(std::string& out, const CFormatSpec& spec, double value)
{
    const bool finite = std::isfinite(value);
    std::string digits = std::isnan(value) ? "nan" : (finite ? FiniteDigits(spec, std::fabs(value)) : "inf");
    if (IsUpper(spec.conversion))
        ToUpper(digits);
    const bool hex = finite && (spec.conversion | 0x20) == 'a';
    AfxWritePadded(out, spec, Sign(spec, std::signbit(value)), hex ? HexPrefix(spec.conversion) : "", digits,
                   spec.zero && finite);
}
