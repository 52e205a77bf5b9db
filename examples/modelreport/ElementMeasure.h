// What is measured of single elements, by their corner nodes.
#pragma once

#include "Model.h"

struct ElementMeasure {
    double size = 0;              // volume of a solid, area of a surface, length of a line; 0 for other types
    double centre[3] = {0, 0, 0}; // its centroid; for other types the origin
};

// The magnitude of a solid's volume, the area of a surface as triangles 1-2-3 and 1-3-4, the distance of a
// line's ends; and the centroid of the same. Solids count as filled between their faces, a face of four
// corners as four triangles about its middle. A solid without volume has its centroid in the middle of its
// corners.
ElementMeasure MeasureOf(const CModel& model, const ElementRecord& element);
