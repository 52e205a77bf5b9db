#include "package/AtomicFile.h"

#include "package/SaveError.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zek::office {
namespace {

constexpr std::size_t kBufferSize = 256 * 1024;
constexpr int kCreateTries = 100;

unsigned NextCount()
{
    static std::atomic<unsigned> count = 0;
    return ++count;
}

} // namespace

AtomicFile::AtomicFile(const std::string& path, FileCalls& calls)
    : m_calls(calls), m_target(FindSaveTarget(path)), m_file(calls, -1), m_lock(calls, -1),
      m_folder(calls, -1)
{
    m_folder.Reset(m_calls.Open(m_target.folder, O_RDONLY | O_DIRECTORY, 0));
    if (m_folder.Get() < 0 && errno != EACCES)
        Fail(errno, "save");
    RemoveStaleFiles(m_target, m_calls);
    try {
        Create();
        TakeModeOfOldFile();
    } catch (...) {
        if (!m_newPath.empty())
            m_calls.Remove(m_newPath);
        throw;
    }
    m_buffer.reserve(kBufferSize);
}

AtomicFile::~AtomicFile()
{
    if (!m_newPath.empty())
        m_calls.Remove(m_newPath);
}

void AtomicFile::Fail(int code, const char* action) const
{
    throw SaveError::System(code, action, m_target.path);
}

void AtomicFile::Create()
{
    for (int tries = 0; tries < kCreateTries; ++tries)
        if (TryCreate())
            return;
    Fail(EEXIST, "save");
}

// False when another process took the new file for a stale one before it was locked, or its name is taken.
bool AtomicFile::TryCreate()
{
    const std::string path = NewFilePath(m_target, ::getpid(), NextCount());
    m_file.Reset(m_calls.Open(path, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, m_target.exists ? 0600 : 0666));
    if (m_file.Get() < 0 && errno == EEXIST)
        return false;
    if (m_file.Get() < 0)
        Fail(errno, "save");
    m_newPath = path;
    struct stat state = {};
    if (m_calls.Lock(m_file.Get()) != 0 && errno == EWOULDBLOCK) {
        m_newPath.clear();
        return false;
    }
    if (::fstat(m_file.Get(), &state) == 0 && state.st_nlink == 0) {
        m_newPath.clear();
        return false;
    }
    m_lock.Reset(m_calls.Duplicate(m_file.Get()));
    if (m_lock.Get() < 0)
        Fail(errno, "save");
    return true;
}

void AtomicFile::TakeModeOfOldFile()
{
    if (!m_target.exists)
        return;
    // Only the superuser may give a file away; for others the new file is their own.
    if (m_target.owner != ::geteuid() || m_target.group != ::getegid())
        static_cast<void>(m_calls.SetOwner(m_file.Get(), m_target.owner, m_target.group));
    if (m_calls.SetMode(m_file.Get(), m_target.mode & 0777) != 0)
        Fail(errno, "save");
}

void AtomicFile::Write(const void* data, std::size_t size)
{
    const char* bytes = static_cast<const char*>(data);
    while (size > 0) {
        std::size_t part = std::min(size, kBufferSize - m_buffer.size());
        m_buffer.insert(m_buffer.end(), bytes, bytes + part);
        bytes += part;
        size -= part;
        if (m_buffer.size() == kBufferSize)
            FlushBuffer();
    }
}

void AtomicFile::Seek(std::uint64_t position)
{
    if (position == Position())
        return;
    FlushBuffer();
    m_start = position;
}

std::uint64_t AtomicFile::Size() const
{
    return std::max(m_size, Position());
}

void AtomicFile::FlushBuffer()
{
    const char* bytes = m_buffer.data();
    std::size_t left = m_buffer.size();
    while (left > 0) {
        ssize_t done = m_calls.WriteAt(m_file.Get(), bytes, left, static_cast<off_t>(m_start));
        if (done <= 0)
            Fail(done < 0 ? errno : EIO, "write");
        bytes += done;
        left -= static_cast<std::size_t>(done);
        m_start += static_cast<std::uint64_t>(done);
    }
    m_buffer.clear();
    m_size = std::max(m_size, m_start);
}

void AtomicFile::Seal()
{
    FlushBuffer();
    if (m_calls.Flush(m_file.Get()) != 0)
        Fail(errno, "write");
    if (m_file.Close() != 0)
        Fail(errno, "write");
}

std::size_t AtomicFile::Read(std::uint64_t offset, void* data, std::size_t size)
{
    ssize_t done = m_calls.ReadAt(m_lock.Get(), data, size, static_cast<off_t>(offset));
    if (done < 0)
        Fail(errno, "read back");
    return static_cast<std::size_t>(done);
}

void AtomicFile::Commit()
{
    bool swapped = Place();
    if (FlushFolder() != 0) {
        int code = errno;
        TakeBack(swapped);
        Fail(code, "save");
    }
    if (swapped)
        m_calls.Remove(m_newPath);
    m_newPath.clear();
    m_lock.Close();
}

// True when the old file now bears the new file's name, so that it can be put back.
bool AtomicFile::Place()
{
    if (m_target.exists) {
        if (m_calls.Exchange(m_newPath, m_target.path) == 0)
            return true;
        if (errno != EINVAL && errno != ENOSYS && errno != ENOENT)
            Fail(errno, "replace");
    }
    if (m_calls.Rename(m_newPath, m_target.path) != 0)
        Fail(errno, "replace");
    return false;
}

void AtomicFile::TakeBack(bool swapped)
{
    if (swapped) {
        // If even this fails, the new file stays, which is complete; the old one must not be removed.
        if (m_calls.Exchange(m_newPath, m_target.path) != 0)
            m_newPath.clear();
        return;
    }
    if (!m_target.exists)
        m_calls.Remove(m_target.path);
    m_newPath.clear();
}

int AtomicFile::FlushFolder()
{
    if (m_folder.Get() < 0 || m_calls.Flush(m_folder.Get()) == 0)
        return 0;
    return errno == EINVAL ? 0 : -1; // EINVAL: a file system whose folders cannot be flushed
}

} // namespace zek::office
