// The places in a host's files where blocks are allocated and deleted, for as long as that takes.
//
// The macros of MemoryLeakTester.h put a site in front of each new and delete. The program's allocation
// functions (Operators.h) tell the innermost site of their thread of the blocks that come and go:
//  - a new-expression records the first block that is allocated. Should the result lie elsewhere, that block
//    was taken by the number of elements or by a constructor over storage that was there, and is let go;
//  - a delete-expression has failed unless the object's own block was recorded: of those that were there
//    before it began, the last one that it frees. (Those that came later are the operand's temporaries.)
#pragma once

#include "../AllocMap.h"

#include <exception>
#include <type_traits>
#include <utility>

namespace LeakTester {

// Whether the program's files have recorded anything yet: before, no block that is freed can be recorded.
inline bool g_hasRecords = false;

// What is going on in the thread. A site that is not entered costs a test: only then are its members set.
class Site
{
public:
    static Site* Innermost() { return s_innermost; }
    Site(const Site&) = delete;
    Site& operator=(const Site&) = delete;

    // The program has allocated a block.
    void Allocated(void* pointer, std::size_t size);
    // The program is about to free a block, which was recorded or not.
    void Freed(void* pointer, bool wasRecorded);

protected:
    constexpr Site() {}
    constexpr ~Site() = default;
    void Enter(bool isNew)
    {
        m_isNew = isNew;
        m_isOpen = true;
        m_isFull = false;
        m_otherCount = 0;
        m_own.pointer = nullptr;
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

    void Remember(const Block& block);
    bool ForgetOther(const void* pointer);
    void PassOthersOn()
    {
        for (int i = 0; m_outer && i < m_otherCount; ++i)
            m_outer->Remember(m_others[i]);
    }

    static inline thread_local Site* s_innermost = nullptr;
    bool m_isEntered = false;
    bool m_isNew;
    bool m_isOpen;    // new: no block has been allocated yet; delete: the object's own was not recorded
    bool m_isFull;    // not all of those are known
    int m_otherCount; // of the blocks that came after it; delete: of those that have come since it began
    int m_line;       // new
    const char* m_file;
    Site* m_outer;
    Block m_own;             // new: the first block; delete: the last one freed
    Block m_others[kOthers]; // as many as counted
};

class NewSite : public Site
{
public:
    constexpr NewSite(const char* file, int line)
    {
        if (std::is_constant_evaluated() || !AllocMap::IsTracking(file))
            return;
        m_file = file;
        m_line = line;
        Enter(true);
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
        if (!m_own.Holds(made))
            TakeOther(made);
        PassOthersOn();
    }
    // The first block was not the result's.
    void TakeOther(const volatile void* made)
    {
        if (!m_own.pointer)
            return;
        AllocMap::Drop(m_own.pointer);
        Block result = {};
        for (int i = 0; i < m_otherCount; ++i)
            if (m_others[i].Holds(made))
                result = m_others[i];
        if (result.pointer) {
            ForgetOther(result.pointer);
            Record(result.pointer, result.size);
        }
        Remember(m_own);
    }
};

class DeleteSite : public Site
{
public:
    constexpr DeleteSite(const char* file, int line)
    {
        if (!std::is_constant_evaluated() && AllocMap::BeginDelete(file, line))
            Enter(false);
    }
    constexpr ~DeleteSite()
    {
        if (m_isEntered)
            End();
    }
    // Lets the macro go on with its other branch.
    constexpr explicit operator bool() const { return false; }

private:
    void End()
    {
        Leave();
        // When an exception passes, the operand has thrown it, and nothing was deleted.
        if (m_isOpen && std::uncaught_exceptions() == 0)
            Fail();
    }
    void Fail()
    {
        if (m_own.pointer)
            AllocMap::CountFailure();
        else if (AllocMap* tracker = AllocMap::Instance())
            tracker->DelAllocInfo(nullptr);
    }
};

inline void Site::Remember(const Block& block)
{
    if (m_otherCount < kOthers)
        m_others[m_otherCount++] = block;
    else
        m_isFull = true;
}

inline bool Site::ForgetOther(const void* pointer)
{
    for (int i = 0; i < m_otherCount; ++i) {
        if (m_others[i].pointer == pointer) {
            m_others[i] = m_others[--m_otherCount];
            return true;
        }
    }
    return false;
}

inline void Site::Allocated(void* pointer, std::size_t size)
{
    const Block block = {static_cast<char*>(pointer), size};
    if (!m_isNew || !std::exchange(m_isOpen, false)) {
        Remember(block);
    } else {
        m_own = block;
        Record(pointer, size);
    }
}

inline void Site::Freed(void* pointer, bool wasRecorded)
{
    if (ForgetOther(pointer))
        return;
    if (!m_isNew) {
        m_own.pointer = static_cast<char*>(pointer);
        m_isOpen = !wasRecorded && (m_isOpen || !m_isFull);
    } else if (pointer == m_own.pointer) { // a constructor has thrown
        m_own = {};
        m_isOpen = true;
    }
}

} // namespace LeakTester

// In the global namespace, so that `::new` may stand in front of them.
using ZekNewSite = LeakTester::NewSite;
using ZekDeleteSite = LeakTester::DeleteSite;
