#include "package/BookContent.h"

namespace zek::office {
namespace {

constexpr std::uint32_t kNotMet = 0xFFFFFFFF;

} // namespace

BookContent::BookContent(const Workbook& source)
    : book(source), textNumbers(source.Texts().Size(), kNotMet), m_formatSeen(source.Formats().Size())
{
    TakeFormat(kDefaultFormat);
    for (std::size_t i = 0; i < book.SheetCount(); ++i)
        TakeSheet(book.SheetAt(i));
}

void BookContent::TakeSheet(const Sheet& sheet)
{
    for (const ColumnRun& run : sheet.Columns())
        TakeFormat(run.format);
    std::vector<StoredRow>& list = rows.emplace_back();
    sheet.VisitRows([&](std::uint32_t number, const Row& row) {
        list.push_back({number, &row});
        if (row.format != kNoFormat)
            TakeFormat(row.format);
        for (const Cell& cell : row.cells)
            TakeCell(cell);
    });
}

void BookContent::TakeCell(const Cell& cell)
{
    TakeFormat(cell.format);
    hasFormulas |= cell.kind == CellKind::Formula;
    if (cell.kind != CellKind::Text)
        return;
    ++textCells;
    if (textNumbers[cell.text] == kNotMet) {
        textNumbers[cell.text] = static_cast<std::uint32_t>(texts.size());
        texts.push_back(cell.text);
    }
}

void BookContent::TakeFormat(FormatId format)
{
    if (m_formatSeen[format])
        return;
    m_formatSeen[format] = true;
    formats.push_back(format);
}

} // namespace zek::office
