// What a report is about: a model, or a selection of its elements, measured.
#pragma once

#include "ElementMeasure.h"

// Sums over elements, by kind of measure: sums[kVolume], sums[kArea], sums[kLength].
struct MeasureSums {
    double sums[4] = {0, 0, 0, 0};
};

// Elements of one type in one section (or in none).
struct ElementGroup {
    int type = 0;
    int section = kNone;
    int count = 0;
    double sum = 0; // of the type's measure
};

// Solids round all nodes, each about the middle of the box along the axes: that box, a sphere, and a cylinder
// along Z as high as the box. The round ones are the least about that middle, not the least of all.
struct BoundingSolids {
    double middle[3] = {0, 0, 0};
    double extent[3] = {0, 0, 0}; // of the box
    double sphereRadius = 0;
    double cylinderRadius = 0;

    double BoxVolume() const { return extent[0] * extent[1] * extent[2]; }
    double SphereVolume() const
    {
        return 4.0 / 3.0 * CMathFunc::m_pi * sphereRadius * sphereRadius * sphereRadius;
    }
    double CylinderVolume() const { return CMathFunc::m_pi * cylinderRadius * cylinderRadius * extent[2]; }
};

// A model and those of its elements that are chosen; at first all of them. The model must stay as it is while
// the view lives.
class CModelView
{
public:
    explicit CModelView(const CModel& model);

    // Chooses the elements that a selection string names ("1to10by3, 20"). False for a syntax error; the
    // choice is unchanged then.
    bool Select(const CString& selection);

    const CModel& Model() const { return m_model; }
    const CString& Selection() const { return m_selection; } // as given; "" when all are chosen

    int ElementCount() const { return m_chosen.GetSize(); }
    const ElementRecord& Element(int index) const { return m_model.elements[m_chosen[index]]; }
    const TypeRecord& TypeOf(int index) const { return m_model.types[Element(index).type]; }
    double Measure(int index) const { return m_measures[index]; }

    const MeasureSums& Totals() const { return m_totals; }
    // The centroid of all that is measured so, weighted by measure; null when there is nothing.
    const double* Centroid(MeasureKind kind) const
    {
        return m_totals.sums[kind] > 0 ? m_centroids[kind] : nullptr;
    }
    // Types of chosen elements in alphabetic order, as indices into Model().types.
    const CArray<int, int>& Types() const { return m_types; }
    // Groups of chosen elements: by type in alphabetic order, then by section in the order of the deck.
    const CArray<ElementGroup, const ElementGroup&>& Groups() const { return m_groups; }

    // Lowest x, y, z and highest x, y, z of all nodes; zeros for a model without nodes.
    const double* Bounds() const { return m_bounds; }
    const BoundingSolids& Solids() const { return m_solids; }

    void NodeNumbers(CArray<UINT, UINT>& numbers) const { NumbersOf(m_model.nodes, numbers); }
    void ElementNumbers(CArray<UINT, UINT>& numbers) const;
    void NumbersOfType(int type, CArray<UINT, UINT>& numbers) const;

private:
    void Measure();
    double Centroid(double moment, double measure) const;
    void Group();
    void SortGroups();
    void FindBounds();
    void FindSolids();

    const CModel& m_model;
    CString m_selection;
    CArray<int, int> m_chosen; // indices into Model::elements, ascending
    CArray<double, double> m_measures;
    CArray<int, int> m_types;
    CArray<ElementGroup, const ElementGroup&> m_groups;
    MeasureSums m_totals;
    double m_centroids[4][3] = {};
    BoundingSolids m_solids;
    double m_bounds[6] = {0, 0, 0, 0, 0, 0};
};

// The numbers as a range text: "1to9by2 15". They must ascend without repeats.
CString Ranges(CArray<UINT, UINT>& numbers);
