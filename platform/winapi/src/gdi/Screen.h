#pragma once

#include "Mapping.h"

constexpr LONG kPixelsPerInch = 96;

// The screen of the display; without one, a usual one.
ScreenScale Screen();
