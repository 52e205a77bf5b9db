// Writes the report.
#pragma once

#include "PlaneCut.h"

// Writes the workbook FOLDER/NAME.xlsx, with a sheet of what `cut` met unless that is null, making the folder
// when it is missing. `file` is the path of the file that was written, as the user would type it. When the
// first try to save failed and the library's second one saved under another name, that name. False when no
// report was written: `problem` says why, and a folder made for it is gone again.
bool WriteReport(const CModelView& view, const CPlaneCut* cut, const CString& folder, bool quiet,
                 CString& file, CString& problem);
