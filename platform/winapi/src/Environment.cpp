#include "Environment.h"

#include "Error.h"
#include "TextAnswer.h"

#include <winbase.h>

#include <cstdlib>
#include <cstring>
#include <mutex>

namespace {

std::mutex& EnvironmentLock()
{
    static std::mutex lock;
    return lock;
}

bool IsVariableName(LPCSTR name)
{
    return name && *name && !std::strchr(name, '=');
}

} // namespace

std::optional<std::string> EnvironmentText(const char* name)
{
    const std::lock_guard lock(EnvironmentLock());
    const char* value = std::getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
}

std::atomic<unsigned> g_environmentChanges = 0;

DWORD WINAPI GetEnvironmentVariableA(LPCSTR name, LPSTR buffer, DWORD size)
{
    const auto value = name ? EnvironmentText(name) : std::nullopt;
    if (!value)
        return SetLastError(ERROR_ENVVAR_NOT_FOUND), 0;
    SetLastError(NO_ERROR);
    return AnswerText(*value, buffer, size);
}

BOOL WINAPI SetEnvironmentVariableA(LPCSTR name, LPCSTR value)
{
    if (!IsVariableName(name))
        return Fail(ERROR_INVALID_PARAMETER);
    const std::lock_guard lock(EnvironmentLock());
    if (!value && !std::getenv(name))
        return Fail(ERROR_ENVVAR_NOT_FOUND);
    const int result = value ? setenv(name, value, 1) : unsetenv(name);
    g_environmentChanges.fetch_add(1, std::memory_order_relaxed);
    return result == 0 || FailErrno();
}
