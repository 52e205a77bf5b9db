#include "spreadsheet/model/Reference.h"

#include <algorithm>

namespace zek::office {
namespace {

bool IsPlainNameCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '.' || static_cast<unsigned char>(c) >= 0x80;
}

bool NeedsQuotes(std::string_view name)
{
    if (!std::ranges::all_of(name, IsPlainNameCharacter) || (name[0] >= '0' && name[0] <= '9') ||
        name[0] == '.')
        return true;
    // A name that could be read as a cell, such as R1 or ABC12.
    CellReference cell;
    const char* const end = name.data() + name.size();
    const bool isR1C1 = std::ranges::all_of(
        name, [](char c) { return c == 'r' || c == 'R' || c == 'c' || c == 'C' || (c >= '0' && c <= '9'); });
    return isR1C1 || ParseCell(name.data(), end, cell) == end;
}

void AppendColumnPart(std::string& text, const CellReference& cell)
{
    if (cell.columnAbsolute)
        text += '$';
    AppendColumn(text, cell.column);
}

void AppendRowPart(std::string& text, const CellReference& cell)
{
    if (cell.rowAbsolute)
        text += '$';
    text += std::to_string(cell.row + 1);
}

void AppendCorner(std::string& text, const CellReference& cell, AreaKind kind)
{
    if (kind != AreaKind::Rows)
        AppendColumnPart(text, cell);
    if (kind != AreaKind::Columns)
        AppendRowPart(text, cell);
}

} // namespace

void AppendColumn(std::string& target, std::uint32_t column)
{
    char letters[4];
    std::size_t count = 0;
    for (std::uint32_t rest = column + 1; rest > 0; rest = (rest - 1) / 26)
        letters[count++] = static_cast<char>('A' + (rest - 1) % 26);
    while (count > 0)
        target += letters[--count];
}

std::string AreaText(const AreaReference& area)
{
    std::string text;
    AppendCorner(text, area.first, area.kind);
    if (area.kind != AreaKind::Cell) {
        text += ':';
        AppendCorner(text, area.last, area.kind);
    }
    return text;
}

std::string BlockText(const Block& block, bool rowsAbsolute, bool columnsAbsolute)
{
    AreaReference area;
    area.first = {block.firstRow, block.firstColumn, rowsAbsolute, columnsAbsolute};
    area.last = {block.lastRow, block.lastColumn, rowsAbsolute, columnsAbsolute};
    area.kind = block.HasAllColumns() ? AreaKind::Rows
                : block.HasAllRows()  ? AreaKind::Columns
                : block.IsOneCell()   ? AreaKind::Cell
                                      : AreaKind::Cells;
    return AreaText(area);
}

std::string SheetPrefix(std::string_view sheetName)
{
    if (sheetName.empty() || !NeedsQuotes(sheetName))
        return std::string(sheetName) + '!';
    std::string text = "'";
    for (const char c : sheetName)
        text.append(c == '\'' ? 2 : 1, c);
    return text + "'!";
}

} // namespace zek::office
