#include "NumberRuns.h"

#include "ExtractSeq.h"
#include "ExtractSeqEx.h"
#include "RadixSort.h"
#include "OptimizeGroup.h"

namespace {

constexpr LeastLength kLeastLength = {3, 4};

} // namespace

template <class Number>
NumberRuns FindRuns(std::span<const Number> numbers)
{
    NumberRuns result;
    result.singles = ExtractSeq(numbers, result.runs);
    ExtractSeqEx(result.singles, kLeastLength, result.runs);
    OptimizeGroup(result.runs);
    RadixSort(result.runs, [](const STB_OPT_NODE& run) { return SignedKey(run.start); });
    return result;
}

template NumberRuns FindRuns(std::span<const LONG>);
template NumberRuns FindRuns(std::span<const UINT>);
