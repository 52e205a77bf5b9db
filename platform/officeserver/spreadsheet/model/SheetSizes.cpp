// Widths and heights.
#include "spreadsheet/model/Sheet.h"
#include "spreadsheet/model/SheetRows.h"

#include <cmath>

namespace zek::office {
namespace {

// The default font's digits are seven pixels wide; a column has five pixels beside its characters.
constexpr double kDigitPixels = 7;
constexpr double kPaddingPixels = 5;
constexpr double kPointsPerPixel = 0.75;
constexpr double kTwipsPerPoint = 20;

double PointsOfWidth(double characters)
{
    if (characters < 1)
        return std::floor(characters * (kDigitPixels + kPaddingPixels) + 0.5) * kPointsPerPixel;
    const double rounding = std::floor(128 / kDigitPixels);
    return (std::floor((256 * characters + rounding) / 256 * kDigitPixels) + kPaddingPixels) *
           kPointsPerPixel;
}

} // namespace

double Sheet::ColumnWidth(std::uint32_t column) const
{
    const ColumnRun run = ColumnAt(column);
    if (run.hidden)
        return 0;
    return run.width < 0 ? m_defaultColumnWidth : run.width;
}

void Sheet::SetColumnWidth(std::uint32_t first, std::uint32_t last, double characters)
{
    WorkColumns(first, last, [characters](ColumnRun& run) {
        run.hidden = characters == 0;
        if (!run.hidden)
            run.width = characters;
    });
}

void Sheet::SetColumnsHidden(std::uint32_t first, std::uint32_t last, bool hidden)
{
    WorkColumns(first, last, [hidden](ColumnRun& run) { run.hidden = hidden; });
}

double Sheet::RowHeight(std::uint32_t row) const
{
    const Row* const content = FindRow(row);
    if (!content)
        return m_defaultRowHeight;
    if (content->hidden)
        return 0;
    return content->heightTwips == 0 ? m_defaultRowHeight : content->Height();
}

void Sheet::SetRowHeight(std::uint32_t first, std::uint32_t last, double points)
{
    if (first == 0 && last == kRowCount - 1) {
        ResetRowHeight(first, last);
        SetRowsHidden(first, RowEnd() == 0 ? 0 : RowEnd() - 1, false);
        m_defaultRowHeight = points;
        m_ownDefaultRowHeight = true;
        return;
    }
    const auto twips = static_cast<std::uint16_t>(std::lround(points * kTwipsPerPoint));
    for (std::uint32_t row = first; row <= last; ++row) {
        Row& content = MakeRow(row);
        content.hidden = twips == 0;
        if (!content.hidden)
            content.heightTwips = twips;
    }
}

void Sheet::ResetRowHeight(std::uint32_t first, std::uint32_t last)
{
    WorkRows(first, last, [](std::uint32_t, Row& row) { row.heightTwips = 0; });
}

void Sheet::SetRowsHidden(std::uint32_t first, std::uint32_t last, bool hidden)
{
    if (!hidden)
        return WorkRows(first, last, [](std::uint32_t, Row& row) { row.hidden = false; });
    for (std::uint32_t row = first; row <= last; ++row)
        MakeRow(row).hidden = true;
}

bool Sheet::IsRowHidden(std::uint32_t row) const
{
    const Row* const content = FindRow(row);
    return content && content->hidden;
}

double Sheet::RowsPoints(std::uint32_t first, std::uint32_t last) const
{
    double points = (last - first + 1.0) * m_defaultRowHeight;
    const_cast<Sheet*>(this)->WorkRows(first, last, [&](std::uint32_t, const Row& row) {
        if (row.hidden)
            points -= m_defaultRowHeight;
        else if (row.heightTwips != 0)
            points += row.Height() - m_defaultRowHeight;
    });
    return points;
}

double Sheet::ColumnsPoints(std::uint32_t first, std::uint32_t last) const
{
    const double plain = PointsOfWidth(m_defaultColumnWidth);
    double points = (last - first + 1.0) * plain;
    for (const ColumnRun& run : m_columns) {
        const std::uint32_t from = std::max(first, run.first);
        const std::uint32_t to = std::min(last, run.last);
        if (from <= to)
            points += (to - from + 1.0) * (PointsOfWidth(ColumnWidth(run.first)) - plain);
    }
    return points;
}

} // namespace zek::office
