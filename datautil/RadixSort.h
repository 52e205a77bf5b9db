// A sort by whole numbers that is faster than comparing them.
#pragma once

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace radix {

// Three digits of 11 bits, from the lowest: a table of counts that stays in the nearest cache.
constexpr unsigned kDigitBits = 11;
constexpr unsigned kDigits = 3;
constexpr std::size_t kBuckets = 1u << kDigitBits;
// Fewer records are compared sooner than the tables are filled.
constexpr std::size_t kFewestToDistribute = 256;

using Buckets = std::array<std::size_t, kBuckets>;

inline std::size_t Digit(UINT key, unsigned digit)
{
    return key >> (digit * kDigitBits) & (kBuckets - 1);
}

// From how many records have a digit to where the first of them goes.
inline void MakePlaces(Buckets& buckets)
{
    std::size_t place = 0;
    for (std::size_t& bucket : buckets) {
        const std::size_t count = bucket;
        bucket = place;
        place += count;
    }
}

template <class Record, class Key>
void Distribute(std::vector<Record>& records, Key key)
{
    std::array<Buckets, kDigits> buckets = {};
    for (const Record& record : records) {
        for (unsigned digit = 0; digit < kDigits; ++digit)
            ++buckets[digit][Digit(key(record), digit)];
    }
    std::vector<Record> sorted(records.size());
    for (unsigned digit = 0; digit < kDigits; ++digit) {
        Buckets& places = buckets[digit];
        if (places[Digit(key(records.front()), digit)] == records.size())
            continue; // all the same
        MakePlaces(places);
        for (const Record& record : records)
            sorted[places[Digit(key(record), digit)]++] = record;
        records.swap(sorted);
    }
}

} // namespace radix

// The key of a signed number: with the sign turned round it has the order of an unsigned one.
inline UINT SignedKey(LONG number)
{
    constexpr UINT kSign = 0x80000000;
    return static_cast<UINT>(number) ^ kSign;
}

// Sorts ascending by what `key` answers for a record, a UINT; those with equal keys stay in their order.
// Needs as much memory again while it runs, unless the records are in order already.
template <class Record, class Key>
void RadixSort(std::vector<Record>& records, Key key)
{
    const auto before = [&](const Record& a, const Record& b) { return key(a) < key(b); };
    if (std::is_sorted(records.begin(), records.end(), before))
        return;
    if (records.size() < radix::kFewestToDistribute)
        std::stable_sort(records.begin(), records.end(), before);
    else
        radix::Distribute(records, key);
}

inline void RadixSort(std::vector<UINT>& numbers)
{
    RadixSort(numbers, [](UINT number) { return number; });
}
