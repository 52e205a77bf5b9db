// A million cells, half numbers, half texts, in three formats: written one by one through CMSExcel, which
// passes automation twice for each, and saved; against the same cells written straight through
// libxlsxwriter; and against the model and package layer alone, to see where the time goes.
//
//   excel_cells [ROWS [REPEATS]]       default 10000 rows of 100 cells, 5 repeats
//
// The files must hold the same number of cells, or nothing is printed.
#include "Measure.h"

#include "package/WorkbookPackage.h"
#include "package/ZipReader.h"
#include "spreadsheet/model/Workbook.h"

#include <MSExcel.h>
#include <xlsxwriter.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;
using namespace zek::office;

namespace {

constexpr short kColumns = 100;
// Columns below the first are bold, those below the second have three decimals, the rest a frame too.
constexpr short kBoldColumns = 30;
constexpr short kPlainColumns = 60;

int g_rows = 10000;
fs::path g_folder;

bool IsText(int column)
{
    return column % 2 == 0;
}

// 5,000 different texts.
int TextOf(int row, int column, char* text, std::size_t size)
{
    return std::snprintf(text, size, "Member %d", (row * kColumns + column) * 7 % 5000);
}

double NumberOf(int row, int column)
{
    return std::round(std::fmod(row * 0.618033988749895 + column * 0.37, 1000) * 1e3) / 1e3;
}

std::string PathOf(const char* name)
{
    return (g_folder / name).string();
}

// --- libxlsxwriter ---

bench::Phases RunPeer()
{
    const double start = bench::Now();
    lxw_workbook* book = workbook_new(PathOf("peer.xlsx").c_str());
    lxw_worksheet* sheet = workbook_add_worksheet(book, "Sheet1");
    lxw_format *bold = workbook_add_format(book), *number = workbook_add_format(book),
               *frame = workbook_add_format(book);
    format_set_bold(bold);
    format_set_num_format(number, "0.000_ ");
    format_set_num_format(frame, "0.000_ ");
    format_set_border(frame, LXW_BORDER_THIN);
    char text[32];
    for (int row = 0; row < g_rows; ++row)
        for (int column = 0; column < kColumns; ++column) {
            lxw_format* format = column < kBoldColumns ? bold : column < kPlainColumns ? number : frame;
            const auto r = static_cast<lxw_row_t>(row);
            const auto c = static_cast<lxw_col_t>(column);
            if (IsText(column) && TextOf(row, column, text, sizeof text) > 0)
                worksheet_write_string(sheet, r, c, text, format);
            else
                worksheet_write_number(sheet, r, c, NumberOf(row, column), format);
        }
    const double written = bench::Now();
    if (workbook_close(book) != LXW_NO_ERROR)
        std::_Exit(1);
    return {written - start, 0, bench::Now() - written};
}

// --- CMSExcel ---

void WriteThroughAutomation(CMSExcel& excel)
{
    char text[32];
    for (int row = 0; row < g_rows; ++row)
        for (int column = 0; column < kColumns; ++column) {
            const auto r = static_cast<short>(row);
            const auto c = static_cast<short>(column);
            if (IsText(column) && TextOf(row, column, text, sizeof text) > 0)
                excel.SetValue(r, c, CString(text));
            else
                excel.SetValue(r, c, NumberOf(row, column));
        }
}

void FormatThroughAutomation(CMSExcel& excel)
{
    const auto last = static_cast<short>(g_rows - 1);
    constexpr short kLastColumn = kColumns - 1;
    excel.SetFontBold(0, 0, last, kBoldColumns - 1, 1);
    excel.SetCellInNumber3DotFormat(0, kBoldColumns, last, kLastColumn);
    excel.SetBorder(0, kPlainColumns, last, kLastColumn, 1, 2);
}

bench::Phases RunLibrary()
{
    const double start = bench::Now();
    AfxOleInit();
    CMSExcel excel;
    if (!excel.IsExcel())
        std::_Exit(1);
    excel.AddBook();
    excel.SetActiveSheet("Sheet1");
    WriteThroughAutomation(excel);
    const double written = bench::Now();
    FormatThroughAutomation(excel);
    const double formatted = bench::Now();
    excel.SaveAs(excel.GetBookName(), PathOf("library.xlsx").c_str());
    const double saved = bench::Now();
    excel.Quit();
    return {written - start, formatted - written, saved - formatted};
}

// --- model and package layer ---

void FormatModel(Workbook& book, Sheet& sheet)
{
    const auto last = static_cast<std::uint32_t>(g_rows - 1);
    Format bold = book.Formats().At(kDefaultFormat), number = bold;
    bold.font.bold = true;
    number.numberFormat = book.NumberFormats().Intern("0.000_ ");
    Format frame = number;
    for (Line& line : frame.borders.lines)
        line.style = LineStyle::Thin;
    sheet.SetFormat({0, 0, last, kBoldColumns - 1}, book.Formats().Intern(bold));
    sheet.SetFormat({0, kBoldColumns, last, kPlainColumns - 1}, book.Formats().Intern(number));
    sheet.SetFormat({0, kPlainColumns, last, kColumns - 1}, book.Formats().Intern(frame));
}

bench::Phases RunModel()
{
    const double start = bench::Now();
    Workbook book;
    Sheet& sheet = book.AddSheet("Sheet1");
    char text[32];
    for (int row = 0; row < g_rows; ++row)
        for (int column = 0; column < kColumns; ++column) {
            const auto r = static_cast<std::uint32_t>(row);
            const auto c = static_cast<std::uint32_t>(column);
            if (IsText(column)) {
                const auto size = static_cast<std::size_t>(TextOf(row, column, text, sizeof text));
                sheet.SetText(r, c, book.Texts().Intern({text, size}));
            } else
                sheet.SetNumber(r, c, NumberOf(row, column));
        }
    const double written = bench::Now();
    FormatModel(book, sheet);
    const double formatted = bench::Now();
    SaveWorkbook(book, PathOf("model.xlsx"));
    return {written - start, formatted - written, bench::Now() - formatted};
}

// --- the answer ---

std::size_t CountCells(const char* name)
{
    std::ifstream file(PathOf(name), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    MemoryBytes memory(bytes);
    const std::string sheet = ZipReader(memory).Read("xl/worksheets/sheet1.xml");
    std::size_t count = 0;
    for (std::size_t at = 0; (at = sheet.find("<v>", at)) != std::string::npos; ++at)
        ++count;
    std::printf("%s: %zu cells, %.1f MB\n", name, count, static_cast<double>(bytes.size()) / 1e6);
    return count;
}

bool SameCells()
{
    bool same = true;
    for (const char* name : {"peer.xlsx", "library.xlsx", "model.xlsx"})
        same &= CountCells(name) == static_cast<std::size_t>(g_rows) * kColumns;
    return same;
}

} // namespace

int main(int argc, char** argv)
{
    g_rows = argc > 1 ? std::atoi(argv[1]) : g_rows;
    const int repeats = argc > 2 ? std::atoi(argv[2]) : 5;
    if (g_rows < 1 || g_rows > 32767 || repeats < 1)
        return 2;
    std::string pattern = (fs::temp_directory_path() / "zek-bench-XXXXXX").string();
    g_folder = ::mkdtemp(pattern.data());
    ::setenv("ZEK_HOME", PathOf("home").c_str(), 1);
    const auto results = bench::RunAll(
        {{"libxlsxwriter", RunPeer}, {"CMSExcel", RunLibrary}, {"model and package", RunModel}}, repeats);
    const bool same = SameCells();
    fs::remove_all(g_folder);
    if (!same)
        return 1;
    bench::Print(results, {"write", "format", "save"});
    return 0;
}
