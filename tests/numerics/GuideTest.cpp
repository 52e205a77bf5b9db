// The examples of docs/numerics.md, as they stand there.
#include <ZEK_lib.h>

#include <gmock/gmock.h>

using testing::DoubleNear;
using testing::ElementsAre;

TEST(NumericsGuide, VectorsAndAngles)
{
    double a[3] = {3, 0, 0}, b[3] = {0, 4, 0}, normal[3], middle[3];
    CMathFunc::mathCross(a, b, normal); // (0, 0, 12)
    CMathFunc::Add(a, b, middle);
    CMathFunc::Multiply(middle, 0.5);                        // (1.5, 2, 0)
    double length = CMathFunc::mathDistanceToPoint(a, b);    // 5
    double angle = CMathFunc::mathCrossAngle(a, b);          // 90
    double around = CMathFunc::mathCrossAngle(b, a, normal); // 270, counter-clockwise about the normal
    EXPECT_THAT(normal, ElementsAre(0, 0, 12));
    EXPECT_THAT(middle, ElementsAre(1.5, 2, 0));
    EXPECT_EQ(length, 5);
    EXPECT_NEAR(angle, 90, 1e-13);
    EXPECT_NEAR(around, 270, 1e-13);
}

TEST(NumericsGuide, TurningPoints)
{
    double x = 1, y = 0, z = 0;
    CMathFunc::mathRotateZ(90, x, y, z);                   // (0, 1, 0)
    CMathFunc::mathRotate(180, 2, 0, 0, 0, 0, 1, x, y, z); // about the vertical through (2, 0, 0): (4, -1, 0)

    double axes[3][3] = {{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}; // a member's own x, y and z axes
    CMathFunc::mathGCS2UCS(x, y, z, axes);                  // (-1, -4, 0) in the member's system
    EXPECT_THAT((std::array{x, y, z}), ElementsAre(DoubleNear(-1, 1e-14), DoubleNear(-4, 1e-14), 0));
}

TEST(NumericsGuide, TurningInThePlane)
{
    double px, py;
    CMathLib::Rotate(5, 2, 90, 4, 2, px, py);                        // about (4, 2): (4, 3)
    CMathLib::Mirror(1, 1, 0, 0, 1, 0, px, py);                      // about the X axis: (1, -1)
    double slope = CMathLib::CalcAngleDegLineAndAxisX(0, 0, -1, -1); // -135
    EXPECT_THAT((std::array{px, py}), ElementsAre(1, -1));
    EXPECT_NEAR(slope, -135, 1e-13);
    CMathLib::Rotate(5, 2, 90, 4, 2, px, py);
    EXPECT_THAT((std::array{px, py}), ElementsAre(DoubleNear(4, 1e-15), DoubleNear(3, 1e-15)));
}

TEST(NumericsGuide, Matrices)
{
    T_MATRIX_3X3 turn, shift, both;
    CMatrixLib::RotateM2D(turn, CMathLib::ConvDeg2Rad(90)); // matrices take radians
    CMatrixLib::TransM2D(shift, 10, 0);
    CMatrixLib::Mul33x33(both, turn, shift); // first turns, then shifts
    double qx, qy;
    CMathLib::ApplyMatrix2D(1, 0, both, qx, qy); // (10, 1)
    EXPECT_THAT((std::array{qx, qy}), ElementsAre(DoubleNear(10, 1e-15), DoubleNear(1, 1e-15)));
}

TEST(NumericsGuide, LinesAndPlanes)
{
    double start[3] = {0, 0, 0}, end[3] = {10, 0, 0}, point[3] = {13, 4, 0};
    double toSegment = CMathFunc::mathDistanceToLine(start, end, point);                // 5, to its end
    double toLine = CMathFunc::mathDistanceFromIntersectPointToLine(start, end, point); // 4

    double p1[3] = {0, 0, 2}, p2[3] = {1, 0, 2}, p3[3] = {0, 1, 2}, A, B, C, D;
    int isPlane = CMathFunc::mathPlaneEquation(p1, p2, p3, A, B, C, D);         // 1; z - 2 = 0
    double above = CMathFunc::mathDistanceToPlaneWithSign(A, B, C, D, 7, 8, 5); // 3

    double u1[3] = {0, 0, 0}, u2[3] = {4, 4, 0}, v1[3] = {0, 4, 1}, v2[3] = {4, 0, 1}, gap, crossing[3];
    int meet = CMathFunc::mathIntersectLine2(u1, u2, v1, v2, 1.5, gap, crossing); // 1: (2, 2, 1), gap 1
    EXPECT_EQ(toSegment, 5);
    EXPECT_EQ(toLine, 4);
    EXPECT_EQ(isPlane, 1);
    EXPECT_EQ(above, 3);
    EXPECT_EQ(meet, 1);
    EXPECT_NEAR(gap, 1, 1e-15);
    EXPECT_THAT(crossing, ElementsAre(DoubleNear(2, 1e-14), DoubleNear(2, 1e-14), 1));
}

TEST(NumericsGuide, AreasVolumesRounding)
{
    double corners[4][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    double volume = CMathFunc::mathVolume(4, corners); // 1/6
    double slanted = CMathFunc::mathArea(corners[1], corners[2], corners[3]);

    double xs[] = {0, 4, 4, 0}, ys[] = {0, 0, 2, 2}, cx, cy, area;
    int isPolygon = CMathFunc::mathPolyCentroid(4, xs, ys, cx, cy, area); // 1: (2, 1), area 8

    double rounded = CMathFunc::mathRoundOff(2.346, 2); // 2.35
    double next = CMathFunc::mathRoundUp(2.0, 0);       // 3: always up
    EXPECT_NEAR(volume, 1.0 / 6, 1e-16);
    EXPECT_NEAR(slanted, 0.8660254037844386, 1e-15);
    EXPECT_EQ(isPolygon, 1);
    EXPECT_THAT((std::array{cx, cy, area}), ElementsAre(2, 1, 8));
    EXPECT_DOUBLE_EQ(rounded, 2.35);
    EXPECT_EQ(next, 3);
}

TEST(NumericsGuide, SegmentsPolygonsPolylines)
{
    T_LINE2D beam = {0, 0, 2, 0}, brace = {1, -1, 1, 1}, girder = {1, 0, 5, 0};
    int crossed = CGeomFunc::GetTopologyOfTwoLines(beam, brace); // 9: they cross within both
    int overlap =
        CGeomFunc::GetTopologyOfTwoLines(beam, girder); // 10: of the second only its start lies in the first

    CArray<T_POINT2D, T_POINT2D&> slab;
    for (T_POINT2D corner : {T_POINT2D{0, 0}, {6, 0}, {6, 2}, {2, 2}, {2, 6}, {0, 6}})
        slab.Add(corner);
    T_POINT2D column = {1, 5}, yard = {4, 4};
    int onSlab = CGeomFunc::IsPointInPolygon(column, slab); // 1
    int beside = CGeomFunc::IsPointInPolygon(yard, slab);   // 0

    CArray<T_POINT3D, T_POINT3D&> cable;
    for (T_POINT3D p : {T_POINT3D{0, 0, 0}, {4, 0, 0}, {4, 3, 0}, {1, -3, 0}})
        cable.Add(p);
    int tangled = CGeomFunc::CheckPolylineSelfIntersection(cable); // 1
    EXPECT_EQ(crossed, 9);
    EXPECT_EQ(overlap, 10);
    EXPECT_EQ(onSlab, 1);
    EXPECT_EQ(beside, 0);
    EXPECT_EQ(tangled, 1);
}
