// What the reader of a report should know about a model that could be read all the same.
#pragma once

#include "ModelView.h"

// One sentence each: sets that name numbers the model lacks, materials that are not defined, elements without
// a section, types that are not measured.
void GatherRemarks(const CModelView& view, CStringArray& remarks);
