#include "package/FileCalls.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zek::office {
namespace {

// A signal may interrupt a call a few times; a device that answers so for ever is broken.
constexpr int kInterruptedTries = 100;

template <class Call>
auto Uninterrupted(Call call)
{
    auto result = call();
    for (int tries = 1; result < 0 && errno == EINTR && tries < kInterruptedTries; ++tries)
        result = call();
    return result;
}

} // namespace

int FileCalls::Open(const std::string& path, int flags, mode_t mode)
{
    return Uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); });
}

int FileCalls::Duplicate(int file)
{
    return ::fcntl(file, F_DUPFD_CLOEXEC, 0);
}

int FileCalls::Lock(int file)
{
    return ::flock(file, LOCK_EX | LOCK_NB);
}

ssize_t FileCalls::WriteAt(int file, const void* data, std::size_t size, off_t offset)
{
    return Uninterrupted([&] { return ::pwrite(file, data, size, offset); });
}

ssize_t FileCalls::ReadAt(int file, void* data, std::size_t size, off_t offset)
{
    return Uninterrupted([&] { return ::pread(file, data, size, offset); });
}

int FileCalls::Flush(int file)
{
    return Uninterrupted([&] { return ::fsync(file); });
}

int FileCalls::SetMode(int file, mode_t mode)
{
    return ::fchmod(file, mode);
}

int FileCalls::SetOwner(int file, uid_t owner, gid_t group)
{
    return ::fchown(file, owner, group);
}

int FileCalls::Close(int file)
{
    // Not repeated: the descriptor is gone after an interrupted close too.
    return ::close(file);
}

int FileCalls::Rename(const std::string& from, const std::string& to)
{
    return ::rename(from.c_str(), to.c_str());
}

int FileCalls::Exchange(const std::string& one, const std::string& other)
{
    return ::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE);
}

int FileCalls::Remove(const std::string& path)
{
    return ::unlink(path.c_str());
}

FileCalls& SystemFileCalls()
{
    static FileCalls calls;
    return calls;
}

FileHandle::~FileHandle()
{
    Close();
}

void FileHandle::Reset(int file)
{
    Close();
    m_file = file;
}

int FileHandle::Close()
{
    if (m_file < 0)
        return 0;
    int result = m_calls.Close(m_file);
    m_file = -1;
    return result;
}

} // namespace zek::office
