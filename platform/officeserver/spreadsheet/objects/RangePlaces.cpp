// Range: where the cells are, and other ranges from there.
#include "spreadsheet/Constants.h"
#include "spreadsheet/model/Reference.h"
#include "spreadsheet/objects/CellValue.h"
#include "spreadsheet/objects/Enumerator.h"
#include "spreadsheet/objects/NamesObject.h"
#include "spreadsheet/objects/RangeObject.h"
#include "spreadsheet/objects/RangeReference.h"
#include "spreadsheet/objects/SheetsObject.h"

#include <limits>

namespace zek::office {
namespace {

// The block moved so that its first cell is that far from where it was; refused beyond the sheet.
Block MovedBlock(const Block& block, std::int64_t rows, std::int64_t columns)
{
    const std::int64_t firstRow = block.firstRow + rows;
    const std::int64_t firstColumn = block.firstColumn + columns;
    const std::int64_t lastRow = block.lastRow + rows;
    const std::int64_t lastColumn = block.lastColumn + columns;
    if (firstRow < 0 || firstColumn < 0 || lastRow >= kRowCount || lastColumn >= kColumnCount)
        throw AutomationError();
    return {static_cast<std::uint32_t>(firstRow), static_cast<std::uint32_t>(firstColumn),
            static_cast<std::uint32_t>(lastRow), static_cast<std::uint32_t>(lastColumn)};
}

// A column's number, counted from 1, given as such or by its letters.
std::int64_t ColumnIndex(const Argument& index)
{
    if (!index.IsText())
        return index.Long();
    const std::u16string_view letters = index.TextView();
    const char16_t* const end = letters.data() + letters.size();
    std::uint32_t column = 0;
    if (ParseColumn(letters.data(), end, column) != end)
        throw AutomationError();
    return std::int64_t{column} + 1;
}

} // namespace

LONG RangeObject::Row()
{
    return static_cast<LONG>(m_first.firstRow) + 1;
}

LONG RangeObject::Column()
{
    return static_cast<LONG>(m_first.firstColumn) + 1;
}

LONG RangeObject::Count()
{
    std::uint64_t count = 0;
    if (m_unit == Unit::Rows)
        return static_cast<LONG>(m_first.Rows());
    if (m_unit == Unit::Columns)
        return static_cast<LONG>(m_first.Columns());
    ForAreas([&](const Block& area) { count += area.Cells(); });
    if (count > static_cast<std::uint64_t>(std::numeric_limits<LONG>::max()))
        throw AutomationError("Overflow", AutomationError::kOverflow);
    return static_cast<LONG>(count);
}

std::string RangeObject::Address(const Arguments& arguments)
{
    if (arguments[2].LongOr(xl::kA1) != xl::kA1)
        throw AutomationError();
    const std::string areas = AreasText(Areas(), arguments[0].FlagOr(true), arguments[1].FlagOr(true));
    if (!arguments[3].FlagOr(false))
        return areas;
    const Sheet& sheet = Live(m_sheet);
    std::string prefix = SheetPrefix(sheet.Name());
    const std::string book = "[" + m_sheet->book->name + "]";
    prefix = prefix.front() == '\'' ? "'" + book + prefix.substr(1)
                                    : "'" + book + prefix.substr(0, prefix.size() - 1) + "'!";
    return prefix + areas;
}

RangeObject* RangeObject::ItemRange(const Arguments& indices) const
{
    if (m_unit == Unit::Columns && indices[1].IsMissing()) {
        const std::int64_t column = ColumnIndex(indices[0]) - 1;
        return Sibling(MovedBlock(
            {m_first.firstRow, m_first.firstColumn, m_first.lastRow, m_first.firstColumn}, 0, column));
    }
    std::int64_t row = std::int64_t{indices[0].Long()} - 1;
    if (m_unit == Unit::Rows && indices[1].IsMissing())
        return Sibling(MovedBlock(
            {m_first.firstRow, m_first.firstColumn, m_first.firstRow, m_first.lastColumn}, row, 0));
    std::int64_t column = 0;
    if (indices[1].IsMissing()) {
        column = row % m_first.Columns();
        row = row / m_first.Columns();
        if (column < 0)
            throw AutomationError();
    } else {
        column = ColumnIndex(indices[1]) - 1;
    }
    return Sibling(MovedBlock(Block::Cell(m_first.firstRow, m_first.firstColumn), row, column));
}

Value RangeObject::Item(const Arguments& indices)
{
    Value value;
    StoreResult(*value, static_cast<IDispatch*>(ItemRange(indices)));
    return value;
}

void RangeObject::SetItem(const Arguments& indices)
{
    RangeObject* const item = ItemRange(indices);
    Value holder;
    StoreResult(*holder, static_cast<IDispatch*>(item));
    item->SetValue(indices.PutValue());
}

Value RangeObject::Default(const Arguments& indices)
{
    return indices.Count() == 0 ? GetValue() : Item(indices);
}

void RangeObject::SetDefault(const Arguments& indices)
{
    if (indices.Count() == 0)
        SetValue(indices.PutValue());
    else
        SetItem(indices);
}

// References are relative to the first cell: A1 is the cell itself.
IDispatch* RangeObject::Range(const Arguments& corners)
{
    const CellsOfSheet cells = ResolveCorners(m_sheet, corners[0], corners[1]);
    const bool relative = corners[0].IsText();
    std::vector<Block> areas;
    for (const Block& area : cells.areas)
        areas.push_back(relative ? MovedBlock(area, m_first.firstRow, m_first.firstColumn) : area);
    return new RangeObject(cells.sheet, areas);
}

IDispatch* RangeObject::Cells()
{
    return new RangeObject(m_sheet, Areas());
}

IDispatch* RangeObject::Rows()
{
    return Sibling(m_first, Unit::Rows);
}

IDispatch* RangeObject::Columns()
{
    return Sibling(m_first, Unit::Columns);
}

RangeObject* RangeObject::Widened(bool rows) const
{
    std::vector<Block> areas = Areas();
    for (Block& area : areas) {
        if (rows) {
            area.firstColumn = 0;
            area.lastColumn = kColumnCount - 1;
        } else {
            area.firstRow = 0;
            area.lastRow = kRowCount - 1;
        }
    }
    auto* const wide = new RangeObject(m_sheet, areas);
    wide->m_unit = rows ? Unit::Rows : Unit::Columns;
    return wide;
}

IDispatch* RangeObject::EntireRow()
{
    return Widened(true);
}

IDispatch* RangeObject::EntireColumn()
{
    return Widened(false);
}

IDispatch* RangeObject::Offset(const Arguments& distances)
{
    std::vector<Block> areas = Areas();
    for (Block& area : areas)
        area = MovedBlock(area, distances[0].LongOr(0), distances[1].LongOr(0));
    return new RangeObject(m_sheet, areas);
}

IDispatch* RangeObject::Resize(const Arguments& sizes)
{
    const std::int64_t rows = sizes[0].LongOr(static_cast<LONG>(m_first.Rows()));
    const std::int64_t columns = sizes[1].LongOr(static_cast<LONG>(m_first.Columns()));
    if (rows < 1 || columns < 1 || m_first.firstRow + rows > kRowCount ||
        m_first.firstColumn + columns > kColumnCount)
        throw AutomationError();
    Block block = m_first;
    block.lastRow = static_cast<std::uint32_t>(block.firstRow + rows - 1);
    block.lastColumn = static_cast<std::uint32_t>(block.firstColumn + columns - 1);
    return Sibling(block);
}

IDispatch* RangeObject::Worksheet()
{
    return new WorksheetObject(m_sheet);
}

// The cells one by one; rows or columns of what Rows and Columns answer.
IUnknown* RangeObject::NewEnum()
{
    const auto count = static_cast<std::uint64_t>(Count());
    const auto at = [sheet = m_sheet, block = m_first, unit = m_unit](std::uint64_t index) -> IDispatch* {
        Block item = block;
        if (unit == Unit::Rows)
            item.firstRow = item.lastRow = block.firstRow + static_cast<std::uint32_t>(index);
        else if (unit == Unit::Columns)
            item.firstColumn = item.lastColumn = block.firstColumn + static_cast<std::uint32_t>(index);
        else
            item = Block::Cell(block.firstRow + static_cast<std::uint32_t>(index / block.Columns()),
                               block.firstColumn + static_cast<std::uint32_t>(index % block.Columns()));
        return new RangeObject(sheet, item);
    };
    return new Enumerator(m_more.empty() ? count : m_first.Cells(), at);
}

// Only cells of the active sheet can be selected.
bool RangeObject::Select()
{
    Sheet& sheet = Live(m_sheet);
    const Workbook& book = sheet.Book();
    if (&book.SheetAt(book.ActiveSheet()) != &sheet)
        throw AutomationError();
    sheet.view.selection = m_first;
    sheet.view.activeRow = m_first.firstRow;
    sheet.view.activeColumn = m_first.firstColumn;
    return true;
}

bool RangeObject::Activate()
{
    SheetView& view = Live(m_sheet).view;
    if (!view.selection.Contains(m_first.firstRow, m_first.firstColumn))
        return Select();
    view.activeRow = m_first.firstRow;
    view.activeColumn = m_first.firstColumn;
    return true;
}

IDispatch* RangeObject::GetName()
{
    const Sheet& sheet = Live(m_sheet);
    const std::string reference = ReferenceText(sheet, Areas());
    for (const DefinedName& name : sheet.Book().Names())
        if (name.refersTo == reference)
            return new NameObject(BookOf(m_sheet), name);
    throw AutomationError();
}

void RangeObject::SetName(const Argument& value)
{
    DefineName(BookOf(m_sheet), value.Text(), ReferenceText(Live(m_sheet), Areas()), nullptr);
}

} // namespace zek::office
