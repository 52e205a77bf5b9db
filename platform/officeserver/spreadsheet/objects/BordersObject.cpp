#include "spreadsheet/objects/BordersObject.h"

namespace zek::office {
namespace {

void Recolor(Line& line, Color color)
{
    line.color = color;
    if (line.style == zek::office::LineStyle::None)
        line.style = zek::office::LineStyle::Thin;
}

} // namespace

void BorderLinesObject::Change(const std::function<void(Line&)>& edit)
{
    for (const LONG index : m_indices)
        ChangeLines(Target(), index, edit);
}

template <class Read>
auto BorderLinesObject::CommonOf(Read read) -> std::optional<decltype(read(Line{}))>
{
    std::optional<decltype(read(Line{}))> common;
    const bool oneCell =
        Target().IsStyle() || (Target().Areas().size() == 1 && Target().Areas()[0].IsOneCell());
    for (const LONG index : m_indices) {
        if (oneCell && index >= xl::kInsideVertical && m_indices.size() > 1)
            continue;
        const std::optional<Line> line = CommonLine(Target(), index);
        if (!line || (common && *common != read(*line)))
            return std::nullopt;
        common = read(*line);
    }
    return common;
}

std::optional<LONG> BorderLinesObject::LineStyle()
{
    return CommonOf([](const Line& line) { return LineStyleNumber(line.style); });
}

void BorderLinesObject::SetLineStyle(const Argument& value)
{
    // False and 0 are taken for no line, as true and 1 are for a continuous one.
    LONG number = value.IsBoolean() ? (value.Flag() ? xl::kContinuous : xl::kNone) : value.Long();
    number = number == 0 ? xl::kNone : number == xl::kAutomatic ? xl::kContinuous : number;
    Change([number](Line& line) { line.style = WithLineStyle(line.style, number); });
}

std::optional<LONG> BorderLinesObject::Weight()
{
    return CommonOf([](const Line& line) { return WeightNumber(line.style); });
}

void BorderLinesObject::SetWeight(const Argument& value)
{
    const LONG weight = value.Long();
    Change([weight](Line& line) { line.style = WithWeight(line.style, weight); });
}

std::optional<double> BorderLinesObject::Color()
{
    return CommonOf([](const Line& line) { return ColorNumber(line.color, 0); });
}

void BorderLinesObject::SetColor(const Argument& value)
{
    const auto color = ColorFrom(value);
    Change([color](Line& line) { Recolor(line, color); });
}

std::optional<LONG> BorderLinesObject::ColorIndex()
{
    return CommonOf([](const Line& line) {
        return line.style == zek::office::LineStyle::None ? xl::kNone : IndexOfColor(line.color);
    });
}

void BorderLinesObject::SetColorIndex(const Argument& value)
{
    const LONG index = value.Long();
    if (index == xl::kNone)
        return Change([](Line& line) { line = {}; });
    const auto color = ColorOfIndex(index);
    Change([color](Line& line) { Recolor(line, color); });
}

BordersObject::BordersObject(FormatTarget target)
    : BorderLinesObject(std::move(target), {xl::kEdgeLeft, xl::kEdgeTop, xl::kEdgeBottom, xl::kEdgeRight,
                                            xl::kInsideVertical, xl::kInsideHorizontal})
{
}

IDispatch* BordersObject::Item(const Arguments& arguments)
{
    // Styles name their edges by xlLeft and its sisters, too.
    constexpr std::pair<LONG, LONG> kOldNames[] = {
        {-4131, xl::kEdgeLeft}, {-4152, xl::kEdgeRight}, {-4160, xl::kEdgeTop}, {-4107, xl::kEdgeBottom},
        {1, xl::kEdgeLeft},     {2, xl::kEdgeRight},     {3, xl::kEdgeTop},     {4, xl::kEdgeBottom}};
    LONG index = arguments[0].Long();
    for (const auto& [old, current] : kOldNames)
        if (index == old) {
            index = current;
            break;
        }
    if (!IsBorderIndex(index))
        throw AutomationError();
    return new BorderObject(Target(), index);
}

LONG BordersObject::Count()
{
    return xl::kInsideHorizontal - xl::kEdgeLeft + 1;
}

const MemberTable& BorderObject::Members()
{
    using B = BorderLinesObject;
    static const MemberTable table =
        ModelTable("Border", {
                                 {"LineStyle", 0x77, Property<&B::LineStyle, &B::SetLineStyle>()},
                                 {"Weight", 0x78, Property<&B::Weight, &B::SetWeight>()},
                                 {"Color", 0x63, Property<&B::Color, &B::SetColor>()},
                                 {"ColorIndex", 0x61, Property<&B::ColorIndex, &B::SetColorIndex>()},
                             });
    return table;
}

const MemberTable& BordersObject::Members()
{
    using B = BordersObject;
    static const MemberTable table =
        ModelTable("Borders", {
                                  {"Item", 0xAA, Get<&B::Item>(1, 1)},
                                  {"_Default", 0x0, Get<&B::Item>(1, 1)},
                                  {"Count", 0x76, Get<&B::Count>()},
                                  {"LineStyle", 0x77, Property<&B::LineStyle, &B::SetLineStyle>()},
                                  {"Value", 0x6, Property<&B::LineStyle, &B::SetLineStyle>()},
                                  {"Weight", 0x78, Property<&B::Weight, &B::SetWeight>()},
                                  {"Color", 0x63, Property<&B::Color, &B::SetColor>()},
                                  {"ColorIndex", 0x61, Property<&B::ColorIndex, &B::SetColorIndex>()},
                              });
    return table;
}

} // namespace zek::office
