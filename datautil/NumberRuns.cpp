#include "NumberRuns.h"

#include "NeighbourRuns.h"
#include "Progressions.h"
#include "RunGroups.h"

#include <algorithm>

namespace {

constexpr LeastLength kLeastLength = {3, 4};

void AppendRuns(const std::vector<Progression>& found, std::vector<STB_OPT_NODE>& runs)
{
    for (const Progression& run : found)
        runs.push_back(
            {static_cast<LONG>(run.first), static_cast<LONG>(run.last), static_cast<LONG>(run.step)});
}

} // namespace

template <class Number>
NumberRuns FindRuns(std::span<const Number> numbers)
{
    NumberRuns result;
    std::vector<LONG> left = TakeNeighbourRuns(numbers, result.runs);
    std::vector<Progression> found;
    result.singles = TakeProgressions(std::move(left), kLeastLength, found);
    AppendRuns(found, result.runs);
    GroupRuns(result.runs);
    std::stable_sort(result.runs.begin(), result.runs.end(),
                     [](const STB_OPT_NODE& a, const STB_OPT_NODE& b) { return a.start < b.start; });
    return result;
}

template NumberRuns FindRuns(std::span<const LONG>);
template NumberRuns FindRuns(std::span<const UINT>);
