#include "Error.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

namespace {

thread_local DWORD lastError = NO_ERROR;

struct ErrnoCode {
    int number;
    DWORD code;
};

// A file beyond the size that the file system or the user's limit allows is a disk without room.
constexpr ErrnoCode kCodes[] = {
    {0, NO_ERROR},
    {ENOENT, ERROR_FILE_NOT_FOUND},
    {ENOTDIR, ERROR_PATH_NOT_FOUND},
    {EACCES, ERROR_ACCESS_DENIED},
    {EPERM, ERROR_ACCESS_DENIED},
    {EISDIR, ERROR_ACCESS_DENIED},
    {EROFS, ERROR_WRITE_PROTECT},
    {EEXIST, ERROR_ALREADY_EXISTS},
    {ENOSPC, ERROR_DISK_FULL},
    {EDQUOT, ERROR_DISK_FULL},
    {EFBIG, ERROR_DISK_FULL},
    {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
    {EIO, ERROR_IO_DEVICE},
    {EBUSY, ERROR_SHARING_VIOLATION},
    {ETXTBSY, ERROR_SHARING_VIOLATION},
    {ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE},
    {ELOOP, ERROR_CANT_RESOLVE_FILENAME},
    {ENOTEMPTY, ERROR_DIR_NOT_EMPTY},
    {EXDEV, ERROR_NOT_SAME_DEVICE},
    {EINVAL, ERROR_INVALID_PARAMETER},
    {EBADF, ERROR_INVALID_HANDLE},
    {EFAULT, ERROR_NOACCESS},
    {ESPIPE, ERROR_SEEK_ON_DEVICE},
    {EAGAIN, ERROR_LOCK_VIOLATION},
    {EPIPE, ERROR_BROKEN_PIPE},
    {ENXIO, ERROR_NOT_READY},
    {EOPNOTSUPP, ERROR_NOT_SUPPORTED},
    {ENOSYS, ERROR_CALL_NOT_IMPLEMENTED},
};

bool HasFolder(const std::string& path)
{
    const auto slash = path.find_last_not_of('/');
    const auto end = slash == std::string::npos ? slash : path.rfind('/', slash);
    struct stat status;
    return end == std::string::npos || end == 0 ||
           (stat(path.substr(0, end).c_str(), &status) == 0 && S_ISDIR(status.st_mode));
}

} // namespace

DWORD WINAPI GetLastError()
{
    return lastError;
}

void WINAPI SetLastError(DWORD code)
{
    lastError = code;
}

bool Fail(DWORD code)
{
    lastError = code;
    return false;
}

DWORD ErrorFromErrno(int number)
{
    const auto found = std::find_if(std::begin(kCodes), std::end(kCodes),
                                    [number](const ErrnoCode& row) { return row.number == number; });
    return found == std::end(kCodes) ? static_cast<DWORD>(ERROR_GEN_FAILURE) : found->code;
}

bool FailErrno()
{
    return Fail(ErrorFromErrno(errno));
}

bool FailErrno(const std::string& path)
{
    const int number = errno;
    return Fail(number == ENOENT && !HasFolder(path) ? static_cast<DWORD>(ERROR_PATH_NOT_FOUND)
                                                     : ErrorFromErrno(number));
}
