#include <afxexc_.h>
#include <afxtime_.h>

#include <cstdlib>
#include <mutex>
#include <string>

namespace {

constexpr LONGLONG kSecondsTo1970 = 11644473600; // from 1601, where file times begin
constexpr LONGLONG kTicksPerSecond = 10000000;

// The C library keeps the parts in memory of its own, shared by all threads.
std::mutex g_clock;

tm* Parts(tm* (*split)(const std::time_t*), LONGLONG time, tm* parts)
{
    const auto moment = static_cast<std::time_t>(time);
    const std::lock_guard lock(g_clock);
    const tm* found = split(&moment);
    if (!found)
        return nullptr;
    *parts = *found;
    return parts;
}

tm LocalParts(const CTime& time)
{
    tm parts = {};
    time.GetLocalTm(&parts);
    return parts;
}

LONGLONG FromLocal(int year, int month, int day, int hour, int minute, int second, int dst)
{
    if (year < 1900 || month < 1 || month > 12 || day < 1 || day > 31 || hour < 0 || hour > 23 ||
        minute < 0 || minute > 59 || second < 0 || second > 59)
        AfxThrowInvalidArgException();
    tm parts = {};
    parts.tm_year = year - 1900;
    parts.tm_mon = month - 1;
    parts.tm_mday = day;
    parts.tm_hour = hour;
    parts.tm_min = minute;
    parts.tm_sec = second;
    parts.tm_isdst = dst;
    return static_cast<LONGLONG>(std::mktime(&parts));
}

} // namespace

CTime CTime::GetCurrentTime()
{
    return {static_cast<LONGLONG>(std::time(nullptr))};
}

CTime::CTime(int year, int month, int day, int hour, int minute, int second, int dst)
    : m_time(FromLocal(year, month, day, hour, minute, second, dst))
{
}

CTime::CTime(const SYSTEMTIME& local, int dst)
    : CTime(local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond, dst)
{
}

CTime::CTime(const FILETIME& utc, int)
{
    const ULONGLONG ticks = (ULONGLONG{utc.dwHighDateTime} << 32) | utc.dwLowDateTime;
    if (ticks != 0)
        m_time = static_cast<LONGLONG>(ticks / kTicksPerSecond) - kSecondsTo1970;
}

tm* CTime::GetGmtTm(tm* parts) const
{
    return parts ? Parts(&std::gmtime, m_time, parts) : nullptr;
}

tm* CTime::GetLocalTm(tm* parts) const
{
    return parts ? Parts(&std::localtime, m_time, parts) : nullptr;
}

int CTime::GetYear() const
{
    return LocalParts(*this).tm_year + 1900;
}

int CTime::GetMonth() const
{
    return LocalParts(*this).tm_mon + 1;
}

int CTime::GetDay() const
{
    return LocalParts(*this).tm_mday;
}

int CTime::GetHour() const
{
    return LocalParts(*this).tm_hour;
}

int CTime::GetMinute() const
{
    return LocalParts(*this).tm_min;
}

int CTime::GetSecond() const
{
    return LocalParts(*this).tm_sec;
}

int CTime::GetDayOfWeek() const
{
    return LocalParts(*this).tm_wday + 1;
}

bool CTime::GetAsSystemTime(SYSTEMTIME& local) const
{
    tm parts;
    if (!GetLocalTm(&parts))
        return false;
    local = {static_cast<WORD>(parts.tm_year + 1900), static_cast<WORD>(parts.tm_mon + 1),
             static_cast<WORD>(parts.tm_wday),        static_cast<WORD>(parts.tm_mday),
             static_cast<WORD>(parts.tm_hour),        static_cast<WORD>(parts.tm_min),
             static_cast<WORD>(parts.tm_sec),         0};
    return true;
}

// ---- texts

namespace {

constexpr const char* kDays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                 "Thursday", "Friday", "Saturday"};
constexpr const char* kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                   "July",    "August",   "September", "October", "November", "December"};

// Whole weeks of the year that began on `firstDay` (0 is Sunday) by the day of `parts`.
int WeekOfYear(const tm& parts, int firstDay)
{
    return (parts.tm_yday + 7 - (parts.tm_wday + 7 - firstDay) % 7) / 7;
}

int TwelveHour(int hour)
{
    return hour % 12 == 0 ? 12 : hour % 12;
}

