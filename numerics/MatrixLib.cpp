#include "MatrixLib.h"

#include "MathLib.h"

#include <cmath>

namespace {

constexpr T_MATRIX_3X3 kIdentity = {{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};

// What `inner` does about the origin, done about (x, y).
T_MATRIX_3X3& About(T_MATRIX_3X3& M, double x, double y, const T_MATRIX_3X3& inner)
{
    T_MATRIX_3X3 there, back, moved;
    CMatrixLib::TransM2D(there, -x, -y);
    CMatrixLib::TransM2D(back, x, y);
    return CMatrixLib::Mul33x33(M, CMatrixLib::Mul33x33(moved, there, inner), back);
}

} // namespace

T_MATRIX_3X3& CMatrixLib::IdentityM2D(T_MATRIX_3X3& M)
{
    return M = kIdentity;
}

T_MATRIX_3X3& CMatrixLib::TransM2D(T_MATRIX_3X3& M, double tx, double ty)
{
    IdentityM2D(M);
    M[2][0] = tx;
    M[2][1] = ty;
    return M;
}

T_MATRIX_3X3& CMatrixLib::RotateM2D(T_MATRIX_3X3& M, double rad)
{
    const double c = std::cos(rad);
    const double s = std::sin(rad);
    return M = {{{c, s, 0.0}, {-s, c, 0.0}, {0.0, 0.0, 1.0}}};
}

T_MATRIX_3X3& CMatrixLib::RotateM2D(T_MATRIX_3X3& M, double rad, double cx, double cy)
{
    T_MATRIX_3X3 turn;
    return About(M, cx, cy, RotateM2D(turn, rad));
}

T_MATRIX_3X3& CMatrixLib::ScaleM2D(T_MATRIX_3X3& M, double sx, double sy)
{
    return M = {{{sx, 0.0, 0.0}, {0.0, sy, 0.0}, {0.0, 0.0, 1.0}}};
}

T_MATRIX_3X3& CMatrixLib::MirrorM2D(T_MATRIX_3X3& M, double sx, double sy)
{
    return ScaleM2D(M, sx, sy);
}

T_MATRIX_3X3& CMatrixLib::MirrorM2D(T_MATRIX_3X3& M, double x1, double y1, double x2, double y2)
{
    const double angle = CMathLib::CalcAngleRadLineAndAxisX(x1, y1, x2, y2);
    T_MATRIX_3X3 level, flip, levelled, tilt, mirror;
    Mul33x33(levelled, RotateM2D(level, -angle), ScaleM2D(flip, 1.0, -1.0));
    return About(M, x1, y1, Mul33x33(mirror, levelled, RotateM2D(tilt, angle)));
}

T_MATRIX_3X3& CMatrixLib::Mul33x33(T_MATRIX_3X3& C, const T_MATRIX_3X3& A, const T_MATRIX_3X3& B)
{
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            C[row][column] = A[row][0] * B[0][column] + A[row][1] * B[1][column] + A[row][2] * B[2][column];
    return C;
}

T_MATRIX_1X3& CMatrixLib::Mul13x33(T_MATRIX_1X3& r, const T_MATRIX_1X3& v, const T_MATRIX_3X3& M)
{
    for (int column = 0; column < 3; ++column)
        r[column] = v[0] * M[0][column] + v[1] * M[1][column] + v[2] * M[2][column];
    return r;
}
