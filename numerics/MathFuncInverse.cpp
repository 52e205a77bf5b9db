// CMathFunc: matrix inversion.
//
// Elimination runs over panels of columns: a panel is eliminated alone, then its steps are taken together on
// the rest of the rows. Every entry meets the same operations in the same order as without panels.
#include "MathFunc.h"

#include "RowReduction.h"
#include "SmallInverse.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kNoPivot = 1e-12;
constexpr double kNoEntry = 1e-12;
constexpr int kPanel = 32;

// The matrix that becomes a unit triangle, and the one that starts as identity and ends as its inverse.
class Elimination
{
public:
    Elimination(double* left, double* right, int n) : m_left(left), m_right(right), m_size(n) {}

    bool Run();

private:
    double* Left(int row) const { return m_left + row * m_size; }
    double* Right(int row) const { return m_right + row * m_size; }
    int Size() const { return static_cast<int>(m_size); }

    void MakeIdentity();
    bool ReadyPivot(int row);
    void DividePanelRow(int row, int width);
    int EliminatePanel(int from, int width);
    void TakeSteps(int from, int end, int width);
    void ReduceBothRows(int from, int steps, int row, int rows, int width);
    void DivideRestOfRow(int row, double pivot, int width);
    void ForgetFactors(int from, int end);
    void SubstituteBack();

    double* m_left;
    double* m_right;
    std::ptrdiff_t m_size;
    int m_filled = 0; // columns of the right matrix beyond this are still the identity's
    double m_pivots[kPanel] = {};
};

void Elimination::MakeIdentity()
{
    std::fill(m_right, m_right + m_size * m_size, 0.0);
    for (int i = 0; i < Size(); ++i)
        Right(i)[i] = 1.0;
}

// Adds the last row that has an entry in a column without a pivot. False when there is none, or when the sum
// vanishes.
bool Elimination::ReadyPivot(int row)
{
    if (!(std::abs(Left(row)[row]) < kNoPivot))
        return true;
    int last = Size() - 1;
    while (last >= row && Left(last)[row] == 0.0)
        --last;
    if (last < row)
        return false;
    m_filled = std::max(m_filled, last + 1);
    for (int column = row; column < Size(); ++column)
        Left(row)[column] += Left(last)[column];
    for (int column = 0; column < m_filled; ++column)
        Right(row)[column] += Right(last)[column];
    return Left(row)[row] != 0.0;
}

void Elimination::DividePanelRow(int row, int width)
{
    double* const pivotRow = Left(row);
    const double pivot = pivotRow[row];
    pivotRow[row] = 1.0;
    for (int column = row + 1; column < width; ++column)
        pivotRow[column] /= pivot;
}

// Eliminates the columns of a panel within it; what stays below the diagonal are the factors of its steps.
// Answers the step that needs a row added, which takes all entries of that row: it starts a panel of its own.
int Elimination::EliminatePanel(int from, int width)
{
    int row = from;
    for (; row < width && (row == from || !(std::abs(Left(row)[row]) < kNoPivot)); ++row) {
        m_pivots[row - from] = Left(row)[row];
        DividePanelRow(row, width);
        const double* const pivotRow = Left(row);
        for (int below = row + 1; below < Size(); ++below) {
            double* const reduced = Left(below);
            const double factor = reduced[row];
            for (int column = row + 1; column < width; ++column)
                reduced[column] -= factor * pivotRow[column];
        }
    }
    return row;
}

void Elimination::ReduceBothRows(int from, int steps, int row, int rows, int width)
{
    const double* const factors = Left(row) + from;
    ReduceRows({factors, Left(from), 1, steps}, Left(row), m_size, rows, width, Size());
    ReduceRows({factors, Right(from), 1, steps}, Right(row), m_size, rows, 0, m_filled);
}

void Elimination::DivideRestOfRow(int row, double pivot, int width)
{
    for (int column = width; column < Size(); ++column)
        Left(row)[column] /= pivot;
    for (int column = 0; column < m_filled; ++column)
        Right(row)[column] /= pivot;
}

// The panel's steps on all that lies outside it.
void Elimination::TakeSteps(int from, int end, int width)
{
    m_filled = std::max(m_filled, end);
    for (int row = from; row < end; ++row) {
        ReduceBothRows(from, row - from, row, 1, width);
        DivideRestOfRow(row, m_pivots[row - from], width);
    }
    if (end < Size())
        ReduceBothRows(from, end - from, end, Size() - end, width);
}

void Elimination::ForgetFactors(int from, int end)
{
    for (int row = from + 1; row < Size(); ++row)
        std::fill(Left(row) + from, Left(row) + std::min(row, end), 0.0);
}

// From the last row up. The left matrix keeps its triangle.
void Elimination::SubstituteBack()
{
    for (int end = Size(); end > 0; end -= kPanel) {
        const int from = std::max(end - kPanel, 0);
        const int last = end - 1;
        for (int row = last - 1; row >= from; --row)
            ReduceRows({Left(row) + last, Right(last), -1, last - row}, Right(row), m_size, 1, 0, Size());
        ReduceRows({m_left + last, Right(last), -1, end - from}, m_right, m_size, from, 0, Size());
    }
}

bool Elimination::Run()
{
    MakeIdentity();
    for (int from = 0; from < Size();) {
        if (!ReadyPivot(from))
            return false;
        const int width = std::min(from + kPanel, Size());
        const int end = EliminatePanel(from, width);
        TakeSteps(from, end, width);
        ForgetFactors(from, end);
        from = end;
    }
    SubstituteBack();
    return true;
}

void CleanUp(double* matrix, std::ptrdiff_t entries)
{
    for (double* entry = matrix; entry < matrix + entries; ++entry)
        *entry = std::abs(*entry) < kNoEntry ? 0.0 : *entry;
}

} // namespace

int CMathFunc::mathMxInverse(double* A, int n, double* B)
{
    if (n <= 0)
        return 1;
    const bool inverted =
        n <= kLargestSmallMatrix ? InvertSmall(A, n, B, kNoPivot) : Elimination(A, B, n).Run();
    if (inverted)
        CleanUp(B, static_cast<std::ptrdiff_t>(n) * n);
    return inverted ? 1 : 0;
}
