#include "FileAttributes.h"

#include "Error.h"
#include "FileTime.h"
#include "Path.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <cstdlib>

namespace {

constexpr char kAttributesName[] = "user.zek.attributes";
constexpr char kCreatedName[] = "user.zek.created";
// What SetFileAttributes may set; the others tell what a file is, not how it is used.
constexpr DWORD kSettable = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                            FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_TEMPORARY;

std::optional<unsigned long long> ReadNumber(const FileRef& file, const char* name)
{
    char text[32] = "";
    const ssize_t size = file.fd >= 0 ? fgetxattr(file.fd, name, text, sizeof text - 1)
                                      : getxattr(file.path, name, text, sizeof text - 1);
    return size > 0 ? std::optional(std::strtoull(text, nullptr, 16)) : std::nullopt;
}

bool WriteNumber(const FileRef& file, const char* name, unsigned long long value)
{
    char text[32];
    const auto size = static_cast<size_t>(std::snprintf(text, sizeof text, "%llx", value));
    const int result =
        file.fd >= 0 ? fsetxattr(file.fd, name, text, size, 0) : setxattr(file.path, name, text, size, 0);
    return result == 0 || FailErrno();
}

void RemoveNumber(const FileRef& file, const char* name)
{
    file.fd >= 0 ? fremovexattr(file.fd, name) : removexattr(file.path, name);
}

DWORD DefaultAttributes(const struct stat& status)
{
    return S_ISREG(status.st_mode) ? FILE_ATTRIBUTE_ARCHIVE : 0;
}

bool SetMode(const FileRef& file, mode_t mode)
{
    return (file.fd >= 0 ? fchmod(file.fd, mode) : chmod(file.path, mode)) == 0 || FailErrno();
}

// Write permission that comes back is the owner's.
bool SetReadOnly(const FileRef& file, const struct stat& status, bool readOnly)
{
    const mode_t mode = status.st_mode & 07777;
    return readOnly == IsReadOnly(status) || SetMode(file, readOnly ? mode & ~0222u : mode | 0200u);
}

// A bit that the default has and the caller left out is not worth a failure where nothing can be kept.
bool KeepAttributes(const FileRef& file, const struct stat& status, DWORD kept)
{
    if (kept == DefaultAttributes(status))
        return RemoveNumber(file, kAttributesName), true;
    return WriteNumber(file, kAttributesName, kept) || (kept & ~FILE_ATTRIBUTE_ARCHIVE) == 0;
}

} // namespace

bool IsReadOnly(const struct stat& status)
{
    return S_ISREG(status.st_mode) && (status.st_mode & 0222) == 0;
}

DWORD AttributesOf(const FileRef& file, const struct stat& status)
{
    const auto kept = ReadNumber(file, kAttributesName);
    DWORD attributes = kept ? static_cast<DWORD>(*kept) & kSettable : DefaultAttributes(status);
    if (IsReadOnly(status))
        attributes |= FILE_ATTRIBUTE_READONLY;
    if (S_ISDIR(status.st_mode))
        attributes |= FILE_ATTRIBUTE_DIRECTORY;
    return attributes ? attributes : FILE_ATTRIBUTE_NORMAL;
}

bool SetAttributes(const FileRef& file, const struct stat& status, DWORD attributes)
{
    const DWORD wanted = attributes & kSettable;
    const bool isFile = S_ISREG(status.st_mode);
    const DWORD kept = isFile ? wanted & ~FILE_ATTRIBUTE_READONLY : wanted;
    // Extended attributes of a read-only file cannot be written: the permission goes first or last.
    if (isFile && !(wanted & FILE_ATTRIBUTE_READONLY) && !SetReadOnly(file, status, false))
        return false;
    if (!KeepAttributes(file, status, kept))
        return false;
    return !isFile || !(wanted & FILE_ATTRIBUTE_READONLY) || SetReadOnly(file, status, true);
}

FILETIME CreationTimeOf(const FileRef& file, const struct stat& status)
{
    if (const auto kept = ReadNumber(file, kCreatedName))
        return FromTicks(*kept);
    struct statx more {
    };
    const int found = file.fd >= 0 ? statx(file.fd, "", AT_EMPTY_PATH, STATX_BTIME, &more)
                                   : statx(AT_FDCWD, file.path, 0, STATX_BTIME, &more);
    if (found == 0 && (more.stx_mask & STATX_BTIME))
        return ToFileTime({more.stx_btime.tv_sec, static_cast<long>(more.stx_btime.tv_nsec)});
    return ToFileTime(status.st_mtim);
}

bool SetCreationTime(const FileRef& file, const FILETIME& time)
{
    return WriteNumber(file, kCreatedName, Ticks(time));
}

DWORD WINAPI GetFileAttributesA(LPCSTR name)
{
    const std::string path = NativePath(name);
    struct stat status;
    if (path.empty() || (stat(path.c_str(), &status) != 0 && !FailErrno(path)))
        return INVALID_FILE_ATTRIBUTES;
    return AttributesOf({-1, path.c_str()}, status);
}

BOOL WINAPI SetFileAttributesA(LPCSTR name, DWORD attributes)
{
    const std::string path = NativePath(name);
    struct stat status;
    if (path.empty() || (stat(path.c_str(), &status) != 0 && !FailErrno(path)))
        return FALSE;
    return SetAttributes({-1, path.c_str()}, status, attributes);
}
