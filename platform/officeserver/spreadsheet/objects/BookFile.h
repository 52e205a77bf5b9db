// Where a workbook's file goes.
#pragma once

#include "spreadsheet/Session.h"

#include <string>
#include <string_view>

namespace zek::office {

// A target as the host named it, made whole: Win32 folder and name (UTF-8), and the path of this system.
struct BookFile {
    std::string folder;
    std::string name;
    std::string native;
};

// A name without an ending gets ".xlsx". Throws AutomationError for a path that cannot be one.
BookFile LocateBookFile(std::string_view path);

// Writes the workbook; throws what SaveWorkbook throws.
void WriteBook(const BookState& book, const BookFile& file);

} // namespace zek::office
