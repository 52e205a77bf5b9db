// Inverses of n x n matrices against elimination by rows, Eigen and LAPACK (OpenBLAS on one thread):
// nanoseconds of one, and its growth.
//
//   geometry_inverse
#include "Comparison.h"
#include "Workload.h"

#include <ZEK_lib.h>

#include <Eigen/Dense>
#include <cmath>
#include <cstdio>

extern "C" {
void openblas_set_num_threads(int threads);
void dgetrf_(const int* rows, const int* columns, double* a, const int* stride, int* pivots, int* info);
void dgetri_(const int* n, double* a, const int* stride, const int* pivots, double* work, const int* size,
             int* info);
}

using namespace bench;

namespace {

std::vector<double> Dominant(int n)
{
    Numbers numbers(13);
    std::vector<double> a(static_cast<std::size_t>(n) * static_cast<std::size_t>(n));
    for (std::size_t k = 0; k < a.size(); ++k)
        a[k] = numbers.Next(-0.5, 0.5) + (k % (static_cast<std::size_t>(n) + 1) == 0 ? n : 0);
    return a;
}

// Whole rows, one after the other.
void InvertByRows(double* a, int n, double* b)
{
    const auto row = [n](double* m, int i) { return m + static_cast<std::ptrdiff_t>(i) * n; };
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j)
            row(b, i)[j] = i == j;
    }
    for (int i = 0; i < n; ++i) {
        const double pivot = row(a, i)[i];
        for (int j = 0; j < n; ++j) {
            row(a, i)[j] /= pivot;
            row(b, i)[j] /= pivot;
        }
        for (int k = i + 1; k < n; ++k) {
            const double factor = row(a, k)[i];
            for (int j = 0; j < n; ++j) {
                row(a, k)[j] -= factor * row(a, i)[j];
                row(b, k)[j] -= factor * row(b, i)[j];
            }
        }
    }
    for (int c = n - 1; c > 0; --c) {
        for (int k = 0; k < c; ++k) {
            for (int j = 0; j < n; ++j)
                row(b, k)[j] -= row(a, k)[c] * row(b, c)[j];
        }
    }
}

double Trace(const std::vector<double>& b, int n)
{
    double sum = 0.0;
    for (int i = 0; i < n; ++i)
        sum += b[static_cast<std::size_t>(i) * (static_cast<std::size_t>(n) + 1)];
    return sum;
}

double Measure(int n)
{
    const std::vector<double> a = Dominant(n);
    std::vector<double> left = a, right = a, work(a.size() * 8 + 64);
    std::vector<int> pivots(static_cast<std::size_t>(n));
    const auto library = [&] {
        left = a;
        CMathFunc::mathMxInverse(left.data(), n, right.data());
        return Trace(right, n);
    };
    const auto rows = [&] {
        left = a;
        InvertByRows(left.data(), n, right.data());
        return Trace(right, n);
    };
    const auto eigen = [&] {
        const Eigen::Map<const Eigen::MatrixXd> from(a.data(), n, n);
        Eigen::Map<Eigen::MatrixXd> to(right.data(), n, n);
        to = from.partialPivLu().inverse();
        return Trace(right, n);
    };
    const auto lapack = [&] {
        right = a;
        const int size = static_cast<int>(work.size());
        int info = 0;
        dgetrf_(&n, &n, right.data(), &n, pivots.data(), &info);
        dgetri_(&n, right.data(), &n, pivots.data(), work.data(), &size, &info);
        return Trace(right, n);
    };
    return Compare("inverse, n = " + std::to_string(n), 1,
                   {{"library", library}, {"by rows", rows}, {"Eigen", eigen}, {"LAPACK", lapack}}, 1e-9);
}

} // namespace

int main()
{
    openblas_set_num_threads(1);
    double before = 0.0;
    int sizeBefore = 0;
    for (const int n : {2, 3, 4, 6, 12, 25, 50, 100, 200, 500, 1000}) {
        const double time = Measure(n);
        if (sizeBefore > 0)
            std::printf("    grows with the power %.2f\n",
                        std::log(time / before) / std::log(static_cast<double>(n) / sizeBefore));
        before = time;
        sizeBefore = n;
    }
}
