// The first pass over a list of numbers: runs of neighbours.
#pragma once

#include "NumericOptimizer.h"

#include <span>
#include <vector>

// Appends to `runs` the runs whose numbers stand side by side in the list, three with step 1 or four with any
// other, as they are found from the left again and again. Answers what is left, in order. Number is LONG or
// UINT, whose values beyond 31 bits count as negative. Any order and repeats are taken as they come.
template <class Number>
std::vector<LONG> ExtractSeq(std::span<const Number> numbers, std::vector<STB_OPT_NODE>& runs);
