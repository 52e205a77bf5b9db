#include "ElementType.h"

namespace {

struct Family {
    const char* name;
    MeasureKind measure;
};

constexpr Family kFamilies[] = {
    {"C3D", kVolume}, {"DC3D", kVolume}, {"F3D", kVolume}, {"AC3D", kVolume}, {"S", kArea},
    {"CPS", kArea},   {"CPE", kArea},    {"CAX", kArea},   {"M3D", kArea},
};

// Corners come first in the node lists of solids and surfaces.
constexpr ElementShape kShapes[] = {
    {kVolume, 4, 4, 1},  {kVolume, 10, 4, 1}, {kVolume, 6, 6, 1}, {kVolume, 15, 6, 1}, {kVolume, 8, 8, 1},
    {kVolume, 20, 8, 1}, {kArea, 3, 3, 1},    {kArea, 6, 3, 1},   {kArea, 4, 4, 1},    {kArea, 8, 4, 1},
};

struct LineType {
    const char* name;
    int nodes;
};

constexpr LineType kLineTypes[] = {
    {"B21", 2}, {"B31", 2}, {"B32", 3}, {"T2D2", 2}, {"T3D2", 2}, {"T3D3", 3},
};

constexpr ElementShape kUnknown = {kNoMeasure, 0, 0, 0};

bool IsSuffix(const char* text)
{
    return *text == '\0' || (*text >= 'A' && *text <= 'Z');
}

// What follows `prefix` in `text`; null when `text` does not start so.
const char* Behind(LPCSTR prefix, LPCSTR text)
{
    const size_t length = strlen(prefix);
    return strncmp(text, prefix, length) == 0 ? text + length : nullptr;
}

ElementShape LineShape(LPCSTR type)
{
    for (const LineType& line : kLineTypes)
        if (const char* suffix = Behind(line.name, type); suffix && IsSuffix(suffix))
            return {kLength, line.nodes, 2, line.nodes - 1};
    return kUnknown;
}

// The shape of a family's member whose node count and suffix are `tail`.
ElementShape FamilyShape(MeasureKind measure, const char* tail)
{
    char* suffix = nullptr;
    const long nodes = *tail >= '1' && *tail <= '9' ? strtol(tail, &suffix, 10) : 0;
    if (nodes > 0 && IsSuffix(suffix))
        for (const ElementShape& shape : kShapes)
            if (shape.measure == measure && shape.nodes == nodes)
                return shape;
    return kUnknown;
}

} // namespace

LPCSTR MeasureName(MeasureKind kind)
{
    constexpr LPCSTR kNames[] = {"", "volume", "area", "length"};
    return kNames[kind];
}

ElementShape ShapeOf(LPCSTR type)
{
    for (const Family& family : kFamilies)
        if (const char* tail = Behind(family.name, type)) {
            const ElementShape shape = FamilyShape(family.measure, tail);
            if (shape.nodes > 0)
                return shape;
        }
    return LineShape(type);
}
