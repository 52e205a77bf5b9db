// What a report is about: a model, or a selection of its elements, measured.
#pragma once

#include "Model.h"

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

// The measure of an element by its corner nodes: the magnitude of a solid's volume, the area of a surface as
// triangles 1-2-3 and 1-3-4, the distance of a line's ends. 0 for other types.
double MeasureOf(const CModel& model, const ElementRecord& element);

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
    // Types of chosen elements in alphabetic order, as indices into Model().types.
    const CArray<int, int>& Types() const { return m_types; }
    // Groups of chosen elements: by type in alphabetic order, then by section in the order of the deck.
    const CArray<ElementGroup, const ElementGroup&>& Groups() const { return m_groups; }

    // Lowest x, y, z and highest x, y, z of all nodes; zeros for a model without nodes.
    const double* Bounds() const { return m_bounds; }

    void NodeNumbers(CArray<UINT, UINT>& numbers) const { NumbersOf(m_model.nodes, numbers); }
    void ElementNumbers(CArray<UINT, UINT>& numbers) const;
    void NumbersOfType(int type, CArray<UINT, UINT>& numbers) const;

private:
    void Measure();
    void Group();
    void SortGroups();
    void FindBounds();

    const CModel& m_model;
    CString m_selection;
    CArray<int, int> m_chosen; // indices into Model::elements, ascending
    CArray<double, double> m_measures;
    CArray<int, int> m_types;
    CArray<ElementGroup, const ElementGroup&> m_groups;
    MeasureSums m_totals;
    double m_bounds[6] = {0, 0, 0, 0, 0, 0};
};

// The numbers as a range text: "1to9by2 15". They must ascend without repeats.
CString Ranges(CArray<UINT, UINT>& numbers);
