#include "MilliClock.h"

#include <windows.h>

namespace {

LONGLONG Ticks()
{
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return now.QuadPart;
}

struct Scale {
    LONGLONG start = Ticks();
    double milliseconds = 0; // per tick

    Scale()
    {
        LARGE_INTEGER frequency;
        if (QueryPerformanceFrequency(&frequency) && frequency.QuadPart != 0)
            milliseconds = 1000.0 / static_cast<double>(frequency.QuadPart);
    }
};

const Scale g_scale;

} // namespace

LONG MilliClock()
{
    const auto now =
        static_cast<LONGLONG>(static_cast<double>(Ticks() - g_scale.start) * g_scale.milliseconds);
    return static_cast<LONG>(static_cast<DWORD>(now));
}
