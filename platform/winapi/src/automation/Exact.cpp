#include "Exact.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

namespace {

constexpr Wide128 kLimit96 = static_cast<Wide128>(1) << 96;
constexpr long long kExponentLimit = 100000; // far beyond every range, far from overflow

bool IsBlank(char16_t c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r') || c == u'\u00A0';
}

bool IsDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

// Walks over a number's text part by part.
class NumberReader
{
public:
    NumberReader(std::u16string_view text, NumberText& number) : m_text(text), m_number(number) {}

    bool Read()
    {
        ReadAffixes();
        if (!ReadMantissa() || !ReadExponent())
            return false;
        ReadAffixes();
        m_number.negative = m_minus || m_opened;
        return m_text.empty() && m_opened == m_closed;
    }

private:
    // Blanks, a sign, a currency sign and parentheses may stand in any order, each once.
    void ReadAffixes()
    {
        while (!m_text.empty() && ReadAffix(m_text.front()))
            m_text.remove_prefix(1);
    }

    bool ReadAffix(char16_t c)
    {
        switch (c) {
        case u'+':
        case u'-':
            m_minus = c == u'-';
            return Once(m_signed) && !m_opened;
        case u'$':
            return Once(m_currency);
        case u'(':
            return !m_seen && !m_signed && Once(m_opened);
        case u')':
            return m_seen && m_opened && Once(m_closed);
        default:
            return IsBlank(c);
        }
    }

    static bool Once(bool& flag)
    {
        const bool first = !flag;
        flag = true;
        return first;
    }

    bool ReadMantissa()
    {
        for (; !m_text.empty(); m_text.remove_prefix(1)) {
            const char16_t c = m_text.front();
            if (IsDigit(c))
                AddDigit(static_cast<char>(c));
            else if (c == u'.' && !m_point)
                m_point = true;
            else if (c != u',' || m_point || !m_seen)
                break;
        }
        return m_seen;
    }

    void AddDigit(char digit)
    {
        m_seen = true;
        const bool leading = digit == '0' && m_number.count == 0;
        const bool kept = !leading && m_number.count < NumberText::kKept;
        if (kept)
            m_number.digits[static_cast<std::size_t>(m_number.count++)] = digit;
        else if (!leading)
            m_number.more |= digit != '0';
        if (m_point && (kept || leading))
            --m_number.exponent;
        else if (!m_point && !kept && !leading)
            ++m_number.exponent;
    }

    bool ReadExponent()
    {
        if (m_text.empty() || (m_text.front() != u'e' && m_text.front() != u'E'))
            return true;
        m_text.remove_prefix(1);
        bool negative = false;
        if (!m_text.empty() && (m_text.front() == u'+' || m_text.front() == u'-')) {
            negative = m_text.front() == u'-';
            m_text.remove_prefix(1);
        }
        if (m_text.empty() || !IsDigit(m_text.front()))
            return false;
        long long exponent = 0;
        for (; !m_text.empty() && IsDigit(m_text.front()); m_text.remove_prefix(1))
            exponent = std::min(exponent * 10 + (m_text.front() - u'0'), kExponentLimit);
        m_number.exponent += negative ? -exponent : exponent;
        return true;
    }

    std::u16string_view m_text;
    NumberText& m_number;
    bool m_minus = false, m_signed = false, m_currency = false, m_opened = false, m_closed = false;
    bool m_point = false, m_seen = false;
};

// Appends a digit; false when the result needs more than 96 bits.
bool Append(Wide128& digits, int digit)
{
    if (digits >= kLimit96 / 10 + 1)
        return false;
    digits = digits * 10 + static_cast<unsigned>(digit);
    return digits < kLimit96;
}

// Whether a number with this last digit goes up when what was cut off begins with `next`.
bool RoundsUp(int last, int next, bool moreBehind)
{
    return next > 5 || (next == 5 && (moreBehind || last % 2 != 0));
}

int DigitAt(const NumberText& number, long long index)
{
    return index >= 0 && index < number.count ? number.digits[static_cast<std::size_t>(index)] - '0' : 0;
}

// Whether anything but zeros stands from `index` on.
bool AnythingFrom(const NumberText& number, long long index)
{
    const auto begin = number.digits.begin() + std::clamp<long long>(index, 0, number.count);
    return number.more ||
           std::any_of(begin, number.digits.begin() + number.count, [](char c) { return c != '0'; });
}

// The number cut after `length` of its digits (they may end in zeros that were not written), halves to even.
bool TakeDigits(const NumberText& number, long long length, Wide128& digits)
{
    digits = 0;
    for (long long i = 0; i < length; ++i)
        if (!Append(digits, DigitAt(number, i)))
            return false;
    const bool up = length >= 0 && RoundsUp(DigitAt(number, length - 1), DigitAt(number, length),
                                            AnythingFrom(number, length + 1));
    digits += up ? 1 : 0;
    return digits < kLimit96;
}

} // namespace

