// Volumes of solid elements against direct quadrature and Eigen: nanoseconds of one.
//
//   geometry_solids
#include "Comparison.h"
#include "Workload.h"

#include <ZEK_lib.h>

#include <Eigen/Dense>
#include <array>

using namespace bench;

namespace {

constexpr std::size_t kCount = 10000;
constexpr double kAbscissa = 0.5773503;
constexpr int kSigns[8][3] = {{-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1},
                              {-1, -1, 1},  {1, -1, 1},  {1, 1, 1},  {-1, 1, 1}};

struct Solid {
    double corners[8][3];
};

// Cubes with shaken corners.
std::vector<Solid> ShakenCubes()
{
    Numbers numbers(9);
    std::vector<Solid> solids(kCount);
    for (Solid& solid : solids) {
        for (int i = 0; i < 8; ++i) {
            for (int c = 0; c < 3; ++c)
                solid.corners[i][c] = 0.5 * (kSigns[i][c] + 1) + numbers.Next(-0.1, 0.1);
        }
    }
    return solids;
}

std::vector<Solid> s_solids = ShakenCubes();

double Slope(int corner, int along, const int (&at)[3])
{
    const int* const sign = kSigns[corner];
    const int s = (along + 1) % 3, t = (along + 2) % 3;
    return 0.125 * sign[along] * (1 + sign[s] * at[s] * kAbscissa) * (1 + sign[t] * at[t] * kAbscissa);
}

double QuadratureByLoops(const Solid& solid)
{
    double volume = 0.0;
    for (const int(&at)[3] : kSigns) {
        double j[3][3] = {};
        for (int corner = 0; corner < 8; ++corner) {
            for (int r = 0; r < 3; ++r) {
                const double slope = Slope(corner, r, at);
                for (int c = 0; c < 3; ++c)
                    j[r][c] += slope * solid.corners[corner][c];
            }
        }
        volume += j[0][0] * (j[1][1] * j[2][2] - j[1][2] * j[2][1]) -
                  j[0][1] * (j[1][0] * j[2][2] - j[1][2] * j[2][0]) +
                  j[0][2] * (j[1][0] * j[2][1] - j[1][1] * j[2][0]);
    }
    return volume;
}

using Slopes = Eigen::Matrix<double, 3, 8>;

std::array<Slopes, 8> SlopeTables()
{
    std::array<Slopes, 8> tables;
    for (std::size_t point = 0; point < 8; ++point) {
        for (int r = 0; r < 3; ++r) {
            for (int corner = 0; corner < 8; ++corner)
                tables[point](r, corner) = Slope(corner, r, kSigns[point]);
        }
    }
    return tables;
}

double QuadratureByTables(const Solid& solid)
{
    static const std::array<Slopes, 8> tables = SlopeTables();
    const Eigen::Map<const Eigen::Matrix<double, 8, 3, Eigen::RowMajor>> corners(&solid.corners[0][0]);
    double volume = 0.0;
    for (const Slopes& slopes : tables) {
        const Eigen::Matrix3d jacobian = slopes * corners;
        volume += jacobian.determinant();
    }
    return volume;
}

double TetrahedronByEigen(const Solid& solid)
{
    const Eigen::Map<const Eigen::Matrix<double, 8, 3, Eigen::RowMajor>> corners(&solid.corners[0][0]);
    Eigen::Matrix3d edges;
    for (int i = 0; i < 3; ++i)
        edges.row(i) = corners.row(i + 1) - corners.row(0);
    return edges.determinant() / 6.0;
}

template <class Volume>
Work OverAll(Volume volume)
{
    return [volume] {
        double sum = 0.0;
        for (Solid& solid : s_solids)
            sum += volume(solid);
        return sum;
    };
}

} // namespace

int main()
{
    Compare("hexahedron", kCount,
            {{"library", OverAll([](Solid& solid) { return CMathFunc::mathVolume(8, solid.corners); })},
             {"direct loops", OverAll(QuadratureByLoops)},
             {"Eigen, tables", OverAll(QuadratureByTables)}},
            1e-12);
    Compare("wedge", kCount,
            {{"library", OverAll([](Solid& solid) { return CMathFunc::mathVolume(6, solid.corners); })}});
    Compare("tetrahedron", kCount,
            {{"library", OverAll([](Solid& solid) { return CMathFunc::mathVolume(4, solid.corners); })},
             {"Eigen", OverAll(TetrahedronByEigen)}});
}
