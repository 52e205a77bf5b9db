// What is known of an element type: how many nodes it has, which of them are its corners, what is measured.
#pragma once

#include <ZEK_lib.h>

enum MeasureKind { kNoMeasure, kVolume, kArea, kLength };

// "volume", "area", "length", "" for kNoMeasure.
LPCSTR MeasureName(MeasureKind kind);

struct ElementShape {
    MeasureKind measure; // kNoMeasure: the type is counted only
    int nodes;           // of one element; 0 when not known
    int corners;         // how many
    int cornerStep;      // distance of two corners in the element's node list
};

// The shape of a type told in capitals ("C3D20R", "S8", "B32"). A family's name and node count may be
// followed by any suffix that starts with a letter. Types of no family have no measure and no known number of
// nodes.
ElementShape ShapeOf(LPCSTR type);
