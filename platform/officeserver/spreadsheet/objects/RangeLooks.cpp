// Range: what the cells look like.
#include "spreadsheet/objects/Alignments.h"
#include "spreadsheet/objects/BordersObject.h"
#include "spreadsheet/objects/FontObject.h"
#include "spreadsheet/objects/InteriorObject.h"
#include "spreadsheet/objects/RangeObject.h"
#include "spreadsheet/objects/StylesObject.h"

namespace zek::office {

IDispatch* RangeObject::Font()
{
    return new FontObject(Looks());
}

IDispatch* RangeObject::Interior()
{
    return new InteriorObject(Looks());
}

IDispatch* RangeObject::Borders(const Arguments& index)
{
    if (index[0].IsMissing())
        return new BordersObject(Looks());
    if (!IsBorderIndex(index[0].Long()))
        throw AutomationError();
    return new BorderObject(Looks(), index[0].Long());
}

bool RangeObject::BorderAround(const Arguments& arguments)
{
    const Argument style = arguments[0];
    const LONG weight = arguments[1].LongOr(xl::kThin);
    LineStyle line = WithLineStyle(LineStyle::None, style.LongOr(xl::kContinuous));
    if (!arguments[1].IsMissing() && line != LineStyle::None)
        line = WithWeight(line, weight);
    Color color = ColorOfIndex(arguments[2].LongOr(xl::kAutomatic));
    if (!arguments[3].IsMissing())
        color = ColorFrom(arguments[3]);
    for (const LONG edge : {xl::kEdgeLeft, xl::kEdgeTop, xl::kEdgeBottom, xl::kEdgeRight})
        ChangeLines(Looks(), edge, [&](Line& drawn) {
            drawn = line == LineStyle::None ? Line{} : Line{line, color};
        });
    return true;
}

std::optional<std::string> RangeObject::NumberFormat()
{
    return NumberFormatOf(Looks());
}
void RangeObject::SetNumberFormat(const Argument& value)
{
    PutNumberFormat(Looks(), value);
}
std::optional<LONG> RangeObject::HorizontalAlignment()
{
    return HorizontalOf(Looks());
}
void RangeObject::SetHorizontalAlignment(const Argument& value)
{
    PutHorizontal(Looks(), value);
}
std::optional<LONG> RangeObject::VerticalAlignment()
{
    return VerticalOf(Looks());
}
void RangeObject::SetVerticalAlignment(const Argument& value)
{
    PutVertical(Looks(), value);
}
std::optional<bool> RangeObject::WrapText()
{
    return AlignmentFlagOf<&Alignment::wrap>(Looks());
}
void RangeObject::SetWrapText(const Argument& value)
{
    PutAlignmentFlag<&Alignment::wrap>(Looks(), value);
}
std::optional<bool> RangeObject::ShrinkToFit()
{
    return AlignmentFlagOf<&Alignment::shrink>(Looks());
}
void RangeObject::SetShrinkToFit(const Argument& value)
{
    PutAlignmentFlag<&Alignment::shrink>(Looks(), value);
}
std::optional<LONG> RangeObject::Orientation()
{
    return RotationOf(Looks());
}
void RangeObject::SetOrientation(const Argument& value)
{
    PutRotation(Looks(), value);
}
std::optional<LONG> RangeObject::IndentLevel()
{
    return IndentOf(Looks());
}
void RangeObject::SetIndentLevel(const Argument& value)
{
    PutIndent(Looks(), value);
}

std::optional<bool> RangeObject::Locked()
{
    return Looks().Common([](const Format& format) { return format.protection.locked; });
}

void RangeObject::SetLocked(const Argument& value)
{
    const bool locked = value.Flag();
    Looks().Change(kProtectionGroup, [locked](Format& format) { format.protection.locked = locked; });
}

Value RangeObject::GetStyle()
{
    Value value;
    const std::optional<StyleId> style = Looks().Common([](const Format& format) { return format.style; });
    if (style)
        StoreResult(*value, static_cast<IDispatch*>(new StyleObject(BookOf(m_sheet), *style)));
    else
        value->vt = VT_NULL;
    return value;
}

void RangeObject::SetStyle(const Argument& value)
{
    Workbook& book = Live(m_sheet).Book();
    StyleId style = Workbook::kNoStyle;
    if (value.IsObject()) {
        const StyleObject* const object = dynamic_cast<StyleObject*>(value.Object());
        if (!object)
            value.Refuse();
        style = object->TheStyle();
    } else {
        style = book.FindStyle(value.Text());
    }
    if (style >= book.Styles().size() || book.Styles()[style].deleted)
        throw AutomationError();
    const FormatId format = book.StyleFormat(style);
    ForAreas([&](const Block& area) { Live(m_sheet).SetFormat(area, format); });
}

} // namespace zek::office
