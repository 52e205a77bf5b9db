#include "spreadsheet/objects/BorderLines.h"

#include "spreadsheet/Constants.h"

#include <vector>

namespace zek::office {
namespace {

struct LineKind {
    LineStyle style;
    LONG number; // XlLineStyle
    LONG weight; // XlBorderWeight
};

// In the order of LineStyle; of one number, the usual weight first.
constexpr LineKind kLines[] = {
    {LineStyle::None, xl::kNone, xl::kThin},
    {LineStyle::Thin, xl::kContinuous, xl::kThin},
    {LineStyle::Medium, xl::kContinuous, xl::kMedium},
    {LineStyle::Dashed, xl::kDash, xl::kThin},
    {LineStyle::Dotted, xl::kDot, xl::kThin},
    {LineStyle::Thick, xl::kContinuous, xl::kThick},
    {LineStyle::Double, xl::kDouble, xl::kThick},
    {LineStyle::Hair, xl::kContinuous, xl::kHairline},
    {LineStyle::MediumDashed, xl::kDash, xl::kMedium},
    {LineStyle::DashDot, xl::kDashDot, xl::kThin},
    {LineStyle::MediumDashDot, xl::kDashDot, xl::kMedium},
    {LineStyle::DashDotDot, xl::kDashDotDot, xl::kThin},
    {LineStyle::MediumDashDotDot, xl::kDashDotDot, xl::kMedium},
    {LineStyle::SlantDashDot, xl::kSlantDashDot, xl::kMedium},
};

const LineKind& KindOf(LineStyle style)
{
    return kLines[static_cast<std::size_t>(style)];
}

std::optional<LineStyle> FindLine(LONG number, std::optional<LONG> weight)
{
    for (const LineKind& line : kLines)
        if (line.number == number && (!weight || line.weight == *weight))
            return line.style;
    return std::nullopt;
}

// Which cells of a block have the edge that an index names, and which cells beyond the block share it.
struct EdgeCells {
    Edge edge;
    Block own;
    bool hasNeighbours;
    Block neighbours;
};

Edge Opposite(Edge edge)
{
    switch (edge) {
    case Edge::Left:
        return Edge::Right;
    case Edge::Right:
        return Edge::Left;
    case Edge::Top:
        return Edge::Bottom;
    case Edge::Bottom:
        return Edge::Top;
    default:
        return edge;
    }
}

EdgeCells OuterEdge(const Block& block, Edge edge)
{
    EdgeCells cells{edge, block, false, block};
    switch (edge) {
    case Edge::Left:
        cells.own.lastColumn = block.firstColumn;
        cells.hasNeighbours = block.firstColumn > 0;
        cells.neighbours.firstColumn = cells.neighbours.lastColumn = block.firstColumn - 1;
        break;
    case Edge::Right:
        cells.own.firstColumn = block.lastColumn;
        cells.hasNeighbours = block.lastColumn + 1 < kColumnCount;
        cells.neighbours.firstColumn = cells.neighbours.lastColumn = block.lastColumn + 1;
        break;
    case Edge::Top:
        cells.own.lastRow = block.firstRow;
        cells.hasNeighbours = block.firstRow > 0;
        cells.neighbours.firstRow = cells.neighbours.lastRow = block.firstRow - 1;
        break;
    default:
        cells.own.firstRow = block.lastRow;
        cells.hasNeighbours = block.lastRow + 1 < kRowCount;
        cells.neighbours.firstRow = cells.neighbours.lastRow = block.lastRow + 1;
        break;
    }
    return cells;
}

// Lines between the cells of the block: each is the edge of both cells beside it. In whole columns or rows
// it is drawn in every cell, so that they need no cells of their own.
std::vector<EdgeCells> InnerEdges(const Block& block, bool vertical)
{
    Block before = block;
    Block behind = block;
    if (vertical ? block.Columns() == 1 : block.Rows() == 1)
        return {};
    if (vertical && !block.HasAllColumns()) {
        --before.lastColumn;
        ++behind.firstColumn;
    } else if (!vertical && !block.HasAllRows()) {
        --before.lastRow;
        ++behind.firstRow;
    }
    return {{vertical ? Edge::Right : Edge::Bottom, before, false, {}},
            {vertical ? Edge::Left : Edge::Top, behind, false, {}}};
}

std::vector<EdgeCells> EdgesOf(const Block& block, LONG index)
{
    switch (index) {
    case xl::kEdgeLeft:
        return {OuterEdge(block, Edge::Left)};
    case xl::kEdgeTop:
        return {OuterEdge(block, Edge::Top)};
    case xl::kEdgeBottom:
        return {OuterEdge(block, Edge::Bottom)};
    case xl::kEdgeRight:
        return {OuterEdge(block, Edge::Right)};
    case xl::kInsideVertical:
        return InnerEdges(block, true);
    case xl::kInsideHorizontal:
        return InnerEdges(block, false);
    default:
        return {{Edge::Diagonal, block, false, {}}};
    }
}

// One edge of one format as a line; a diagonal only where the format draws that one.
Line LineOf(const Borders& borders, Edge edge, LONG index)
{
    const bool hidden =
        edge == Edge::Diagonal && !(index == xl::kDiagonalDown ? borders.diagonalDown : borders.diagonalUp);
    return hidden ? Line{} : borders.At(edge);
}

void PutLine(Borders& borders, Edge edge, LONG index, const Line& line)
{
    if (edge != Edge::Diagonal) {
        borders.At(edge) = line;
        return;
    }
    const bool drawn = line.style != LineStyle::None;
    (index == xl::kDiagonalDown ? borders.diagonalDown : borders.diagonalUp) = drawn;
    if (drawn)
        borders.At(edge) = line;
    else if (!borders.diagonalDown && !borders.diagonalUp)
        borders.At(edge) = {};
}

void ChangeEdge(const FormatTarget& target, const EdgeCells& cells, LONG index,
                const std::function<void(Line&)>& edit)
{
    target.ChangeCells(cells.own, kBorderGroup, [&](Format& format) {
        Line line = LineOf(format.borders, cells.edge, index);
        edit(line);
        PutLine(format.borders, cells.edge, index, line.style == LineStyle::None ? Line{} : line);
    });
}

void FollowNeighbours(const FormatTarget& target, const EdgeCells& cells,
                      const std::function<void(Line&)>& edit)
{
    const Edge shared = Opposite(cells.edge);
    Sheet& sheet = Live(target.TheSheet());
    FormatTable& formats = sheet.Book().Formats();
    bool drawn = false;
    sheet.VisitFormats(cells.neighbours, [&](FormatId id) {
        drawn = formats.At(id).borders.At(shared).style != LineStyle::None;
        return !drawn;
    });
    if (!drawn)
        return;
    sheet.ChangeFormat(cells.neighbours, [&](FormatId id) {
        Format format = formats.At(id);
        Line& line = format.borders.At(shared);
        if (line.style == LineStyle::None)
            return id;
        edit(line);
        if (line.style == LineStyle::None)
            line = {};
        format.ownGroups |= kBorderGroup;
        return formats.Intern(format);
    });
}

// Adds the block's lines to what is common so far; false when they differ.
bool CollectLines(const Sheet& sheet, const EdgeCells& cells, LONG index, std::optional<Line>& common)
{
    const FormatTable& formats = sheet.Book().Formats();
    const auto add = [&](const Line& line) {
        const bool same = !common || *common == line;
        common = line;
        return same;
    };
    bool same = true;
    sheet.VisitFormats(cells.own, [&](FormatId id) {
        return same = same && add(LineOf(formats.At(id).borders, cells.edge, index));
    });
    if (!same || !cells.hasNeighbours || common->style != LineStyle::None)
        return same;
    common.reset();
    sheet.VisitFormats(cells.neighbours, [&](FormatId id) {
        return same = same && add(formats.At(id).borders.At(Opposite(cells.edge)));
    });
    return same;
}

} // namespace

LONG LineStyleNumber(LineStyle style)
{
    return KindOf(style).number;
}

LONG WeightNumber(LineStyle style)
{
    return KindOf(style).weight;
}

LineStyle WithLineStyle(LineStyle old, LONG lineStyle)
{
    const std::optional<LineStyle> usual = FindLine(lineStyle, std::nullopt);
    if (!usual)
        throw AutomationError();
    return old == LineStyle::None ? *usual : FindLine(lineStyle, WeightNumber(old)).value_or(*usual);
}

LineStyle WithWeight(LineStyle old, LONG weight)
{
    const std::optional<LineStyle> plain = FindLine(xl::kContinuous, weight);
    if (!plain)
        throw AutomationError();
    return old == LineStyle::None ? *plain : FindLine(LineStyleNumber(old), weight).value_or(*plain);
}

bool IsBorderIndex(LONG index)
{
    return index >= xl::kDiagonalDown && index <= xl::kInsideHorizontal;
}

void ChangeLines(const FormatTarget& target, LONG index, const std::function<void(Line&)>& edit)
{
    if (target.IsStyle()) {
        for (const EdgeCells& cells : EdgesOf({0, 0, 0, 0}, index))
            target.Change(kBorderGroup, [&](Format& format) {
                Line line = LineOf(format.borders, cells.edge, index);
                edit(line);
                PutLine(format.borders, cells.edge, index, line);
            });
        return;
    }
    for (const Block& area : target.Areas())
        for (const EdgeCells& cells : EdgesOf(area, index)) {
            ChangeEdge(target, cells, index, edit);
            if (cells.hasNeighbours)
                FollowNeighbours(target, cells, edit);
        }
}

std::optional<Line> CommonLine(const FormatTarget& target, LONG index)
{
    if (target.IsStyle()) {
        const std::vector<EdgeCells> edges = EdgesOf({0, 0, 0, 0}, index);
        if (edges.empty())
            return Line{};
        return target.Common(
            [&](const Format& format) { return LineOf(format.borders, edges.front().edge, index); });
    }
    std::optional<Line> common;
    for (const Block& area : target.Areas())
        for (const EdgeCells& cells : EdgesOf(area, index)) {
            std::optional<Line> here;
            if (!CollectLines(Live(target.TheSheet()), cells, index, here) || (common && *common != *here))
                return std::nullopt;
            common = here;
        }
    return common ? common : Line{};
}

} // namespace zek::office
