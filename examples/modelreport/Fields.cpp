#include "Fields.h"

#include <charconv>
#include <cmath>

void SplitFields(const CString& line, CStringArray& fields)
{
    fields.RemoveAll();
    const int length = line.GetLength();
    for (int start = 0; start < length;) {
        int comma = line.Find(',', start);
        if (comma < 0)
            comma = length;
        CString field = line.Mid(start, comma - start);
        fields.Add(field.Trim());
        start = comma + 1;
    }
}

CString Folded(const CString& text)
{
    CString folded(text);
    folded.Remove(' ');
    folded.Remove('\t');
    return folded.MakeUpper();
}

CString Unquoted(const CString& text)
{
    CString value(text);
    value.Trim();
    const int length = value.GetLength();
    if (length >= 2 && value[0] == '"' && value[length - 1] == '"')
        value = value.Mid(1, length - 2);
    return value;
}

namespace {

// The characters of `text`, trimmed and without a leading '+', which from_chars does not take.
CString Digits(const CString& text)
{
    CString digits(text);
    digits.Trim();
    if (digits.GetLength() > 1 && digits[0] == '+' && digits[1] != '-')
        digits.Delete(0);
    return digits;
}

bool IsExponentMark(char ch)
{
    return ch == 'e' || ch == 'E';
}

// Fortran's exponents as C++ knows them: D becomes E, and a sign behind a digit or a point gets its E.
CString WithPlainExponent(CString number)
{
    number.Replace('D', 'e');
    number.Replace('d', 'e');
    for (int i = 1; i < number.GetLength(); ++i) {
        const bool sign = number[i] == '+' || number[i] == '-';
        if (sign && !IsExponentMark(number[i - 1])) {
            number.Insert(i, 'e');
            break;
        }
    }
    return number;
}

// A number too close to zero for a double; from_chars leaves telling it from a too great one to us.
bool Underflows(const CString& number, std::errc error)
{
    return error == std::errc::result_out_of_range && number.FindOneOf("eE") >= 0 &&
           number[number.FindOneOf("eE") + 1] == '-';
}

template <class T>
bool ParseWhole(const CString& text, T& value)
{
    const char* first = text;
    const char* last = first + text.GetLength();
    T read{};
    const auto [end, error] = std::from_chars(first, last, read);
    if (end != last || (error != std::errc() && !Underflows(text, error)))
        return false;
    value = read;
    return true;
}

} // namespace

bool ParseInteger(const CString& text, LONG& value)
{
    return ParseWhole(Digits(text), value);
}

bool ParseNumber(const CString& text, double& value)
{
    const CString digits = Digits(text);
    double read = 0;
    if (!digits.IsEmpty() && !ParseWhole(WithPlainExponent(digits), read))
        return false;
    if (!std::isfinite(read))
        return false;
    value = read;
    return true;
}
