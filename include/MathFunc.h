// Stateless geometry in double precision: vectors, rotations, angles, lines, planes, areas, volumes.
//
//   double a[3] = {3.0, 0.0, 0.0}, b[3] = {0.0, 4.0, 0.0}, normal[3];
//   CMathFunc::mathCross(a, b, normal);                  // (0, 0, 12)
//   double angle = CMathFunc::mathCrossAngle(a, b);      // 90
//
// Points and vectors are double[3] (x, y, z) unless a declaration says 2-D: then double[2] or two doubles.
// Homogeneous matrices are double[4][4], row-major, for row vectors: translation stands in row 3.
//
// Units:   angles are degrees, but for mathSin, mathCos, mathAsin and mathAcos, which speak radians.
//          Lengths, areas and volumes come in the caller's own unit of length.
// Errors:  told by results only. Where no guard is mentioned, a degenerate input gives a value that is not a
//          number. Outputs are written on failure only where that is said.
// Aliases: an output may be one of the inputs, unless it is said otherwise.
// Results: the same on both platforms, but for the last bits of sines, cosines and their inverses.
// Threads: reentrant; nothing is stored. Only a host that assigns m_NormalZero has to order that itself.
#pragma once

#include <afxver_.h>

class CQuaternion;

class AFX_EXT_CLASS CMathFunc
{
public:
    // Below this length, sine or cosine distance a value counts as zero. Read afresh at every use; the
    // library never assigns it, a host may.
    static double m_NormalZero;
    static double m_pi;
    static double m_trrad; // degrees to radians
    static double m_trang; // radians to degrees

    virtual ~CMathFunc() = default;
    CMathFunc() = default;
    CMathFunc(const CMathFunc&) = default;
    CMathFunc& operator=(const CMathFunc&) = default;

    // ---- Tolerances and scalars ----

    // 1 for -1e-7 < v < 1e-7, else 0.
    static int IsZero(double v);
    // 1 when the squared length is below 1e-12, else 0.
    static int IsZero(const double* const v);
    static double NonZero();       // 1e-7
    static double SquareNonZero(); // 1e-12
    // Turns what IsZero() accepts into +1e-7, also when it was negative.
    static void MakeNonZero(double& v);
    // Turns what IsZero() accepts into (0, 0, 1e-7).
    static void MakeNonZero(double* const v);

    // Sine and cosine of radians. A result closer than m_NormalZero to 0, 1 or -1 is exactly that: sines of
    // multiples of m_pi up to 8 are 0. Good to the last bits for angles up to 1e6.
    static double mathSin(double rad);
    static double mathCos(double rad);
    // Radians, in [-pi/2, pi/2] and [0, pi]; an argument outside [-1, 1] counts as the nearer bound.
    static double mathAsin(double v);
    static double mathAcos(double v);
    // 0 for a negative v.
    static double mathSqrt(double v);
    static int mathAbs(int v);
    static double mathAbs(double v);

    // ---- Vectors ----

    static double SquareLength(const double* const v);
    static double Length(const double* const v);
    static void Add(const double* const a, const double* const b, double* const out);
    static void Add(double* const a, const double* const b);
    static void Subtract(const double* const a, const double* const b, double* const out);
    static void Subtract(double* const a, const double* const b);
    static void Multiply(const double* const a, double s, double* const out);
    static void Multiply(double* const a, double s);
    static void Copy(double x, double y, double z, double* const out);
    // Copies n doubles; none for n <= 0.
    static void Copy(const double* const src, double* const dst, int n);
    // a + c - b: the corner opposite b of the parallelogram a, b, c.
    static void Get4thPoint(const double* const a, const double* const b, const double* const c,
                            double* const out);

    static double Dot(const double* const a, const double* const b);
    static double mathVecDot(double* const a, double* const b);
    // Dot products limited to [-1, 1]: cosines, for unit vectors.
    static double mathDot(double* const a, double* const b);
    static double mathDot(double ax, double ay, double bx, double by);

