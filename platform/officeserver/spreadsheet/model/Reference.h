// Cell references as text: B3, $B$3, A1:C4, 3:5, B:D.
//
//   AreaReference area;
//   ParseArea(text, text + length, area);    // the end of what was read, or null
#pragma once

#include "spreadsheet/model/Block.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zek::office {

struct CellReference {
    std::uint32_t row = 0;
    std::uint32_t column = 0;
    bool rowAbsolute = false;
    bool columnAbsolute = false;
};

enum class AreaKind : std::uint8_t { Cell, Cells, Rows, Columns };

struct AreaReference {
    AreaKind kind = AreaKind::Cell;
    CellReference first;
    CellReference last; // equal to first for one cell

    // The corners in either order.
    Block ToBlock() const
    {
        return {std::min(first.row, last.row), std::min(first.column, last.column),
                std::max(first.row, last.row), std::max(first.column, last.column)};
    }
};

// Reads a column's letters; null when there are none or they lie beyond the sheet.
template <class Char>
const Char* ParseColumn(const Char* text, const Char* end, std::uint32_t& column)
{
    std::uint32_t number = 0;
    const Char* p = text;
    for (; p != end && p - text < 4; ++p) {
        const Char upper = static_cast<Char>(*p & ~0x20);
        if (upper < 'A' || upper > 'Z' || *p > 'z')
            break;
        number = number * 26 + static_cast<std::uint32_t>(upper - 'A' + 1);
    }
    if (p == text || number > kColumnCount)
        return nullptr;
    column = number - 1;
    return p;
}

// Reads a row's number; null when there is none, it starts with 0 or lies beyond the sheet.
template <class Char>
const Char* ParseRow(const Char* text, const Char* end, std::uint32_t& row)
{
    std::uint32_t number = 0;
    const Char* p = text;
    for (; p != end && *p >= '0' && *p <= '9' && p - text < 8; ++p)
        number = number * 10 + static_cast<std::uint32_t>(*p - '0');
    if (p == text || *text == '0' || number > kRowCount)
        return nullptr;
    row = number - 1;
    return p;
}

template <class Char>
const Char* SkipDollar(const Char* text, const Char* end, bool& absolute)
{
    absolute = text != end && *text == '$';
    return absolute ? text + 1 : text;
}

// Reads one cell; null, and `cell` undefined, when there is none.
template <class Char>
const Char* ParseCell(const Char* text, const Char* end, CellReference& cell)
{
    text = SkipDollar(text, end, cell.columnAbsolute);
    text = ParseColumn(text, end, cell.column);
    if (!text)
        return nullptr;
    text = SkipDollar(text, end, cell.rowAbsolute);
    return ParseRow(text, end, cell.row);
}

// Reads rows "3:5" or columns "B:D"; the other direction spans the whole sheet.
template <class Char>
const Char* ParseStripe(const Char* text, const Char* end, AreaReference& area)
{
    text = SkipDollar(text, end, area.first.rowAbsolute);
    area.first.columnAbsolute = area.first.rowAbsolute;
    const Char* p = ParseColumn(text, end, area.first.column);
    area.kind = p ? AreaKind::Columns : AreaKind::Rows;
    if (!p)
        p = ParseRow(text, end, area.first.row);
    if (!p || p == end || *p != ':')
        return nullptr;
    p = SkipDollar(p + 1, end, area.last.rowAbsolute);
    area.last.columnAbsolute = area.last.rowAbsolute;
    if (area.kind == AreaKind::Columns) {
        area.first.row = 0;
        area.last.row = kRowCount - 1;
        return ParseColumn(p, end, area.last.column);
    }
    area.first.column = 0;
    area.last.column = kColumnCount - 1;
    return ParseRow(p, end, area.last.row);
}

// Reads a cell, a block, rows or columns as far as it goes; null when the text does not begin with one.
template <class Char>
const Char* ParseArea(const Char* text, const Char* end, AreaReference& area)
{
    const Char* p = ParseCell(text, end, area.first);
    if (!p)
        return ParseStripe(text, end, area);
    area.kind = AreaKind::Cell;
    area.last = area.first;
    if (p == end || *p != ':')
        return p;
    const Char* const second = ParseCell(p + 1, end, area.last);
    if (!second) {
        area.last = area.first;
        return p;
    }
    area.kind = AreaKind::Cells;
    return second;
}

// "A", "XFD".
void AppendColumn(std::string& target, std::uint32_t column);

// The area as text, with '$' where it is absolute.
std::string AreaText(const AreaReference& area);

// The block as text; whole rows and columns in their short form, one cell as one.
std::string BlockText(const Block& block, bool rowsAbsolute = true, bool columnsAbsolute = true);

// The sheet's name as a formula writes it, in quotes when it needs them, with the '!'.
std::string SheetPrefix(std::string_view sheetName);

} // namespace zek::office
