// The last pass over a list of numbers: runs of one shape, written across.
#pragma once

#include "NumericOptimizer.h"

#include <vector>

// Where runs of equal step and length start at equal distances, and there are more of them than each has
// numbers, as many runs across replace them as each has numbers. Plain ranges read better and must gain one
// more. Leaves fewer than four runs alone. The order of the runs changes.
void OptimizeGroup(std::vector<STB_OPT_NODE>& runs);
