#include "package/StylePieces.h"

#include "package/XmlText.h"

#include <cstdio>

namespace zek::office {
namespace {

constexpr const char* kPatterns[] = {"none",         "solid",           "mediumGray",    "darkGray",
                                     "lightGray",    "gray125",         "gray0625",      "darkHorizontal",
                                     "darkVertical", "darkDown",        "darkUp",        "darkGrid",
                                     "darkTrellis",  "lightHorizontal", "lightVertical", "lightDown",
                                     "lightUp",      "lightGrid",       "lightTrellis"};
constexpr const char* kUnderlines[] = {"", "<u/>", "<u val=\"double\"/>", "<u val=\"singleAccounting\"/>",
                                       "<u val=\"doubleAccounting\"/>"};
constexpr const char* kScripts[] = {"", "<vertAlign val=\"subscript\"/>", "<vertAlign val=\"superscript\"/>"};
constexpr const char* kLines[] = {"none",
                                  "thin",
                                  "medium",
                                  "dashed",
                                  "dotted",
                                  "thick",
                                  "double",
                                  "hair",
                                  "mediumDashed",
                                  "dashDot",
                                  "mediumDashDot",
                                  "dashDotDot",
                                  "mediumDashDotDot",
                                  "slantDashDot"};
constexpr const char* kEdges[] = {"left", "right", "top", "bottom", "diagonal"};
constexpr const char* kHorizontal[] = {"general", "left",    "center",           "right",
                                       "fill",    "justify", "centerContinuous", "distributed"};
constexpr const char* kVertical[] = {"top", "center", "bottom", "justify", "distributed"};

template <class Enum>
std::size_t Index(Enum value)
{
    return static_cast<std::size_t>(value);
}

std::string Attribute(const char* name, int value)
{
    return " " + std::string(name) + "=\"" + std::to_string(value) + "\"";
}

std::string ColorPiece(const char* element, Color color, const char* automatic)
{
    char text[48];
    if (color == kAutomaticColor)
        std::snprintf(text, sizeof text, "<%s %s/>", element, automatic);
    else
        std::snprintf(text, sizeof text, "<%s rgb=\"FF%02X%02X%02X\"/>", element, color & 0xFF,
                      color >> 8 & 0xFF, color >> 16 & 0xFF);
    return text;
}

// The rotation as files hold it: downward angles from 91 to 180.
int StoredRotation(std::int16_t degrees)
{
    return degrees < 0 ? 90 - degrees : degrees;
}

std::string LinePiece(const char* element, const Line& line)
{
    const std::string name(element);
    if (line.style == LineStyle::None)
        return "<" + name + "/>";
    return "<" + name + " style=\"" + kLines[Index(line.style)] + "\">" +
           ColorPiece("color", line.color, "auto=\"1\"") + "</" + name + ">";
}

} // namespace

std::string FontPiece(const Font& font, std::string_view typeface)
{
    std::string piece = "<font>";
    piece += font.bold ? "<b/>" : "";
    piece += font.italic ? "<i/>" : "";
    piece += font.strikethrough ? "<strike/>" : "";
    piece += font.outline ? "<outline/>" : "";
    piece += font.shadow ? "<shadow/>" : "";
    piece += kUnderlines[Index(font.underline)];
    piece += kScripts[Index(font.script)];
    piece += "<sz val=\"" + NumberText(font.twips / 20.0) + "\"/>";
    if (font.color != kAutomaticColor)
        piece += ColorPiece("color", font.color, "");
    piece += "<name val=\"";
    AppendStoredText(piece, typeface);
    return piece + "\"/></font>";
}

std::string FillPiece(const Fill& fill)
{
    const std::string head =
        "<fill><patternFill patternType=\"" + std::string(kPatterns[Index(fill.pattern)]);
    if (fill.pattern == Pattern::None)
        return head + "\"/></fill>";
    // 64 and 65 are the reader's text and background colours. A solid fill shows its first colour.
    if (fill.pattern == Pattern::Solid)
        return head + "\">" + ColorPiece("fgColor", fill.color, "indexed=\"65\"") +
               "<bgColor indexed=\"64\"/></patternFill></fill>";
    if (fill.patternColor == kAutomaticColor && fill.color == kAutomaticColor)
        return head + "\"/></fill>";
    return head + "\">" + ColorPiece("fgColor", fill.patternColor, "indexed=\"64\"") +
           ColorPiece("bgColor", fill.color, "indexed=\"65\"") + "</patternFill></fill>";
}

std::string BorderPiece(const Borders& borders)
{
    std::string piece = "<border";
    piece += borders.diagonalUp ? " diagonalUp=\"1\"" : "";
    piece += borders.diagonalDown ? " diagonalDown=\"1\"" : "";
    piece += ">";
    for (std::size_t edge = 0; edge < kEdgeCount; ++edge)
        piece += LinePiece(kEdges[edge], borders.lines[edge]);
    return piece + "</border>";
}

std::string AlignmentPiece(const Alignment& alignment)
{
    std::string attributes;
    if (alignment.horizontal != HorizontalAlign::General)
        attributes += " horizontal=\"" + std::string(kHorizontal[Index(alignment.horizontal)]) + "\"";
    if (alignment.vertical != VerticalAlign::Bottom)
        attributes += " vertical=\"" + std::string(kVertical[Index(alignment.vertical)]) + "\"";
    if (alignment.rotation != 0)
        attributes += Attribute("textRotation", StoredRotation(alignment.rotation));
    attributes += alignment.wrap ? " wrapText=\"1\"" : "";
    if (alignment.indent != 0)
        attributes += Attribute("indent", alignment.indent);
    attributes += alignment.shrink ? " shrinkToFit=\"1\"" : "";
    return attributes.empty() ? "" : "<alignment" + attributes + "/>";
}

std::string ProtectionPiece(const Protection& protection)
{
    std::string attributes;
    attributes += protection.locked ? "" : " locked=\"0\"";
    attributes += protection.formulaHidden ? " hidden=\"1\"" : "";
    return attributes.empty() ? "" : "<protection" + attributes + "/>";
}

} // namespace zek::office
