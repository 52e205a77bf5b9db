#include "package/SheetPart.h"

#include "package/Package.h"
#include "package/SaveError.h"
#include "package/XmlText.h"
#include "spreadsheet/model/Reference.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>

namespace zek::office {
namespace {

constexpr std::size_t kPieceSize = 64 * 1024;

struct Letters {
    std::array<char, 3> text;
    std::uint8_t size;
};

std::vector<Letters> MakeLetters()
{
    std::vector<Letters> table(kColumnCount);
    for (std::uint32_t column = 0; column < kColumnCount; ++column) {
        std::string text;
        AppendColumn(text, column);
        text.copy(table[column].text.data(), text.size());
        table[column].size = static_cast<std::uint8_t>(text.size());
    }
    return table;
}

void AppendLetters(std::string& piece, std::uint16_t column)
{
    static const std::vector<Letters> table = MakeLetters();
    piece.append(table[column].text.data(), table[column].size);
}

void AppendInteger(std::string& piece, std::uint32_t value)
{
    char text[12];
    piece.append(text, std::to_chars(text, text + sizeof text, value).ptr);
}

void AppendStyle(std::string& piece, unsigned style)
{
    if (style == 0)
        return;
    piece += " s=\"";
    AppendInteger(piece, style);
    piece += '"';
}

// The cell's type and value behind its reference and style. A number that is none is stored as the error
// that a computation of it shows.
void AppendNumberValue(std::string& piece, double value)
{
    if (!std::isfinite(value)) {
        piece += " t=\"e\"><v>#NUM!</v></c>";
        return;
    }
    piece += "><v>";
    AppendNumber(piece, value);
    piece += "</v></c>";
}

struct AppendResult {
    std::string& piece;

    void operator()(std::monostate) const {}
    void operator()(double value) const
    {
        piece += "<v>";
        std::isfinite(value) ? AppendNumber(piece, value) : void(piece += "#NUM!");
        piece += "</v>";
    }
    void operator()(const std::string& value) const
    {
        piece += "<v>";
        AppendStoredText(piece, value);
        piece += "</v>";
    }
    void operator()(bool value) const { piece += value ? "<v>1</v>" : "<v>0</v>"; }
    void operator()(CellError value) const { piece.append("<v>").append(ErrorText(value)).append("</v>"); }
};

const char* ResultType(const Formula& formula)
{
    if (const double* number = std::get_if<double>(&formula.result))
        return std::isfinite(*number) ? "" : " t=\"e\"";
    constexpr const char* kTypes[] = {"", "", " t=\"str\"", " t=\"b\"", " t=\"e\""};
    return kTypes[formula.result.index()];
}

} // namespace

SheetSource::SheetSource(const BookContent& content, const StylesPart& styles, std::size_t index)
    : m_content(content), m_styles(styles), m_sheet(content.book.SheetAt(index)), m_rows(content.rows[index])
{
    pugi::xml_document frame;
    BuildSheetFrame(frame, m_sheet, styles, m_sheet.selected || content.book.ActiveSheet() == index);
    std::string text = PartText(frame);
    // A bare '<' stands in no value, so this is the element.
    constexpr std::string_view kPlace = "<sheetData/>";
    const std::size_t place = text.find(kPlace);
    m_tail = text.substr(place + kPlace.size());
    m_head = text.erase(place);
}

void SheetSource::Next(std::string& piece)
{
    if (m_ended)
        return;
    if (m_next == 0)
        piece.append(m_head).append("<sheetData>");
    while (m_next < m_rows.size() && piece.size() < kPieceSize)
        AppendRow(piece, m_rows[m_next++]);
    if (m_next < m_rows.size())
        return;
    piece.append("</sheetData>").append(m_tail);
    m_ended = true;
}

void SheetSource::AppendRow(std::string& piece, const StoredRow& stored)
{
    m_rowNumber = std::to_string(stored.number + 1);
    AppendRowHead(piece, *stored.row);
    if (stored.row->cells.empty()) {
        piece += "/>";
        return;
    }
    piece += '>';
    for (const Cell& cell : stored.row->cells)
        AppendCell(piece, cell);
    piece += "</row>";
}

void SheetSource::AppendRowHead(std::string& piece, const Row& row) const
{
    piece.append("<row r=\"").append(m_rowNumber).append("\"");
    if (row.format != kNoFormat) {
        AppendStyle(piece, m_styles.CellFormat(row.format));
        piece += " customFormat=\"1\"";
    }
    if (row.heightTwips != 0)
        piece.append(" ht=\"").append(NumberText(row.Height())).append("\" customHeight=\"1\"");
    if (row.hidden)
        piece += " hidden=\"1\"";
}

void SheetSource::AppendCell(std::string& piece, const Cell& cell)
{
    piece += "<c r=\"";
    AppendLetters(piece, cell.column);
    piece.append(m_rowNumber).append("\"");
    AppendStyle(piece, m_styles.CellFormat(cell.format));
    AppendValue(piece, cell);
}

void SheetSource::AppendValue(std::string& piece, const Cell& cell) const
{
    switch (cell.kind) {
    case CellKind::Empty:
        piece += "/>";
        return;
    case CellKind::Number:
        AppendNumberValue(piece, cell.number);
        return;
    case CellKind::Text:
        piece += " t=\"s\"><v>";
        AppendInteger(piece, m_content.textNumbers[cell.text]);
        piece += "</v></c>";
        return;
    case CellKind::Boolean:
        piece += cell.boolean ? " t=\"b\"><v>1</v></c>" : " t=\"b\"><v>0</v></c>";
        return;
    case CellKind::Error:
        piece.append(" t=\"e\"><v>").append(ErrorText(cell.error)).append("</v></c>");
        return;
    case CellKind::Formula:
        AppendFormula(piece, m_sheet.FormulaAt(cell.formula));
        return;
    }
}

void SheetSource::AppendFormula(std::string& piece, const Formula& formula) const
{
    piece.append(ResultType(formula)).append("><f>");
    AppendStoredText(piece, formula.text);
    piece += "</f>";
    std::visit(AppendResult{piece}, formula.result);
    piece += "</c>";
}

} // namespace zek::office
