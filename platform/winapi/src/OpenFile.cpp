#include "OpenFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <limits>
#include <map>
#include <mutex>
#include <utility>

namespace {

using FileKey = std::pair<dev_t, ino_t>;

// Guards the table and all that is in it: opening, closing and locking are rare beside reading.
std::mutex& Guard()
{
    static std::mutex& guard = *new std::mutex;
    return guard;
}

std::map<FileKey, std::weak_ptr<SharedFile>>& Files()
{
    static auto& files = *new std::map<FileKey, std::weak_ptr<SharedFile>>;
    return files;
}

DWORD Needs(DWORD access)
{
    const bool all = access & GENERIC_ALL;
    return (all || access & GENERIC_READ ? FILE_SHARE_READ : 0u) |
           (all || access & GENERIC_WRITE ? FILE_SHARE_WRITE : 0u) |
           (all || access & DELETE ? FILE_SHARE_DELETE : 0u);
}

struct Range {
    const OpenFile* owner;
    std::uint64_t start, count;
};

bool Overlap(const Range& range, std::uint64_t start, std::uint64_t count)
{
    // By differences, so that a range may end at the very last number.
    return count && range.count &&
           (start >= range.start ? start - range.start < range.count : range.start - start < count);
}

// Holds the range against other processes as far as the file system can; inside the process we do it.
bool SystemLock(int fd, short kind, std::uint64_t start, std::uint64_t count)
{
    constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());
    if (count == 0 || start > kMost)
        return true;
    struct flock range {
    };
    range.l_type = kind;
    range.l_whence = SEEK_SET;
    range.l_start = static_cast<off_t>(start);
    range.l_len = static_cast<off_t>(std::min(count, kMost - start));
    return fcntl(fd, F_OFD_SETLK, &range) == 0 || (errno != EAGAIN && errno != EACCES);
}

} // namespace

class SharedFile
{
public:
    bool Admits(const OpenFile& fresh) const
    {
        return std::all_of(m_handles.begin(), m_handles.end(), [&fresh](const OpenFile* open) {
            return !(Needs(fresh.m_access) & ~open->m_share) && !(Needs(open->m_access) & ~fresh.m_share);
        });
    }

    bool SharesDeletion() const
    {
        return std::all_of(m_handles.begin(), m_handles.end(), [](const OpenFile* open) {
            return (open->m_share & FILE_SHARE_DELETE) || !Needs(open->m_access);
        });
    }

    // A handle that asks for nothing but attributes stands in nobody's way.
    void Add(const OpenFile* file)
    {
        if (Needs(file->m_access))
            m_handles.push_back(file);
    }

    void Remove(const OpenFile* file)
    {
        std::erase(m_handles, file);
        std::erase_if(m_locks, [file](const Range& range) { return range.owner == file; });
        m_lockCount = m_locks.size();
    }

    bool AddLock(const Range& range)
    {
        if (std::any_of(m_locks.begin(), m_locks.end(),
                        [&range](const Range& held) { return Overlap(held, range.start, range.count); }))
            return false;
        m_locks.push_back(range);
        m_lockCount = m_locks.size();
        return true;
    }

    bool RemoveLock(const Range& range)
    {
        const auto found = std::find_if(m_locks.begin(), m_locks.end(), [&range](const Range& held) {
            return held.owner == range.owner && held.start == range.start && held.count == range.count;
        });
        if (found == m_locks.end())
            return false;
        m_locks.erase(found);
        m_lockCount = m_locks.size();
        return true;
    }

    bool HasLocks() const { return m_lockCount != 0; }

    bool IsFreeFor(const OpenFile* file, std::uint64_t start, std::uint64_t count) const
    {
        return std::none_of(m_locks.begin(), m_locks.end(), [=](const Range& held) {
            return held.owner != file && Overlap(held, start, count);
        });
    }

private:
    std::vector<const OpenFile*> m_handles;
    std::vector<Range> m_locks;
    std::atomic<size_t> m_lockCount = 0;
};

OpenFile::~OpenFile()
{
    if (m_shared) {
        const std::lock_guard lock(Guard());
        m_shared->Remove(this);
        m_shared.reset();
        std::erase_if(Files(), [](const auto& entry) { return entry.second.expired(); });
    }
    close(m_fd);
    if (!m_deletePath.empty())
        unlink(m_deletePath.c_str());
}

bool OpenFile::Join(const struct stat& status)
{
    const std::lock_guard lock(Guard());
    auto& entry = Files()[{status.st_dev, status.st_ino}];
    auto shared = entry.lock();
    if (!shared)
        entry = shared = std::make_shared<SharedFile>();
    if (Needs(m_access) && !shared->Admits(*this))
        return Fail(ERROR_SHARING_VIOLATION);
    shared->Add(this);
    m_shared = std::move(shared);
    return true;
}

bool OpenFile::Lock(std::uint64_t start, std::uint64_t count)
{
    const std::lock_guard lock(Guard());
    const Range range{this, start, count};
    if (!m_shared || !m_shared->AddLock(range))
        return Fail(m_shared ? ERROR_LOCK_VIOLATION : ERROR_INVALID_FUNCTION);
    // A handle that may not write can hold no exclusive lock here; a shared one keeps writers out.
    if (SystemLock(m_fd, CanWrite() ? F_WRLCK : F_RDLCK, start, count))
        return true;
    m_shared->RemoveLock(range);
    return Fail(ERROR_LOCK_VIOLATION);
}

bool OpenFile::Unlock(std::uint64_t start, std::uint64_t count)
{
    const std::lock_guard lock(Guard());
    if (!m_shared || !m_shared->RemoveLock({this, start, count}))
        return Fail(ERROR_NOT_LOCKED);
    SystemLock(m_fd, F_UNLCK, start, count);
    return true;
}

bool OpenFile::MayTouch(std::uint64_t count) const
{
    if (!m_shared || !m_shared->HasLocks())
        return true;
    const off_t start = lseek(m_fd, 0, SEEK_CUR);
    const std::lock_guard lock(Guard());
    return start < 0 || m_shared->IsFreeFor(this, static_cast<std::uint64_t>(start), count) ||
           Fail(ERROR_LOCK_VIOLATION);
}

bool MayDelete(const struct stat& status)
{
    const std::lock_guard lock(Guard());
    const auto found = Files().find({status.st_dev, status.st_ino});
    const auto shared = found == Files().end() ? nullptr : found->second.lock();
    return !shared || shared->SharesDeletion();
}
