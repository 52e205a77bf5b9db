#include "Error.h"

BOOL WINAPI Beep(DWORD frequency, DWORD milliseconds)
{
    constexpr DWORD kLowest = 37, kHighest = 32767;
    if (frequency < kLowest || frequency > kHighest)
        return Fail(ERROR_INVALID_PARAMETER);
    Sleep(milliseconds);
    return TRUE;
}
