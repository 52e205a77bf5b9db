// What others make of a list of numbers, and plain versions of our own work.
#pragma once

#include "Families.h"

// Compaction to runs of neighbours with step 1 only, in one pass: about the least that a text costs.
std::string FoldInOnePass(const NumberList& numbers);
// The same with CRoaring's run containers.
std::string FoldWithRoaring(const NumberList& numbers);
// All that the library does, each pass beginning anew from the left after every run: cubic in the worst case.
std::string FoldLiterally(const NumberList& numbers);

// Reads what the library writes: steps through each range, looks each number up, sorts.
NumberList SelectStepByStep(const NumberList& base, const std::string& text);

// Seconds that ClusterShell takes for the family (folding with steps from four on, then reading its own
// text); negative when it is not installed.
struct ClusterShellTimes {
    double fold, read;
};
ClusterShellTimes MeasureClusterShell(const std::string& script, const NumberList& numbers);
