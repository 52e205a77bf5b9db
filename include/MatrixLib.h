// 3 x 3 matrices for shifting, turning, scaling and mirroring in the plane.
//
//   T_MATRIX_3X3 turn, shift, both;
//   CMatrixLib::RotateM2D(turn, CMathLib::ConvDeg2Rad(90.0));
//   CMatrixLib::TransM2D(shift, 10.0, 0.0);
//   CMatrixLib::Mul33x33(both, turn, shift); // first turns, then shifts
//
// A point is the row vector (x, y, 1) on the left of the matrix, so translation stands in the third row, and
// of a product the left factor acts first. CMathLib applies matrices to points.
//
// Units:   angles are radians, counter-clockwise; lengths are the caller's.
// Results: every member fills its first argument, whatever it held, and returns it.
// Errors:  none; what is not finite goes through the arithmetic.
// Threads: reentrant; nothing is stored.
#pragma once

#include <afxver_.h>

// Row-major: M[row][column].
struct T_MATRIX_3X3 {
    double m[3][3];

    double* operator[](int row) { return m[row]; }
    const double* operator[](int row) const { return m[row]; }
};

// A row vector.
struct T_MATRIX_1X3 {
    double m[3];

    double& operator[](int column) { return m[column]; }
    double operator[](int column) const { return m[column]; }
};

class AFX_EXT_CLASS CMatrixLib
{
public:
    virtual ~CMatrixLib() = default;

    static T_MATRIX_3X3& IdentityM2D(T_MATRIX_3X3& M);
    // Moves by (tx, ty).
    static T_MATRIX_3X3& TransM2D(T_MATRIX_3X3& M, double tx, double ty);
    // Turns about the origin, or about (cx, cy). Sine and cosine are used as they come: a quarter turn leaves
    // 6e-17 where a zero is meant.
    static T_MATRIX_3X3& RotateM2D(T_MATRIX_3X3& M, double rad);
    static T_MATRIX_3X3& RotateM2D(T_MATRIX_3X3& M, double rad, double cx, double cy);
    // diag(sx, sy, 1), under two names: scales about the origin; a factor of -1 mirrors.
    static T_MATRIX_3X3& ScaleM2D(T_MATRIX_3X3& M, double sx, double sy);
    static T_MATRIX_3X3& MirrorM2D(T_MATRIX_3X3& M, double sx, double sy);
    // Mirrors about the line through (x1, y1) and (x2, y2). Points closer than CMathFunc::m_NormalZero stand
    // for the horizontal through the first.
    static T_MATRIX_3X3& MirrorM2D(T_MATRIX_3X3& M, double x1, double y1, double x2, double y2);

    // C = A B. C is written while A and B are read, so it must be neither.
    static T_MATRIX_3X3& Mul33x33(T_MATRIX_3X3& C, const T_MATRIX_3X3& A, const T_MATRIX_3X3& B);
    // r = v M, the row vector v on the left. r is written while v is read, so it must not be v.
    static T_MATRIX_1X3& Mul13x33(T_MATRIX_1X3& r, const T_MATRIX_1X3& v, const T_MATRIX_3X3& M);

protected:
    CMatrixLib() = default;
};
