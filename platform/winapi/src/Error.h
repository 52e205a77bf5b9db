// From the system's error numbers to Win32's.
#pragma once

#include <winbase.h>
#include <winerror.h>

#include <cerrno>
#include <string>

// Sets the last error and answers false.
bool Fail(DWORD code);

// The Win32 code of an errno value.
DWORD ErrorFromErrno(int number);

// Fails with what errno says.
bool FailErrno();

// Likewise for a file: what is missing may be the file or its folder.
bool FailErrno(const std::string& path);

// A system call, again as long as a signal interrupts it.
template <class Call>
auto Retry(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}
