// Inversion of matrices so small that whatever is done about them costs more than the arithmetic.
#pragma once

constexpr int kLargestSmallMatrix = 32;

// As CMathFunc::mathMxInverse, for 1 <= n <= kLargestSmallMatrix, but for the final clean-up of B. `least` is
// the magnitude below which a pivot is none.
bool InvertSmall(double* A, int n, double* B, double least);
