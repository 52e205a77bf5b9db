// The workbook part: sheets, windows, defined names.
#pragma once

#include <pugixml.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace zek::office {

struct Block;
struct BookContent;

// `sheetRelations` holds the relationship identifiers of the sheets' parts, in the sheets' order.
void BuildWorkbook(pugi::xml_document& document, const BookContent& content,
                   const std::vector<std::string>& sheetRelations);

// A sheet's name as formulas write it: in apostrophes unless it is a plain word that no reader can take
// for a cell.
std::string QuotedSheetName(std::string_view name);

// "$A$1:$C$4"; one cell is "$A$1", whole rows are "$1:$4", whole columns "$A:$C".
std::string AbsoluteReference(const Block& block);

// "A1:C4"; one cell is "A1".
std::string RelativeReference(const Block& block);

} // namespace zek::office
