#include "SetOperation.h"

#include "RadixSort.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace {

using Numbers = std::vector<UINT>;

// Counting takes a byte for each number of the range and list, and beats sorting up to about this many
// numbers of the range for one of the lists.
constexpr std::uint64_t kWidestRange = 4;
constexpr std::size_t kFewestToCount = 32;

struct Bounds {
    UINT low, high;

    std::uint64_t Width() const { return static_cast<std::uint64_t>(high) - low + 1; }
};

Bounds BoundsOf(std::span<const UINT> a, std::span<const UINT> b)
{
    const auto [lowA, highA] = std::minmax_element(a.begin(), a.end());
    const auto [lowB, highB] = std::minmax_element(b.begin(), b.end());
    return {std::min(*lowA, *lowB), std::max(*highA, *highB)};
}

using Count = std::uint8_t;

// How often each number of the range comes; false when one comes too often to be counted.
bool CountNumbers(std::span<const UINT> numbers, UINT low, std::vector<Count>& counts)
{
    bool fits = true;
    for (const UINT number : numbers)
        fits &= ++counts[number - low] != 0;
    return fits;
}

// Writes each number of the range as often as `keep` says of its two counts; the end of what was written.
// Most counts are 0 or 1, so that both are written without a branch.
template <class Keep>
UINT* WriteCounted(UINT low, const std::vector<Count>& a, const std::vector<Count>& b, UINT* out, Keep keep)
{
    for (std::size_t i = 0; i < a.size(); ++i) {
        int times = keep(a[i], b[i]);
        *out = low + static_cast<UINT>(i);
        out += times > 0;
        for (; times > 1; --times)
            *out++ = low + static_cast<UINT>(i);
    }
    return out;
}

UINT* WriteCounted(SetOperation operation, UINT low, const std::vector<Count>& a, const std::vector<Count>& b,
                   UINT* out)
{
    switch (operation) {
    case kUnion:
        return WriteCounted(low, a, b, out, [](int x, int y) { return std::max(x, y); });
    case kIntersection:
        return WriteCounted(low, a, b, out, [](int x, int y) { return std::min(x, y); });
    default:
        return WriteCounted(low, a, b, out, [](int x, int y) { return x - y; });
    }
}

UINT* WriteMerged(SetOperation operation, const Numbers& a, const Numbers& b, UINT* out)
{
    switch (operation) {
    case kUnion:
        return std::set_union(a.begin(), a.end(), b.begin(), b.end(), out);
    case kIntersection:
        return std::set_intersection(a.begin(), a.end(), b.begin(), b.end(), out);
    default:
        return std::set_difference(a.begin(), a.end(), b.begin(), b.end(), out);
    }
}

std::size_t MostResults(SetOperation operation, std::size_t a, std::size_t b)
{
    switch (operation) {
    case kUnion:
        return a + b;
    case kIntersection:
        return std::min(a, b);
    default:
        return a;
    }
}

// Lets `write` fill the result, with room for `most` numbers and one that does not count.
template <class Write>
void Fill(CArray<UINT, UINT>& result, std::size_t most, Write write)
{
    result.RemoveAll();
    result.SetSize(static_cast<int>(most + 1));
    UINT* const end = write(result.GetData());
    result.SetSize(static_cast<int>(end - result.GetData()));
}

} // namespace

void CombineSets(SetOperation operation, std::span<const UINT> a, std::span<const UINT> b,
                 CArray<UINT, UINT>& result)
{
    const std::size_t count = a.size() + b.size();
    const std::size_t most = MostResults(operation, a.size(), b.size());
    const Bounds bounds = BoundsOf(a, b);
    if (count >= kFewestToCount && bounds.Width() <= kWidestRange * count) {
        std::vector<Count> timesA(bounds.Width());
        std::vector<Count> timesB(bounds.Width());
        if (CountNumbers(a, bounds.low, timesA) && CountNumbers(b, bounds.low, timesB)) {
            Fill(result, most,
                 [&](UINT* out) { return WriteCounted(operation, bounds.low, timesA, timesB, out); });
            return;
        }
    }
    Numbers sortedA(a.begin(), a.end());
    Numbers sortedB(b.begin(), b.end());
    RadixSort(sortedA);
    RadixSort(sortedB);
    Fill(result, most, [&](UINT* out) { return WriteMerged(operation, sortedA, sortedB, out); });
}
