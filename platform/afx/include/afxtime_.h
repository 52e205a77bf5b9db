// CTime and CTimeSpan: a moment and a length of time, in whole seconds.
//
//   CString stamp = CTime::GetCurrentTime().Format("%Y-%m-%d %H:%M:%S");
//
// Units: a moment counts seconds since 1970-01-01 00:00 UTC; its parts are local time.
// Differs: 64 bits wide everywhere; the texts are those of the "C" locale, whatever the locale is.
#pragma once

#include "afxstr_.h"

#include <ctime>

// The system header's macro of this name would rename the member.
#undef GetCurrentTime

class AFX_CORE_CLASS CTimeSpan
{
public:
    CTimeSpan() = default;
    CTimeSpan(LONGLONG seconds) : m_timeSpan(seconds) {}
    CTimeSpan(LONG days, int hours, int minutes, int seconds)
        : m_timeSpan(seconds + 60 * (minutes + 60 * (hours + LONGLONG{24} * days)))
    {
    }

    LONGLONG GetDays() const { return m_timeSpan / 86400; }
    LONGLONG GetTotalHours() const { return m_timeSpan / 3600; }
    LONGLONG GetTotalMinutes() const { return m_timeSpan / 60; }
    LONGLONG GetTotalSeconds() const { return m_timeSpan; }
    LONGLONG GetTimeSpan() const { return m_timeSpan; }
    // What is left over from the next larger unit.
    LONG GetHours() const { return static_cast<LONG>(GetTotalHours() % 24); }
    LONG GetMinutes() const { return static_cast<LONG>(GetTotalMinutes() % 60); }
    LONG GetSeconds() const { return static_cast<LONG>(m_timeSpan % 60); }

    CTimeSpan operator+(CTimeSpan other) const { return {m_timeSpan + other.m_timeSpan}; }
    CTimeSpan operator-(CTimeSpan other) const { return {m_timeSpan - other.m_timeSpan}; }
    CTimeSpan& operator+=(CTimeSpan other) { return *this = *this + other; }
    CTimeSpan& operator-=(CTimeSpan other) { return *this = *this - other; }
    auto operator<=>(const CTimeSpan&) const = default;

    // %D days, %H hours, %M minutes, %S seconds (two digits but for the days), %% a percent sign.
    CString Format(LPCSTR format) const;

private:
    LONGLONG m_timeSpan = 0;
};

class AFX_CORE_CLASS CTime
{
public:
    static CTime GetCurrentTime();

    CTime() = default; // 1970-01-01 00:00 UTC
    CTime(LONGLONG time) : m_time(time) {}
    // Local time; `dst` is -1 for the zone's own rule, 0 for standard time, 1 for summer time.
    // Throws CInvalidArgException for parts that are no date (a month of 13) or a year before 1900.
    CTime(int year, int month, int day, int hour, int minute, int second, int dst = -1);
    CTime(const SYSTEMTIME& local, int dst = -1);
    CTime(const FILETIME& utc, int dst = -1); // 0 gives the default moment

    LONGLONG GetTime() const { return m_time; }
    int GetYear() const;
    int GetMonth() const; // 1 to 12
    int GetDay() const;   // 1 to 31
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    int GetDayOfWeek() const; // 1 is Sunday

    // The parts as the C library counts them, in `parts` and as the result; null for a moment it cannot tell.
    tm* GetGmtTm(tm* parts) const;
    tm* GetLocalTm(tm* parts) const;
    bool GetAsSystemTime(SYSTEMTIME& local) const;

    CTimeSpan operator-(CTime other) const { return {m_time - other.m_time}; }
    CTime operator+(CTimeSpan span) const { return {m_time + span.GetTimeSpan()}; }
    CTime operator-(CTimeSpan span) const { return {m_time - span.GetTimeSpan()}; }
    CTime& operator+=(CTimeSpan span) { return *this = *this + span; }
    CTime& operator-=(CTimeSpan span) { return *this = *this - span; }
    auto operator<=>(const CTime&) const = default;

    // The codes of strftime in the "C" locale (not %Z); "%#d" and its like leave leading zeros out.
    // Unknown codes stand in the result as written.
    CString Format(LPCSTR format) const;
    CString FormatGmt(LPCSTR format) const;

private:
    LONGLONG m_time = 0;
};
