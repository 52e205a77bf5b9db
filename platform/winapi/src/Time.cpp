#include "Error.h"
#include "FileTime.h"

#include <winbase.h>
#include <winnls.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <limits>

namespace {

constexpr ULONGLONG kTicksPerSecond = 10'000'000, kTicksPerMillisecond = 10'000;
constexpr LONGLONG kSecondsPerDay = 86'400;
// 1601-01-01 to 1970-01-01.
constexpr LONGLONG kEpochDays = 134'774;
// The times that FILETIME may hold are those that a signed number can.
constexpr ULONGLONG kLastTick = std::numeric_limits<LONGLONG>::max();

bool IsLeapYear(int year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysInMonth(int year, int month)
{
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return kDays[month - 1] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

// Days from 1601-01-01, the first day of a cycle of 400 years, to a year's first day.
LONGLONG DaysBeforeYear(int year)
{
    const LONGLONG years = year - 1601;
    return years * 365 + years / 4 - years / 100 + years / 400;
}

bool IsValid(const SYSTEMTIME& time)
{
    return time.wYear >= 1601 && time.wYear <= 30827 && time.wMonth >= 1 && time.wMonth <= 12 &&
           time.wDay >= 1 && time.wDay <= DaysInMonth(time.wYear, time.wMonth) && time.wHour < 24 &&
           time.wMinute < 60 && time.wSecond < 60 && time.wMilliseconds < 1000;
}

LONGLONG DayOf(const SYSTEMTIME& time)
{
    LONGLONG days = DaysBeforeYear(time.wYear) + time.wDay - 1;
    for (int month = 1; month < time.wMonth; ++month)
        days += DaysInMonth(time.wYear, month);
    return days;
}

void SetDate(SYSTEMTIME& time, LONGLONG days)
{
    time.wDayOfWeek = static_cast<WORD>((days + 1) % 7);
    int year = static_cast<int>(1601 + days * 400 / 146'097);
    while (DaysBeforeYear(year) > days)
        --year;
    while (DaysBeforeYear(year + 1) <= days)
        ++year;
    days -= DaysBeforeYear(year);
    int month = 1;
    for (; days >= DaysInMonth(year, month); ++month)
        days -= DaysInMonth(year, month);
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(days + 1);
}

timespec Now(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return time;
}

tm LocalNow()
{
    const time_t now = Now(CLOCK_REALTIME).tv_sec;
    tm local{};
    localtime_r(&now, &local);
    return local;
}

// UTC to local time at this moment, in ticks.
LONGLONG LocalOffset()
{
    return LocalNow().tm_gmtoff * static_cast<LONGLONG>(kTicksPerSecond);
}

BOOL Shift(const FILETIME& from, LONGLONG offset, FILETIME& to)
{
    const auto ticks = static_cast<LONGLONG>(Ticks(from));
    LONGLONG shifted = 0;
    if (ticks < 0 || __builtin_add_overflow(ticks, offset, &shifted) || shifted < 0)
        return Fail(ERROR_INVALID_PARAMETER);
    to = FromTicks(static_cast<ULONGLONG>(shifted));
    return TRUE;
}

} // namespace

FILETIME ToFileTime(const timespec& time)
{
    const LONGLONG seconds = time.tv_sec + kEpochDays * kSecondsPerDay;
    if (seconds < 0)
        return FromTicks(0);
    return FromTicks(static_cast<ULONGLONG>(seconds) * kTicksPerSecond +
                     static_cast<ULONGLONG>(time.tv_nsec / 100));
}

timespec FromFileTime(const FILETIME& time)
{
    const ULONGLONG ticks = Ticks(time);
    return {static_cast<time_t>(ticks / kTicksPerSecond) - kEpochDays * kSecondsPerDay,
            static_cast<long>(ticks % kTicksPerSecond * 100)};
}

BOOL WINAPI FileTimeToSystemTime(const FILETIME* file, LPSYSTEMTIME system)
{
    const ULONGLONG ticks = Ticks(*file);
    if (ticks > kLastTick)
        return Fail(ERROR_INVALID_PARAMETER);
    const auto seconds = static_cast<LONGLONG>(ticks / kTicksPerSecond);
    const auto second = static_cast<int>(seconds % kSecondsPerDay);
    SetDate(*system, seconds / kSecondsPerDay);
    system->wHour = static_cast<WORD>(second / 3600);
    system->wMinute = static_cast<WORD>(second / 60 % 60);
    system->wSecond = static_cast<WORD>(second % 60);
    system->wMilliseconds = static_cast<WORD>(ticks % kTicksPerSecond / kTicksPerMillisecond);
    return TRUE;
}

BOOL WINAPI SystemTimeToFileTime(const SYSTEMTIME* system, LPFILETIME file)
{
    if (!IsValid(*system))
        return Fail(ERROR_INVALID_PARAMETER);
    const LONGLONG seconds =
        DayOf(*system) * kSecondsPerDay + system->wHour * 3600 + system->wMinute * 60 + system->wSecond;
    const ULONGLONG ticks =
        static_cast<ULONGLONG>(seconds) * kTicksPerSecond + system->wMilliseconds * kTicksPerMillisecond;
    if (ticks > kLastTick)
        return Fail(ERROR_INVALID_PARAMETER);
    *file = FromTicks(ticks);
    return TRUE;
}

BOOL WINAPI FileTimeToLocalFileTime(const FILETIME* utc, LPFILETIME local)
{
    return Shift(*utc, LocalOffset(), *local);
}

BOOL WINAPI LocalFileTimeToFileTime(const FILETIME* local, LPFILETIME utc)
{
    return Shift(*local, -LocalOffset(), *utc);
}

LONG WINAPI CompareFileTime(const FILETIME* a, const FILETIME* b)
{
    return Ticks(*a) < Ticks(*b) ? -1 : Ticks(*a) > Ticks(*b);
}

void WINAPI GetSystemTimeAsFileTime(LPFILETIME time)
{
    *time = ToFileTime(Now(CLOCK_REALTIME));
}

void WINAPI GetSystemTime(LPSYSTEMTIME time)
{
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    FileTimeToSystemTime(&now, time);
}

void WINAPI GetLocalTime(LPSYSTEMTIME time)
{
    FILETIME now, local;
    GetSystemTimeAsFileTime(&now);
    FileTimeToLocalFileTime(&now, &local);
    FileTimeToSystemTime(&local, time);
}

BOOL WINAPI QueryPerformanceCounter(LARGE_INTEGER* ticks)
{
    const timespec now = Now(CLOCK_MONOTONIC);
    ticks->QuadPart = now.tv_sec * 1'000'000'000LL + now.tv_nsec;
    return TRUE;
}

BOOL WINAPI QueryPerformanceFrequency(LARGE_INTEGER* perSecond)
{
    perSecond->QuadPart = 1'000'000'000LL;
    return TRUE;
}

ULONGLONG WINAPI GetTickCount64()
{
    const timespec now = Now(CLOCK_MONOTONIC);
    return static_cast<ULONGLONG>(now.tv_sec) * 1000 + static_cast<ULONGLONG>(now.tv_nsec) / 1'000'000;
}

DWORD WINAPI GetTickCount()
{
    return static_cast<DWORD>(GetTickCount64());
}

void WINAPI Sleep(DWORD milliseconds)
{
    timespec rest{static_cast<time_t>(milliseconds / 1000),
                  static_cast<long>(milliseconds % 1000) * 1'000'000};
    while (clock_nanosleep(CLOCK_MONOTONIC, 0, &rest, &rest) == EINTR) {
    }
}
