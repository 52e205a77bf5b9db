// What a text means that is entered into a cell.
//
//   ParseEntry("12.5%")     // the number 0.125, and the number format that goes with it
//
// Read as in US English, whatever the locale. Numbers may have a sign, thousands separators, a percent or
// dollar sign, parentheses for negatives, an exponent. Dates need their year ("2024-05-31", "5/31/2024"),
// since the others would depend on the day on which the report is written; times are h:mm or h:mm:ss.
#pragma once

#include "spreadsheet/model/Cell.h"

#include <string_view>

namespace zek::office {

struct Entry {
    CellKind kind = CellKind::Text;
    double number = 0;
    bool boolean = false;
    CellError error = CellError::Value;
    std::string_view text;        // Text: what the cell shows; Formula: what follows the '='
    const char* format = nullptr; // for a cell that is still "General"; null: none
};

// `text` is UTF-8 and outlives the answer. "" is CellKind::Empty.
Entry ParseEntry(std::string_view text);

// Whether the formula (without '=') could be one: texts and parentheses end, nothing hangs in the air.
bool IsPlausibleFormula(std::string_view formula);

// Days since the end of 1899, as cells count them, 29 February 1900 included; below 0: no such date.
double DateNumber(int year, int month, int day);

} // namespace zek::office
