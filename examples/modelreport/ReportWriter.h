// Writes the report.
#pragma once

#include "ModelView.h"

// Writes the workbook FOLDER/NAME.xlsx, making the folder when it is missing. `file` is the path of the file
// that was written, as the user would type it. When the first try to save failed and the library's second one
// saved under another name, that name.
// False when no report was written: `problem` says why, and a folder made for it is gone again.
bool WriteReport(const CModelView& view, const CString& folder, bool quiet, CString& file, CString& problem);
