#include "RegistryWatch.h"

#include "../winapi/src/Home.h"

#include <unistd.h>

// A counter that was mapped once stays so: another thread may be reading it.
void RegistryWatch::FollowHome()
{
    const std::string home = HomePath();
    if (m_counter.load(std::memory_order_relaxed) != &kNone && home == m_home)
        return;
    m_home = home;
    const Generation::Shared* counter = Generation::Map(home + "/registry.gen");
    m_counter.store(counter ? counter : &kNone, std::memory_order_release);
}

void RegistryWatch::Prepare()
{
    m_seen.store(Generation::kUnsettled, std::memory_order_relaxed);
    m_environment.store(EnvironmentChanges(), std::memory_order_relaxed);
    FollowHome();
    const Generation::Shared* counter = m_counter.load(std::memory_order_relaxed);
    m_prepared = counter != &kNone ? Generation::Settled(counter->load(std::memory_order_acquire))
                                   : Generation::kUnsettled;
}

bool RegistryMayHoldValues()
{
    const std::string home = HomePath();
    return !home.empty() && access((home + "/registry.db").c_str(), F_OK) == 0;
}
