#include "Error.h"
#include "windows/BackendLoader.h"

namespace {

void Ring()
{
    if (UiThread() == GetCurrentThreadId() && CanShowWindows())
        Backend()->Bell();
}

} // namespace

BOOL WINAPI Beep(DWORD frequency, DWORD milliseconds)
{
    constexpr DWORD kLowest = 37, kHighest = 32767;
    if (frequency < kLowest || frequency > kHighest)
        return Fail(ERROR_INVALID_PARAMETER);
    Ring();
    Sleep(milliseconds);
    return TRUE;
}

BOOL WINAPI MessageBeep(UINT)
{
    Ring();
    return TRUE;
}
