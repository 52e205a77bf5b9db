// The second pass over a list of numbers: runs whose numbers need not stand side by side.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

// Numbers at equal steps, from `first` to `last`. Wider than the numbers, so that no difference overflows.
struct Progression {
    std::int64_t first, last, step;
};

// How many numbers make a run: with step 1, and with any other (4 or more).
struct LeastLength {
    std::int64_t neighbours, stepped;

    std::int64_t For(std::int64_t step) const { return step == 1 ? neighbours : stepped; }
};

// Takes from each number in turn, as long as there is one, the run of the smallest step that begins with it,
// and appends it to `found`. Answers what is left, in order. The numbers ascend; repeats are allowed.
//
// Time: for n numbers over a range of R at worst n * R / 1,500 steps of a few machine instructions while the
// numbers lie close (R up to 400 n), n * n / 6 otherwise; much less when runs are found soon.
// Memory: 2.2 bytes for each number of the range, or 16 for each number.
std::vector<LONG> TakeProgressions(std::vector<LONG> numbers, const LeastLength& least,
                                   std::vector<Progression>& found);