    // a x b, not normalised: seen from its tip, a turns to b counter-clockwise. mathNormal is the same under
    // another name.
    static void mathCross(double* const a, double* const b, double* const out);
    static void mathNormal(double* const a, double* const b, double* const out);
    // (p2 - p1) x (p3 - p1), not normalised: length is twice the triangle's area, and seen from its tip the
    // points run counter-clockwise.
    static void mathNormal(double* const p1, double* const p2, double* const p3, double* const out);
    // Writes the first four bytes of (a x b).x over the first four of out[0], and nothing else. Hosts rely
    // on the rest staying as it was; for a cross product take mathCross.
    static void mathVecCross(double* const a, double* const b, double* const out);

    // Makes v a unit vector; one shorter than 1e-6 is first enlarged by 1000. Always 1; a zero vector ends
    // as components that are no numbers.
    static int Normalize(double* const v);
    // out = v / |v| and 1; for |v| < m_NormalZero 0, and out stays as it was.
    static int mathNormalize(double* const v, double* const out);
    // As above by components; here the outputs are 0 after a refusal.
    static int mathNormalize(double x, double y, double z, double& ox, double& oy, double& oz);
    static int mathNormalize(double x, double y, double& ox, double& oy);

    static double mathLength(double x, double y, double z);
    static double mathLength(double x1, double y1, double x2, double y2); // between two 2-D points
    static double mathLength(double x1, double y1, double z1, double x2, double y2, double z2);
    static double mathDistanceToPoint(double* const a, double* const b);
    static double PointSquareDistance(const double* const a, const double* const b);

    // ---- Matrices ----

    static void mathMxIdentity(double (*const M)[4]);
    // C = A B: what turns row vectors by A first and by B then.
    static void mathMxMult(double (*const A)[4], double (*const B)[4], double (*const C)[4]);
    // Copies the first four bytes of src only. Hosts rely on the rest of dst staying as it was.
    static void mathMxCopy(double (*const src)[4], double (*const dst)[4]);
    // out = v M for homogeneous vectors of four.
    static void mathVecMult(double* const v, double (*const M)[4], double* const out);

    // ---- Rotations ----
    // Counter-clockwise as seen from the tip of the axis. Afterwards each coordinate below 1e-10 in magnitude
    // is exactly 0.

    static void mathRotateX(double angle, double& x, double& y, double& z);
    static void mathRotateY(double angle, double& x, double& y, double& z);
    static void mathRotateZ(double angle, double& x, double& y, double& z);
    // About the axis (ax, ay, az) of any length through the origin, or through (cx, cy, cz). An angle of
    // exactly 0 leaves the point bit by bit as it was; an axis shorter than 1e-15 counts as the Z axis.
    static void mathRotate(double angle, double ax, double ay, double az, double& x, double& y, double& z);
    static void mathRotate(double angle, double cx, double cy, double cz, double ax, double ay, double az,
                           double& x, double& y, double& z);
    // mathRotateX by -a1, then mathRotateY by -a2, carry the direction (x, y, z) of any length onto the Z
    // axis. a1 is in [-270, 90], a2 in [-90, 90]; no direction gives -0 and 0.
    static void mathVec2Ang(double x, double y, double z, double& a1, double& a2);

    // ---- Angles between vectors ----

    // In [0, 180], for vectors of any length but zero. From the arc cosine: within 1e-6 of 0 and 180 it
    // cannot tell angles apart.
    static double mathCrossAngle(double* const a, double* const b);
    static double mathCrossAngle(double ax, double ay, double az, double bx, double by, double bz);
    // From a to b, counter-clockwise as seen from the tip of n: in [0, 360). Equal directions are 0 apart,
    // opposite ones 180. It is the angle of both where n is within 90 degrees of a x b, else what is left to
    // 360 (without n, too).
    static double mathCrossAngle(double* const a, double* const b, double* const n);
    // In [0, 180], for 2-D unit vectors (they are not normalised).
    static double mathCrossAngle2D(double ax, double ay, double bx, double by);
    // From a to b about Z, for 3-D unit vectors (not normalised): positive for counter-clockwise. Equal
    // directions give -0 and opposite ones -180.
    static double mathCrossAngle2D(double* const a, double* const b);

