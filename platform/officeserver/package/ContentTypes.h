// Names by which the parts of a spreadsheet package know each other.
#pragma once

#include <string_view>

namespace zek::office {

inline constexpr char kSheetNamespace[] = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
inline constexpr char kRelationNamespace[] =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

inline constexpr char kCoreRelation[] =
    "http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties";
inline constexpr char kAppRelation[] =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/extended-properties";
inline constexpr char kDocumentRelation[] =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument";
inline constexpr char kSheetRelation[] =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet";
inline constexpr char kStylesRelation[] =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles";
inline constexpr char kTextsRelation[] =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/sharedStrings";

inline constexpr char kCoreType[] = "application/vnd.openxmlformats-package.core-properties+xml";
inline constexpr char kAppType[] = "application/vnd.openxmlformats-officedocument.extended-properties+xml";
inline constexpr char kSheetType[] =
    "application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml";
inline constexpr char kStylesType[] =
    "application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml";
inline constexpr char kTextsType[] =
    "application/vnd.openxmlformats-officedocument.spreadsheetml.sharedStrings+xml";

// The content type of the workbook part for a file name: readers insist that it fits the ending.
const char* WorkbookType(std::string_view fileName);

} // namespace zek::office
