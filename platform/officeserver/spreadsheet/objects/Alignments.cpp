#include "spreadsheet/objects/Alignments.h"

#include "spreadsheet/Constants.h"
#include "spreadsheet/model/Unicode.h"

#include <algorithm>
#include <iterator>

namespace zek::office {
namespace {

// XlHAlign and XlVAlign in the order of HorizontalAlign and VerticalAlign.
constexpr LONG kHorizontal[] = {1, -4131, -4108, -4152, 5, -4130, 7, -4117};
constexpr LONG kVertical[] = {-4160, -4108, -4107, -4130, -4117};
constexpr LONG kGeneral = 1;
constexpr LONG kSteepest = 90;
constexpr LONG kDeepestIndent = 15;
constexpr std::size_t kLongestNumberFormat = 255;

template <class Kind, std::size_t N>
Kind KindFrom(const LONG (&numbers)[N], LONG number)
{
    const auto place = std::ranges::find(numbers, number);
    if (place == std::end(numbers))
        throw AutomationError();
    return static_cast<Kind>(place - numbers);
}

LONG RotationNumber(std::int16_t rotation)
{
    switch (rotation) {
    case 0:
        return xl::kHorizontal;
    case kSteepest:
        return xl::kUpward;
    case -kSteepest:
        return xl::kDownward;
    case kStackedRotation:
        return xl::kVertical;
    default:
        return rotation;
    }
}

std::int16_t RotationFrom(LONG number)
{
    switch (number) {
    case xl::kHorizontal:
        return 0;
    case xl::kUpward:
        return kSteepest;
    case xl::kDownward:
        return -kSteepest;
    case xl::kVertical:
        return kStackedRotation;
    default:
        if (number < -kSteepest || number > kSteepest)
            throw AutomationError();
        return static_cast<std::int16_t>(number);
    }
}

bool IsPlausibleNumberFormat(std::string_view format)
{
    for (std::size_t i = 0; i < format.size(); ++i) {
        const char c = format[i];
        if (c == '\\' || c == '_' || c == '*')
            ++i;
        else if (c == '"' || c == '[')
            i = format.find(c == '"' ? '"' : ']', i + 1);
        if (i >= format.size())
            return false;
    }
    return !format.empty() && Utf16Length(format) <= kLongestNumberFormat &&
           std::ranges::count(format, ';') <= 3;
}

} // namespace

std::optional<LONG> HorizontalOf(const FormatTarget& target)
{
    return target.Common([](const Format& format) {
        return kHorizontal[static_cast<std::size_t>(format.alignment.horizontal)];
    });
}

void PutHorizontal(const FormatTarget& target, const Argument& value)
{
    const LONG number = value.Long();
    const auto kind = KindFrom<HorizontalAlign>(kHorizontal, number == xl::kNone ? kGeneral : number);
    target.Change(kAlignmentGroup, [kind](Format& format) {
        format.alignment.horizontal = kind;
        // Only these keep a distance to an edge.
        if (kind != HorizontalAlign::Left && kind != HorizontalAlign::Right &&
            kind != HorizontalAlign::Distributed)
            format.alignment.indent = 0;
    });
}

std::optional<LONG> VerticalOf(const FormatTarget& target)
{
    return target.Common(
        [](const Format& format) { return kVertical[static_cast<std::size_t>(format.alignment.vertical)]; });
}

void PutVertical(const FormatTarget& target, const Argument& value)
{
    const auto kind = KindFrom<VerticalAlign>(kVertical, value.Long());
    target.Change(kAlignmentGroup, [kind](Format& format) { format.alignment.vertical = kind; });
}

std::optional<LONG> RotationOf(const FormatTarget& target)
{
    return target.Common([](const Format& format) { return RotationNumber(format.alignment.rotation); });
}

void PutRotation(const FormatTarget& target, const Argument& value)
{
    const std::int16_t rotation = RotationFrom(value.Long());
    target.Change(kAlignmentGroup, [rotation](Format& format) { format.alignment.rotation = rotation; });
}

std::optional<LONG> IndentOf(const FormatTarget& target)
{
    return target.Common([](const Format& format) { return LONG{format.alignment.indent}; });
}

void PutIndent(const FormatTarget& target, const Argument& value)
{
    const LONG indent = value.Long();
    if (indent < 0 || indent > kDeepestIndent)
        throw AutomationError();
    target.Change(kAlignmentGroup, [indent](Format& format) {
        format.alignment.indent = static_cast<std::uint8_t>(indent);
        if (indent > 0 && format.alignment.horizontal == HorizontalAlign::General)
            format.alignment.horizontal = HorizontalAlign::Left;
    });
}

std::optional<std::string> NumberFormatOf(const FormatTarget& target)
{
    const std::optional<TextId> id = target.Common([](const Format& format) { return format.numberFormat; });
    return id ? std::optional(std::string(target.Model().NumberFormats().Text(*id))) : std::nullopt;
}

void PutNumberFormat(const FormatTarget& target, const Argument& value)
{
    std::string text = value.Text();
    if (!IsPlausibleNumberFormat(text))
        throw AutomationError();
    if (EqualsNoCase(text, "General"))
        text = "General";
    const TextId id = target.Model().NumberFormats().Intern(text);
    target.Change(kNumberGroup, [id](Format& format) { format.numberFormat = id; });
}

} // namespace zek::office