    // ---- Lines and planes ----

    // The line a x + b y + c = 0 through two 2-D points. (a, b) is a unit vector to the right of p1 -> p2,
    // and a x + b y + c the distance of (x, y), positive on that side. 0 and zeros for points closer than
    // m_NormalZero.
    static int mathLineEq2D(double* const p1, double* const p2, double& a, double& b, double& c);
    // The plane a x + b y + c z + d = 0 through three points; (a, b, c) is the unit normal from whose tip
    // they run counter-clockwise. 0 and zeros when twice the triangle's area is below m_NormalZero.
    static int mathPlaneEquation(double* const p1, double* const p2, double* const p3, double& a, double& b,
                                 double& c, double& d);
    // The plane through pt with normal nrm, which is made a unit vector in place (one shorter than
    // m_NormalZero is used as it is). Always 1.
    static int mathPlaneEquation(double* const pt, double* const nrm, double& a, double& b, double& c,
                                 double& d);

    // The foot of the perpendicular from (px, py, pz) on the line through (x0, y0, z0) with direction
    // (dx, dy, dz); it is that point plus t times the direction.
    static void mathPLCrossPoint(double x0, double y0, double z0, double dx, double dy, double dz, double px,
                                 double py, double pz, double& x, double& y, double& z);
    static void mathPLCrossPoint(double x0, double y0, double z0, double dx, double dy, double dz, double px,
                                 double py, double pz, double& x, double& y, double& z, double& t);

    // ---- Distances ----

    // From q to the segment p1-p2: beyond an end it is the distance to that end. A segment shorter than
    // m_NormalZero counts as the point p1.
    static double mathDistanceToLine(double* const p1, double* const p2, double* const q);
    // From q to the infinite line p1-p2; points closer than m_NormalZero count as the point p1.
    static double mathDistanceFromIntersectPointToLine(double* const p1, double* const p2, double* const q);
    // Squared distance of p from the infinite line a-b; foot = a + t (b - a).
    static double PointLineSquareDistance3D(const double* const p, const double* const a,
                                            const double* const b, double& t, double* const foot);
    // From (x, y, z) to the plane a x + b y + c z + d = 0 of any scale. -1 for a normal shorter than
    // m_NormalZero.
    static double mathDistanceToPlane(double a, double b, double c, double d, double x, double y, double z);
    // The same with a sign, positive on the normal's side. Here -1 may be a true distance too.
    static double mathDistanceToPlaneWithSign(double a, double b, double c, double d, double x, double y,
                                              double z);
    // Between the infinite lines p1-p2 and q1-q2. -1 when a line has no direction or when they are parallel
    // (cross product of the unit directions shorter than 1e-7).
    static double mathDistanceLine(double* const p1, double* const p2, double* const q1, double* const q2);

    // ---- Intersections ----

    // Where the line through pt along dir meets the plane through ppt with normal nrm: 1. 0 and out = 0 when
    // they are parallel (cosine to the normal below 1e-7). dir and nrm become unit vectors in either case.
    static int mathIntersectPointToPlane(double* const dir, double* const pt, double* const nrm,
                                         double* const ppt, double* const out);
    // 1 when the infinite lines p1-p2 and q1-q2 pass each other within `tol`: `dist` is their distance, `out`
    // the point of the second line that covers the first as seen along the coordinate axis nearest to their
    // common normal. 0 and out = 0 when dist > tol, or when a line has no direction or they are parallel
    // (cross product of the unit directions shorter than 1e-4); then `dist` is not written either.
    static int mathIntersectLine(double* const p1, double* const p2, double* const q1, double* const q2,
                                 double tol, double& dist, double* const out);
    // The same for the segments: the crossing lies on both, ends included with a slack of 1e-7 of the
    // segment's length. Parallel segments never meet, even when they overlap.
    static int mathIntersectLine2(double* const p1, double* const p2, double* const q1, double* const q2,
                                  double tol, double& dist, double* const out);
    // Where the 2-D lines 1-2 and 3-4 meet; with bSegment != 0 on the segments, with the slack above.
    // 0 and x = y = 0 when not.
    static int mathIntersectLine2D(double x1, double y1, double x2, double y2, double x3, double y3,
                                   double x4, double y4, double& x, double& y, int bSegment);

