#include "OptimizeGroup.h"

#include "ExtractSeqEx.h"
#include "RadixSort.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace {

using Value = std::int64_t;

constexpr std::size_t kLeastRunsToGroup = 4;

Value Span(const STB_OPT_NODE& run)
{
    return static_cast<Value>(run.end) - run.start;
}

bool HaveOneShape(const STB_OPT_NODE& a, const STB_OPT_NODE& b)
{
    return a.step == b.step && Span(a) == Span(b);
}

// By step, then by span, then by start.
void SortByShape(std::vector<STB_OPT_NODE>& runs)
{
    RadixSort(runs, [](const STB_OPT_NODE& run) { return SignedKey(run.start); });
    RadixSort(runs, [](const STB_OPT_NODE& run) { return static_cast<UINT>(Span(run)); });
    RadixSort(runs, [](const STB_OPT_NODE& run) { return SignedKey(run.step); });
}

// How many runs of a shape are worth writing across.
Value LeastStarts(const STB_OPT_NODE& run)
{
    return Span(run) / run.step + 2 + (run.step == 1);
}

STB_OPT_NODE Run(Value start, Value end, Value step)
{
    return {static_cast<LONG>(start), static_cast<LONG>(end), static_cast<LONG>(step)};
}

// The runs are of one shape and ascend by their starts.
void ExtractGroupEx(std::span<const STB_OPT_NODE> runs, std::vector<STB_OPT_NODE>& grouped)
{
    const Value step = runs.front().step;
    const Value span = Span(runs.front());
    // A step below 1 comes of repeats.
    if (step < 1 || static_cast<Value>(runs.size()) < LeastStarts(runs.front())) {
        grouped.insert(grouped.end(), runs.begin(), runs.end());
        return;
    }
    std::vector<LONG> starts(runs.size());
    std::transform(runs.begin(), runs.end(), starts.begin(),
                   [](const STB_OPT_NODE& run) { return run.start; });
    std::vector<STB_OPT_NODE> across;
    const Value least = LeastStarts(runs.front());
    ExtractSeqEx(starts, {least, least}, across);
    for (const STB_OPT_NODE& each : across) {
        for (Value offset = 0; offset <= span; offset += step)
            grouped.push_back(Run(each.start + offset, each.end + offset, each.step));
    }
    for (const LONG start : starts)
        grouped.push_back(Run(start, start + span, step));
}

} // namespace

void OptimizeGroup(std::vector<STB_OPT_NODE>& runs)
{
    if (runs.size() < kLeastRunsToGroup)
        return;
    SortByShape(runs);
    std::vector<STB_OPT_NODE> grouped;
    grouped.reserve(runs.size());
    for (std::size_t first = 0; first < runs.size();) {
        std::size_t last = first + 1;
        while (last < runs.size() && HaveOneShape(runs[last], runs[first]))
            ++last;
        ExtractGroupEx({runs.data() + first, last - first}, grouped);
        first = last;
    }
    runs = std::move(grouped);
}
