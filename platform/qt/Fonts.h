// Fonts and their measures.
//
// Threads: any, once the application object is there.
#pragma once

#include "Backend.h"

#include <QtGui/QFont>

// The font nearest to what is asked for. Glyphs keep their own widths: no kerning, so that the extent of a
// text is the sum of its characters', as on Windows.
QFont FontOf(const FontSpec& spec);

SIZE ExtentOf(const FontSpec& spec, std::u16string_view text);
FontMeasures MeasuresOf(const FontSpec& spec);
