// Runs and single numbers as a text: "1to9by2 15 17to20".
#pragma once

#include "NumberRuns.h"

#include <afx.h>

// Both in one order, by their first numbers. Throws CMemoryException when a single number equals the start of
// a run (repeats can leave one), which has no place in the order: the text would grow without end.
CString MakeOptimizedStr(const NumberRuns& parts);
