// Range: what is in the cells.
#include "spreadsheet/objects/CellValue.h"
#include "spreadsheet/objects/RangeObject.h"

#include <array>

namespace zek::office {
namespace {

// More cells than these at once are refused, rather than filling the memory.
constexpr std::uint64_t kMostCells = std::uint64_t{1} << 25;
constexpr LONG kOutOfMemory = 7;

// Elements of an array of one or two dimensions, as a block of cells has them.
class ArrayReader
{
public:
    ArrayReader(SAFEARRAY* array, const Argument& argument) : m_array(array), m_argument(argument)
    {
        m_dimensions = array ? SafeArrayGetDim(array) : 0;
        if (m_dimensions < 1 || m_dimensions > 2 || FAILED(SafeArrayGetVartype(array, &m_type)))
            argument.Refuse();
        for (UINT i = 0; i < m_dimensions; ++i) {
            LONG last = 0;
            SafeArrayGetLBound(array, i + 1, &m_low[i]);
            SafeArrayGetUBound(array, i + 1, &last);
            m_size[i] = last - m_low[i] + 1;
        }
    }

    // An array of one dimension is a row, and is the same for every row.
    bool Holds(LONG row, LONG column) const
    {
        return m_dimensions == 1 ? column < m_size[0] : row < m_size[0] && column < m_size[1];
    }

