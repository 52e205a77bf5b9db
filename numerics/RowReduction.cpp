#include "RowReduction.h"

#include <algorithm>

namespace {

// So many columns of all steps stay in the nearest cache while the rows pass.
constexpr int kStrip = 64;

// A tile fills the registers of any processor with 16 vectors of two.
constexpr int kRows = 3;
constexpr int kColumns = 8;

// One tile, held in registers; its first row is `row` of the rows to reduce.
template <int Rows, int Columns>
void ReduceTile(const Steps& steps, double* target, std::ptrdiff_t stride, int row, int column)
{
    double* const corner = target + row * stride + column;
    const double* const factors = steps.factors + row * stride;
    double tile[Rows][Columns];
    for (int r = 0; r < Rows; ++r) {
        for (int c = 0; c < Columns; ++c)
            tile[r][c] = corner[r * stride + c];
    }
    for (int step = 0; step < steps.count; ++step) {
        const std::ptrdiff_t at = step * steps.next;
        const double* const stepRow = steps.rows + at * stride + column;
        for (int r = 0; r < Rows; ++r) {
            for (int c = 0; c < Columns; ++c)
                tile[r][c] -= factors[r * stride + at] * stepRow[c];
        }
    }
    for (int r = 0; r < Rows; ++r) {
        for (int c = 0; c < Columns; ++c)
            corner[r * stride + c] = tile[r][c];
    }
}

template <int Rows, int Columns>
void ReduceStrip(const Steps& steps, double* target, std::ptrdiff_t stride, int row, int from, int to)
{
    for (; from + Columns <= to; from += Columns)
        ReduceTile<Rows, Columns>(steps, target, stride, row, from);
    for (; from < to; ++from)
        ReduceTile<Rows, 1>(steps, target, stride, row, from);
}

} // namespace

ZEK_FOR_EACH_PROCESSOR
void ReduceRows(const Steps& steps, double* target, std::ptrdiff_t stride, int rows, int from, int to)
{
    for (int strip = from; strip < to; strip += kStrip) {
        const int end = std::min(strip + kStrip, to);
        int row = 0;
        for (; row + kRows <= rows; row += kRows)
            ReduceStrip<kRows, kColumns>(steps, target, stride, row, strip, end);
        for (; row < rows; ++row)
            ReduceStrip<1, kColumns>(steps, target, stride, row, strip, end);
    }
}
