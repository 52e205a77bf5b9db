#include "spreadsheet/objects/CellValue.h"

#include "spreadsheet/Entry.h"
#include "spreadsheet/model/FormulaReferences.h"
#include "spreadsheet/model/Unicode.h"
#include "spreadsheet/model/Workbook.h"
#include "spreadsheet/objects/RangeObject.h"

#include <algorithm>
#include <cmath>

namespace zek::office {
namespace {

constexpr std::size_t kLongestFormula = 8192;
constexpr char kTextFormat[] = "@";

struct ErrorNumber {
    CellError error;
    SCODE number;
};
constexpr ErrorNumber kErrors[] = {
    {CellError::Null, 2000},         {CellError::DivisionByZero, 2007}, {CellError::Value, 2015},
    {CellError::Reference, 2023},    {CellError::Name, 2029},           {CellError::Number, 2036},
    {CellError::NotAvailable, 2042},
};
constexpr SCODE kErrorBase = static_cast<SCODE>(0x800A0000u);

enum class NumberLook { Plain, Date, Money };

// Reads the number format's first part; what stands in quotes, brackets or behind '\' and '_' says nothing.
NumberLook LookOf(std::string_view format)
{
    if (format == "General")
        return NumberLook::Plain;
    for (std::size_t i = 0; i < format.size() && format[i] != ';'; ++i) {
        const char c = format[i];
        if (c == '"')
            i = std::min(format.find('"', i + 1), format.size());
        else if (c == '[' && format.substr(i, 2) != "[h" && format.substr(i, 2) != "[$")
            i = std::min(format.find(']', i + 1), format.size());
        else if (c == '\\' || c == '_' || c == '*')
            ++i;
        else if (c == '$' || format.substr(i, 3) == "\u20A9" || format.substr(i, 3) == "\u20AC")
            return NumberLook::Money;
        else if (std::string_view("ymdhsYMDHS").find(c) != std::string_view::npos)
            return NumberLook::Date;
    }
    return NumberLook::Plain;
}

Value NumberValue(double number, NumberLook look)
{
    constexpr double kMoneyScale = 10000;
    constexpr double kMostMoney = 9e14;
    Value value;
    if (look == NumberLook::Money && std::fabs(number) < kMostMoney) {
        value->vt = VT_CY;
        value->cyVal.int64 = std::llround(number * kMoneyScale);
    } else {
        StoreResult(*value, number);
        value->vt = look == NumberLook::Date ? VT_DATE : VT_R8;
    }
    return value;
}

Value ErrorValue(CellError error)
{
    Value value;
    value->vt = VT_ERROR;
    value->scode = kErrorBase + kErrors[static_cast<std::size_t>(error)].number;
    return value;
}

template <class T>
Value Stored(const T& from)
{
    Value value;
    StoreResult(*value, from);
    return value;
}

Value FormulaResult(const Formula& formula, NumberLook look)
{
    if (const double* const number = std::get_if<double>(&formula.result))
        return NumberValue(*number, look);
    if (const std::string* const text = std::get_if<std::string>(&formula.result))
        return Stored(*text);
    if (const bool* const boolean = std::get_if<bool>(&formula.result))
        return Stored(*boolean);
    if (const CellError* const error = std::get_if<CellError>(&formula.result))
        return ErrorValue(*error);
    return {};
}

} // namespace

CellInput::CellInput(const VARIANT& value, const Argument& argument)
{
    switch (value.vt) {
    case VT_R8:
        m_kind = CellKind::Number;
        m_number = value.dblVal;
        break;
    case VT_BSTR:
        TakeText({value.bstrVal, SysStringLen(value.bstrVal)});
        break;
    case VT_EMPTY:
    case VT_NULL:
        break;
    case VT_BOOL:
        m_kind = CellKind::Boolean;
        m_boolean = value.boolVal != VARIANT_FALSE;
        break;
    case VT_ERROR:
        TakeError(value.scode, argument);
        break;
    default:
        m_kind = CellKind::Number;
        m_number = Argument(&value, 0).Number();
        if (value.vt == VT_DATE)
            m_format = m_number == std::floor(m_number) ? "m/d/yyyy" : "m/d/yyyy h:mm";
        else if (value.vt == VT_CY)
            m_format = "$#,##0.00_);[Red]($#,##0.00)";
    }
}

void CellInput::TakeError(SCODE code, const Argument& argument)
{
    m_kind = CellKind::Error;
    for (const ErrorNumber& row : kErrors)
        if (code == kErrorBase + row.number) {
            m_error = row.error;
            return;
        }
    argument.Refuse();
}

void CellInput::TakeText(std::u16string_view text)
{
    m_isText = true;
    if (text.size() > kMaxCellText + 1 || (text.size() > kMaxCellText && text.front() != u'\''))
        throw AutomationError();
    AppendUtf8(m_raw, text.data(), text.size());
    const Entry entry = ParseEntry(m_raw);
    m_kind = entry.kind;
    m_number = entry.number;
    m_boolean = entry.boolean;
    m_error = entry.error;
    m_format = entry.format;
    m_skip = static_cast<std::size_t>(entry.text.data() - m_raw.data());
    if (m_kind == CellKind::Formula && text.size() > kLongestFormula)
        throw AutomationError();
}

void CellInput::PutText(Sheet& sheet, std::uint32_t row, std::uint32_t column, std::string_view text) const
{
    sheet.SetText(row, column, sheet.Book().Texts().Intern(text));
}

void CellInput::SuggestFormat(Sheet& sheet, std::uint32_t row, std::uint32_t column) const
{
    Workbook& book = sheet.Book();
    Format format = book.Formats().At(sheet.FormatAt(row, column));
    if (!m_format || format.numberFormat != 0)
        return;
    format.numberFormat = book.NumberFormats().Intern(m_format);
    format.ownGroups |= kNumberGroup;
    sheet.SetFormat(Block::Cell(row, column), book.Formats().Intern(format));
}

void CellInput::Put(Sheet& sheet, std::uint32_t row, std::uint32_t column, std::int64_t rows,
                    std::int64_t columns) const
{
    if (!sheet.Merges().IsEmpty()) {
        const Block* const area = sheet.Merges().Find(row, column);
        if (area && (area->firstRow != row || area->firstColumn != column))
            return;
    }
    if (m_kind == CellKind::Text)
        return PutText(sheet, row, column, std::string_view(m_raw).substr(m_skip));
    if (m_isText && m_kind != CellKind::Empty) {
        const Workbook& book = sheet.Book();
        const Format& format = book.Formats().At(sheet.FormatAt(row, column));
        if (book.NumberFormats().Text(format.numberFormat) == kTextFormat)
            return PutText(sheet, row, column, m_raw);
    }
    switch (m_kind) {
    case CellKind::Number:
        sheet.SetNumber(row, column, m_number);
        break;
    case CellKind::Boolean:
        sheet.SetBoolean(row, column, m_boolean);
        break;
    case CellKind::Error:
        sheet.SetError(row, column, m_error);
        break;
    case CellKind::Formula: {
        const std::string_view formula = std::string_view(m_raw).substr(m_skip);
        if (!IsPlausibleFormula(formula))
            throw AutomationError();
        sheet.SetFormula(
            row, column,
            {rows == 0 && columns == 0 ? std::string(formula) : MovedFormula(formula, rows, columns), {}});
        break;
    }
    default:
        sheet.SetEmpty(row, column);
        return;
    }
    if (m_format)
        SuggestFormat(sheet, row, column);
}

Value ReadCell(const Sheet& sheet, std::uint32_t row, std::uint32_t column, bool plainNumbers)
{
    const Cell* const cell = sheet.Find(row, column);
    if (!cell)
        return {};
    const Workbook& book = sheet.Book();
    const auto look = [&] {
        return plainNumbers ? NumberLook::Plain
                            : LookOf(book.NumberFormats().Text(book.Formats().At(cell->format).numberFormat));
    };
    switch (cell->kind) {
    case CellKind::Number:
        return NumberValue(cell->number, look());
    case CellKind::Text:
        return Stored(std::string(book.Texts().Text(cell->text)));
    case CellKind::Boolean:
        return Stored(cell->boolean);
    case CellKind::Error:
        return ErrorValue(cell->error);
    case CellKind::Formula:
        return FormulaResult(sheet.FormulaAt(cell->formula), look());
    default:
        return {};
    }
}

} // namespace zek::office
