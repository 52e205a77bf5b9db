#include "spreadsheet/objects/InteriorObject.h"

#include <algorithm>
#include <iterator>

namespace zek::office {
namespace {

constexpr Color kWhite = 0xFFFFFF;

// XlPattern in the order of Pattern.
constexpr LONG kPatterns[] = {xl::kNone, 1, -4125, -4126, -4124, 17, 18, -4128, -4166, -4121,
                              -4162,     9, 10,    11,    12,    13, 14, 15,    16};

void Paint(Fill& fill, Color color)
{
    fill.color = color;
    if (fill.pattern == Pattern::None)
        fill.pattern = Pattern::Solid;
}

} // namespace

std::optional<double> InteriorObject::Color()
{
    return Target().Common([](const Format& format) {
        return format.fill.pattern == zek::office::Pattern::None ? ColorNumber(kWhite, kWhite)
                                                                 : ColorNumber(format.fill.color, kWhite);
    });
}

void InteriorObject::SetColor(const Argument& value)
{
    const auto color = ColorFrom(value);
    Target().Change(kFillGroup, [color](Format& format) { Paint(format.fill, color); });
}

std::optional<LONG> InteriorObject::ColorIndex()
{
    return Target().Common([](const Format& format) {
        return format.fill.pattern == zek::office::Pattern::None ? xl::kNone
                                                                 : IndexOfColor(format.fill.color);
    });
}

void InteriorObject::SetColorIndex(const Argument& value)
{
    const LONG index = value.Long();
    if (index == xl::kNone)
        return Target().Change(kFillGroup, [](Format& format) { format.fill = {}; });
    const auto color = ColorOfIndex(index);
    Target().Change(kFillGroup, [color](Format& format) { Paint(format.fill, color); });
}

std::optional<LONG> InteriorObject::Pattern()
{
    return Target().Common(
        [](const Format& format) { return kPatterns[static_cast<std::size_t>(format.fill.pattern)]; });
}

void InteriorObject::SetPattern(const Argument& value)
{
    const LONG number = value.Long();
    const auto place = std::ranges::find(kPatterns, number == xl::kAutomatic ? 1 : number);
    if (place == std::end(kPatterns))
        throw AutomationError();
    const auto pattern = static_cast<zek::office::Pattern>(place - kPatterns);
    Target().Change(kFillGroup, [pattern](Format& format) {
        if (pattern == zek::office::Pattern::None)
            format.fill = {};
        format.fill.pattern = pattern;
    });
}

std::optional<double> InteriorObject::PatternColor()
{
    return Target().Common([](const Format& format) { return ColorNumber(format.fill.patternColor, 0); });
}

void InteriorObject::SetPatternColor(const Argument& value)
{
    const auto color = ColorFrom(value);
    Target().Change(kFillGroup, [color](Format& format) { format.fill.patternColor = color; });
}

std::optional<LONG> InteriorObject::PatternColorIndex()
{
    return Target().Common([](const Format& format) { return IndexOfColor(format.fill.patternColor); });
}

void InteriorObject::SetPatternColorIndex(const Argument& value)
{
    const auto color = ColorOfIndex(value.Long());
    Target().Change(kFillGroup, [color](Format& format) { format.fill.patternColor = color; });
}

const MemberTable& InteriorObject::Members()
{
    using I = InteriorObject;
    static const MemberTable table = ModelTable(
        "Interior",
        {
            {"Color", 0x63, Property<&I::Color, &I::SetColor>()},
            {"ColorIndex", 0x61, Property<&I::ColorIndex, &I::SetColorIndex>()},
            {"Pattern", 0x5F, Property<&I::Pattern, &I::SetPattern>()},
            {"PatternColor", 0x64, Property<&I::PatternColor, &I::SetPatternColor>()},
            {"PatternColorIndex", 0x62, Property<&I::PatternColorIndex, &I::SetPatternColorIndex>()},
        });
    return table;
}

} // namespace zek::office
