// The sheets of the report, one function each. All may throw what CReportBook throws.
#pragma once

#include "ModelView.h"
#include "ReportBook.h"

// Model totals, measures, bounds, the selection, element types by section and material, remarks.
void WriteSummarySheet(CReportBook& book, const CModelView& view);

// Number and coordinates of every node.
void WriteNodesSheet(CReportBook& book, const CModelView& view, bool quiet);

// Number, type, section, nodes and measure of every chosen element.
void WriteElementsSheet(CReportBook& book, const CModelView& view, bool quiet);

// Name, kind, count and ranges of every set.
void WriteSetsSheet(CReportBook& book, const CModelView& view, bool quiet);

// "Solid Beam": the kind and the element set of a section; "" for kNone.
CString SectionName(const CModel& model, int section);
