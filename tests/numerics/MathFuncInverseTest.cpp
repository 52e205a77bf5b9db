#include "MathFunc.h"
#include "Random.h"

#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <vector>

namespace {

// Elimination row by row, each row whole: what the library may do faster, but not otherwise.
int InvertByRows(std::vector<double>& a, std::size_t n, std::vector<double>& b)
{
    const auto addRow = [&](std::size_t to, double factor, std::size_t from) {
        for (std::size_t j = 0; j < n; ++j) {
            a[to * n + j] += factor * a[from * n + j];
            b[to * n + j] += factor * b[from * n + j];
        }
    };
    for (std::size_t k = 0; k < n * n; ++k)
        b[k] = k % (n + 1) == 0 ? 1.0 : 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        if (std::abs(a[i * n + i]) < 1e-12) {
            std::size_t last = n;
            while (last > i && a[(last - 1) * n + i] == 0.0)
                --last;
            if (last == i)
                return 0;
            addRow(i, 1.0, last - 1);
        }
        const double pivot = a[i * n + i];
        for (std::size_t j = 0; j < n; ++j) {
            a[i * n + j] /= pivot;
            b[i * n + j] /= pivot;
        }
        for (std::size_t k = i + 1; k < n; ++k)
            addRow(k, -a[k * n + i], i);
    }
    for (std::size_t c = n - 1; c > 0; --c) {
        for (std::size_t k = 0; k < c; ++k) {
            for (std::size_t j = 0; j < n; ++j)
                b[k * n + j] -= a[k * n + c] * b[c * n + j];
        }
    }
    for (double& entry : b)
        entry = std::abs(entry) < 1e-12 ? 0.0 : entry;
    return 1;
}

// The largest entry of A B - 1, in extended precision.
double Residual(const std::vector<double>& a, const std::vector<double>& b, std::size_t n)
{
    long double worst = 0.0L;
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = 0; j < n; ++j) {
            long double sum = i == j ? -1.0L : 0.0L;
            for (std::size_t k = 0; k < n; ++k)
                sum += static_cast<long double>(a[i * n + k]) * b[k * n + j];
            worst = std::max(worst, std::abs(sum));
        }
    }
    return static_cast<double>(worst);
}

} // namespace

TEST(MathFuncInverse, IsThatOfEliminationByRowsToTheBit)
{
    Random random(53);
    const struct {
        const char* label;
        std::function<double(std::size_t, std::size_t, std::size_t)> entry;
        double residual;
    } rows[] = {
        {"well conditioned",
         [&](std::size_t n, std::size_t i, std::size_t j) {
             return random.Number(1.0) + (i == j ? static_cast<double>(n) : 0.0);
         },
         1e-12},
        {"any", [&](std::size_t, std::size_t, std::size_t) { return random.Number(); }, 1e-3},
        {"mostly zero: many rows are added",
         [&](std::size_t n, std::size_t i, std::size_t j) {
             return (i + 3) % n == j ? 2.0 : random.Number() > 9.0 ? 1.0 : 0.0;
         },
         INFINITY},
        {"small whole numbers, often singular",
         [&](std::size_t, std::size_t, std::size_t) { return std::floor(random.Number(2.0)); }, INFINITY},
        {"backwards", [](std::size_t n, std::size_t i, std::size_t j) { return i + j + 1 == n ? 4.0 : 0.0; },
         1e-15}};
    for (const auto& row : rows) {
        for (const std::size_t n : {1U, 2U, 3U, 4U, 5U, 7U, 8U, 12U, 31U, 32U, 33U, 40U, 64U, 67U, 100U}) {
            SCOPED_TRACE(testing::Message() << row.label << ", " << n);
            std::vector<double> a(n * n), b(n * n, 7.0), expected(n * n);
            for (std::size_t k = 0; k < a.size(); ++k)
                a[k] = row.entry(n, k / n, k % n);
            const std::vector<double> original = a;
            std::vector<double> literal = a;
            const int result = InvertByRows(literal, n, expected);
            ASSERT_EQ(CMathFunc::mathMxInverse(a.data(), static_cast<int>(n), b.data()), result);
            EXPECT_EQ(a, literal);
            EXPECT_EQ(b, expected);
            if (result != 0 && std::isfinite(row.residual)) {
                EXPECT_LT(Residual(original, b, n), row.residual);
            }
        }
    }
}

TEST(MathFuncInverse, AwkwardMatrices)
{
    const struct {
        const char* label;
        double a[4];
        int result;
        double b[4];
    } rows[] = {{"zero first pivot", {0, 2, 4, 0}, 1, {0, 0.25, 0.5, 0}},
                {"pivot below the tolerance, alone in its column", {1e-13, 0, 0, 1}, 1, {1e13, 0, 0, 1}},
                {"zero column", {0, 1, 0, 2}, 0, {1, 0, 0, 1}},
                {"equal rows", {1, 2, 1, 2}, 0, {1, 0, -1, 1}},
                {"the added row takes the pivot away", {1e-13, 1, -1e-13, 2}, 0, {1, 1, 0, 1}},
                {"entries that clean up", {1e13, 0, 0, 1}, 1, {0, 0, 0, 1}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        double a[4], b[5] = {9, 9, 9, 9, 9};
        std::copy(row.a, row.a + 4, a);
        EXPECT_EQ(CMathFunc::mathMxInverse(a, 2, b), row.result);
        for (int k = 0; k < 4; ++k)
            EXPECT_NEAR(b[k], row.b[k], 1e-2);
        EXPECT_EQ(b[0] == 0.0, row.b[0] == 0.0); // exactly, where entries clean up
        EXPECT_EQ(b[4], 9.0);
    }
    EXPECT_EQ(CMathFunc::mathMxInverse(nullptr, 0, nullptr), 1);
}
