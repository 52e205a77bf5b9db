#include "MilliClock.h"

#include <windows.h>

namespace {

LONGLONG Ticks()
{
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return now.QuadPart;
}

constexpr LONGLONG kNanosecondsPerSecond = 1'000'000'000;
constexpr LONGLONG kNanosecondsPerMilli = 1'000'000;

struct Scale {
    LONGLONG start = Ticks();
    LONGLONG perSecond = 0;
    double milliseconds = 0; // per tick

    Scale()
    {
        LARGE_INTEGER frequency;
        if (QueryPerformanceFrequency(&frequency) && frequency.QuadPart != 0) {
            perSecond = frequency.QuadPart;
            milliseconds = 1000.0 / static_cast<double>(perSecond);
        }
    }
};

const Scale g_scale;

} // namespace

LONG MilliClock()
{
    const LONGLONG passed = Ticks() - g_scale.start;
    const LONGLONG now = g_scale.perSecond == kNanosecondsPerSecond // a known divisor is quicker
                             ? passed / kNanosecondsPerMilli
                             : static_cast<LONGLONG>(static_cast<double>(passed) * g_scale.milliseconds);
    return static_cast<LONG>(static_cast<DWORD>(now));
}
