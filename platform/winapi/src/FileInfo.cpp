#include "Error.h"
#include "FileAttributes.h"
#include "FileTime.h"
#include "OpenFile.h"

namespace {

bool StatusOf(HANDLE handle, std::shared_ptr<OpenFile>& file, struct stat& status)
{
    file = ObjectOf<OpenFile>(handle);
    return file && (fstat(file->Fd(), &status) == 0 || FailErrno());
}

timespec TimeOrOmit(const FILETIME* time)
{
    return time ? FromFileTime(*time) : timespec{0, UTIME_OMIT};
}

} // namespace

BOOL WINAPI GetFileSizeEx(HANDLE handle, PLARGE_INTEGER size)
{
    std::shared_ptr<OpenFile> file;
    struct stat status;
    if (!StatusOf(handle, file, status))
        return FALSE;
    size->QuadPart = status.st_size;
    return TRUE;
}

DWORD WINAPI GetFileSize(HANDLE handle, LPDWORD high)
{
    LARGE_INTEGER size;
    if (!GetFileSizeEx(handle, &size))
        return INVALID_FILE_SIZE;
    if (high)
        *high = static_cast<DWORD>(size.QuadPart >> 32);
    SetLastError(NO_ERROR);
    return static_cast<DWORD>(size.QuadPart);
}

DWORD WINAPI GetFileType(HANDLE handle)
{
    std::shared_ptr<OpenFile> file;
    struct stat status;
    if (!StatusOf(handle, file, status))
        return FILE_TYPE_UNKNOWN;
    SetLastError(NO_ERROR);
    if (S_ISCHR(status.st_mode))
        return FILE_TYPE_CHAR;
    return S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode) ? FILE_TYPE_PIPE : FILE_TYPE_DISK;
}

BOOL WINAPI GetFileInformationByHandle(HANDLE handle, LPBY_HANDLE_FILE_INFORMATION info)
{
    std::shared_ptr<OpenFile> file;
    struct stat status;
    if (!StatusOf(handle, file, status))
        return FALSE;
    const FileRef ref{file->Fd(), nullptr};
    *info = {};
    info->dwFileAttributes = AttributesOf(ref, status);
    info->ftCreationTime = CreationTimeOf(ref, status);
    info->ftLastAccessTime = ToFileTime(status.st_atim);
    info->ftLastWriteTime = ToFileTime(status.st_mtim);
    info->dwVolumeSerialNumber = static_cast<DWORD>(status.st_dev);
    info->nFileSizeHigh = static_cast<DWORD>(status.st_size >> 32);
    info->nFileSizeLow = static_cast<DWORD>(status.st_size);
    info->nNumberOfLinks = static_cast<DWORD>(status.st_nlink);
    info->nFileIndexHigh = static_cast<DWORD>(status.st_ino >> 32);
    info->nFileIndexLow = static_cast<DWORD>(status.st_ino);
    return TRUE;
}

BOOL WINAPI GetFileTime(HANDLE handle, LPFILETIME created, LPFILETIME accessed, LPFILETIME written)
{
    std::shared_ptr<OpenFile> file;
    struct stat status;
    if (!StatusOf(handle, file, status))
        return FALSE;
    if (created)
        *created = CreationTimeOf({file->Fd(), nullptr}, status);
    if (accessed)
        *accessed = ToFileTime(status.st_atim);
    if (written)
        *written = ToFileTime(status.st_mtim);
    return TRUE;
}

BOOL WINAPI SetFileTime(HANDLE handle, const FILETIME* created, const FILETIME* accessed,
                        const FILETIME* written)
{
    const auto file = ObjectOf<OpenFile>(handle);
    if (!file || (created && !SetCreationTime({file->Fd(), nullptr}, *created)))
        return FALSE;
    const timespec times[] = {TimeOrOmit(accessed), TimeOrOmit(written)};
    return futimens(file->Fd(), times) == 0 || FailErrno();
}
