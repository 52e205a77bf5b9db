#include "Generation.h"

#include "PrivateFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <unistd.h>

#include <utility>

namespace {

constexpr std::size_t kFileSize = sizeof(Generation::Shared);
static_assert(Generation::Shared::is_always_lock_free, "the counter is shared between processes");

bool IsOdd(std::uint64_t count)
{
    return count % 2 != 0;
}

bool Lock(int file, int how)
{
    int result;
    do
        result = flock(file, how);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

bool LockRange(int file, short how)
{
    struct flock range = {};
    range.l_type = how;
    range.l_whence = SEEK_SET;
    int result;
    do
        result = fcntl(file, F_OFD_SETLKW, &range);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

} // namespace

const Generation::Shared* Generation::Map(const std::string& path)
{
    Generation generation;
    return generation.Open(path, true) ? std::exchange(generation.m_counter, nullptr) : nullptr;
}

bool Generation::Open(const std::string& path, bool readOnly)
{
    Close();
    m_readOnly = readOnly;
    m_file = OpenPrivateFile(path, readOnly);
    if (m_file < 0 || (!readOnly && ftruncate(m_file, kFileSize) != 0)) {
        Close();
        return false;
    }
    const int access = readOnly ? PROT_READ : PROT_READ | PROT_WRITE;
    void* mapped = mmap(nullptr, kFileSize, access, MAP_SHARED, m_file, 0);
    if (mapped == MAP_FAILED || lseek(m_file, 0, SEEK_END) < static_cast<off_t>(kFileSize)) {
        Close();
        return false;
    }
    m_counter = static_cast<Shared*>(mapped);
    return true;
}

void Generation::Close()
{
    if (m_counter)
        munmap(m_counter, kFileSize);
    if (m_file >= 0)
        close(m_file);
    m_counter = nullptr;
    m_file = -1;
    m_writing = false;
}

std::uint64_t Generation::Current()
{
    if (!m_counter || m_writing)
        return kUnsettled;
    std::uint64_t count = m_counter->load(std::memory_order_acquire);
    if (IsOdd(count) && !m_readOnly && Lock(m_file, LOCK_EX | LOCK_NB)) {
        Settle();
        count = m_counter->load(std::memory_order_acquire);
        Lock(m_file, LOCK_UN);
    }
    return Settled(count);
}

// Under the lock: an odd counter is a dead writer's.
void Generation::Settle()
{
    if (IsOdd(m_counter->load(std::memory_order_relaxed)))
        m_counter->fetch_add(1, std::memory_order_acq_rel);
}

// Another kind of lock than flock(), so that the two do not meet; it too belongs to the open file.
bool Generation::BeginOpening()
{
    return m_counter && LockRange(m_file, F_WRLCK);
}

void Generation::EndOpening()
{
    LockRange(m_file, F_UNLCK);
}

bool Generation::BeginWrite()
{
    if (!m_counter || !Lock(m_file, LOCK_EX))
        return false;
    Settle();
    m_counter->fetch_add(1, std::memory_order_acq_rel);
    m_writing = true;
    return true;
}

void Generation::EndWrite()
{
    m_writing = false;
    m_counter->fetch_add(1, std::memory_order_acq_rel);
    Lock(m_file, LOCK_UN);
}
