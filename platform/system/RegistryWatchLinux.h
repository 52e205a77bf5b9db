// Linux: the registry's generation counter (see Generation.h) lies in memory that all processes share.
#pragma once

#include "../winapi/src/Environment.h"
#include "../winapi/src/registry/Generation.h"

#include <string>

class RegistryWatch
{
public:
    // Watches one key of HKEY_CURRENT_USER, which need not exist. One counter tells of all keys.
    explicit RegistryWatch(const char*) {}
    RegistryWatch(const RegistryWatch&) = delete;
    RegistryWatch& operator=(const RegistryWatch&) = delete;

    // False before the first Confirm(), after a Prepare(), and always when there is no way to know.
    bool Stands() const
    {
        const Generation::Shared* counter = m_counter.load(std::memory_order_acquire);
        return counter->load(std::memory_order_acquire) == m_seen.load(std::memory_order_acquire) &&
               m_environment.load(std::memory_order_relaxed) == EnvironmentChanges();
    }
    void Prepare();
    void Confirm() { m_seen.store(m_prepared, std::memory_order_release); }
    RegistryCounters Counters() const { return {m_counter, m_seen, &g_environmentChanges, m_environment}; }

private:
    void FollowHome();

    static inline const Generation::Shared kNone = 0;
    std::atomic<const Generation::Shared*> m_counter = &kNone;
    std::atomic<std::uint64_t> m_seen = Generation::kUnsettled;
    std::atomic<unsigned> m_environment = 0;
    std::uint64_t m_prepared = Generation::kUnsettled; // what Confirm() will have seen
    std::string m_home;                                // whose counter it is
};
