// The test values that drive the tracker, read again whenever the registry may have changed.
#pragma once

#include <RegistryWatch.h>

#include <atomic>

class TrackerSwitches
{
public:
    TrackerSwitches();

    // True while nothing that was read can have changed. From any thread.
    bool Stand() const { return m_isRead.load(std::memory_order_acquire) && m_watch.Stands(); }
    // Reads anew. From one thread at a time.
    void Read();

    int Period() const { return m_period.load(std::memory_order_relaxed); }
    bool HasPeriod() const { return m_hasPeriod.load(std::memory_order_relaxed); } // a text that is not empty
    int StopAt() const { return m_stopAt.load(std::memory_order_relaxed); }

private:
    RegistryWatch m_watch;
    std::atomic<bool> m_isRead = false; // since the watch was renewed
    std::atomic<int> m_period = 0;
    std::atomic<bool> m_hasPeriod = false;
    std::atomic<int> m_stopAt = 0;
};
