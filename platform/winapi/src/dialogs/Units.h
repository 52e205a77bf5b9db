// Dialog units: a quarter of the average width and an eighth of the height of a font.
#pragma once

#include "Template.h"

#include <wingdi.h>

// The caller deletes it. Null when it cannot be made.
HFONT MakeDialogFont(const TemplateFont& font);

// The average width of the 52 letters, rounded, and the line's height; null: the system font.
SIZE BaseUnits(HFONT font);

// number * factor / divisor, rounded to the nearest, halves away from zero.
inline int Scaled(int number, int factor, int divisor)
{
    const long long product = 2LL * number * factor;
    return static_cast<int>((product + (product < 0 ? -divisor : divisor)) / (2 * divisor));
}

// From dialog units to pixels.
inline int AcrossUnits(int units, const SIZE& base)
{
    return Scaled(units, base.cx, 4);
}
inline int DownUnits(int units, const SIZE& base)
{
    return Scaled(units, base.cy, 8);
}

// UTF-16 in the ANSI code page.
std::string AnsiText(std::u16string_view text);
