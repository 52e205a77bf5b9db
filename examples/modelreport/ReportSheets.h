// The sheets of the report, one function each. All may throw what CReportBook throws.
#pragma once

#include "ModelView.h"
#include "PlaneCut.h"
#include "ReportBook.h"

// Model totals, measures, centroids, bounds, the selection, what the section plane meets (none for null),
// element types by section and material, remarks.
void WriteSummarySheet(CReportBook& book, const CModelView& view, const CPlaneCut* cut);

// Number and coordinates of every node.
void WriteNodesSheet(CReportBook& book, const CModelView& view, bool quiet);

// Number, type, section, nodes and measure of every chosen element.
void WriteElementsSheet(CReportBook& book, const CModelView& view, bool quiet);

// Name, kind, count and ranges of every set.
void WriteSetsSheet(CReportBook& book, const CModelView& view, bool quiet);

// Number, type, section and distances of every element that the plane meets.
void WriteCutSheet(CReportBook& book, const CModelView& view, const CPlaneCut& cut, bool quiet);

// "2 x - 1 z + 4.5 = 0".
CString PlaneText(const Plane& plane);

// Calls and seconds of the phases until now; nothing while profiling is stopped.
void WriteProfileSheet(CReportBook& book, const CModelView& view, bool quiet);

// "Solid Beam": the kind and the element set of a section; "" for kNone.
CString SectionName(const CModel& model, int section);
