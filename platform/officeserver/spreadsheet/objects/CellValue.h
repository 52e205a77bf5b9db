// Between automation values and cells.
#pragma once

#include "automation/Arguments.h"
#include "automation/Results.h"
#include "spreadsheet/model/Sheet.h"

#include <string>

namespace zek::office {

// A value as a cell takes it, worked out once for all cells that it goes to.
class CellInput
{
public:
    // Texts are read as if typed in. Throws for values that no cell holds: objects that are no ranges,
    // texts beyond 32,767 characters, formulas that cannot be one.
    CellInput(const VARIANT& value, const Argument& argument);

    // Puts the value into a cell; cells that a merged area covers stay empty. In a cell of the text format
    // the text stays as it is. `rows` and `columns`: how far the cell is from the one that a formula was
    // written for.
    void Put(Sheet& sheet, std::uint32_t row, std::uint32_t column, std::int64_t rows = 0,
             std::int64_t columns = 0) const;

private:
    void TakeText(std::u16string_view text);
    void TakeError(SCODE code, const Argument& argument);
    void PutText(Sheet& sheet, std::uint32_t row, std::uint32_t column, std::string_view text) const;
    void SuggestFormat(Sheet& sheet, std::uint32_t row, std::uint32_t column) const;

    CellKind m_kind = CellKind::Empty;
    double m_number = 0;
    bool m_boolean = false;
    CellError m_error = CellError::Value;
    bool m_isText = false;  // came as a text
    std::string m_raw;      // the text as it came
    std::size_t m_skip = 0; // characters before what Text and Formula keep
    const char* m_format = nullptr;
};

// What a cell holds, for the caller. `plainNumbers`: dates and money as numbers, too.
Value ReadCell(const Sheet& sheet, std::uint32_t row, std::uint32_t column, bool plainNumbers);

} // namespace zek::office
