#include "ModelView.h"

#include <algorithm>
#include <cmath>

CModelView::CModelView(const CModel& model) : m_model(model)
{
    m_chosen.SetSize(model.elements.GetSize());
    for (int i = 0; i < m_chosen.GetSize(); ++i)
        m_chosen[i] = i;
    FindBounds();
    FindSolids();
    Measure();
    Group();
}

bool CModelView::Select(const CString& selection)
{
    CArray<UINT, UINT> all, numbers;
    NumbersOf(m_model.elements, all);
    CNumericOptimizer optimizer;
    if (!optimizer.SelectNumByStr(all, selection, numbers))
        return false;
    m_selection = selection;
    m_chosen.RemoveAll();
    for (int element = 0, i = 0; i < numbers.GetSize(); ++i) {
        while (all[element] != numbers[i])
            ++element;
        m_chosen.Add(element);
    }
    Measure();
    Group();
    return true;
}

void CModelView::Measure()
{
    m_totals = {};
    double moments[4][3] = {};
    m_measures.SetSize(m_chosen.GetSize());
    for (int i = 0; i < m_chosen.GetSize(); ++i) {
        const MeasureKind kind = TypeOf(i).shape.measure;
        const ElementMeasure measure = MeasureOf(m_model, Element(i));
        m_measures[i] = measure.size;
        m_totals.sums[kind] += measure.size;
        for (int axis = 0; axis < 3; ++axis)
            moments[kind][axis] += measure.size * measure.centre[axis];
    }
    for (const MeasureKind kind : {kVolume, kArea, kLength})
        for (int axis = 0; axis < 3; ++axis)
            m_centroids[kind][axis] = Centroid(moments[kind][axis], m_totals.sums[kind]);
}

double CModelView::Centroid(double moment, double measure) const
{
    constexpr double kNoise = 1e-12; // of the model's size, where the true value is 0
    const double at = measure > 0 ? moment / measure : 0;
    return std::fabs(at) < kNoise * m_solids.sphereRadius ? 0 : at;
}

void CModelView::Group()
{
    m_groups.RemoveAll();
    m_types.RemoveAll();
    const int sections = m_model.sections.GetSize() + 1; // one more for elements without a section
    CArray<int, int> groupOf;                            // of type * sections + section + 1
    groupOf.SetSize(m_model.types.GetSize() * sections);
    for (int i = 0; i < m_chosen.GetSize(); ++i) {
        const ElementRecord& element = Element(i);
        int& group = groupOf[element.type * sections + element.section + 1];
        if (group == 0)
            group = 1 + m_groups.Add({element.type, element.section, 0, 0});
        ElementGroup& found = m_groups[group - 1];
        ++found.count;
        found.sum += m_measures[i];
    }
    SortGroups();
}

void CModelView::SortGroups()
{
    const auto before = [this](const ElementGroup& a, const ElementGroup& b) {
        const int order = m_model.types[a.type].name.Compare(m_model.types[b.type].name);
        return order != 0 ? order < 0 : a.section < b.section;
    };
    std::sort(m_groups.GetData(), m_groups.GetData() + m_groups.GetSize(), before);
    for (int i = 0; i < m_groups.GetSize(); ++i)
        if (i == 0 || m_groups[i].type != m_groups[i - 1].type)
            m_types.Add(m_groups[i].type);
}

void CModelView::FindBounds()
{
    for (int i = 0; i < m_model.nodes.GetSize(); ++i)
        for (int axis = 0; axis < 3; ++axis) {
            const double value = m_model.nodes[i].at[axis];
            double& low = m_bounds[axis];
            double& high = m_bounds[axis + 3];
            low = i == 0 ? value : std::min(low, value);
            high = i == 0 ? value : std::max(high, value);
        }
}

void CModelView::FindSolids()
{
    for (int axis = 0; axis < 3; ++axis) {
        m_solids.extent[axis] = m_bounds[axis + 3] - m_bounds[axis];
        m_solids.middle[axis] = m_bounds[axis] + m_solids.extent[axis] / 2;
    }
    const double* const middle = m_solids.middle;
    for (int i = 0; i < m_model.nodes.GetSize(); ++i) {
        const double* const at = m_model.nodes[i].at;
        m_solids.sphereRadius =
            std::max(m_solids.sphereRadius, std::sqrt(CMathFunc::PointSquareDistance(middle, at)));
        m_solids.cylinderRadius =
            std::max(m_solids.cylinderRadius, CMathFunc::mathLength(middle[0], middle[1], at[0], at[1]));
    }
}

void CModelView::ElementNumbers(CArray<UINT, UINT>& numbers) const
{
    numbers.SetSize(m_chosen.GetSize());
    for (int i = 0; i < m_chosen.GetSize(); ++i)
        numbers[i] = Element(i).number;
}

void CModelView::NumbersOfType(int type, CArray<UINT, UINT>& numbers) const
{
    numbers.RemoveAll();
    for (int i = 0; i < m_chosen.GetSize(); ++i)
        if (Element(i).type == type)
            numbers.Add(Element(i).number);
}

CString Ranges(CArray<UINT, UINT>& numbers)
{
    CNumericOptimizer optimizer;
    return optimizer.OptimizeSortedArray(numbers);
}
