// The second pass over a list of numbers: runs whose numbers need not stand side by side.
#pragma once

#include "NumericOptimizer.h"

#include <cstdint>
#include <vector>

// How many numbers make a run: with step 1, and with any other (4 or more).
struct LeastLength {
    std::int64_t neighbours, stepped;

    std::int64_t For(std::int64_t step) const { return step == 1 ? neighbours : stepped; }
};

// Takes from each number in turn, as long as it is there, the run of the smallest step that begins with it,
// and appends it to `runs`. The numbers ascend, and so does what is left of them; repeats are allowed.
//
// Time: for n numbers over a range of R at worst n * R / 3,000 steps of a few machine instructions while the
// numbers lie close (R up to 150 n), n * n / 6 otherwise; much less when runs are found soon.
// Memory: 2.2 bytes for each number of the range, or 13 for each number.
void ExtractSeqEx(std::vector<LONG>& numbers, const LeastLength& least, std::vector<STB_OPT_NODE>& runs);
