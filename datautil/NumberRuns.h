// The runs in an ascending list of numbers.
#pragma once

#include "NumericOptimizer.h"

#include <vector>

// What a list of numbers was taken apart into; both parts ascend.
struct NumberRuns {
    std::vector<STB_OPT_NODE> runs;
    std::vector<LONG> singles;
};

// Takes the longest runs of neighbours, then of numbers with others between them, and writes runs of equal
// shape across where that makes fewer of them.
NumberRuns FindRuns(const LONG* values, LONG count);
