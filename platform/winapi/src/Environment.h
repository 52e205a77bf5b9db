// The process's environment, guarded: several threads may read and write it through these.
#pragma once

#include <atomic>
#include <optional>
#include <string>

// The value of a variable; none if it is not set.
std::optional<std::string> EnvironmentText(const char* name);

// Moves with every change through SetEnvironmentVariableA.
extern std::atomic<unsigned> g_environmentChanges;
inline unsigned EnvironmentChanges()
{
    return g_environmentChanges.load(std::memory_order_relaxed);
}
