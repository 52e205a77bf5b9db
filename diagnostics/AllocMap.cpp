#include <AllocMap.h>

#include "LeakLog.h"
#include "TrackerState.h"

#include <cstdlib>
#include <limits>

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
    AllocMap::Record(block, size, file, line);
    return block;
}

void Free(void* block, const char* file, int line)
{
    PreDelete(file, line);
    AllocMap::Forget(block);
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

bool AllocMap::IsIdle()
{
    const AllocMap* tracker = Instance();
    return !tracker || tracker->m_state->IsIdle();
}

void AllocMap::Record(void* block, std::size_t size, const char* file, int line)
{
    if (AllocMap* tracker = Instance())
        tracker->AddAllocInfo(block, Size32(size), file, line);
}

void AllocMap::Forget(void* block)
{
    if (AllocMap* tracker = Instance())
        tracker->DelAllocInfo(block);
}

bool AllocMap::Drop(void* block)
{
    AllocMap* tracker = Instance();
    if (!tracker || tracker->m_state->IsIdle())
        return false;
    TrackerState& state = *tracker->m_state;
    const TrackerEntry entry(state.lock);
    if (!entry || !state.CheckState())
        return false;
    const BusyScope busy(state);
    return state.Delete(block);
}

int AllocMap::IsFileToSkip(const char* file)
{
    return m_state->IsSkipped(file) ? 1 : 0;
}

int AllocMap::CheckState()
{
    const TrackerEntry entry(m_state->lock);
    return entry ? m_state->CheckState() : 0;
}

void AllocMap::AddAllocInfo(void* block, unsigned int size, const char* file, int line)
{
    if (m_state->IsSkipped(file) || m_state->IsIdle())
        return;
    const TrackerEntry entry(m_state->lock);
    if (!entry || !m_state->CheckState())
        return;
    const BusyScope busy(*m_state);
    try {
        m_state->Add(block, size, file, line);
    } catch (...) { // out of memory: the block is the host's all the same
    }
}

void AllocMap::DelAllocInfo(void* block)
{
    if (m_state->IsIdle())
        return;
    const TrackerEntry entry(m_state->lock);
    if (!entry || !m_state->CheckState())
        return;
    const BusyScope busy(*m_state);
    if (!m_state->Delete(block))
        ++m_state->deleteFailures;
}

void AllocMap::SetDeleteInfo(const char* file, int line)
{
    if (m_state->IsSkipped(file) || m_state->IsIdle() || m_state->IsSameDeleteFile(file, line))
        return;
    const TrackerEntry entry(m_state->lock);
    if (!entry || !m_state->CheckState())
        return;
    const BusyScope busy(*m_state);
    try {
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
