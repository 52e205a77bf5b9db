#include "SmallInverse.h"

#include <algorithm>
#include <cmath>

namespace {

// Columns are worked on four at a time, in rows filled up with zeros.
constexpr int kStep = 4;

int RoundDown(int column)
{
    return column - column % kStep;
}

int RoundUp(int columns)
{
    return RoundDown(columns + kStep - 1);
}

using Row = double[kLargestSmallMatrix];

void Reduce(Row& row, double factor, const Row& other, int from, int to)
{
    for (int column = from; column < to; column += kStep) {
        for (int k = 0; k < kStep; ++k)
            row[column + k] -= factor * other[column + k];
    }
}

void Divide(Row& row, double divisor, Row& result, int from, int to)
{
    for (int column = from; column < to; column += kStep) {
        for (int k = 0; k < kStep; ++k)
            row[column + k] = result[column + k] = row[column + k] / divisor;
    }
}

class SmallElimination
{
public:
    SmallElimination(const double* A, int n) : m_size(n), m_width(RoundUp(n))
    {
        for (int i = 0; i < n; ++i) {
            std::fill(m_left[i] + n, m_left[i] + m_width, 0.0);
            std::fill(m_right[i], m_right[i] + m_width, 0.0);
            std::copy(A + i * n, A + (i + 1) * n, m_left[i]);
            m_right[i][i] = 1.0;
        }
    }

    bool Run(double least)
    {
        for (int row = 0; row < m_size; ++row) {
            if (std::abs(m_left[row][row]) < least && !AddRow(row))
                return false;
            Eliminate(row);
        }
        SubstituteBack();
        return true;
    }

    void Store(double* A, double* B) const
    {
        for (int i = 0; i < m_size; ++i) {
            std::copy(m_left[i], m_left[i] + m_size, A + i * m_size);
            std::copy(m_right[i], m_right[i] + m_size, B + i * m_size);
        }
    }

private:
    // The last row with an entry in the column; false when there is none, or when the sum vanishes.
    bool AddRow(int row)
    {
        int last = m_size - 1;
        while (last >= row && m_left[last][row] == 0.0)
            --last;
        if (last < row)
            return false;
        m_filled = std::max(m_filled, last + 1);
        for (int column = 0; column < m_size; ++column) {
            m_left[row][column] += m_left[last][column];
            m_right[row][column] += m_right[last][column];
        }
        return m_left[row][row] != 0.0;
    }

    // Copies of the pivot's row tell the compiler that no other row is part of it.
    void Eliminate(int row)
    {
        Row left;
        Row right;
        m_filled = std::max(m_filled, row + 1);
        const int from = RoundDown(row);
        const int to = RoundUp(m_filled);
        const double pivot = m_left[row][row];
        Divide(m_left[row], pivot, left, from, m_width);
        Divide(m_right[row], pivot, right, 0, to);
        for (int below = row + 1; below < m_size; ++below) {
            const double factor = m_left[below][row];
            Reduce(m_left[below], factor, left, from, m_width);
            Reduce(m_right[below], factor, right, 0, to);
        }
    }

    void SubstituteBack()
    {
        Row right;
        for (int column = m_size - 1; column > 0; --column) {
            std::copy(m_right[column], m_right[column] + m_width, right);
            for (int row = 0; row < column; ++row)
                Reduce(m_right[row], m_left[row][column], right, 0, m_width);
        }
    }

    Row m_left[kLargestSmallMatrix];
    Row m_right[kLargestSmallMatrix];
    int m_size;
    int m_width;
    int m_filled = 0; // columns of the right matrix beyond this are still the identity's
};

} // namespace

ZEK_FOR_EACH_PROCESSOR
bool InvertSmall(double* A, int n, double* B, double least)
{
    SmallElimination elimination(A, n);
    const bool inverted = elimination.Run(least);
    elimination.Store(A, B);
    return inverted;
}
