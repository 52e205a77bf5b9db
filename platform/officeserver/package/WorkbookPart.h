// The workbook part: sheets, windows, defined names.
#pragma once

#include <pugixml.hpp>

#include <string>
#include <vector>

namespace zek::office {

struct Block;
struct BookContent;

// `sheetRelations` holds the relationship identifiers of the sheets' parts, in the sheets' order.
void BuildWorkbook(pugi::xml_document& document, const BookContent& content,
                   const std::vector<std::string>& sheetRelations);

// "A1:C4"; one cell is "A1", whole rows and columns have no short form here.
std::string RelativeReference(const Block& block);

} // namespace zek::office
