// A sort of whole numbers that is faster than comparing them.
#pragma once

#include <windows.h>

#include <vector>

// Sorts ascending. Needs as much memory again while it runs.
void RadixSort(std::vector<UINT>& numbers);
