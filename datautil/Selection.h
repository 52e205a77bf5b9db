// What a selection string selects from a list.
#pragma once

#include "SelectionText.h"

#include <windows.h>

#include <span>
#include <vector>

// Number is LONG or UINT, whose values beyond 31 bits count as negative. The base is not empty and ascends.

// The selection in the order of the items, repeats kept; with `unique` only the first of each.
template <class Number>
std::vector<LONG> SelectInOrder(std::span<const Number> base, const std::vector<SelectionItem>& items,
                                bool unique);

// The selection ascending and free of repeats.
template <class Number>
std::vector<LONG> SelectSorted(std::span<const Number> base, const std::vector<SelectionItem>& items);
