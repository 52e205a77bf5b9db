// How a cell looks: font, fill, borders, alignment, number format, protection, and the style it stems from.
//
// A Format is a small plain value without pointers; typefaces and number formats are numbers of the
// workbook's pools. Cells hold the number of an interned Format (FormatTable.h).
#pragma once

#include "spreadsheet/model/TextPool.h"

#include <array>
#include <cstdint>

namespace zek::office {

// 0x00BBGGRR, or kAutomaticColor: the reader's own text, line or background colour.
using Color = std::uint32_t;
constexpr Color kAutomaticColor = 0xFF000000;

using StyleId = std::uint16_t;
constexpr StyleId kNormalStyle = 0;

enum class Underline : std::uint8_t { None, Single, Double, SingleAccounting, DoubleAccounting };
enum class Script : std::uint8_t { Baseline, Subscript, Superscript };

struct Font {
    TextId name = 0; // in Workbook::Typefaces()
    Color color = kAutomaticColor;
    std::uint16_t twips = 220; // size in twentieths of a point
    bool bold = false;
    bool italic = false;
    bool strikethrough = false;
    bool outline = false;
    bool shadow = false;
    Underline underline = Underline::None;
    Script script = Script::Baseline;

    bool operator==(const Font&) const = default;
};

enum class Pattern : std::uint8_t {
    None,
    Solid,
    Gray50,
    Gray75,
    Gray25,
    Gray16,
    Gray8,
    Horizontal,
    Vertical,
    Down,
    Up,
    Checker,
    SemiGray75,
    LightHorizontal,
    LightVertical,
    LightDown,
    LightUp,
    Grid,
    CrissCross
};

struct Fill {
    Pattern pattern = Pattern::None;
    Color color = kAutomaticColor;        // the cell's background; what a solid fill shows
    Color patternColor = kAutomaticColor; // the lines or dots of a pattern

    bool operator==(const Fill&) const = default;
};

// In the order, and with the meaning, of the file format's border styles.
enum class LineStyle : std::uint8_t {
    None,
    Thin,
    Medium,
    Dashed,
    Dotted,
    Thick,
    Double,
    Hair,
    MediumDashed,
    DashDot,
    MediumDashDot,
    DashDotDot,
    MediumDashDotDot,
    SlantDashDot
};

struct Line {
    LineStyle style = LineStyle::None;
    Color color = kAutomaticColor;

    bool operator==(const Line&) const = default;
};

enum class Edge : std::uint8_t { Left, Right, Top, Bottom, Diagonal };
constexpr std::size_t kEdgeCount = 5;

// Both diagonals share one line.
struct Borders {
    std::array<Line, kEdgeCount> lines;
    bool diagonalDown = false;
    bool diagonalUp = false;

    const Line& At(Edge edge) const { return lines[static_cast<std::size_t>(edge)]; }
    Line& At(Edge edge) { return lines[static_cast<std::size_t>(edge)]; }
    bool operator==(const Borders&) const = default;
};

enum class HorizontalAlign : std::uint8_t {
    General,
    Left,
    Center,
    Right,
    Fill,
    Justify,
    CenterAcrossSelection,
    Distributed
};
enum class VerticalAlign : std::uint8_t { Top, Center, Bottom, Justify, Distributed };

constexpr std::int16_t kStackedRotation = 255;

struct Alignment {
    HorizontalAlign horizontal = HorizontalAlign::General;
    VerticalAlign vertical = VerticalAlign::Bottom;
    bool wrap = false;
    bool shrink = false;
    std::uint8_t indent = 0;   // 0..15
    std::int16_t rotation = 0; // degrees counter-clockwise, -90..90, or kStackedRotation

    bool operator==(const Alignment&) const = default;
};

struct Protection {
    bool locked = true;
    bool formulaHidden = false;

    bool operator==(const Protection&) const = default;
};

// The attribute groups that a format sets itself; the others follow its style when that changes.
enum FormatGroup : std::uint8_t {
    kNumberGroup = 1,
    kFontGroup = 2,
    kAlignmentGroup = 4,
    kBorderGroup = 8,
    kFillGroup = 16,
    kProtectionGroup = 32,
    kAllGroups = 63
};

struct Format {
    Font font;
    Fill fill;
    Borders borders;
    Alignment alignment;
    Protection protection;
    TextId numberFormat = 0; // in Workbook::NumberFormats(); 0 is "General"
    StyleId style = kNormalStyle;
    std::uint8_t ownGroups = 0; // FormatGroup bits

    bool operator==(const Format&) const = default;
};

// Takes the groups in `groups` from `source`.
void CopyGroups(Format& target, const Format& source, std::uint8_t groups);

} // namespace zek::office