bool ParseNumber(std::u16string_view text, NumberText& number)
{
    number = {};
    return NumberReader(text, number).Read();
}

bool ToDouble(const NumberText& number, double& value)
{
    if (number.count == 0) {
        value = 0;
        return true;
    }
    std::string text(number.digits.data(), static_cast<std::size_t>(number.count));
    if (number.more)
        text += ".1";
    text += 'e' + std::to_string(number.exponent);
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    // Too small counts as zero, too large is refused.
    if (result.ec == std::errc::result_out_of_range) {
        value = 0;
        return number.count + number.exponent < 0;
    }
    value = number.negative ? -value : value;
    return true;
}

bool ToExact(const NumberText& number, int decimals, Exact& exact)
{
    exact = {number.negative, 0, 0};
    if (number.count == 0)
        return true;
    if (number.count + number.exponent > 29)
        return false;
    int scale = static_cast<int>(std::clamp<long long>(-number.exponent, 0, decimals));
    // Fewer digits after the point where 96 bits cannot hold so many.
    for (; scale >= 0; --scale)
        if (TakeDigits(number, number.count + number.exponent + scale, exact.digits))
            break;
    exact.scale = scale;
    return scale >= 0;
}

bool ToExact(double value, int significant, int decimals, Exact& exact)
{
    if (!std::isfinite(value))
        return false;
    std::array<char, 400> text;
    const auto written = significant > 0 ? std::to_chars(text.data(), text.data() + text.size(), value,
                                                         std::chars_format::scientific, significant - 1)
                                         : std::to_chars(text.data(), text.data() + text.size(), value,
                                                         std::chars_format::scientific);
    NumberText number;
    return ParseNumber(std::u16string(text.data(), written.ptr), number) && ToExact(number, decimals, exact);
}

Exact Round(Exact exact, int decimals)
{
    bool behind = false;
    int next = 0;
    for (; exact.scale > decimals; --exact.scale) {
        behind = behind || next != 0;
        next = static_cast<int>(exact.digits % 10);
        exact.digits /= 10;
    }
    if (RoundsUp(static_cast<int>(exact.digits % 10), next, behind))
        ++exact.digits;
    return exact;
}

double ToDouble(const Exact& exact)
{
    // Through the text, because a product of a rounded number and a power of ten would round twice.
    std::string text;
    for (Wide128 rest = exact.digits; rest != 0; rest /= 10)
        text.insert(text.begin(), static_cast<char>('0' + static_cast<int>(rest % 10)));
    text = (text.empty() ? "0" : text) + "e-" + std::to_string(exact.scale);
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return exact.negative ? -value : value;
}

Exact FromDecimal(const DECIMAL& value)
{
    return {(value.sign & DECIMAL_NEG) != 0, static_cast<Wide128>(value.Hi32) << 64 | value.Lo64,
            value.scale};
}

DECIMAL ToDecimal(const Exact& exact)
{
    DECIMAL value = {};
    value.scale = static_cast<BYTE>(exact.scale);
    value.sign = exact.negative && exact.digits != 0 ? DECIMAL_NEG : BYTE{0};
    value.Hi32 = static_cast<ULONG>(exact.digits >> 64);
    value.Lo64 = static_cast<ULONGLONG>(exact.digits);
    return value;
}
