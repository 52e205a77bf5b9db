// From texts and objects to cells.
#pragma once

#include "automation/Arguments.h"
#include "spreadsheet/Session.h"

#include <string>
#include <string_view>
#include <vector>

namespace zek::office {

struct CellsOfSheet {
    SheetRef sheet;
    std::vector<Block> areas; // never empty
};

// Cells that a text names, seen from `sheet`: references with or without a sheet's name, names, several of
// them with commas between. Throws AutomationError for anything else.
CellsOfSheet ResolveReference(const SheetRef& sheet, std::string_view text);

// Whether the whole text is one area of A1 notation, the usual case.
bool ParseWholeArea(std::u16string_view text, Block& block);

// The block from `first` to `last`, each a text or a Range of the same sheet; `last` may be missing.
CellsOfSheet ResolveCorners(const SheetRef& sheet, const Argument& first, const Argument& last);

// "=Sheet1!$A$1:$B$2" without the '='; areas with commas between.
std::string ReferenceText(const Sheet& sheet, const std::vector<Block>& areas);

// The first area's text, without a sheet, for members that take and answer "$A$1:$C$4"; all areas.
std::string AreasText(const std::vector<Block>& areas, bool rowsAbsolute = true, bool columnsAbsolute = true);

// Whether the text may be a defined name: letters, digits, '_', '.', '\', no cell reference, at most 255.
bool IsDefinableName(std::string_view name);

} // namespace zek::office
