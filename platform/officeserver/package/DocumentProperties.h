// The document properties of a package: who made it and what is in it.
//
// No time stamp is written, so that the same workbook gives the same bytes.
#pragma once

#include <pugixml.hpp>

namespace zek::office {

class Workbook;

void BuildCoreProperties(pugi::xml_document& document);

// Names the program and lists the sheets.
void BuildAppProperties(pugi::xml_document& document, const Workbook& book);

} // namespace zek::office
