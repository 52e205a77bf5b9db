// One call's time, from as many calls as take some time together.
#pragma once

#include "Measure.h"

#include <functional>
#include <string>

inline bench::Phases TimeCalls(const std::function<void()>& work)
{
    constexpr double kEnoughSeconds = 0.02;
    work(); // warms up
    int calls = 0;
    const double begin = bench::Now();
    do {
        work();
        ++calls;
    } while (bench::Now() - begin < kEnoughSeconds);
    return {(bench::Now() - begin) / calls};
}

inline bench::Contender Timed(const std::string& name, std::function<void()> work)
{
    return {name, [work = std::move(work)] { return TimeCalls(work); }};
}
