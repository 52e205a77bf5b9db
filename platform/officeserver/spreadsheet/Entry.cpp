#include "spreadsheet/Entry.h"

#include "spreadsheet/model/Unicode.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>
#include <string>

namespace zek::office {
namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view Trimmed(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

bool TakeFront(std::string_view& text, char c)
{
    if (text.empty() || text.front() != c)
        return false;
    text.remove_prefix(1);
    return true;
}

bool TakeBack(std::string_view& text, char c)
{
    if (text.empty() || text.back() != c)
        return false;
    text.remove_suffix(1);
    return true;
}

// "1,234,567": groups of three behind the first; what follows the point has no commas.
bool HasGoodSeparators(std::string_view text)
{
    const std::string_view whole = text.substr(0, text.find_first_of(".eE"));
    if (text.size() > whole.size() && text.find(',', whole.size()) != text.npos)
        return false;
    std::size_t digits = 0;
    bool first = true;
    for (const char c : whole) {
        if (c != ',') {
            ++digits;
            continue;
        }
        if (digits == 0 || (first ? digits > 3 : digits != 3))
            return false;
        first = false;
        digits = 0;
    }
    return digits == 3;
}

// Digits with a point and an exponent, no sign; the whole text.
std::optional<double> Unsigned(std::string_view text)
{
    if (text.empty() || (!IsDigit(text.front()) && text.front() != '.'))
        return std::nullopt;
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (end != text.data() + text.size() || (error != std::errc{} && error != std::errc::result_out_of_range))
        return std::nullopt;
    // Beyond the greatest number it is a text; below the least it is nothing.
    if (error == std::errc::result_out_of_range)
        return text.find("e-") != text.npos || text.find("E-") != text.npos ? std::optional(0.0)
                                                                            : std::nullopt;
    return number;
}

const char* NumberFormatFor(std::string_view digits, bool percent, bool dollar, bool separators)
{
    const bool decimals = digits.find('.') != digits.npos;
    if (percent)
        return decimals ? "0.00%" : "0%";
    if (dollar)
        return decimals ? "$#,##0.00_);[Red]($#,##0.00)" : "$#,##0_);[Red]($#,##0)";
    if (digits.find_first_of("eE") != digits.npos)
        return "0.00E+00";
    return separators ? (decimals ? "#,##0.00" : "#,##0") : nullptr;
}

bool ParseNumber(std::string_view text, Entry& entry)
{
    const bool parentheses = TakeFront(text, '(');
    if (parentheses && !TakeBack(text, ')'))
        return false;
    bool negative = TakeFront(text, '-');
    const bool isSigned = negative || TakeFront(text, '+');
    const bool dollar = TakeFront(text, '$');
    if (dollar && !isSigned)
        negative = TakeFront(text, '-');
    const bool percent = TakeBack(text, '%');
    if ((parentheses && isSigned) || (percent && dollar))
        return false;
    std::string digits(Trimmed(text));
    const bool separators = digits.find(',') != digits.npos;
    if (separators && !HasGoodSeparators(digits))
        return false;
    std::erase(digits, ',');
    const std::optional<double> number = Unsigned(digits);
    if (!number)
        return false;
    entry.kind = CellKind::Number;
    entry.number = (negative || parentheses ? -1 : 1) * *number / (percent ? 100 : 1);
    entry.format = NumberFormatFor(digits, percent, dollar, separators);
    return true;
}

// Reads up to `most` digits.
bool TakeInteger(std::string_view& text, int& number, std::size_t most)
{
    std::size_t length = 0;
    while (length < std::min(most, text.size()) && IsDigit(text[length]))
        ++length;
    std::from_chars(text.data(), text.data() + length, number);
    text.remove_prefix(length);
    return length > 0;
}

// h:mm or h:mm:ss, with AM or PM behind it; a fraction of a day.
std::optional<double> ParseTime(std::string_view text)
{
    int hours = 0, minutes = 0, seconds = 0;
    if (!TakeInteger(text, hours, 4) || !TakeFront(text, ':') || !TakeInteger(text, minutes, 2))
        return std::nullopt;
    if (TakeFront(text, ':') && !TakeInteger(text, seconds, 2))
        return std::nullopt;
    const std::string half = FoldCase(Trimmed(text));
    if ((!half.empty() && half != "am" && half != "pm") || minutes > 59 || seconds > 59)
        return std::nullopt;
    if (!half.empty() && (hours < 1 || hours > 12))
        return std::nullopt;
    if (!half.empty())
        hours = hours % 12 + (half == "pm" ? 12 : 0);
    return (hours * 3600.0 + minutes * 60.0 + seconds) / 86400;
}

std::optional<double> ParseDate(std::string_view text)
{
    int numbers[3] = {};
    std::size_t digits[3] = {};
    char separator = 0;
    for (int i = 0; i < 3; ++i) {
        const std::size_t before = text.size();
        if (!TakeInteger(text, numbers[i], 4))
            return std::nullopt;
        digits[i] = before - text.size();
        if (i == 0 && !text.empty())
            separator = text.front();
        if (i < 2 && ((separator != '-' && separator != '/') || !TakeFront(text, separator)))
            return std::nullopt;
    }
    if (!text.empty())
        return std::nullopt;
    const bool yearFirst = digits[0] == 4;
    if (!yearFirst && digits[2] != 4)
        return std::nullopt;
    const double number = yearFirst ? DateNumber(numbers[0], numbers[1], numbers[2])
                                    : DateNumber(numbers[2], numbers[0], numbers[1]);
    return number < 0 ? std::nullopt : std::optional(number);
}

bool ParseMoment(std::string_view text, Entry& entry)
{
    const std::size_t blank = text.find(' ');
    const std::optional<double> date = ParseDate(text.substr(0, blank));
    const std::string_view rest = date ? (blank == text.npos ? "" : Trimmed(text.substr(blank))) : text;
    const std::optional<double> time = rest.empty() ? std::optional(0.0) : ParseTime(rest);
    if (!time)
        return false;
    entry.kind = CellKind::Number;
    entry.number = date.value_or(0) + *time;
    const bool seconds = std::ranges::count(rest, ':') > 1;
    if (date)
        entry.format = rest.empty() ? "m/d/yyyy" : "m/d/yyyy h:mm";
    else if (rest.back() == 'm' || rest.back() == 'M')
        entry.format = seconds ? "h:mm:ss AM/PM" : "h:mm AM/PM";
    else
        entry.format = *time >= 1 ? "[h]:mm:ss" : seconds ? "h:mm:ss" : "h:mm";
    return true;
}

bool ParseWord(std::string_view text, Entry& entry)
{
    for (const bool value : {true, false})
        if (EqualsNoCase(text, value ? "TRUE" : "FALSE")) {
            entry.kind = CellKind::Boolean;
            entry.boolean = value;
            return true;
        }
    if (text.front() != '#')
        return false;
    for (int i = 0; i <= static_cast<int>(CellError::NotAvailable); ++i)
        if (EqualsNoCase(text, ErrorText(static_cast<CellError>(i)))) {
            entry.kind = CellKind::Error;
            entry.error = static_cast<CellError>(i);
            return true;
        }
    return false;
}

bool IsOperator(char c)
{
    return std::string_view("+-*/^&=<>,:(").find(c) != std::string_view::npos;
}

} // namespace

Entry ParseEntry(std::string_view text)
{
    Entry entry;
    entry.text = text;
    if (text.empty()) {
        entry.kind = CellKind::Empty;
        return entry;
    }
    if (text.front() == '\'') {
        entry.text.remove_prefix(1);
        return entry;
    }
    if (text.front() == '=' && text.size() > 1) {
        entry.kind = CellKind::Formula;
        entry.text.remove_prefix(1);
        return entry;
    }
    const std::string_view core = Trimmed(text);
    if (core.empty())
        return entry;
    // Most texts are words: one look at the first character settles them.
    const char first = core.front();
    const bool mayBeNumber =
        IsDigit(first) || std::string_view("+-.$(").find(first) != std::string_view::npos;
    const bool mayBeWord = std::string_view("tTfF#").find(first) != std::string_view::npos;
    if (mayBeNumber && !ParseNumber(core, entry))
        ParseMoment(core, entry);
    else if (mayBeWord && core.size() <= 7)
        ParseWord(core, entry);
    return entry;
}

bool IsPlausibleFormula(std::string_view formula)
{
    int depth = 0;
    char last = '(';
    for (std::size_t i = 0; i < formula.size(); ++i) {
        const char c = formula[i];
        if (c == '"' || c == '\'') {
            i = formula.find(c, i + 1);
            if (i == formula.npos)
                return false;
        }
        depth += c == '(' ? 1 : c == ')' ? -1 : 0;
        if (depth < 0 || (c == ')' && IsOperator(last) && last != '(' && last != ','))
            return false;
        if (c != ' ')
            last = c;
    }
    return depth == 0 && !IsOperator(last);
}

double DateNumber(int year, int month, int day)
{
    using namespace std::chrono;
    if (year == 1900 && month == 2 && day == 29)
        return 60;
    const year_month_day date{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                              std::chrono::day{static_cast<unsigned>(day)}};
    if (!date.ok() || year < 1900 || year > 9999)
        return -1;
    const auto days = (sys_days{date} - sys_days{std::chrono::year{1899} / December / 31}).count();
    return static_cast<double>(days >= 60 ? days + 1 : days);
}

} // namespace zek::office
