// The run-time library's qsort, the same on every platform.
//
// The run-time libraries order elements differently where a comparison is no order (a wrapped difference, a
// tolerance, numbers that are none), and some of them read outside the array then. Here equal input gives
// equal output everywhere, and whatever the comparison answers, the result holds the same elements.
#pragma once

#include "afxver_.h"

#include <cstddef>

// Sorts `count` elements of `width` bytes each, moved as raw bytes. A later element goes before an earlier
// one only when `compare` puts the earlier one behind it, so equal ones keep their order. Takes memory for
// half of the elements; std::bad_alloc when there is none, before anything has moved.
AFX_CORE_API void AFXAPI AfxQSort(void* base, std::size_t count, std::size_t width,
                                  int (*compare)(const void*, const void*));
