#include "spreadsheet/objects/FontObject.h"

#include <cmath>

namespace zek::office {
namespace {

constexpr double kTwipsPerPoint = 20;
constexpr double kSmallestFont = 1;
constexpr double kLargestFont = 409;

struct UnderlineNumber {
    Underline line;
    LONG number;
};
constexpr UnderlineNumber kUnderlines[] = {
    {Underline::None, xl::kNone},
    {Underline::Single, xl::kUnderlineSingle},
    {Underline::Double, xl::kUnderlineDouble},
    {Underline::SingleAccounting, xl::kUnderlineSingleAccounting},
    {Underline::DoubleAccounting, xl::kUnderlineDoubleAccounting},
};

Underline UnderlineFrom(const Argument& value)
{
    const LONG number = value.Long();
    for (const UnderlineNumber& row : kUnderlines)
        if (row.number == number)
            return row.line;
    // A Boolean, in any of the kinds that hosts send one as.
    if (number == 0)
        return Underline::None;
    if (number == 1 || number == -1)
        return Underline::Single;
    throw AutomationError();
}

} // namespace

std::optional<std::string> FontObject::Name()
{
    const std::optional<TextId> name = Target().Common([](const Format& format) { return format.font.name; });
    return name ? std::optional(std::string(Target().Model().Typefaces().Text(*name))) : std::nullopt;
}

void FontObject::SetName(const Argument& value)
{
    const std::string name = value.Text();
    if (name.empty())
        throw AutomationError();
    const TextId id = Target().Model().Typefaces().Intern(name);
    Target().Change(kFontGroup, [id](Format& format) { format.font.name = id; });
}

std::optional<double> FontObject::Size()
{
    return Target().Common([](const Format& format) { return format.font.twips / kTwipsPerPoint; });
}

void FontObject::SetSize(const Argument& value)
{
    const double points = value.Number();
    if (!(points >= kSmallestFont && points <= kLargestFont))
        throw AutomationError();
    const auto twips = static_cast<std::uint16_t>(std::lround(points * kTwipsPerPoint));
    Target().Change(kFontGroup, [twips](Format& format) { format.font.twips = twips; });
}

std::optional<double> FontObject::Color()
{
    return Target().Common([](const Format& format) { return ColorNumber(format.font.color, 0); });
}

void FontObject::SetColor(const Argument& value)
{
    const auto color = ColorFrom(value);
    Target().Change(kFontGroup, [color](Format& format) { format.font.color = color; });
}

std::optional<LONG> FontObject::ColorIndex()
{
    return Target().Common([](const Format& format) { return IndexOfColor(format.font.color); });
}

void FontObject::SetColorIndex(const Argument& value)
{
    const auto color = ColorOfIndex(value.Long());
    Target().Change(kFontGroup, [color](Format& format) { format.font.color = color; });
}

std::optional<LONG> FontObject::Underline()
{
    return Target().Common([](const Format& format) {
        return kUnderlines[static_cast<std::size_t>(format.font.underline)].number;
    });
}

void FontObject::SetUnderline(const Argument& value)
{
    const auto line = UnderlineFrom(value);
    Target().Change(kFontGroup, [line](Format& format) { format.font.underline = line; });
}

std::optional<std::string> FontObject::FontStyle()
{
    return Target().Common([](const Format& format) -> std::string {
        if (format.font.bold)
            return format.font.italic ? "Bold Italic" : "Bold";
        return format.font.italic ? "Italic" : "Regular";
    });
}

void FontObject::SetFontStyle(const Argument& value)
{
    const std::string style = FoldCase(value.Text());
    const bool bold = style.find("bold") != style.npos;
    const bool italic = style.find("italic") != style.npos;
    Target().Change(kFontGroup, [=](Format& format) {
        format.font.bold = bold;
        format.font.italic = italic;
    });
}

const MemberTable& FontObject::Members()
{
    using F = FontObject;
    static const MemberTable table = ModelTable(
        "Font",
        {
            {"Name", 0x6E, Property<&F::Name, &F::SetName>()},
            {"Size", 0x68, Property<&F::Size, &F::SetSize>()},
            {"Color", 0x63, Property<&F::Color, &F::SetColor>()},
            {"ColorIndex", 0x61, Property<&F::ColorIndex, &F::SetColorIndex>()},
            {"Bold", 0x60, Property<&F::GetFlag<&Font::bold>, &F::SetFlag<&Font::bold>>()},
            {"Italic", 0x65, Property<&F::GetFlag<&Font::italic>, &F::SetFlag<&Font::italic>>()},
            {"Underline", 0x6A, Property<&F::Underline, &F::SetUnderline>()},
            {"Strikethrough", 0x69,
             Property<&F::GetFlag<&Font::strikethrough>, &F::SetFlag<&Font::strikethrough>>()},
            {"OutlineFont", 0xDD, Property<&F::GetFlag<&Font::outline>, &F::SetFlag<&Font::outline>>()},
            {"Shadow", 0x67, Property<&F::GetFlag<&Font::shadow>, &F::SetFlag<&Font::shadow>>()},
            {"Subscript", 0xB3,
             Property<&F::GetScript<Script::Subscript>, &F::SetScript<Script::Subscript>>()},
            {"Superscript", 0xB2,
             Property<&F::GetScript<Script::Superscript>, &F::SetScript<Script::Superscript>>()},
            {"FontStyle", 0xB1, Property<&F::FontStyle, &F::SetFontStyle>()},
        });
    return table;
}

} // namespace zek::office
