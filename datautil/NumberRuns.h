// The runs in an ascending list of numbers.
#pragma once

#include "NumericOptimizer.h"

#include <span>
#include <vector>

// What a list of numbers was taken apart into; both parts ascend.
struct NumberRuns {
    std::vector<STB_OPT_NODE> runs;
    std::vector<LONG> singles;
};

// Takes the longest runs of neighbours, then of numbers with others between them, and writes runs of equal
// shape across where that makes fewer of them. Number is LONG or UINT, whose values beyond 31 bits count as
// negative.
template <class Number>
NumberRuns FindRuns(std::span<const Number> numbers);
