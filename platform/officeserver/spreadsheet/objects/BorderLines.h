// Border lines of blocks of cells: line styles and weights in the object model's numbers, and which edges of
// which cells an index names.
#pragma once

#include "spreadsheet/objects/FormatTarget.h"

#include <windef.h>

#include <functional>
#include <optional>

namespace zek::office {

// --- XlLineStyle and XlBorderWeight on one side, the line as it is kept on the other ---

LONG LineStyleNumber(LineStyle style);
LONG WeightNumber(LineStyle style);

// A line after its style is set: the weight stays where such a line exists, else it is that style's usual
// one. Throws AutomationError for an unknown number.
LineStyle WithLineStyle(LineStyle old, LONG lineStyle);
// A line after its weight is set: the style stays where such a line exists, else the line is continuous.
LineStyle WithWeight(LineStyle old, LONG weight);

// --- Edges ---

// Whether the object model knows the index (xlDiagonalDown to xlInsideHorizontal).
bool IsBorderIndex(LONG index);

// Changes the lines that `index` names in every area. Where a neighbour beyond an outer edge draws that
// edge, too, it draws the same line from then on.
void ChangeLines(const FormatTarget& target, LONG index, const std::function<void(Line&)>& edit);

// The line that all cells of the areas have there, a neighbour's one counting where they have none; nothing
// when lines differ.
std::optional<Line> CommonLine(const FormatTarget& target, LONG index);

} // namespace zek::office
