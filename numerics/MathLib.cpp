#include "MathLib.h"

#include "MathFunc.h"
#include "MatrixLib.h"

double CMathLib::ConvDeg2Rad(double deg)
{
    return deg * CMathFunc::m_trrad;
}

double CMathLib::CalcAngleDegLineAndAxisX(double x1, double y1, double x2, double y2)
{
    double ux = 0.0;
    double uy = 0.0;
    if (!CMathFunc::mathNormalize(x2 - x1, y2 - y1, ux, uy))
        return 0.0;
    const double angle = CMathFunc::mathCrossAngle(ux, uy, 0.0, 1.0, 0.0, 0.0);
    return uy >= 0.0 ? angle : -angle;
}

double CMathLib::CalcAngleRadLineAndAxisX(double x1, double y1, double x2, double y2)
{
    return ConvDeg2Rad(CalcAngleDegLineAndAxisX(x1, y1, x2, y2));
}

void CMathLib::ApplyMatrix2D(double x, double y, const T_MATRIX_3X3& M, double& ox, double& oy)
{
    const T_MATRIX_1X3 point = {{x, y, 1.0}};
    T_MATRIX_1X3 moved;
    CMatrixLib::Mul13x33(moved, point, M);
    ox = moved[0];
    oy = moved[1];
}

void CMathLib::Rotate(double x, double y, double deg, double cx, double cy, double& ox, double& oy)
{
    T_MATRIX_3X3 turn;
    ApplyMatrix2D(x, y, CMatrixLib::RotateM2D(turn, ConvDeg2Rad(deg), cx, cy), ox, oy);
}

void CMathLib::Mirror(double x, double y, double x1, double y1, double x2, double y2, double& ox, double& oy)
{
    T_MATRIX_3X3 mirror;
    ApplyMatrix2D(x, y, CMatrixLib::MirrorM2D(mirror, x1, y1, x2, y2), ox, oy);
}
