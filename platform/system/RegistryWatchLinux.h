// Linux: the registry's generation counter (see Generation.h) lies in memory that all processes share.
#pragma once

#include "../winapi/src/Environment.h"
#include "../winapi/src/registry/Generation.h"

#include <atomic>
#include <string>

class RegistryWatch
{
public:
    // Watches one key of HKEY_CURRENT_USER, which need not exist. One counter tells of all keys.
    explicit RegistryWatch(const char*) {}
    RegistryWatch(const RegistryWatch&) = delete;
    RegistryWatch& operator=(const RegistryWatch&) = delete;

    // False before the first Renew(), and always when there is no way to know.
    bool Stands() const
    {
        const Generation::Shared* counter = m_counter.load(std::memory_order_acquire);
        return counter->load(std::memory_order_acquire) == m_seen.load(std::memory_order_relaxed) &&
               m_environment.load(std::memory_order_relaxed) == EnvironmentChanges();
    }
    void Renew();

private:
    void FollowHome();

    static inline const Generation::Shared kNone = 0;
    std::atomic<const Generation::Shared*> m_counter = &kNone;
    std::atomic<std::uint64_t> m_seen = Generation::kUnsettled;
    std::atomic<unsigned> m_environment = 0;
    std::string m_home; // whose counter it is
};
