// Finding and rewriting the cell references in a formula.
//
//   RewriteReferences("A1+SUM(Data!B2:B9)", [](FormulaReference& r) { ... });
#pragma once

#include "spreadsheet/model/Reference.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace zek::office {

struct FormulaReference {
    bool hasSheet = false;
    std::string sheet; // without quotes
    AreaReference area;
};

enum class Rewrite : std::uint8_t { Keep, Change, Lose };

// The formula (no leading '=') with every reference that `rewrite` changed written anew, and "#REF!" for
// every one it lost. Texts in quotes, names and function names are left alone.
std::string RewriteReferences(std::string_view formula,
                              const std::function<Rewrite(FormulaReference&)>& rewrite);

// The formula as it reads that many rows and columns further on; what leaves the sheet becomes "#REF!".
std::string MovedFormula(std::string_view formula, std::int64_t rows, std::int64_t columns);

// Where a span of rows or columns comes to lie when `count` of them are inserted or deleted at `at`.
// False when nothing of it is left, or it would leave a sheet of `limit` rows or columns.
bool ShiftSpan(std::uint32_t& first, std::uint32_t& last, std::uint32_t at, std::uint32_t count, bool insert,
               std::uint32_t limit);

} // namespace zek::office
