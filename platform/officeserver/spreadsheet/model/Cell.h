// A cell: its column, its value and the number of its format, in 16 bytes.
#pragma once

#include "spreadsheet/model/FormatTable.h"
#include "spreadsheet/model/TextPool.h"

#include <cstdint>
#include <string>
#include <variant>

namespace zek::office {

enum class CellKind : std::uint8_t { Empty, Number, Text, Boolean, Error, Formula };

// In the order of the file format's names #NULL!, #DIV/0!, #VALUE!, #REF!, #NAME?, #NUM!, #N/A.
enum class CellError : std::uint8_t { Null, DivisionByZero, Value, Reference, Name, Number, NotAvailable };

// The error as cells show it, "#DIV/0!" for example.
const char* ErrorText(CellError error);

using FormulaId = std::uint32_t;

struct Cell {
    union {
        double number = 0; // CellKind::Number; always finite
        TextId text;       // CellKind::Text; in Workbook::Texts()
        bool boolean;      // CellKind::Boolean
        CellError error;   // CellKind::Error
        FormulaId formula; // CellKind::Formula; for Sheet::FormulaAt()
    };
    FormatId format = kDefaultFormat;
    std::uint16_t column = 0;
    CellKind kind = CellKind::Empty;
};
static_assert(sizeof(Cell) == 16);

// A formula's text without the leading '=', and what it came to when it was last computed: nothing known
// (a reader computes it), a number, a text (UTF-8), a Boolean or an error.
struct Formula {
    std::string text;
    std::variant<std::monostate, double, std::string, bool, CellError> result;
};

} // namespace zek::office