    // ---- Coordinate systems ----
    // The global system (GCS) and a user's (UCS), whose unit axes are the rows of M.

    // Each of n points becomes (p . X, p . Y, p . Z); none for n <= 0.
    static void mathTranUCS(const double* const X, const double* const Y, const double* const Z, int n,
                            double (*const pts)[3]);
    static void mathGCS2UCS(double& x, double& y, double& z, double (*const M)[3]);
    static void mathUCS2GCS(double& x, double& y, double& z, double (*const M)[3]);
    static void mathGCS2UCS(double& x, double& y, double (*const M)[2]);
    static void mathUCS2GCS(double& x, double& y, double (*const M)[2]);
    // With the UCS origin at (ox, oy).
    static void mathGCS2UCS(double& x, double& y, double (*const M)[2], double ox, double oy);
    static void mathUCS2GCS(double& x, double& y, double (*const M)[2], double ox, double oy);

    // ---- Areas and volumes ----

    // Area of a triangle from its side lengths (Heron's formula), never negative. Good to 5e-8 of the longest
    // side's square; where rounding would ask for the root of a negative number it is 0.
    static double mathArea(double* const p1, double* const p2, double* const p3);
    static double mathArea2d(double x1, double y1, double x2, double y2, double x3, double y3);
    // Area of the closed polygon of n points, either way round, by trapezoids above its lowest point; 0 for
    // n < 1. Where edges cross, parts that run the other way round count against the rest.
    static double mathArea2d(int n, double* const x, double* const y);
    // Centroid and signed area (positive for counter-clockwise) of the closed polygon, by Green's theorem
    // from the origin: 1. 0 and zeros for fewer than three points or an area of exactly 0. Far from the
    // origin digits cancel: at a distance of d sizes about 2 log10(d) of them.
    static int mathPolyCentroid(int n, double* const x, double* const y, double& cx, double& cy,
                                double& area);
    // Volume of the solid with n corners: 4 tetrahedron, 6 wedge, 8 hexahedron; 0 for any other n, 5
    // included. Positive when the first face (1-2-3 or 1-2-3-4) runs counter-clockwise as seen from the
    // others' side. Tetrahedra are exact. Hexahedra, trilinear between their corners, are integrated at 2 x 2
    // x 2 Gauss points whose abscissa has seven digits, wedges at four points of the triangle times two: good
    // to 1e-7 of the edges' cube, and for wedges to 1e-6.
    static double mathVolume(int n, double (*const pts)[3]);

    // ---- Rounding ----
    // To `digits` decimals; negative digits round to tens, hundreds...

    static double mathRoundOff(double v, int digits); // halves go up, also below zero
    // Down to the grid, plus one step: a value on the grid goes up as well.
    static double mathRoundUp(double v, int digits);
    static double mathRoundDown(double v, int digits); // towards minus infinity

    // ---- Projections ----
    // Of a point onto a plane, or onto a surface in its own frame: cylinders and cones about the Z axis,
    // spheres about the origin. `_normal` moves the point perpendicularly, `_mf_vector` along a direction of
    // any length, forwards or back, to the nearer of two crossings (to the one ahead when they are equally
    // near). True when there is such a point; else `out` stays as it was. A direction shorter than
    // m_NormalZero is refused, and so is one that misses the surface. With a tol of 0 only what has no answer
    // is refused.

