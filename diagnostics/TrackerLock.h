// Keeps threads apart, and a thread from itself: what the tracker's own work allocates is never tracked.
#pragma once

#include <Threads.h>

#include <atomic>
#include <thread>

class TrackerLock
{
public:
    // False when the calling thread holds it already.
    bool Enter()
    {
        const std::thread::id self = std::this_thread::get_id();
        if (m_owner.load(std::memory_order_relaxed) == self)
            return false;
        if (IsOnlyThread())
            m_owner.store(self, std::memory_order_relaxed); // an exchange costs more than all the rest
        else
            Wait(self);
        return true;
    }
    void Leave() { m_owner.store(std::thread::id(), std::memory_order_release); }

private:
    void Wait(std::thread::id self)
    {
        std::thread::id nobody;
        while (!m_owner.compare_exchange_weak(nobody, self, std::memory_order_acquire,
                                              std::memory_order_relaxed)) {
            if (nobody != std::thread::id())
                std::this_thread::yield();
            nobody = std::thread::id();
        }
    }

    std::atomic<std::thread::id> m_owner;
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
