#include "Error.h"

BOOL WINAPI GetVersionExA(LPOSVERSIONINFOA information)
{
    if (information->dwOSVersionInfoSize != sizeof(OSVERSIONINFOA))
        return Fail(ERROR_INSUFFICIENT_BUFFER);
    *information = {sizeof(OSVERSIONINFOA), 6, 2, 9200, VER_PLATFORM_WIN32_NT, ""};
    return TRUE;
}

static_assert(sizeof(OSVERSIONINFOA) == 148);
