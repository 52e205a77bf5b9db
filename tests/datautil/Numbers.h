// Lists of numbers for the tests of compaction and selection, the same in every run.
#pragma once

#include <afxtempl.h>

#include <cstdint>
#include <random>
#include <vector>

using NumberList = std::vector<LONG>;

inline CArray<UINT, UINT>& Fill(CArray<UINT, UINT>& a, const NumberList& numbers)
{
    a.RemoveAll();
    for (const LONG number : numbers)
        a.Add(static_cast<UINT>(number));
    return a;
}

inline NumberList ListOf(const CArray<UINT, UINT>& a)
{
    NumberList numbers;
    for (int i = 0; i < a.GetSize(); ++i)
        numbers.push_back(static_cast<LONG>(a[i]));
    return numbers;
}

inline unsigned Below(std::mt19937& random, unsigned limit)
{
    return static_cast<unsigned>(random() % limit);
}

// Ascending numbers from `first` on, each kept with a chance of `percent`; at most `limit` of them.
inline NumberList Sieve(std::mt19937& random, LONG first, unsigned percent, std::size_t limit)
{
    NumberList numbers;
    for (std::int64_t number = first; numbers.size() < limit && number <= 2147483647; ++number) {
        if (Below(random, 100) < percent)
            numbers.push_back(static_cast<LONG>(number));
    }
    return numbers;
}
