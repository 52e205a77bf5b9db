// Two unsorted lists of numbers combined as sets that hold a number as often as a list does.
#pragma once

#include <afxtempl.h>

#include <span>

enum SetOperation { kUnion = 1, kIntersection = 2, kDifference = 3 };

// Neither list is empty; `result`, which may hold one of them, becomes ascending.
void CombineSets(SetOperation operation, std::span<const UINT> a, std::span<const UINT> b,
                 CArray<UINT, UINT>& result);
