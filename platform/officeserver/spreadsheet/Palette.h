// The 56 colours that ColorIndex speaks of.
#pragma once

#include "spreadsheet/model/Format.h"

#include <windef.h>

namespace zek::office {

// The colour number `index`; it must be 1 to 56.
Color PaletteColor(LONG index);
bool IsPaletteIndex(LONG index);

// The number of the nearest colour; of equal ones the first.
LONG NearestPaletteIndex(Color color);

} // namespace zek::office
