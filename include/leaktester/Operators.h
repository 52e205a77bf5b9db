// The program's allocation functions and its tracker. One source of the program includes them, through
// MemoryLeakTester.h.
//
// All blocks come from malloc and go to free. A recorded block is forgotten wherever in the program it is
// deleted, in a smart pointer of the C++ library for example; before anything is recorded that costs a test
// of a variable.
#pragma once

#include "Sites.h"

#include <cstdint>
#include <cstdlib>
#include <new>

namespace LeakTester {

inline void Allocated(void* pointer, std::size_t size)
{
    if (Site* site = Site::Innermost())
        site->Allocated(pointer, size);
}

// Null when there is no memory.
inline void* Take(std::size_t size)
{
    void* memory = std::malloc(size != 0 ? size : 1);
    Allocated(memory, size);
    return memory;
}

// In front of an aligned block stands where its memory begins.
inline void* TakeAligned(std::size_t size, std::size_t alignment)
{
    const std::size_t more = alignment + sizeof(void*);
    void* memory = size + more > size ? std::malloc(size + more) : nullptr;
    if (!memory)
        return nullptr;
    const auto end = reinterpret_cast<std::uintptr_t>(memory) + more;
    void* block = reinterpret_cast<void*>(end - end % alignment);
    static_cast<void**>(block)[-1] = memory;
    Allocated(block, size);
    return block;
}

// Asks the program's handler for memory until there is some, or the handler is gone.
template <class TAKE>
#ifdef __GNUC__
__attribute__((noinline, cold))
#endif
void* Insist(TAKE take)
{
    for (;;) {
        const std::new_handler handler = std::get_new_handler();
        if (!handler)
            throw std::bad_alloc();
        handler();
        if (void* block = take())
            return block;
    }
}

template <class TAKE>
void* TakeOrThrow(TAKE take)
{
    void* block = take();
    return block ? block : Insist(take);
}

template <class TAKE>
void* TakeOrNull(TAKE take) noexcept
{
    try {
        return TakeOrThrow(take);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

inline void Freed(void* pointer)
{
    const bool wasRecorded = g_hasRecords && AllocMap::Drop(pointer);
    if (Site* site = Site::Innermost())
        site->Freed(pointer, wasRecorded);
}

inline void Give(void* pointer)
{
    if (!pointer)
        return;
    Freed(pointer);
    std::free(pointer);
}

inline void GiveAligned(void* pointer)
{
    if (!pointer)
        return;
    Freed(pointer);
    std::free(static_cast<void**>(pointer)[-1]);
}

inline std::size_t Number(std::align_val_t alignment)
{
    return static_cast<std::size_t>(alignment);
}

} // namespace LeakTester

// Not inlined: compilers would warn of what they see in one source alone.
#ifdef __GNUC__
#define ZEK_OUT_OF_LINE __attribute__((noinline))
#else
#define ZEK_OUT_OF_LINE
#endif

#define ZEK_DEFINE_ALLOCATION(NAME)                                                                          \
    ZEK_OUT_OF_LINE void* operator NAME(std::size_t size)                                                    \
    {                                                                                                        \
        return LeakTester::TakeOrThrow([=] { return LeakTester::Take(size); });                              \
    }                                                                                                        \
    ZEK_OUT_OF_LINE void* operator NAME(std::size_t size, const std::nothrow_t&) noexcept                    \
    {                                                                                                        \
        return LeakTester::TakeOrNull([=] { return LeakTester::Take(size); });                               \
    }                                                                                                        \
    ZEK_OUT_OF_LINE void* operator NAME(std::size_t size, std::align_val_t alignment)                        \
    {                                                                                                        \
        return LeakTester::TakeOrThrow(                                                                      \
            [=] { return LeakTester::TakeAligned(size, LeakTester::Number(alignment)); });                   \
    }                                                                                                        \
    ZEK_OUT_OF_LINE void* operator NAME(std::size_t size, std::align_val_t alignment,                        \
                                        const std::nothrow_t&) noexcept                                      \
    {                                                                                                        \
        return LeakTester::TakeOrNull(                                                                       \
            [=] { return LeakTester::TakeAligned(size, LeakTester::Number(alignment)); });                   \
    }

#define ZEK_DEFINE_DEALLOCATION(NAME)                                                                        \
    ZEK_OUT_OF_LINE void operator NAME(void* block) noexcept                                                 \
    {                                                                                                        \
        LeakTester::Give(block);                                                                             \
    }                                                                                                        \
    ZEK_OUT_OF_LINE void operator NAME(void* block, std::size_t) noexcept                                    \
    {                                                                                                        \
        LeakTester::Give(block);                                                                             \
    }                                                                                                        \
    ZEK_OUT_OF_LINE void operator NAME(void* block, const std::nothrow_t&) noexcept                          \
    {                                                                                                        \
        LeakTester::Give(block);                                                                             \
    }                                                                                                        \
    ZEK_OUT_OF_LINE void operator NAME(void* block, std::align_val_t) noexcept                               \
    {                                                                                                        \
        LeakTester::GiveAligned(block);                                                                      \
    }                                                                                                        \
    ZEK_OUT_OF_LINE void operator NAME(void* block, std::size_t, std::align_val_t) noexcept                  \
    {                                                                                                        \
        LeakTester::GiveAligned(block);                                                                      \
    }                                                                                                        \
    ZEK_OUT_OF_LINE void operator NAME(void* block, std::align_val_t, const std::nothrow_t&) noexcept        \
    {                                                                                                        \
        LeakTester::GiveAligned(block);                                                                      \
    }

ZEK_DEFINE_ALLOCATION(new)
ZEK_DEFINE_ALLOCATION(new[])
ZEK_DEFINE_DEALLOCATION(delete)
ZEK_DEFINE_DEALLOCATION(delete[])

#undef ZEK_OUT_OF_LINE
#undef ZEK_DEFINE_ALLOCATION
#undef ZEK_DEFINE_DEALLOCATION

namespace {

// Before the program's other objects with static lifetime, and gone after them: what they keep is no leak.
#ifdef __GNUC__
__attribute__((init_priority(101)))
#endif
AllocMap g_allocMap;

} // namespace
