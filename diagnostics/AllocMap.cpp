#include <AllocMap.h>

#include "TrackerState.h"

#include <cstdlib>
#include <limits>

#define MEMORY_LEAK_TESTER_PLAIN_DELETE
#include <MemoryLeakTester.h>

namespace {

std::atomic<AllocMap*> g_instance = nullptr;

AllocMap* Current()
{
    return g_instance.load(std::memory_order_acquire);
}

DWORD Size32(std::size_t size)
{
    constexpr std::size_t kMost = std::numeric_limits<DWORD>::max();
    return static_cast<DWORD>(size < kMost ? size : kMost);
}

// A block's header, which free() is going to want, comes while its record is looked up.
void FetchAhead([[maybe_unused]] const void* block)
{
#ifdef __GNUC__
    constexpr std::uintptr_t kHeader = 16;
    __builtin_prefetch(reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(block) - kHeader));
#endif
}

void* Allocate(std::size_t size, const char* file, int line)
{
    void* block = std::malloc(size);
    if (AllocMap* tracker = Current())
        tracker->AddAllocInfo(block, Size32(size), file, line);
    return block;
}

void Free(void* block, const char* file, int line)
{
    if (AllocMap* tracker = Current()) {
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

constinit T_TRACKER_REST AllocMap::s_rest;

AllocMap::AllocMap() : m_state(std::make_unique<TrackerState>(s_rest))
{
    g_instance = this;
}

AllocMap::~AllocMap()
{
    if (AllocMap* tracker = Current())
        tracker->LogMemoryLeak();
    g_instance = nullptr;
}

AllocMap* AllocMap::Instance()
{
    return Current();
}

// The tracker at work on a record, if it may track.
class AllocMap::Work
{
public:
    explicit Work(TrackerState& state) : m_entry(state.lock), m_may(m_entry && state.IsEnabled()) {}
    explicit operator bool() const { return m_may; }

private:
    const TrackerEntry m_entry;
    const bool m_may;
};

inline void AllocMap::Add(void* block, DWORD size, const char* file, int line)
{
    const Work work(*m_state);
    try {
        if (work)
            m_state->Add(block, size, file, line);
    } catch (...) { // out of memory: the block is the host's all the same
    }
}

bool AllocMap::AskTracking(const char* file)
{
    AllocMap* tracker = Current();
    return tracker && tracker->m_state->MayTrack(file);
}

void AllocMap::Record(void* block, std::size_t size, const char* file, int line)
{
    if (AllocMap* tracker = Current())
        tracker->Add(block, Size32(size), file, line);
}

bool AllocMap::AskDelete(const char* file, int line)
{
    AllocMap* tracker = Current();
    if (!tracker || !tracker->m_state->MayTrack(file))
        return false;
    tracker->m_state->Announce(file, line);
    return true;
}

bool AllocMap::Drop(void* block)
{
    AllocMap* tracker = Current();
    if (!tracker || !tracker->m_state->IsEnabled())
        return false;
    FetchAhead(block);
    const Work work(*tracker->m_state);
    return work && tracker->m_state->Delete(block);
}

void AllocMap::CountFailure()
{
    AllocMap* tracker = Current();
    if (!tracker || !tracker->m_state->MayTrack())
        return;
    if (const Work work(*tracker->m_state); work)
        tracker->m_state->CountFailure();
}

int AllocMap::IsFileToSkip(const char* file)
{
    return m_state->IsSkipped(file) ? 1 : 0;
}

int AllocMap::CheckState()
{
    return m_state->MayTrack() ? 1 : 0;
}

void AllocMap::AddAllocInfo(void* block, unsigned int size, const char* file, int line)
{
    if (m_state->MayTrack(file))
        Add(block, size, file, line);
}

void AllocMap::DelAllocInfo(void* block)
{
    if (!m_state->MayTrack())
        return;
    const Work work(*m_state);
    if (work && !m_state->Delete(block))
        m_state->CountFailure();
}

void AllocMap::SetDeleteInfo(const char* file, int line)
{
    if (m_state->MayTrack(file))
        m_state->Announce(file, line);
}

void AllocMap::LogMemoryLeak()
{
    m_state->Log();
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
    if (AllocMap* tracker = Current())
        tracker->SetDeleteInfo(file, line);
}
