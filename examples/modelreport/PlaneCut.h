// The elements that a section plane A x + B y + C z + D = 0 meets.
#pragma once

#include "ModelView.h"

// A plane; its normal (A, B, C) need not be a unit vector.
struct Plane {
    double a = 0;
    double b = 0;
    double c = 0;
    double d = 0;

    // False when the coefficients tell no direction or are too large to be squared.
    bool IsPlane() const;
    // Positive on the side that (A, B, C) points to.
    double DistanceOf(const double* point) const
    {
        return CMathFunc::mathDistanceToPlaneWithSign(a, b, c, d, point[0], point[1], point[2]);
    }
};

// An element that meets the plane: it is cut when nodes of it lie on both sides, else the plane touches it.
struct MetElement {
    int index = 0; // in the view
    bool cut = false;
    double lowest = 0; // distances of its nodes
    double highest = 0;
};

class CPlaneCut
{
public:
    // Looks at the chosen elements of the view, by all nodes that they name.
    CPlaneCut(const CModelView& view, const Plane& plane);

    const Plane& SectionPlane() const { return m_plane; }
    // Nodes so near are on the plane: rounding of coordinates puts none of them on a side.
    double Tolerance() const { return m_tolerance; }

    // In the order of the view.
    const CArray<MetElement, const MetElement&>& Elements() const { return m_elements; }
    // The numbers of those that are cut, or only touched.
    void Numbers(const CModelView& view, bool cut, CArray<UINT, UINT>& numbers) const;

private:
    void Look(const CModelView& view, int index, const CArray<double, double>& distances);

    Plane m_plane;
    double m_tolerance;
    CArray<MetElement, const MetElement&> m_elements;
};
