#include "NumberRuns.h"

#include "NeighbourRuns.h"
#include "Progressions.h"
#include "RadixSort.h"
#include "RunGroups.h"

namespace {

constexpr LeastLength kLeastLength = {3, 4};

} // namespace

template <class Number>
NumberRuns FindRuns(std::span<const Number> numbers)
{
    NumberRuns result;
    result.singles = TakeNeighbourRuns(numbers, result.runs);
    TakeProgressions(result.singles, kLeastLength, result.runs);
    GroupRuns(result.runs);
    RadixSort(result.runs, [](const STB_OPT_NODE& run) { return SignedKey(run.start); });
    return result;
}

template NumberRuns FindRuns(std::span<const LONG>);
template NumberRuns FindRuns(std::span<const UINT>);
