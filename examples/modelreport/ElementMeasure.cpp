#include "ElementMeasure.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMostCorners = 8;
constexpr int kMostFaces = 6;
constexpr int kNoCorner = -1;

using Corners = double[kMostCorners][3];

void CornersOf(const CModel& model, const ElementRecord& element, const ElementShape& shape, Corners& corners)
{
    for (int i = 0; i < shape.corners; ++i) {
        const NodeRecord* node = model.FindNode(model.NodeOf(element, i * shape.cornerStep));
        std::copy(node->at, node->at + 3, corners[i]);
    }
}

// Gathers parts with their middles; parts may be negative.
struct Sum {
    double size = 0;
    double moment[3] = {0, 0, 0};

    void Add(double part, const double* middle)
    {
        size += part;
        for (int axis = 0; axis < 3; ++axis)
            moment[axis] += part * middle[axis];
    }
    void CentroidTo(double* centre) const
    {
        if (size != 0)
            CMathFunc::Multiply(moment, 1 / size, centre);
    }
};

// The middle of some of the points, told by their indices.
void MiddleOf(const double (*points)[3], const int* indices, int count, double* middle)
{
    CMathFunc::Copy(0, 0, 0, middle);
    for (int i = 0; i < count; ++i)
        CMathFunc::Add(middle, points[indices[i]]);
    CMathFunc::Multiply(middle, 1.0 / count);
}

constexpr int kInOrder[kMostCorners] = {0, 1, 2, 3, 4, 5, 6, 7};

void MiddleOf(const double (*points)[3], int count, double* middle)
{
    MiddleOf(points, kInOrder, count, middle);
}

// The faces of a solid, each seen from outside in the same sense.
struct Solid {
    int corners;
    int faces;
    int face[kMostFaces][4];
};

constexpr Solid kSolids[] = {
    {4, 4, {{0, 2, 1, kNoCorner}, {0, 1, 3, kNoCorner}, {1, 2, 3, kNoCorner}, {2, 0, 3, kNoCorner}}},
    {6, 5, {{0, 2, 1, kNoCorner}, {3, 4, 5, kNoCorner}, {0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}}},
    {8, 6, {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}}},
};

// The pyramid over a face with its tip at `tip`.
void AddFace(Sum& sum, const Corners& corners, const int* face, const double* tip)
{
    const int count = face[3] == kNoCorner ? 3 : 4;
    double part[4][3];
    std::copy(tip, tip + 3, part[0]);
    MiddleOf(corners, face, count, part[1]);
    for (int i = 0; i < count; ++i) {
        CMathFunc::Copy(corners[face[i]], part[2], 3);
        CMathFunc::Copy(corners[face[(i + 1) % count]], part[3], 3);
        double middle[3];
        MiddleOf(part, 4, middle);
        sum.Add(CMathFunc::mathVolume(4, part), middle);
    }
}

void CentreOfSolid(const Corners& corners, int count, double* centre)
{
    MiddleOf(corners, count, centre);
    const Solid* solid = kSolids;
    while (solid->corners != count)
        ++solid;
    double tip[3];
    std::copy(centre, centre + 3, tip);
    Sum sum;
    for (int face = 0; face < solid->faces; ++face)
        AddFace(sum, corners, solid->face[face], tip);
    sum.CentroidTo(centre);
}

ElementMeasure MeasureSolid(Corners& corners, int count)
{
    ElementMeasure measure;
    measure.size = std::fabs(CMathFunc::mathVolume(count, corners));
    CentreOfSolid(corners, count, measure.centre);
    return measure;
}

ElementMeasure MeasureSurface(Corners& corners, int count)
{
    constexpr int kTriangles[][3] = {{0, 1, 2}, {0, 2, 3}};
    ElementMeasure measure;
    MiddleOf(corners, count, measure.centre);
    Sum sum;
    for (int i = 0; i < count - 2; ++i) {
        const int(&t)[3] = kTriangles[i];
        double middle[3];
        MiddleOf(corners, t, 3, middle);
        sum.Add(CMathFunc::mathArea(corners[t[0]], corners[t[1]], corners[t[2]]), middle);
    }
    sum.CentroidTo(measure.centre);
    measure.size = sum.size;
    return measure;
}

ElementMeasure MeasureLine(Corners& corners)
{
    ElementMeasure measure;
    measure.size = std::hypot(corners[1][0] - corners[0][0], corners[1][1] - corners[0][1],
                              corners[1][2] - corners[0][2]);
    MiddleOf(corners, 2, measure.centre);
    return measure;
}

} // namespace

ElementMeasure MeasureOf(const CModel& model, const ElementRecord& element)
{
    const ElementShape& shape = model.types[element.type].shape;
    Corners corners;
    CornersOf(model, element, shape, corners);
    switch (shape.measure) {
    case kVolume:
        return MeasureSolid(corners, shape.corners);
    case kArea:
        return MeasureSurface(corners, shape.corners);
    case kLength:
        return MeasureLine(corners);
    default:
        return {};
    }
}
