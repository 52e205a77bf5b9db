// Questions on segments, polylines and polygons: do they cross, touch, overlap; is a point inside.
//
//   CArray<T_POINT2D, T_POINT2D&> slab;      // corners either way round; the last one joins the first
//   T_POINT2D column = {3.0, 4.0};
//   int inside = CGeomFunc::IsPointInPolygon(column, slab);
//
//   T_LINE2D beam = {0.0, 0.0, 2.0, 0.0}, brace = {1.0, -1.0, 1.0, 1.0};
//   int contact = CGeomFunc::GetTopologyOfTwoLines(beam, brace); // 9: they cross
//
// Units:   coordinates are the caller's. The tolerances are absolute: a contact is a distance below 1e-10 of
//          the caller's unit, and CMathFunc's intersections take a segment as 1e-7 of its length longer at
//          each end. From coordinates of about 1e5 on, rounding comes near these 1e-10.
// Results: 1 for yes and 0 for no, unless a member says otherwise.
// Errors:  none are told; arrays with too few points answer 0. A coordinate that is not finite goes
//          through the arithmetic.
// Threads: reentrant; nothing is stored, the arrays are only read.
#pragma once

#include <afxtempl.h>

struct T_POINT2D {
    double x;
    double y;
};

struct T_POINT3D {
    double x;
    double y;
    double z;
};

// A segment from its start (x1, y1) to its end (x2, y2).
struct T_LINE2D {
    double x1;
    double y1;
    double x2;
    double y2;
};

// A rectangle along the axes.
struct T_REGION2D {
    double minX;
    double minY;
    double maxX;
    double maxY;
};

class AFX_EXT_CLASS CGeomFunc
{
public:
    virtual ~CGeomFunc() = default;

    // ---- Segments and polylines in space ----

    // Whether the segments a1-a2 and b1-b2 meet. They do when an end of one lies on the other (closer than
    // 1e-10), or when CMathFunc::mathIntersectLine2() with no tolerance finds a crossing of both. With bCross
    // == 0, two segments that share an end exactly and touch nowhere else do not meet: consecutive segments
    // of one polyline. Segments that overlap meet in either case. One without length counts as a point.
    static int CheckLineIntersection(double* const a1, double* const a2, double* const b1, double* const b2,
                                     int bCross);

    // Whether two segments of the polyline meet as CheckLineIntersection(..., 0) tells; 0 for fewer than
    // three points. Neighbours are looked at too: a polyline that turns back on itself meets itself.
    //
    // Cost of this and the next one: polylines whose consecutive points lie near each other take time in
    // proportion to the number of points, and half as much memory again as they themselves. Long segments all
    // over the same space take more of both, still far less than comparing all pairs, which is what is done
    // when there is no memory.
    static int CheckPolylineSelfIntersection(CArray<T_POINT3D, T_POINT3D&>& pl);
    // Whether a segment of `a` meets one of `b` as CheckLineIntersection(..., 1) tells: any contact counts,
    // that of shared ends too. 0 when either has fewer than two points.
    static int CheckPolylineCrossIntersection(CArray<T_POINT3D, T_POINT3D&>& a,
                                              CArray<T_POINT3D, T_POINT3D&>& b);

    // ---- Regions and polygons in the plane ----

    // The smallest rectangle that holds all points. 0 for no points, and `r` stays as it was. Coordinates
    // that are not numbers are passed over.
    static int GetMBR(const CArray<T_POINT2D, T_POINT2D&>& pts, T_REGION2D& r);
    // Whether p lies inside; on the border it does not.
    static int IsPointInRegion(const T_POINT2D& p, const T_REGION2D& r);
    // Whether p lies inside the polygon, convex or not, its points either way round; of parts that a polygon
    // covers twice, none does. 0 for fewer than three points and for p on the border of the polygon's
    // bounding rectangle; elsewhere on the polygon's own border it may be either. One pass over the points.
    static int IsPointInPolygon(const T_POINT2D& p, const CArray<T_POINT2D, T_POINT2D&>& poly);
    // How often the segment L crosses the border of the polygon; 0 for no points. What IsPointInPolygon()
    // counts along a ray: an edge crossed within counts 1; a corner on L, told by the edge that starts there,
    // counts 1 when the polygon goes on to the other side of L and 2 when it only touches; contacts at the
    // ends of L count nothing. A corner on L is judged by the corner before it and the one after: several
    // edges in a row along L are judged one by one.
    static int GetLinePolygonCrossCount(const T_LINE2D& L, const CArray<T_POINT2D, T_POINT2D&>& poly);

    // How two segments lie to each other; coordinates within 1e-10 are the same.
    //
    //    code   L1         L2                    code
    //    0      no contact                       9    they cross within both
    //    1      start on   start                 10   in line, of L2 only the start lies in L1
    //    2      start on   end                   11   in line, of L2 only the end lies in L1
    //    3      start on   interior              12   in line, L2 lies in L1
    //    4      end on     start                 13   in line, L1 lies in L2
    //    5      end on     end
    //    6      end on     interior
    //    7      interior on start
    //    8      interior on end
    //
    // Parallel segments in line that only touch at their ends are told by 10 to 13 too. In line means that
    // the cross product of the directions, and that of L1's direction and the way to L2's start, is at most
    // 1e-10, lengths and all: very short segments (1e-5 and less) are in line however they lie, and told by
    // their bounding boxes. So is one without length, which has no direction.
    static int GetTopologyOfTwoLines(const T_LINE2D& L1, const T_LINE2D& L2);
};
