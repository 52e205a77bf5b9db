#include <AllocMap.h>

#include "LeakLog.h"
#include "TrackerState.h"

#include <cstdlib>
#include <limits>

#define MEMORY_LEAK_TESTER_PLAIN_DELETE
#include <MemoryLeakTester.h>

namespace {

std::atomic<AllocMap*> g_instance = nullptr;

DWORD Size32(std::size_t size)
{
    constexpr std::size_t kMost = std::numeric_limits<DWORD>::max();
    return static_cast<DWORD>(size < kMost ? size : kMost);
}

void* Allocate(std::size_t size, const char* file, int line)
{
    void* block = std::malloc(size);
    if (AllocMap* tracker = AllocMap::Instance())
        tracker->AddAllocInfo(block, Size32(size), file, line);
    return block;
}

void Free(void* block, const char* file, int line)
{
    if (AllocMap* tracker = AllocMap::Instance()) {
        tracker->SetDeleteInfo(file, line);
        tracker->DelAllocInfo(block);
    }
    std::free(block);
}

} // namespace

AllocInfo::AllocInfo() : m_key(0), m_pointer(nullptr), m_size(0), m_line(0)
{
}
AllocInfo::AllocInfo(const AllocInfo& source) = default;
AllocInfo& AllocInfo::operator=(const AllocInfo& source) = default;
AllocInfo::~AllocInfo() = default;

AllocMap::AllocMap() : m_state(std::make_unique<TrackerState>())
{
    g_instance = this;
}

AllocMap::~AllocMap()
{
    if (AllocMap* tracker = Instance())
        tracker->LogMemoryLeak();
    g_instance = nullptr;
}

AllocMap* AllocMap::Instance()
{
    return g_instance.load(std::memory_order_acquire);
}

// A tracker at work: it has been found that the call may track.
class AllocMap::Work
{
public:
    explicit Work(TrackerState& state) : m_entry(state.lock), m_state(state)
    {
        m_may = m_entry && state.CheckState();
        if (m_may)
            state.busy.store(1, std::memory_order_relaxed);
    }
    ~Work()
    {
        if (m_may)
            m_state.busy.store(0, std::memory_order_relaxed);
    }
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;
    explicit operator bool() const { return m_may; }

private:
    const TrackerEntry m_entry;
    TrackerState& m_state;
    bool m_may = false;
};

bool AllocMap::IsTracking(const char* file)
{
    AllocMap* tracker = Instance();
    if (!tracker || tracker->m_state->IsSkipped(file) || tracker->m_state->IsIdle())
        return false;
    return tracker->m_state->IsTracking() || tracker->CheckState() != 0;
}

void AllocMap::Record(void* block, std::size_t size, const char* file, int line)
{
    if (AllocMap* tracker = Instance())
        tracker->Add(block, Size32(size), file, line);
}

bool AllocMap::Drop(void* block)
{
    AllocMap* tracker = Instance();
    if (!tracker || tracker->m_state->enabled.load(std::memory_order_relaxed) == 0)
        return false;
    const Work work(*tracker->m_state);
    return work && tracker->m_state->Delete(block);
}

int AllocMap::IsFileToSkip(const char* file)
{
    return m_state->IsSkipped(file) ? 1 : 0;
}

int AllocMap::CheckState()
{
    if (!m_state->Look())
        return 0;
    const TrackerEntry entry(m_state->lock);
    return entry ? m_state->CheckState() : 0;
}

void AllocMap::Add(void* block, DWORD size, const char* file, int line)
{
    const Work work(*m_state);
    try {
        if (work)
            m_state->Add(block, size, file, line);
    } catch (...) { // out of memory: the block is the host's all the same
    }
}

void AllocMap::AddAllocInfo(void* block, unsigned int size, const char* file, int line)
{
    if (!m_state->IsSkipped(file) && !m_state->IsIdle() && m_state->Look())
        Add(block, size, file, line);
}

void AllocMap::DelAllocInfo(void* block)
{
    if (m_state->IsIdle() || !m_state->Look())
        return;
    const Work work(*m_state);
    if (work && !m_state->Delete(block))
        ++m_state->deleteFailures;
}

void AllocMap::SetDeleteInfo(const char* file, int line)
{
    if (m_state->IsSkipped(file) || m_state->IsIdle() || m_state->IsSameDeleteFile(file, line) ||
        !m_state->Look())
        return;
    const Work work(*m_state);
    try {
        if (work)
            m_state->AnnounceDelete(file, line);
    } catch (...) { // out of memory
    }
}

void AllocMap::LogMemoryLeak()
{
    const TrackerEntry entry(m_state->lock);
    if (entry)
        WriteLeakLog(*m_state);
}

#undef new
#undef delete

void* operator new(std::size_t size, const char* file, int line, float) noexcept
{
    return Allocate(size, file, line);
}

void* operator new[](std::size_t size, const char* file, int line, float) noexcept
{
    return Allocate(size, file, line);
}

void operator delete(void* block, const char* file, int line, float) noexcept
{
    Free(block, file, line);
}

void operator delete[](void* block, const char* file, int line, float) noexcept
{
    Free(block, file, line);
}

void PreDelete(const char* file, int line)
{
    if (AllocMap* tracker = AllocMap::Instance())
        tracker->SetDeleteInfo(file, line);
}
