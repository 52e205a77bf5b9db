// The places in a host's files where blocks are allocated and deleted, for as long as that takes.
//
// The macros of MemoryLeakTester.h put a site in front of each new and delete. The program's allocation
// functions (Operators.h) tell the innermost site of their thread of the blocks that come and go:
//  - a new-expression records the first block that is allocated. Should the result lie elsewhere, that block
//    was taken by the number of elements or by a constructor over storage that was there, and is let go;
//  - a delete-expression during which no recorded block is freed has failed.
#pragma once

#include "../AllocMap.h"

#include <exception>
#include <type_traits>
#include <utility>

namespace LeakTester {

// Whether the program's files have recorded anything yet: before, no block that is freed can be recorded.
inline bool g_hasRecords = false;

// What is going on in the thread.
class Site
{
public:
    static Site* Innermost() { return s_innermost; }
    Site(const Site&) = delete;
    Site& operator=(const Site&) = delete;

    // The program has allocated a block.
    void Allocated(void* pointer, std::size_t size);
    // The program frees a block, which was recorded or not.
    void Freed(void* pointer, bool wasRecorded);

protected:
    constexpr Site(bool isNew, const char* file, int line) : m_file(file), m_line(line), m_isNew(isNew) {}
    constexpr ~Site() = default;
    void Enter()
    {
        m_isEntered = true;
        m_outer = s_innermost;
        s_innermost = this;
    }
    void Leave()
    {
        m_isEntered = false;
        s_innermost = m_outer;
    }
    void Record(void* pointer, std::size_t size)
    {
        g_hasRecords = true;
        AllocMap::Record(pointer, size, m_file, m_line);
    }

    struct Block {
        char* pointer;
        std::size_t size;

        bool Holds(const volatile void* place) const
        {
            const auto* wanted = static_cast<const volatile char*>(place);
            return pointer && wanted >= pointer && wanted <= pointer + size;
        }
    };
    static constexpr int kOthers = 4;

    static inline thread_local Site* s_innermost = nullptr;
    Site* m_outer = nullptr;
    const char* m_file;
    int m_line;
    const bool m_isNew;
    bool m_isEntered = false;
    bool m_isOpen = true;    // new: no block has been allocated yet; delete: no recorded one freed
    int m_otherCount = 0;    // new: blocks that were allocated after the first
    Block m_own = {};        // new: the first block; delete: the last one freed
    Block m_others[kOthers]; // as many as counted
};

class NewSite : public Site
{
public:
    constexpr NewSite(const char* file, int line) : Site(true, file, line)
    {
        if (!std::is_constant_evaluated() && AllocMap::IsTracking(file))
            Enter();
    }
    constexpr ~NewSite()
    {
        if (m_isEntered)
            Leave();
    }

    // The expression's result.
    template <class T>
    constexpr T* operator->*(T* made)
    {
        if (!std::is_constant_evaluated())
            Keep(made);
        if (m_isEntered)
            End(made);
        return made;
    }

    // For `*new T`: the object instead of its address.
    struct Object {
        NewSite& site;

        template <class T>
        constexpr T& operator->*(T* made) const
        {
            return *(site->*made);
        }
    };
    constexpr Object operator*() { return {*this}; }

private:
    // Compilers may leave out a block that nobody looks at, but not always the delete that belongs to it.
    static void Keep([[maybe_unused]] const volatile void* made)
    {
#ifdef __GNUC__
        __asm__ volatile("" : : "g"(made));
#endif
    }
    void End(const volatile void* made)
    {
        Leave();
        if (!m_own.pointer || m_own.Holds(made))
            return;
        AllocMap::Drop(m_own.pointer);
        for (int i = 0; i < m_otherCount; ++i)
            if (m_others[i].Holds(made))
                return Record(m_others[i].pointer, m_others[i].size);
    }
};

class DeleteSite : public Site
{
public:
    constexpr DeleteSite(const char* file, int line) : Site(false, file, line)
    {
        if (!std::is_constant_evaluated() && AllocMap::IsTracking(file)) {
            PreDelete(file, line);
            Enter();
        }
    }
    constexpr ~DeleteSite()
    {
        if (m_isEntered)
            End();
    }
    // Lets the macro go on with its other branch.
    constexpr explicit operator bool() const { return false; }

private:
    void Fail()
    {
        if (AllocMap* tracker = AllocMap::Instance())
            tracker->DelAllocInfo(m_own.pointer);
    }
    void End()
    {
        Leave();
        // When an exception passes, the operand has thrown it, and nothing was deleted.
        if (m_isOpen && std::uncaught_exceptions() == 0)
            Fail();
    }
};

inline void Site::Allocated(void* pointer, std::size_t size)
{
    if (!m_isNew)
        return;
    const Block block = {static_cast<char*>(pointer), size};
    if (std::exchange(m_isOpen, false)) {
        m_own = block;
        Record(pointer, size);
    } else if (m_otherCount < kOthers) {
        m_others[m_otherCount++] = block;
    }
}

inline void Site::Freed(void* pointer, bool wasRecorded)
{
    if (!m_isNew) {
        m_own.pointer = static_cast<char*>(pointer);
        m_isOpen = m_isOpen && !wasRecorded;
    } else if (pointer == m_own.pointer) { // a constructor has thrown
        m_own = {};
        m_isOpen = true;
    }
    for (int i = 0; i < m_otherCount; ++i)
        if (m_others[i].pointer == pointer)
            m_others[i] = {};
}

} // namespace LeakTester

// In the global namespace, so that `::new` may stand in front of them.
using ZekNewSite = LeakTester::NewSite;
using ZekDeleteSite = LeakTester::DeleteSite;
