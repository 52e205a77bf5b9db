#include "spreadsheet/objects/FormatObject.h"

#include "spreadsheet/Palette.h"
#include "spreadsheet/objects/RangeObject.h"
#include "spreadsheet/objects/StylesObject.h"

namespace zek::office {

IDispatch* FormatObject::Parent()
{
    if (m_target.IsStyle())
        return new StyleObject(m_target.TheBook(), m_target.TheStyle());
    return new RangeObject(m_target.TheSheet(), m_target.Areas());
}

double ColorNumber(Color color, Color automatic)
{
    return color == kAutomaticColor ? automatic : color;
}

Color ColorFrom(const Argument& value)
{
    const double number = value.Number();
    if (number < 0 || number > 0xFFFFFF)
        throw AutomationError();
    return static_cast<Color>(number);
}

Color ColorOfIndex(LONG index)
{
    if (index == 0 || index == xl::kAutomatic)
        return kAutomaticColor;
    if (!IsPaletteIndex(index))
        throw AutomationError();
    return PaletteColor(index);
}

LONG IndexOfColor(Color color)
{
    return color == kAutomaticColor ? xl::kAutomatic : NearestPaletteIndex(color);
}

} // namespace zek::office
