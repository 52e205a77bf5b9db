#include "DateText.h"

#include <oleauto.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>

namespace {

constexpr int kDayZero = 693594; // 1899-12-30 when 0001-01-01 is day 1
constexpr double kFirstDate = -657434;
constexpr double kDateEnd = 2958466;
constexpr int kSecondsPerDay = 86400;

bool IsLeapYear(int year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// Days since 1899-12-30 of a day in the Gregorian calendar.
int DayNumber(int year, int month, int day)
{
    constexpr std::array<int, 12> kBefore = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    const int years = year - 1;
    const int leap = month > 2 && IsLeapYear(year) ? 1 : 0;
    return years * 365 + years / 4 - years / 100 + years / 400 +
           kBefore[static_cast<std::size_t>(month - 1)] + leap + day - kDayZero;
}

void SplitDay(int number, DateParts& parts)
{
    int year = (number + kDayZero) * 400 / 146097 + 1;
    while (DayNumber(year, 1, 1) > number)
        --year;
    int month = 12;
    while (DayNumber(year, month, 1) > number)
        --month;
    parts.year = year;
    parts.month = month;
    parts.day = number - DayNumber(year, month, 1) + 1;
}

// Reads a text part by part; a part that is not there leaves the text alone.
class Reader
{
public:
    explicit Reader(std::u16string_view text) : m_text(text) {}

    void SkipBlanks()
    {
        while (!m_text.empty() && (m_text.front() == u' ' || m_text.front() == u'\t'))
            m_text.remove_prefix(1);
    }
    std::optional<int> Number()
    {
        int value = 0;
        std::size_t count = 0;
        for (; count < m_text.size() && count < 5 && m_text[count] >= u'0' && m_text[count] <= u'9'; ++count)
            value = value * 10 + (m_text[count] - u'0');
        m_text.remove_prefix(count);
        return count > 0 && count < 5 ? std::optional(value) : std::nullopt;
    }
    bool Take(char16_t c)
    {
        const bool there = !m_text.empty() && m_text.front() == c;
        m_text.remove_prefix(there ? 1 : 0);
        return there;
    }
    // Either case; `word` is in capitals.
    bool TakeWord(std::u16string_view word)
    {
        const auto same = [](char16_t a, char16_t b) {
            return a == b || (a >= u'a' && a <= u'z' && a - 32 == b);
        };
        const bool there =
            m_text.size() >= word.size() &&
            std::equal(word.begin(), word.end(), m_text.begin(), [&](auto w, auto t) { return same(t, w); });
        m_text.remove_prefix(there ? word.size() : 0);
        return there;
    }
    bool AtEnd() const { return m_text.empty(); }
    std::u16string_view Rest() const { return m_text; }
    void Restore(std::u16string_view text) { m_text = text; }

private:
    std::u16string_view m_text;
};

int FullYear(int year)
{
    return year < 30 ? year + 2000 : year < 100 ? year + 1900 : year;
}

bool ReadDay(Reader& reader, DateParts& parts)
{
    const auto first = reader.Number();
    const bool iso = first && *first > 31;
    const char16_t separator = iso || !first ? u'-' : reader.Take(u'/') ? u'/' : u'-';
    if (!first || (separator == u'-' && !reader.Take(u'-')))
        return false;
    const auto second = reader.Number();
    if (!second || !reader.Take(separator))
        return false;
    const auto third = reader.Number();
    if (!third)
        return false;
    parts.year = FullYear(iso ? *first : *third);
    parts.month = iso ? *second : *first;
    parts.day = iso ? *third : *second;
    return parts.year >= 100 && parts.month >= 1 && parts.month <= 12 && parts.day >= 1 &&
           parts.day <= DaysInMonth(parts.year, parts.month);
}

bool ReadHalf(Reader& reader, DateParts& parts)
{
    reader.SkipBlanks();
    const bool morning = reader.TakeWord(u"AM");
    if (!morning && !reader.TakeWord(u"PM"))
        return parts.hour < 24;
    if (parts.hour < 1 || parts.hour > 12)
        return false;
    parts.hour = parts.hour % 12 + (morning ? 0 : 12);
    return true;
}

bool ReadTime(Reader& reader, DateParts& parts)
{
    const auto hour = reader.Number();
    if (!hour || !reader.Take(u':'))
        return false;
    const auto minute = reader.Number();
    if (!minute || *minute > 59)
        return false;
    const auto second = reader.Take(u':') ? reader.Number() : std::optional(0);
    if (!second || *second > 59)
        return false;
    parts.hour = *hour;
    parts.minute = *minute;
    parts.second = *second;
    return ReadHalf(reader, parts);
}

} // namespace

bool IsDateInRange(double date)
{
    return date > kFirstDate - 1 && date < kDateEnd;
}

int DaysInMonth(int year, int month)
{
    constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return kDays[static_cast<std::size_t>(month - 1)] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

bool PartsOfDate(DATE date, DateParts& parts)
{
    if (!IsDateInRange(date))
        return false;
    double day = std::trunc(date);
    // The fraction counts forward on negative dates too.
    auto seconds = static_cast<int>(std::floor(std::fabs(date - day) * kSecondsPerDay + 0.5));
    if (seconds == kSecondsPerDay) {
        seconds = 0;
        day += 1;
    }
    if (day >= kDateEnd)
        return false;
    SplitDay(static_cast<int>(day), parts);
    parts.hour = seconds / 3600;
    parts.minute = seconds / 60 % 60;
    parts.second = seconds % 60;
    return true;
}

DATE DateOfParts(const DateParts& parts)
{
    const int seconds = parts.hour * 3600 + parts.minute * 60 + parts.second;
    const double day = DayNumber(parts.year, parts.month, parts.day) + seconds / kSecondsPerDay;
    const double time = seconds % kSecondsPerDay / double{kSecondsPerDay};
    return day < 0 ? day - time : day + time;
}

std::string DateToText(const DateParts& parts)
{
    std::array<char, 64> text = {};
    const bool dayZero = parts.year == 1899 && parts.month == 12 && parts.day == 30;
    const bool midnight = parts.hour == 0 && parts.minute == 0 && parts.second == 0;
    int used = 0;
    if (!dayZero)
        used = std::snprintf(text.data(), text.size(), "%d/%d/%d", parts.month, parts.day, parts.year);
    if (dayZero || !midnight)
        std::snprintf(text.data() + used, text.size() - static_cast<std::size_t>(used), "%s%d:%02d:%02d %s",
                      dayZero ? "" : " ", (parts.hour + 11) % 12 + 1, parts.minute, parts.second,
                      parts.hour < 12 ? "AM" : "PM");
    return text.data();
}

bool ParseDate(std::u16string_view text, DateParts& parts)
{
    parts = {1899, 12, 30, 0, 0, 0};
    Reader reader(text);
    reader.SkipBlanks();
    const std::u16string_view start = reader.Rest();
    if (!ReadDay(reader, parts)) {
        parts = {1899, 12, 30, 0, 0, 0};
        reader.Restore(start);
    }
    const bool hasDay = reader.Rest().size() != start.size();
    reader.SkipBlanks();
    if (!(hasDay && reader.AtEnd()) && !ReadTime(reader, parts))
        return false;
    reader.SkipBlanks();
    return reader.AtEnd();
}

INT WINAPI SystemTimeToVariantTime(LPSYSTEMTIME time, DOUBLE* date)
{
    if (!time || !date || time->wMonth < 1 || time->wMonth > 12 || time->wDay < 1 || time->wDay > 31)
        return FALSE;
    const int year = FullYear(time->wYear);
    if (year < 100 || year > 9999)
        return FALSE;
    *date = DateOfParts({year, time->wMonth, time->wDay, time->wHour, time->wMinute, time->wSecond});
    return IsDateInRange(*date);
}

INT WINAPI VariantTimeToSystemTime(DOUBLE date, LPSYSTEMTIME time)
{
    DateParts parts;
    if (!time || !PartsOfDate(date, parts))
        return FALSE;
    const int weekday = (DayNumber(parts.year, parts.month, parts.day) + kDayZero) % 7;
    const auto word = [](int number) { return static_cast<WORD>(number); };
    *time = {word(parts.year), word(parts.month),  word(weekday),      word(parts.day),
             word(parts.hour), word(parts.minute), word(parts.second), 0};
    return TRUE;
}
