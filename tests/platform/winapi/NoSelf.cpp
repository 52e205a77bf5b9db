// Preloaded into a process, keeps it from learning the path of its own program.
#include <cerrno>
#include <cstring>
#include <sys/syscall.h>
#include <unistd.h>

extern "C" __attribute__((visibility("default"))) ssize_t readlink(const char* path, char* buffer,
                                                                   size_t size) noexcept
{
    if (std::strcmp(path, "/proc/self/exe") != 0)
        return syscall(SYS_readlink, path, buffer, size);
    errno = EACCES;
    return -1;
}
