// The allocation tracker: what a host allocates and does not delete, with the file and line of each block.
//
// Hosts do not call it: they include MemoryLeakTester.h, which routes their new and delete here. Nothing is
// tracked until a tester sets the value CheckMemoryNOP under HKEY_CURRENT_USER\Software\TOVEN\TEST to a
// number above 1; raising it while the program runs writes the log of what is still allocated and starts
// afresh. What is left when the tracker is destroyed is written to "Temporary\memory leak.COUNT.log.nas"
// beside the executable. The folder must exist: without it nothing is written.
//
//   period (CheckMemoryNOP)  raised above all before: a new period; numbers up to 1 start none.
//                            lowered: tracking stops, what was gathered is dropped without a log.
//   stop (CheckMemoryStopAt) the number of the allocation at which a developer's breakpoint is reached (see
//                            TrackerState.cpp); 0 never.
//
// Both are looked up on every tracked call, so that a change, by another process too, counts from the next
// call on. While the registry does not change, the look-up costs next to nothing.
//
// Units: bytes. Sizes are kept in 32 bits: a larger block counts as 4,294,967,295, sums wrap.
// Errors: none is reported. A log that cannot be written is left out; so is a block for whose record there is
//   no memory.
// Threads: made for runs with one thread. Calls from several are kept apart by a lock, so nothing is lost.
#pragma once

#include <afx.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

// One tracked allocation.
class AFX_EXT_CLASS AllocInfo
{
public:
    AllocInfo();
    AllocInfo(const AllocInfo& source);
    AllocInfo& operator=(const AllocInfo& source);
    ~AllocInfo();

    DWORD m_key;     // the allocation's number in its period, from 1
    void* m_pointer; // the block
    DWORD m_size;
    int m_line; // of the allocating statement
    CString m_file;
};

// Tells without a call that tracking is off: it was found so, and neither the registry nor the environment
// has changed since. The tracker alone writes it.
struct T_TRACKER_REST {
    static constexpr std::uint64_t kNever = ~std::uint64_t{0};
    static inline const std::atomic<std::uint64_t> s_none = 0;
    static inline const std::atomic<unsigned> s_noChanges = 0;

    std::atomic<const std::atomic<std::uint64_t>*> registry = &s_none;
    std::atomic<const std::atomic<unsigned>*> environment = &s_noChanges;
    std::atomic<std::uint64_t> registrySeen = kNever;
    std::atomic<unsigned> environmentSeen = 0;

    bool Lasts() const
    {
        const std::uint64_t seen = registrySeen.load(std::memory_order_acquire);
        return registry.load(std::memory_order_relaxed)->load(std::memory_order_acquire) == seen &&
               environment.load(std::memory_order_relaxed)->load(std::memory_order_relaxed) ==
                   environmentSeen.load(std::memory_order_relaxed);
    }
};

class TrackerState;

// The tracker. One per process; the last constructed is the instance.
class AFX_EXT_CLASS AllocMap
{
public:
    AllocMap();
    // Writes the log of the instance, also when nothing was ever tracked (a log of zeros). From then on
    // there is no instance.
    ~AllocMap();
    AllocMap(const AllocMap&) = delete;
    AllocMap& operator=(const AllocMap&) = delete;

    // Null before a tracker is constructed and after it is destroyed.
    static AllocMap* Instance();

    // What MemoryLeakTester.h calls. The first two look the switches up, if a file is not skipped, and tell
    // whether the new or delete that follows is tracked. The others are called from wherever memory is
    // allocated and freed, also where a look-up could not be made.
    static bool IsTracking(const char* file) { return !s_rest.Lasts() && AskTracking(file); }
    static bool BeginDelete(const char* file, int line) { return !s_rest.Lasts() && AskDelete(file, line); }
    static void Record(void* block, std::size_t size, const char* file, int line);
    // Forgets an allocation if it is recorded; whether it was. Counts no failure.
    static bool Drop(void* block);
    static void CountFailure();

    // Records an allocation, unless its file is skipped or tracking is off. If the address is recorded
    // already, its block was freed unseen: that record joins the displaced ones. `file` is copied and may be
    // null; the name "afxtempl.h", in any case, is skipped.
    void AddAllocInfo(void* block, unsigned int size, const char* file, int line);
    // Forgets an allocation. An address that is not recorded, null too, counts as a failed delete.
    void DelAllocInfo(void* block);
    // Notes where the next delete stands. The log does not tell it: it is there for a debugger.
    void SetDeleteInfo(const char* file, int line);

    // Writes the log now, replacing one with as many leaks. Lines end in LF. First come the live records,
    // numbered from 1, by the address shifted right by 4 modulo 100,009, among equals the newest first; then
    // the displaced ones, numbered from 0, in the order they were found. Addresses are hexadecimal, in full.
    // The file is shown from behind its last backslash on.
    // If the executable's path has no backslash, tracking stays off from then on.
    void LogMemoryLeak();

protected:
    // Looks the period up, starts or stops tracking; not 0 when this call may track.
    int CheckState();
    // 1 for a file whose allocations are not tracked.
    int IsFileToSkip(const char* file);

private:
    class Work;
    static bool AskTracking(const char* file);
    static bool AskDelete(const char* file, int line);
    void Add(void* block, DWORD size, const char* file, int line);

    static T_TRACKER_REST s_rest;

    const std::unique_ptr<TrackerState> m_state;
};

// Allocates with malloc and records it; null, which is recorded too, when there is no memory. The last
// parameter only tells this form from others with a file and a line; pass 1.0.
AFX_EXT_API void* operator new(std::size_t size, const char* file, int line, float tag) noexcept;
AFX_EXT_API void* operator new[](std::size_t size, const char* file, int line, float tag) noexcept;
// Notes the place, forgets the block and frees it.
AFX_EXT_API void operator delete(void* block, const char* file, int line, float tag) noexcept;
AFX_EXT_API void operator delete[](void* block, const char* file, int line, float tag) noexcept;

// Announces the place of the delete that follows.
AFX_EXT_API void PreDelete(const char* file, int line);