    Value At(LONG row, LONG column) const
    {
        std::array<LONG, 2> indices{m_low[0] + (m_dimensions == 1 ? column : row), m_low[1] + column};
        Value value;
        if (m_type != VT_VARIANT)
            value->vt = m_type;
        void* const place =
            m_type == VT_VARIANT ? static_cast<void*>(&*value) : static_cast<void*>(&value->byref);
        if (FAILED(SafeArrayGetElement(m_array, indices.data(), place)))
            m_argument.Refuse();
        return value;
    }

private:
    SAFEARRAY* m_array;
    const Argument& m_argument;
    UINT m_dimensions;
    VARTYPE m_type = VT_EMPTY;
    std::array<LONG, 2> m_low{};
    std::array<LONG, 2> m_size{};
};

Value NotAvailable()
{
    Value value;
    value->vt = VT_ERROR;
    value->scode = static_cast<SCODE>(0x800A0000u + 2042);
    return value;
}

// A two-dimensional array of VARIANTs that counts from 1.
template <class Read>
Value BlockValue(const Block& block, Read&& read)
{
    if (block.Cells() > kMostCells)
        throw AutomationError("Not enough memory", kOutOfMemory);
    SAFEARRAYBOUND bounds[2] = {{block.Rows(), 1}, {block.Columns(), 1}};
    Value value;
    value->parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
    if (!value->parray)
        throw std::bad_alloc();
    value->vt = VT_ARRAY | VT_VARIANT;
    VARIANT* cells = nullptr;
    SafeArrayAccessData(value->parray, reinterpret_cast<void**>(&cells));
    for (std::uint32_t column = 0; column < block.Columns(); ++column)
        for (std::uint32_t row = 0; row < block.Rows(); ++row)
            *cells++ = read(block.firstRow + row, block.firstColumn + column).Detach();
    SafeArrayUnaccessData(value->parray);
    return value;
}

} // namespace

Value RangeObject::ReadCells(bool plainNumbers)
{
    const Sheet& sheet = Live(m_sheet);
    if (m_first.IsOneCell())
        return ReadCell(sheet, m_first.firstRow, m_first.firstColumn, plainNumbers);
    return BlockValue(m_first, [&](std::uint32_t row, std::uint32_t column) {
        return ReadCell(sheet, row, column, plainNumbers);
    });
}

Value RangeObject::GetValue()
{
    return ReadCells(false);
}

Value RangeObject::GetValue2()
{
    return ReadCells(true);
}

void RangeObject::RefuseHugeFill() const
{
    ForAreas([](const Block& area) {
        if (area.Cells() > kMostCells)
            throw AutomationError("Not enough memory", kOutOfMemory);
    });
}

void RangeObject::SetValue(const Argument& value)
{
    Sheet& sheet = Live(m_sheet);
    const VARIANT& given = value.Value();
    if (given.vt & VT_ARRAY)
        return PutArray(value);
    if (given.vt == VT_DISPATCH) {
        RangeObject* const source = From(given.pdispVal);
        if (!source)
            value.Refuse();
        Value held = source->GetValue();
        return SetValue(Argument(&*held, 0));
    }
    const CellInput input(given, value);
    if (m_first.IsOneCell() && m_more.empty())
        return input.Put(sheet, m_first.firstRow, m_first.firstColumn);
    if (given.vt == VT_EMPTY || given.vt == VT_NULL)
        return ForAreas([&](const Block& area) { sheet.ClearValues(area); });
    RefuseHugeFill();
    ForAreas([&](const Block& area) {
        for (std::uint32_t row = area.firstRow; row <= area.lastRow; ++row)
            for (std::uint32_t column = area.firstColumn; column <= area.lastColumn; ++column)
                input.Put(sheet, row, column, std::int64_t{row} - m_first.firstRow,
                          std::int64_t{column} - m_first.firstColumn);
    });
}

// Cells beyond the array become #N/A.
void RangeObject::PutArray(const Argument& value)
{
    Sheet& sheet = Live(m_sheet);
    const ArrayReader array(value.Value().parray, value);
    RefuseHugeFill();
    ForAreas([&](const Block& area) {
        for (std::uint32_t row = area.firstRow; row <= area.lastRow; ++row)
            for (std::uint32_t column = area.firstColumn; column <= area.lastColumn; ++column) {
                const auto down = static_cast<LONG>(row - area.firstRow);
                const auto right = static_cast<LONG>(column - area.firstColumn);
                Value element = array.Holds(down, right) ? array.At(down, right) : NotAvailable();
                CellInput(*element, value).Put(sheet, row, column);
            }
    });
}

Value RangeObject::GetFormula()
{
    const Sheet& sheet = Live(m_sheet);
    const auto read = [&](std::uint32_t row, std::uint32_t column) {
        const Cell* const cell = sheet.Find(row, column);
        Value value;
        if (cell && cell->kind == CellKind::Formula)
            StoreResult(*value, "=" + sheet.FormulaAt(cell->formula).text);
        else
            value = ReadCell(sheet, row, column, true);
        if (value->vt != VT_BSTR &&
            FAILED(VariantChangeTypeEx(&*value, &*value, 0x409, VARIANT_ALPHABOOL, VT_BSTR)))
            StoreResult(*value, std::string(cell ? ErrorText(cell->error) : ""));
        return value;
    };
    if (m_first.IsOneCell())
        return read(m_first.firstRow, m_first.firstColumn);
    return BlockValue(m_first, read);
}

std::optional<bool> RangeObject::HasFormula()
{
    std::uint64_t formulas = 0;
    const Sheet& sheet = Live(m_sheet);
    sheet.VisitRows([&](std::uint32_t number, const zek::office::Row& row) {
        for (const Cell& cell : row.cells)
            formulas += cell.kind == CellKind::Formula && m_first.Contains(number, cell.column);
    });
    if (formulas != 0 && formulas != m_first.Cells())
        return std::nullopt;
    return formulas != 0;
}

void RangeObject::RefusePartOfMerge() const
{
    ForAreas([&](const Block& area) {
        for (const Block& merged : Live(m_sheet).Merges().Overlapping(area))
            if (!area.Contains(merged))
                throw AutomationError("Cannot change part of a merged cell.");
    });
}

bool RangeObject::Clear()
{
    ClearFormats();
    return ClearContents();
}

bool RangeObject::ClearContents()
{
    RefusePartOfMerge();
    ForAreas([&](const Block& area) { Live(m_sheet).ClearValues(area); });
    return true;
}

bool RangeObject::ClearFormats()
{
    RefusePartOfMerge();
    ForAreas([&](const Block& area) {
        Live(m_sheet).Unmerge(area);
        Live(m_sheet).SetFormat(area, kDefaultFormat);
    });
    return true;
}

} // namespace zek::office
