#include <winbase.h>

#include <cstdlib>

BOOL WINAPI SetEnvironmentVariableA(LPCSTR name, LPCSTR value)
{
    return (value ? setenv(name, value, 1) : unsetenv(name)) == 0;
}
