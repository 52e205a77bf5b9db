#include "Error.h"
#include "OpenFile.h"

#include <unistd.h>

#include <limits>

namespace {

// One transfer of `count` bytes in as many calls as it takes; stops at the end of a file, and after the first
// part from a pipe or terminal, where the rest may never come.
template <class Step>
bool Transfer(DWORD count, LPDWORD done, bool once, Step step)
{
    DWORD moved = 0;
    ssize_t part = 1;
    while (moved < count && part > 0 && !(once && moved > 0)) {
        part = Retry([&] { return step(moved); });
        moved += part > 0 ? static_cast<DWORD>(part) : 0;
    }
    if (done)
        *done = moved;
    return part >= 0 || FailErrno();
}

bool IsDisk(int fd)
{
    struct stat status;
    return fstat(fd, &status) == 0 && S_ISREG(status.st_mode);
}

bool Seek(const OpenFile& file, LONGLONG distance, DWORD method, LONGLONG& position)
{
    static constexpr int kWhence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    if (method > FILE_END)
        return Fail(ERROR_INVALID_PARAMETER);
    position = lseek(file.Fd(), distance, kWhence[method]);
    if (position >= 0)
        return true;
    return errno == EINVAL ? Fail(ERROR_NEGATIVE_SEEK) : FailErrno();
}

// Whether a position that the caller cannot take whole would be reached; then nothing moves.
bool LeavesLowRange(const OpenFile& file, LONG distance, DWORD method)
{
    const off_t before = lseek(file.Fd(), 0, SEEK_CUR);
    LONGLONG position = 0;
    if (!Seek(file, distance, method, position))
        return true;
    lseek(file.Fd(), before, SEEK_SET);
    return position > std::numeric_limits<DWORD>::max() && !Fail(ERROR_INVALID_PARAMETER);
}

std::uint64_t Wide(DWORD low, DWORD high)
{
    return static_cast<std::uint64_t>(high) << 32 | low;
}

} // namespace

BOOL WINAPI ReadFile(HANDLE handle, LPVOID buffer, DWORD count, LPDWORD done, LPOVERLAPPED overlapped)
{
    if (done)
        *done = 0;
    const auto file = ObjectOf<OpenFile>(handle);
    if (!file)
        return FALSE;
    if (overlapped)
        return Fail(ERROR_NOT_SUPPORTED);
    if (!file->CanRead())
        return Fail(ERROR_ACCESS_DENIED);
    if (!file->MayTouch(count))
        return FALSE;
    return Transfer(count, done, !IsDisk(file->Fd()), [&](DWORD moved) {
        return read(file->Fd(), static_cast<char*>(buffer) + moved, count - moved);
    });
}

BOOL WINAPI WriteFile(HANDLE handle, LPCVOID buffer, DWORD count, LPDWORD done, LPOVERLAPPED overlapped)
{
    if (done)
        *done = 0;
    const auto file = ObjectOf<OpenFile>(handle);
    if (!file)
        return FALSE;
    if (overlapped)
        return Fail(ERROR_NOT_SUPPORTED);
    if (!file->CanWrite())
        return Fail(ERROR_ACCESS_DENIED);
    if (!file->MayTouch(count))
        return FALSE;
    return Transfer(count, done, false, [&](DWORD moved) {
        return write(file->Fd(), static_cast<const char*>(buffer) + moved, count - moved);
    });
}

DWORD WINAPI SetFilePointer(HANDLE handle, LONG distance, PLONG high, DWORD method)
{
    const auto file = ObjectOf<OpenFile>(handle);
    LONGLONG position = 0;
    if (!file || (!high && LeavesLowRange(*file, distance, method)))
        return INVALID_SET_FILE_POINTER;
    const LONGLONG whole =
        high ? static_cast<LONGLONG>(Wide(static_cast<DWORD>(distance), static_cast<DWORD>(*high)))
             : distance;
    if (!Seek(*file, whole, method, position))
        return INVALID_SET_FILE_POINTER;
    if (high)
        *high = static_cast<LONG>(position >> 32);
    SetLastError(NO_ERROR);
    return static_cast<DWORD>(position);
}

BOOL WINAPI SetFilePointerEx(HANDLE handle, LARGE_INTEGER distance, PLARGE_INTEGER position, DWORD method)
{
    const auto file = ObjectOf<OpenFile>(handle);
    LONGLONG reached = 0;
    if (!file || !Seek(*file, distance.QuadPart, method, reached))
        return FALSE;
    if (position)
        position->QuadPart = reached;
    return TRUE;
}

BOOL WINAPI SetEndOfFile(HANDLE handle)
{
    const auto file = ObjectOf<OpenFile>(handle);
    if (!file)
        return FALSE;
    if (!file->CanWrite())
        return Fail(ERROR_ACCESS_DENIED);
    const off_t position = lseek(file->Fd(), 0, SEEK_CUR);
    return (position >= 0 && Retry([&] { return ftruncate(file->Fd(), position); }) == 0) || FailErrno();
}

BOOL WINAPI FlushFileBuffers(HANDLE handle)
{
    const auto file = ObjectOf<OpenFile>(handle);
    if (!file)
        return FALSE;
    if (!file->CanWrite())
        return Fail(ERROR_ACCESS_DENIED);
    // Pipes and terminals have nothing to flush.
    return Retry([&] { return fsync(file->Fd()); }) == 0 || errno == EINVAL || FailErrno();
}

BOOL WINAPI LockFile(HANDLE handle, DWORD low, DWORD high, DWORD countLow, DWORD countHigh)
{
    const auto file = ObjectOf<OpenFile>(handle);
    return file && file->Lock(Wide(low, high), Wide(countLow, countHigh));
}

BOOL WINAPI UnlockFile(HANDLE handle, DWORD low, DWORD high, DWORD countLow, DWORD countHigh)
{
    const auto file = ObjectOf<OpenFile>(handle);
    return file && file->Unlock(Wide(low, high), Wide(countLow, countHigh));
}
