#include "NumberText.h"

#include <charconv>
#include <string_view>
#include <system_error>

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kDigits = "0123456789";

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

// The standard's parser knows no plus sign.
std::string_view WithoutPlus(std::string_view text)
{
    return text.starts_with('+') ? text.substr(1) : text;
}

bool BeginsWithSign(std::string_view text)
{
    return text.starts_with('+') || text.starts_with('-');
}

template <class Number>
bool Parse(LPCSTR text, std::string_view starts, Number& value)
{
    const std::string_view typed = Trimmed(text);
    const std::string_view digits = BeginsWithSign(typed) ? typed.substr(1) : typed;
    // Keeps out a second sign, and the words for what is no number.
    if (digits.empty() || starts.find(digits.front()) == starts.npos)
        return false;
    const std::string_view number = WithoutPlus(typed);
    const char* const end = number.data() + number.size();
    Number parsed = 0;
    const auto [rest, error] = std::from_chars(number.data(), end, parsed);
    if (error != std::errc() || rest != end)
        return false;
    value = parsed;
    return true;
}

} // namespace

bool AfxParseWhole(LPCSTR text, LONGLONG& value)
{
    return Parse(text, kDigits, value);
}

bool AfxParseReal(LPCSTR text, double& value)
{
    return Parse(text, "0123456789.", value);
}
