#include "RadixSort.h"

#include <algorithm>
#include <array>

namespace {

// Three digits of 11 bits, from the lowest: a table of counts that stays in the nearest cache.
constexpr unsigned kDigitBits = 11;
constexpr unsigned kDigits = 3;
constexpr std::size_t kBuckets = 1u << kDigitBits;
// Fewer numbers are compared sooner than the tables are filled.
constexpr std::size_t kFewestToDistribute = 256;

using Buckets = std::array<std::size_t, kBuckets>;

std::size_t Digit(UINT number, unsigned digit)
{
    return number >> (digit * kDigitBits) & (kBuckets - 1);
}

// From how many numbers have a digit to where the first of them goes.
void MakePlaces(Buckets& buckets)
{
    std::size_t place = 0;
    for (std::size_t& bucket : buckets) {
        const std::size_t count = bucket;
        bucket = place;
        place += count;
    }
}

} // namespace

void RadixSort(std::vector<UINT>& numbers)
{
    if (std::is_sorted(numbers.begin(), numbers.end()))
        return;
    if (numbers.size() < kFewestToDistribute) {
        std::sort(numbers.begin(), numbers.end());
        return;
    }
    std::array<Buckets, kDigits> buckets = {};
    for (const UINT number : numbers) {
        for (unsigned digit = 0; digit < kDigits; ++digit)
            ++buckets[digit][Digit(number, digit)];
    }
    std::vector<UINT> sorted(numbers.size());
    for (unsigned digit = 0; digit < kDigits; ++digit) {
        Buckets& places = buckets[digit];
        if (places[Digit(numbers.front(), digit)] == numbers.size())
            continue; // all the same
        MakePlaces(places);
        for (const UINT number : numbers)
            sorted[places[Digit(number, digit)]++] = number;
        numbers.swap(sorted);
    }
}
