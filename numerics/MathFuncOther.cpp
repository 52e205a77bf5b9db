// CMathFunc: decimal rounding, matrix inversion, the open-air temperature.
#include "MathFunc.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kNoPivot = 1e-12;
constexpr double kNoEntry = 1e-12;

double OnGrid(double v, int digits, double beforeFloor)
{
    return std::floor(v * std::pow(10.0, digits) + beforeFloor) * std::pow(10.0, -digits);
}

// An n x n matrix and the one that shares its row operations.
class RowPair
{
public:
    RowPair(double* left, double* right, int n) : m_left(left), m_right(right), m_size(n) {}

    double& Left(int row, int column) { return m_left[Index(row, column)]; }
    double& Right(int row, int column) { return m_right[Index(row, column)]; }

    // Row `to` += factor x row `from`, in both.
    void AddRow(int to, double factor, int from)
    {
        for (int column = 0; column < m_size; ++column) {
            Left(to, column) += factor * Left(from, column);
            Right(to, column) += factor * Right(from, column);
        }
    }

    void DivideRow(int row, double divisor)
    {
        for (int column = 0; column < m_size; ++column) {
            Left(row, column) /= divisor;
            Right(row, column) /= divisor;
        }
    }

    // The last row at or below `row` with an entry in column `row`; -1 when there is none.
    int LastRowWithEntry(int row)
    {
        int last = m_size - 1;
        while (last >= row && Left(last, row) == 0.0)
            --last;
        return last >= row ? last : -1;
    }

private:
    std::size_t Index(int row, int column) const
    {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_size) +
               static_cast<std::size_t>(column);
    }

    double* m_left;
    double* m_right;
    int m_size;
};

// Makes the diagonal entry of `row` 1 and the entries below it 0; false when the column is empty.
bool Eliminate(RowPair& rows, int row, int n)
{
    if (std::abs(rows.Left(row, row)) < kNoPivot) {
        const int last = rows.LastRowWithEntry(row);
        if (last < 0)
            return false;
        rows.AddRow(row, 1.0, last);
    }
    rows.DivideRow(row, rows.Left(row, row));
    for (int below = row + 1; below < n; ++below)
        rows.AddRow(below, -rows.Left(below, row), row);
    return true;
}

int DaysOfMonth(int month)
{
    static constexpr int kDays[] = {31, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31, 31};
    return month >= 0 && month < 14 ? kDays[month] : 30;
}

// Least at the start of February, largest at the start of August.
double Season(double month)
{
    if (month <= 2.0)
        return 4.0 - month;
    return month <= 8.0 ? month : 16.0 - month;
}

} // namespace

double CMathFunc::mathRoundOff(double v, int digits)
{
    return OnGrid(v, digits, 0.5);
}

double CMathFunc::mathRoundUp(double v, int digits)
{
    return OnGrid(v, digits, 1.0);
}

double CMathFunc::mathRoundDown(double v, int digits)
{
    return OnGrid(v, digits, 0.0);
}

int CMathFunc::mathMxInverse(double* A, int n, double* B)
{
    RowPair rows(A, B, n);
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j)
            rows.Right(i, j) = i == j ? 1.0 : 0.0;
    }
    for (int row = 0; row < n; ++row) {
        if (!Eliminate(rows, row, n))
            return 0;
    }
    for (int column = n - 1; column > 0; --column) {
        for (int above = 0; above < column; ++above)
            rows.AddRow(above, -rows.Left(above, column), column);
    }
    for (double* entry = B; entry < B + static_cast<std::ptrdiff_t>(n) * n; ++entry) {
        if (std::abs(*entry) < kNoEntry)
            *entry = 0.0;
    }
    return 1;
}

double CMathFunc::calOpenAirTemperature(int month, int day, double site, double height)
{
    const double season = Season(static_cast<double>(day) / DaysOfMonth(month) + month);
    const double base = 4.354 * season - 6.007;
    const double gradient = site < 35.0 ? 0.212 * season - 1.864 : 0.076 * season - 1.355;
    return base + gradient * (site - 35.0) - 0.006 * height;
}
