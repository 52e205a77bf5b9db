#include "ModelView.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMostCorners = 8;

using Corners = double[kMostCorners][3];

void CornersOf(const CModel& model, const ElementRecord& element, const ElementShape& shape, Corners& corners)
{
    for (int i = 0; i < shape.corners; ++i) {
        const NodeRecord* node = model.FindNode(model.NodeOf(element, i * shape.cornerStep));
        std::copy(node->at, node->at + 3, corners[i]);
    }
}

double SurfaceArea(Corners& corners, int count)
{
    double area = CMathFunc::mathArea(corners[0], corners[1], corners[2]);
    if (count == 4)
        area += CMathFunc::mathArea(corners[0], corners[2], corners[3]);
    return area;
}

double LineLength(const Corners& corners)
{
    return std::hypot(corners[1][0] - corners[0][0], corners[1][1] - corners[0][1],
                      corners[1][2] - corners[0][2]);
}

} // namespace

double MeasureOf(const CModel& model, const ElementRecord& element)
{
    const ElementShape& shape = model.types[element.type].shape;
    Corners corners;
    CornersOf(model, element, shape, corners);
    switch (shape.measure) {
    case kVolume:
        return std::fabs(CMathFunc::mathVolume(shape.corners, corners));
    case kArea:
        return SurfaceArea(corners, shape.corners);
    case kLength:
        return LineLength(corners);
    default:
        return 0;
    }
}

CModelView::CModelView(const CModel& model) : m_model(model)
{
    m_chosen.SetSize(model.elements.GetSize());
    for (int i = 0; i < m_chosen.GetSize(); ++i)
        m_chosen[i] = i;
    FindBounds();
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
    m_measures.SetSize(m_chosen.GetSize());
    for (int i = 0; i < m_chosen.GetSize(); ++i) {
        m_measures[i] = MeasureOf(m_model, Element(i));
        m_totals.sums[TypeOf(i).shape.measure] += m_measures[i];
    }
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
