// Saving a workbook as an Office Open XML file.
//
//   SaveWorkbook(book, "/out/report.xlsx");
//
// The file takes the place of an old one whole or not at all (AtomicFile.h), and is read back and checked
// before it does. The same workbook gives the same bytes, whatever the locale, the time and the time zone.
#pragma once

#include <string>

namespace zek::office {

class FileCalls;
class Workbook;

// `nativePath` is a path of this system; its folder must exist. The ending decides nothing but the kind of
// workbook that the file says it is (.xlsm, .xltx); any other ending is an ordinary workbook.
// Throws SaveError (SaveError.h): the file could not be written and the old one is as it was, or the
// workbook holds what the format cannot (EINVAL).
void SaveWorkbook(const Workbook& book, const std::string& nativePath);

// The same with system calls that may fail on purpose.
void SaveWorkbook(const Workbook& book, const std::string& nativePath, FileCalls& calls);

} // namespace zek::office
