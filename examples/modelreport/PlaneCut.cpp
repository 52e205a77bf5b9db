#include "PlaneCut.h"

#include <algorithm>
#include <cmath>

namespace {

// Of the diagonal of the model's bounds: coordinates in decks have seven digits or more.
constexpr double kTolerance = 1e-9;

double Diagonal(const double* bounds)
{
    return CMathFunc::mathLength(bounds[0], bounds[1], bounds[2], bounds[3], bounds[4], bounds[5]);
}

} // namespace

bool Plane::IsPlane() const
{
    const double length = CMathFunc::mathLength(a, b, c);
    return length >= CMathFunc::m_NormalZero && std::isfinite(length) && std::isfinite(d);
}

CPlaneCut::CPlaneCut(const CModelView& view, const Plane& plane)
    : m_plane(plane), m_tolerance(kTolerance * Diagonal(view.Bounds()))
{
    const CModel& model = view.Model();
    CArray<double, double> distances; // of the nodes
    distances.SetSize(model.nodes.GetSize());
    for (int i = 0; i < distances.GetSize(); ++i)
        distances[i] = plane.DistanceOf(model.nodes[i].at);
    for (int i = 0; i < view.ElementCount(); ++i)
        Look(view, i, distances);
}

void CPlaneCut::Look(const CModelView& view, int index, const CArray<double, double>& distances)
{
    const CModel& model = view.Model();
    const ElementRecord& element = view.Element(index);
    MetElement met;
    bool first = true;
    met.index = index;
    for (int i = 0; i < element.nodeCount; ++i) {
        const NodeRecord* const node = model.FindNode(model.NodeOf(element, i));
        if (!node)
            continue; // number 0 stands for no node
        const double distance = distances[static_cast<int>(node - model.nodes.GetData())];
        met.lowest = first ? distance : std::min(met.lowest, distance);
        met.highest = first ? distance : std::max(met.highest, distance);
        first = false;
    }
    met.cut = met.lowest < -m_tolerance && met.highest > m_tolerance;
    if (!first && met.lowest <= m_tolerance && met.highest >= -m_tolerance)
        m_elements.Add(met);
}

void CPlaneCut::Numbers(const CModelView& view, bool cut, CArray<UINT, UINT>& numbers) const
{
    numbers.RemoveAll();
    for (int i = 0; i < m_elements.GetSize(); ++i)
        if (m_elements[i].cut == cut)
            numbers.Add(view.Element(m_elements[i].index).number);
}