    // Onto radius R; false within tol of the axis and for h <= 0. The height does not limit the result.
    static bool project_on_cylinder_normal(const double* const p, double R, double h, double tol,
                                           double* const out);
    static bool project_on_cylinder_mf_vector(const double* const p, const double* const dir, double R,
                                              double h, double tol, double* const out);
    // Radius r1 at z = 0 and r2 at z = h; equal radii (within tol) are a cylinder. `_normal` also refuses a
    // foot beyond the frustum's ends; along a direction the cone goes on beyond them.
    static bool project_on_cone_normal(const double* const p, double r1, double r2, double h, double tol,
                                       double* const out);
    static bool project_on_cone_mf_vector(const double* const p, const double* const dir, double r1,
                                          double r2, double h, double tol, double* const out);
    // False for R <= 0, and within tol of the centre. Within tol of the Z axis `_normal` writes out[2] only.
    static bool project_on_sphere_normal(const double* const p, double R, double tol, double* const out);
    static bool project_on_sphere_mf_vector(const double* const p, const double* const dir, double R,
                                            double tol, double* const out);
    // Onto the ellipsoid with semi-axes a, b and c along X, Y and Z; false when one is not positive.
    // `_normal` refuses the centre. It stays in the half plane from the Z axis through the point, and moves
    // to the point of the ellipse there that is nearest: perpendicularly to that ellipse, and to the whole
    // surface when a and b are equal. Of two that are equally near it takes the one with z > 0. On the Z axis
    // (within m_NormalZero) it moves along the axis to the pole on the point's side.
    static bool project_on_ellipsoid_normal(const double* const p, double a, double b, double c,
                                            double* const out);
    static bool project_on_ellipsoid_mf_vector(const double* const p, const double* const dir, double a,
                                               double b, double c, double* const out);
    // Onto the plane through a, b and c; false when its normal's squared length (four times the squared area
    // of the triangle) is below tol.
    static bool project_on_plane_normal(const double* const p, const double* const a, const double* const b,
                                        const double* const c, double tol, double* const out);
    // Onto A x + B y + C z = D, D standing on the right; false when A A + B B + C C is below tol.
    static bool project_on_plane_normal(const double* const p, double A, double B, double C, double D,
                                        double tol, double* const out);
    // False for points on a line, and for directions within a degree of the plane (sine below 0.0174524); the
    // CuttingPlane one takes all but parallel ones (sine below 1e-10). tol is not consulted.
    static bool project_on_plane_mf_vector(const double* const p, const double* const dir,
                                           const double* const a, const double* const b,
                                           const double* const c, double tol, double* const out);
    static bool project_on_plane_mf_vector_for_CuttingPlane(const double* const p, const double* const dir,
                                                            const double* const a, const double* const b,
                                                            const double* const c, double* const out);

    // ---- Quaternions ----
    // In single precision; Quaternion.h says how they are read.

    // The shortest turn that carries the unit vector u onto the unit vector v. Opposite vectors have none:
    // the result is no number.
    static CQuaternion RotationArc(float* const u, float* const v);
    // M, a row-major 4x4 matrix for row vectors, turns by the unit quaternion q and then moves by t.
    static void MakeTransformMatrix(float* const M, CQuaternion q, float* const t);
    // The Hamilton product a b: the turn by b followed by that by a.
    static CQuaternion MultQuaternions(CQuaternion a, CQuaternion b);

    // ---- Others ----

    // B = the inverse of the n x n matrix A (flat, row-major), without row exchange: 1. A is overwritten.
    // Entries of B below 1e-12 in magnitude are exactly 0. A pivot below 1e-12 is helped by adding the last
    // row with an entry in its column. 0 for a singular A, where there is no such row or the sum is 0; B is
    // then unfinished. After a success A is the unit upper triangle of the elimination. Gauss and Jordan's
    // method without pivoting for size: a matrix without a dominant diagonal may lose digits.
    static int mathMxInverse(double* A, int n, double* B);
    // The open-air temperature on a day of the year by an empirical formula: lowest round the start of
    // February, highest round the start of August, falling as `site` goes beyond 35 and by 0.006 for each
    // unit of `height`. No leap years; months 0 and 13 have 31 days.
    static double calOpenAirTemperature(int month, int day, double site, double height);

protected:
    static double Solid_4(double (*const pts)[3]);
    static double Solid_5(double (*const pts)[3]);
    static double Solid_6(double (*const pts)[3]);
    static double Solid_8(double (*const pts)[3]);
};

#include "MathFuncInline.h"
