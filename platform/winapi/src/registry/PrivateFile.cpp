#include "PrivateFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

bool MakePrivate(int file, bool readOnly)
{
    struct stat status;
    if (fstat(file, &status) != 0)
        return false;
    if (readOnly)
        return S_ISREG(status.st_mode);
    if (!S_ISREG(status.st_mode) || status.st_uid != geteuid()) {
        errno = EPERM;
        return false;
    }
    return (status.st_mode & ~mode_t{S_IFMT}) == kOwnerOnly || fchmod(file, kOwnerOnly) == 0;
}

} // namespace

int OpenPrivateFile(const std::string& path, bool readOnly)
{
    const int flags = (readOnly ? O_RDONLY : O_RDWR | O_CREAT) | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;
    const int file = open(path.c_str(), flags, kOwnerOnly);
    if (file < 0 || MakePrivate(file, readOnly))
        return file;
    const int error = errno;
    close(file);
    errno = error;
    return -1;
}
