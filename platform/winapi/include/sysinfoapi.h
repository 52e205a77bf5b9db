// Time, ticks, and what a program may ask about its machine.
//
// Units: FILETIME counts 100 ns from 1601-01-01 UTC; SYSTEMTIME holds the years 1601 to 30827.
#pragma once

#include "windef.h"

WINBASEAPI void WINAPI GetSystemTime(LPSYSTEMTIME time);
WINBASEAPI void WINAPI GetLocalTime(LPSYSTEMTIME time);
WINBASEAPI void WINAPI GetSystemTimeAsFileTime(LPFILETIME time);

// Fail with ERROR_INVALID_PARAMETER for a date that does not exist or lies outside FILETIME's range.
// The day of the week is answered, never read.
WINBASEAPI BOOL WINAPI SystemTimeToFileTime(const SYSTEMTIME* system, LPFILETIME file);
WINBASEAPI BOOL WINAPI FileTimeToSystemTime(const FILETIME* file, LPSYSTEMTIME system);

// Shift by the difference between local time and UTC that holds now, as on Windows, not by the one that
// held then.
WINBASEAPI BOOL WINAPI FileTimeToLocalFileTime(const FILETIME* utc, LPFILETIME local);
WINBASEAPI BOOL WINAPI LocalFileTimeToFileTime(const FILETIME* local, LPFILETIME utc);

// -1, 0 or 1 as `a` is earlier than, equal to or later than `b`.
WINBASEAPI LONG WINAPI CompareFileTime(const FILETIME* a, const FILETIME* b);

WINBASEAPI BOOL WINAPI QueryPerformanceCounter(LARGE_INTEGER* ticks);
WINBASEAPI BOOL WINAPI QueryPerformanceFrequency(LARGE_INTEGER* perSecond);

// Milliseconds since the machine's start; the 32-bit one starts again every 49.7 days.
WINBASEAPI DWORD WINAPI GetTickCount();
WINBASEAPI ULONGLONG WINAPI GetTickCount64();
WINBASEAPI void WINAPI Sleep(DWORD milliseconds);

#define VER_PLATFORM_WIN32s 0
#define VER_PLATFORM_WIN32_WINDOWS 1
#define VER_PLATFORM_WIN32_NT 2

struct OSVERSIONINFOA {
    DWORD dwOSVersionInfoSize; // set by the caller to sizeof(OSVERSIONINFOA), 148
    DWORD dwMajorVersion, dwMinorVersion, dwBuildNumber, dwPlatformId;
    CHAR szCSDVersion[128]; // the service pack
};
using LPOSVERSIONINFOA = OSVERSIONINFOA*;
using OSVERSIONINFO = OSVERSIONINFOA;
using LPOSVERSIONINFO = LPOSVERSIONINFOA;

// Fails with ERROR_INSUFFICIENT_BUFFER, the structure untouched, when its size is not 148.
// Differs: always NT 6.2.9200 without a service pack, which is what every later Windows answers to a program
// that does not say otherwise; no longer structure.
WINBASEAPI BOOL WINAPI GetVersionExA(LPOSVERSIONINFOA information);
#define GetVersionEx GetVersionExA

// Waits `milliseconds` and answers TRUE; FALSE with ERROR_INVALID_PARAMETER, at once, for a frequency outside
// 37 to 32767 Hz. Differs: the bell that MessageBeep rings (winuser.h), whatever
// the frequency.
WINBASEAPI BOOL WINAPI Beep(DWORD frequency, DWORD milliseconds);
