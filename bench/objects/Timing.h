// Short calls, timed in one run with their peers.
#pragma once

#include "Measure.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Times `work` where it takes some time altogether: seconds of one call.
bench::Contender Timed(const std::string& name, std::function<void()> work);

// Runs the contenders in turn and prints a line for each: nanoseconds for each of the `units` of one call,
// and the ratio of the first one's time to it. `label` begins each line.
std::vector<bench::Result> RunAndPrint(const std::string& label,
                                       const std::vector<bench::Contender>& contenders, std::size_t units);

// The same numbers on every machine.
class Numbers
{
public:
    explicit Numbers(std::uint64_t seed) : m_state(seed) {}
    std::uint32_t Next();
    std::uint32_t Below(std::uint32_t limit)
    {
        return static_cast<std::uint32_t>(static_cast<std::uint64_t>(Next()) * limit >> 32);
    }

private:
    std::uint64_t m_state;
};
