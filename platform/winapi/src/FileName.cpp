#include "Error.h"
#include "FileAttributes.h"
#include "OpenFile.h"
#include "Path.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <vector>

namespace {

// Closes a descriptor where its owner's life ends.
class Descriptor
{
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor()
    {
        if (m_fd >= 0)
            close(m_fd);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return m_fd; }
    bool IsOpen() const { return m_fd >= 0; }

    // False if the system reports now what it could not write before.
    bool Close()
    {
        const int fd = m_fd;
        m_fd = -1;
        return close(fd) == 0;
    }

private:
    int m_fd;
};

bool PathAndStatus(LPCSTR name, std::string& path, struct stat& status)
{
    path = NativePath(name);
    return !path.empty() && (lstat(path.c_str(), &status) == 0 || FailErrno(path));
}

bool MayRemoveFile(const struct stat& status)
{
    if (S_ISDIR(status.st_mode) || IsReadOnly(status))
        return Fail(ERROR_ACCESS_DENIED);
    return MayDelete(status) || Fail(ERROR_SHARING_VIOLATION);
}

bool IsSameFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

// `path` with its last part in the caller's spelling: a rename may change nothing but case.
std::string AsWritten(LPCSTR name, const std::string& path)
{
    ParsedPath parsed;
    if (ParsePath(name, parsed) != NO_ERROR || parsed.parts.empty())
        return path;
    return path.substr(0, path.rfind('/', path.find_last_not_of('/')) + 1) + parsed.parts.back();
}

bool FlushFolderOf(const std::string& path)
{
    const auto slash = path.rfind('/');
    const Descriptor folder(
        open(path.substr(0, slash ? slash : 1).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return folder.IsOpen() && (fsync(folder.Get()) == 0 || errno == EINVAL);
}

bool WriteAll(int fd, const char* data, size_t count)
{
    while (count > 0) {
        const ssize_t part = Retry([&] { return write(fd, data, count); });
        if (part < 0)
            return false;
        data += part;
        count -= static_cast<size_t>(part);
    }
    return true;
}

bool CopyBytes(int from, int to)
{
    std::vector<char> buffer(1 << 16);
    ssize_t part = 0;
    while ((part = Retry([&] { return read(from, buffer.data(), buffer.size()); })) > 0)
        if (!WriteAll(to, buffer.data(), static_cast<size_t>(part)))
            return false;
    return part == 0;
}

bool CopyContent(const Descriptor& from, const struct stat& status, Descriptor& to)
{
    if (!CopyBytes(from.Get(), to.Get()))
        return FailErrno();
    const DWORD attributes = AttributesOf({from.Get(), nullptr}, status);
    struct stat fresh;
    if (fstat(to.Get(), &fresh) != 0 || !SetAttributes({to.Get(), nullptr}, fresh, attributes))
        return FailErrno();
    const timespec times[] = {{0, UTIME_OMIT}, status.st_mtim};
    return (futimens(to.Get(), times) == 0 && to.Close()) || FailErrno();
}

// Into an existing file, or into a new one that a failure takes away again.
bool CopyTo(const Descriptor& from, const struct stat& status, const std::string& target, bool existed)
{
    Descriptor to(open(target.c_str(), O_WRONLY | O_CLOEXEC | (existed ? O_TRUNC : O_CREAT | O_EXCL), 0666));
    if (!to.IsOpen())
        return FailErrno(target);
    if (CopyContent(from, status, to))
        return true;
    const DWORD why = GetLastError();
    if (!existed)
        unlink(target.c_str());
    return Fail(why);
}

bool Replaceable(const struct stat& target, bool replace)
{
    if (!replace)
        return Fail(ERROR_ALREADY_EXISTS);
    return MayRemoveFile(target);
}

bool MoveAcross(LPCSTR from, LPCSTR to, const struct stat& source, DWORD flags)
{
    if (!(flags & MOVEFILE_COPY_ALLOWED) || S_ISDIR(source.st_mode))
        return Fail(ERROR_NOT_SAME_DEVICE);
    return CopyFileA(from, to, !(flags & MOVEFILE_REPLACE_EXISTING)) && DeleteFileA(from);
}

} // namespace

BOOL WINAPI DeleteFileA(LPCSTR name)
{
    std::string path;
    struct stat status;
    return PathAndStatus(name, path, status) && MayRemoveFile(status) &&
           (unlink(path.c_str()) == 0 || FailErrno(path));
}

BOOL WINAPI MoveFileA(LPCSTR from, LPCSTR to)
{
    return MoveFileExA(from, to, MOVEFILE_COPY_ALLOWED);
}

BOOL WINAPI MoveFileExA(LPCSTR from, LPCSTR to, DWORD flags)
{
    std::string source;
    struct stat status, existing;
    if (!PathAndStatus(from, source, status))
        return FALSE;
    std::string target = NativePath(to);
    if (target.empty())
        return FALSE;
    if (!MayDelete(status))
        return Fail(ERROR_SHARING_VIOLATION);
    const bool exists = lstat(target.c_str(), &existing) == 0;
    const bool same = exists && IsSameFile(status, existing);
    if (exists && !same && !Replaceable(existing, flags & MOVEFILE_REPLACE_EXISTING))
        return FALSE;
    if (same)
        target = AsWritten(to, target);
    // Another program may take a free name meanwhile: then it is not free.
    if (renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), exists ? 0 : RENAME_NOREPLACE) != 0)
        return errno == EXDEV ? MoveAcross(from, to, status, flags) : FailErrno(target);
    return !(flags & MOVEFILE_WRITE_THROUGH) || FlushFolderOf(target) || FailErrno();
}

BOOL WINAPI CopyFileA(LPCSTR from, LPCSTR to, BOOL failIfExists)
{
    const std::string source = NativePath(from);
    const std::string target = source.empty() ? "" : NativePath(to);
    if (target.empty())
        return FALSE;
    const Descriptor input(open(source.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status, existing;
    if (!input.IsOpen() || fstat(input.Get(), &status) != 0)
        return FailErrno(source);
    const bool existed = stat(target.c_str(), &existing) == 0;
    if (existed && failIfExists)
        return Fail(ERROR_FILE_EXISTS);
    if (S_ISDIR(status.st_mode) || (existed && (S_ISDIR(existing.st_mode) || IsReadOnly(existing))))
        return Fail(ERROR_ACCESS_DENIED);
    if (existed && (IsSameFile(status, existing) || !MayDelete(existing)))
        return Fail(ERROR_SHARING_VIOLATION);
    return CopyTo(input, status, target, existed);
}

BOOL WINAPI CreateDirectoryA(LPCSTR name, LPSECURITY_ATTRIBUTES)
{
    const std::string path = NativePath(name);
    if (path.empty())
        return FALSE;
    return mkdir(path.c_str(), 0777) == 0 || (errno == ENOENT ? Fail(ERROR_PATH_NOT_FOUND) : FailErrno(path));
}

BOOL WINAPI RemoveDirectoryA(LPCSTR name)
{
    std::string path;
    struct stat status;
    if (!PathAndStatus(name, path, status))
        return FALSE;
    if (!S_ISDIR(status.st_mode))
        return Fail(ERROR_DIRECTORY);
    return rmdir(path.c_str()) == 0 || FailErrno(path);
}
