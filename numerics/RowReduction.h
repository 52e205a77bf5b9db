// The inner loops of elimination: rows less multiples of other rows, of one square matrix or two alike.
//
// Each entry is reduced by one product after the other, in the order of the steps, just as if whole rows were
// subtracted one by one: how the work is cut into tiles does not show in a single bit.
#pragma once

#include <cstddef>

// What is subtracted from entry (row, column): the factor of each step times that step's row.
struct Steps {
    const double* factors; // the first step's factor of the first row; other rows' stand a stride further
    const double* rows;    // the first step's row, from column 0
    std::ptrdiff_t next;   // from one step's factor to the next: 1 or -1 (and as many rows)
    int count;
};

// Columns [from, to) of `rows` rows of `target`, which stand `stride` apart.
void ReduceRows(const Steps& steps, double* target, std::ptrdiff_t stride, int rows, int from, int to);
