// Keeps threads apart, and a thread from itself: what the tracker's own work allocates is never tracked.
#pragma once

#include <Threads.h>

#include <atomic>
#include <cstdint>
#include <thread>

class TrackerLock
{
public:
    // False when the calling thread holds it already.
    bool Enter()
    {
        const std::uintptr_t self = CurrentThread();
        if (m_owner.load(std::memory_order_relaxed) == self)
            return false;
        if (IsOnlyThread())
            m_owner.store(self, std::memory_order_relaxed); // an exchange costs more than all the rest
        else
            Wait(self);
        return true;
    }
    void Leave() { m_owner.store(kNobody, std::memory_order_release); }

private:
    static constexpr std::uintptr_t kNobody = 0;

    void Wait(std::uintptr_t self)
    {
        std::uintptr_t owner = kNobody;
        while (!m_owner.compare_exchange_weak(owner, self, std::memory_order_acquire,
                                              std::memory_order_relaxed)) {
            if (owner != kNobody)
                std::this_thread::yield();
            owner = kNobody;
        }
    }

    std::atomic<std::uintptr_t> m_owner = kNobody;
};

// Holds the lock for a block, if it could be had.
class TrackerEntry
{
public:
    explicit TrackerEntry(TrackerLock& lock) : m_lock(lock.Enter() ? &lock : nullptr) {}
    ~TrackerEntry()
    {
        if (m_lock)
            m_lock->Leave();
    }
    TrackerEntry(const TrackerEntry&) = delete;
    TrackerEntry& operator=(const TrackerEntry&) = delete;
    explicit operator bool() const { return m_lock != nullptr; }

private:
    TrackerLock* m_lock;
};
