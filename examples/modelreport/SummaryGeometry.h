// The parts of the summary sheet that tell where the model lies and how large it is.
#pragma once

#include "ModelView.h"
#include "ReportSheet.h"

// Centroids of what is measured, bounds, bounding solids; on a sheet with the six columns of the summary.
void WriteCentroids(CReportSheet& sheet, const CModelView& view);
void WriteBounds(CReportSheet& sheet, const CModelView& view);
void WriteBoundingSolids(CReportSheet& sheet, const CModelView& view);
