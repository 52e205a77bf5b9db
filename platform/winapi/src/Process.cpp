#include <winbase.h>

#include <pthread.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <mutex>
#include <string>

namespace {

// What the system keeps of the arguments, each with a terminator.
std::string RawArguments()
{
    std::ifstream in("/proc/self/cmdline", std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string Quoted(const std::string& argument)
{
    const bool plain = !argument.empty() && argument.find_first_of(" \t\"") == std::string::npos;
    return plain ? argument : '"' + argument + '"';
}

std::string CommandLine()
{
    const std::string raw = RawArguments();
    std::string line;
    for (size_t start = 0; start < raw.size();) {
        const size_t end = std::min(raw.find('\0', start), raw.size());
        line += (line.empty() ? "" : " ") + Quoted(raw.substr(start, end - start));
        start = end + 1;
    }
    return line;
}

std::recursive_mutex& Lock(LPCRITICAL_SECTION section)
{
    return *static_cast<std::recursive_mutex*>(section->Lock);
}

} // namespace

HANDLE WINAPI GetCurrentProcess()
{
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1));
}

DWORD WINAPI GetCurrentProcessId()
{
    return static_cast<DWORD>(getpid());
}

DWORD WINAPI GetCurrentThreadId()
{
    thread_local const auto id = static_cast<DWORD>(syscall(SYS_gettid));
    return id;
}

void WINAPI ExitProcess(UINT code)
{
    std::exit(static_cast<int>(code));
}

LPSTR WINAPI GetCommandLineA()
{
    static std::string line = CommandLine();
    return line.data();
}

void WINAPI InitializeCriticalSection(LPCRITICAL_SECTION section)
{
    section->Lock = new std::recursive_mutex;
}

void WINAPI EnterCriticalSection(LPCRITICAL_SECTION section)
{
    Lock(section).lock();
}

BOOL WINAPI TryEnterCriticalSection(LPCRITICAL_SECTION section)
{
    return Lock(section).try_lock();
}

void WINAPI LeaveCriticalSection(LPCRITICAL_SECTION section)
{
    Lock(section).unlock();
}

void WINAPI DeleteCriticalSection(LPCRITICAL_SECTION section)
{
    delete &Lock(section);
    section->Lock = nullptr;
}