struct NumberCode {
    char code;
    int digits;
    int (*value)(const tm& parts);
};

constexpr NumberCode kNumbers[] = {
    {'d', 2, [](const tm& t) { return t.tm_mday; }},
    {'H', 2, [](const tm& t) { return t.tm_hour; }},
    {'I', 2, [](const tm& t) { return TwelveHour(t.tm_hour); }},
    {'j', 3, [](const tm& t) { return t.tm_yday + 1; }},
    {'m', 2, [](const tm& t) { return t.tm_mon + 1; }},
    {'M', 2, [](const tm& t) { return t.tm_min; }},
    {'S', 2, [](const tm& t) { return t.tm_sec; }},
    {'U', 2, [](const tm& t) { return WeekOfYear(t, 0); }},
    {'w', 1, [](const tm& t) { return t.tm_wday; }},
    {'W', 2, [](const tm& t) { return WeekOfYear(t, 1); }},
    {'y', 2, [](const tm& t) { return t.tm_year % 100; }},
    {'Y', 4, [](const tm& t) { return t.tm_year + 1900; }},
};

struct TextCode {
    char code;
    CString (*text)(const tm& parts);
};

constexpr TextCode kTexts[] = {
    {'a', [](const tm& t) { return CString(kDays[t.tm_wday], 3); }},
    {'A', [](const tm& t) { return CString(kDays[t.tm_wday]); }},
    {'b', [](const tm& t) { return CString(kMonths[t.tm_mon], 3); }},
    {'B', [](const tm& t) { return CString(kMonths[t.tm_mon]); }},
    {'p', [](const tm& t) { return CString(t.tm_hour < 12 ? "AM" : "PM"); }},
    {'%', [](const tm&) { return CString('%'); }},
};

struct GroupCode {
    char code;
    const char* format;
};

constexpr GroupCode kGroups[] = {
    {'c', "%m/%d/%y %H:%M:%S"}, {'x', "%m/%d/%y"}, {'X', "%H:%M:%S"}, {'D', "%m/%d/%y"},
    {'F', "%Y-%m-%d"},          {'R', "%H:%M"},    {'T', "%H:%M:%S"},
};

CString Expand(LPCSTR format, const tm& parts);

// The text of one code; false when there is no such code.
bool ExpandCode(CString& out, char code, bool bare, const tm& parts)
{
    for (const NumberCode& row : kNumbers) {
        if (row.code == code) {
            out.AppendFormat("%0*d", bare ? 1 : row.digits, row.value(parts));
            return true;
        }
    }
    for (const TextCode& row : kTexts) {
        if (row.code == code) {
            out += row.text(parts);
            return true;
        }
    }
    for (const GroupCode& row : kGroups) {
        if (row.code == code) {
            out += Expand(row.format, parts);
            return true;
        }
    }
    return false;
}

CString Expand(LPCSTR format, const tm& parts)
{
    CString out;
    for (LPCSTR p = format ? format : ""; *p; ++p) {
        const LPCSTR start = p;
        if (*p == '%') {
            const bool bare = p[1] == '#';
            const char code = p[bare ? 2 : 1];
            if (code != '\0' && ExpandCode(out, code, bare, parts)) {
                p += bare ? 2 : 1;
                continue;
            }
        }
        out += *start;
    }
    return out;
}

} // namespace

CString CTime::Format(LPCSTR format) const
{
    tm parts;
    return GetLocalTm(&parts) ? Expand(format, parts) : CString();
}

CString CTime::FormatGmt(LPCSTR format) const
{
    tm parts;
    return GetGmtTm(&parts) ? Expand(format, parts) : CString();
}

CString CTimeSpan::Format(LPCSTR format) const
{
    CString out;
    for (LPCSTR p = format ? format : ""; *p; ++p) {
        if (*p != '%' || p[1] == '\0') {
            out += *p;
            continue;
        }
        switch (*++p) {
        case 'D':
            out.AppendFormat("%I64d", GetDays());
            break;
        case 'H':
            out.AppendFormat("%02ld", GetHours());
            break;
        case 'M':
            out.AppendFormat("%02ld", GetMinutes());
            break;
        case 'S':
            out.AppendFormat("%02ld", GetSeconds());
            break;
        default:
            out += *p;
        }
    }
    return out;
}
