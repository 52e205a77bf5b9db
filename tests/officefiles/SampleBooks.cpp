#include "SampleBooks.h"

#include <functional>

using namespace zek::office;

namespace {

constexpr Color kRed = 0x0000FF, kBlue = 0xFF0000, kPaleBlue = 0xF0E0D0;

using Change = std::function<void(Format&)>;

void PutText(Sheet& sheet, std::uint32_t row, std::uint32_t column, const std::string& text)
{
    sheet.SetText(row, column, sheet.Book().Texts().Intern(text));
}

void Look(Sheet& sheet, const Block& block, const Change& change)
{
    FormatTable& formats = sheet.Book().Formats();
    sheet.ChangeFormat(block, [&](FormatId id) {
        Format format = formats.At(id);
        change(format);
        return formats.Intern(format);
    });
}

Change NumberCode(Workbook& book, const std::string& code)
{
    const TextId id = book.NumberFormats().Intern(code);
    return [id](Format& format) {
        format.numberFormat = id;
        format.ownGroups |= kNumberGroup;
    };
}

void Frame(Format& format, LineStyle style)
{
    for (const Edge edge : {Edge::Left, Edge::Right, Edge::Top, Edge::Bottom})
        format.borders.At(edge) = {style, kAutomaticColor};
    format.ownGroups |= kBorderGroup;
}

// --- rich ---

void AddTexts(Sheet& sheet)
{
    const std::string texts[] = {"plain",
                                 " outer space ",
                                 "two\nlines",
                                 "a<b> & \"c\" 'd'",
                                 "\xEB\xB3\xB4\xEA\xB3\xA0\xEC\x84\x9C",
                                 "\xF0\x9F\x98\x80",
                                 "tab\there",
                                 "bell\x07",
                                 "return\r\nfeed",
                                 "_x0041_",
                                 "plain",
                                 std::string(32767, 'w'),
                                 "=not a formula",
                                 "_x0041\x01",
                                 "\xEF\xBF\xBF end"};
    std::uint32_t row = 0;
    for (const std::string& text : texts)
        PutText(sheet, row++, 0, text);
}

void AddNumbers(Sheet& sheet)
{
    const double numbers[] = {
        0, -0.0, 1, -1.5, 0.1, 1e-300, 1.7976931348623157e308, 123456789012345678.0, 1.0 / 3, 100000, 1e21};
    std::uint32_t row = 0;
    for (const double number : numbers)
        sheet.SetNumber(row++, 1, number);
    sheet.SetBoolean(0, 2, true);
    sheet.SetBoolean(1, 2, false);
    for (std::uint8_t error = 0; error < 7; ++error)
        sheet.SetError(2u + error, 2, static_cast<CellError>(error));
    sheet.SetFormula(0, 3, {"SUM(B1:B3)", 1.0});
    sheet.SetFormula(1, 3, {"\"a\"&\"<b>\"", std::string("a<b>")});
    sheet.SetFormula(2, 3, {"B3>0", true});
    sheet.SetFormula(3, 3, {"1/0", CellError::DivisionByZero});
    sheet.SetFormula(4, 3, {"B4*2", {}});
}

void AddFonts(Sheet& sheet)
{
    const Change changes[] = {
        [](Format& f) { f.font.bold = true; },
        [](Format& f) { f.font.italic = true; },
        [](Format& f) { f.font.strikethrough = true; },
        [](Format& f) { f.font.outline = true; },
        [](Format& f) { f.font.underline = Underline::Single; },
        [](Format& f) { f.font.underline = Underline::DoubleAccounting; },
        [](Format& f) { f.font.script = Script::Superscript; },
        [](Format& f) { f.font.script = Script::Subscript; },
        [](Format& f) { f.font.color = kRed; },
        [](Format& f) { f.font.twips = 210; },
        [id = sheet.Book().Typefaces().Intern("Courier New")](Format& f) { f.font.name = id; },
    };
    std::uint32_t row = 0;
    for (const Change& change : changes) {
        PutText(sheet, row, 0, "font");
        Look(sheet, Block::Cell(row++, 0), change);
    }
}

void AddFillsAndLines(Sheet& sheet)
{
    Look(sheet, Block::Cell(0, 1), [](Format& f) { f.fill = {Pattern::Solid, kPaleBlue, kAutomaticColor}; });
    Look(sheet, Block::Cell(1, 1), [](Format& f) { f.fill = {Pattern::LightUp, kPaleBlue, kRed}; });
    Look(sheet, Block::Cell(2, 1), [](Format& f) { f.fill.pattern = Pattern::Gray16; });
    for (std::uint32_t style = 1; style <= 13; ++style)
        Look(sheet, Block::Cell(style - 1, 2), [&](Format& f) {
            f.borders.At(Edge::Bottom) = {static_cast<LineStyle>(style), style % 2 ? kBlue : kAutomaticColor};
        });
    Look(sheet, Block::Cell(13, 2), [](Format& f) {
        f.borders.At(Edge::Diagonal) = {LineStyle::Double, kRed};
        f.borders.diagonalDown = f.borders.diagonalUp = true;
    });
}

void AddAlignments(Sheet& sheet)
{
    const Change changes[] = {
        [](Format& f) { f.alignment.horizontal = HorizontalAlign::Center; },
        [](Format& f) { f.alignment.horizontal = HorizontalAlign::CenterAcrossSelection; },
        [](Format& f) { f.alignment.vertical = VerticalAlign::Top; },
        [](Format& f) { f.alignment.wrap = true; },
        [](Format& f) { f.alignment.shrink = true; },
        [](Format& f) {
            f.alignment.horizontal = HorizontalAlign::Left;
            f.alignment.indent = 3;
        },
        [](Format& f) { f.alignment.rotation = 45; },
        [](Format& f) { f.alignment.rotation = -90; },
        [](Format& f) { f.alignment.rotation = kStackedRotation; },
        [](Format& f) {
            f.protection = {false, true};
        },
    };
    std::uint32_t row = 0;
    for (const Change& change : changes)
        Look(sheet, Block::Cell(row++, 3), change);
}

void AddNumberFormats(Sheet& sheet)
{
    std::uint32_t row = 0;
    for (const char* code : {"0.00", "0.000_ ", "@", "m/d/yyyy", "#,##0.00", "[Red]\"a&b\" 0", "0.000_ "}) {
        sheet.SetNumber(row, 4, 1234.5);
        Look(sheet, Block::Cell(row++, 4), NumberCode(sheet.Book(), code));
    }
}

void AddStyles(Sheet& sheet)
{
    Workbook& book = sheet.Book();
    Format format = book.Styles()[kNormalStyle].format;
    format.font.bold = true;
    format.font.color = kRed;
    const StyleId heading = book.AddStyle("Heading & more", format);
    PutText(sheet, 0, 5, "styled");
    sheet.SetFormat(Block::Cell(0, 5), book.StyleFormat(heading));
    PutText(sheet, 1, 5, "styled, filled");
    sheet.SetFormat(Block::Cell(1, 5), book.StyleFormat(heading));
    Look(sheet, Block::Cell(1, 5), [](Format& f) {
        f.fill = {Pattern::Solid, kPaleBlue, kAutomaticColor};
        f.ownGroups |= kFillGroup;
    });
}

void AddLayout(Sheet& sheet)
{
    sheet.SetColumnWidth(0, 0, 20);
    sheet.SetColumnWidth(1, 2, 0.5);
    sheet.SetColumnsHidden(3, 3, true);
    sheet.SetRowHeight(0, 0, 30.75);
    sheet.SetRowsHidden(2, 2, true);
    sheet.SetFormat({0, 6, kRowCount - 1, 6}, sheet.Book().Formats().Intern(sheet.Book().Formats().At(0)));
    Look(sheet, {0, 6, kRowCount - 1, 7}, NumberCode(sheet.Book(), "0.0"));
    Look(sheet, {9, 0, 9, kColumnCount - 1}, [](Format& f) { f.font.bold = true; });
    PutText(sheet, 0, 0, "merged");
    sheet.Merge({0, 0, 1, 2});
    sheet.Merge({4, 4, 4, 6});
    sheet.rowBreaks = {10, 20};
    sheet.columnBreaks = {5};
    sheet.view.gridlines = sheet.view.zeros = false;
    sheet.view.pageBreakPreview = true;
    sheet.view.selection = {2, 1, 4, 3};
    sheet.view.activeRow = 2;
    sheet.view.activeColumn = 1;
}

void AddPage(Sheet& sheet)
{
    PageSetup& page = sheet.page;
    page.paperSize = 9;
    page.landscape = true;
    page.leftMargin = 28.346456692913385;
    page.headerMargin = 18;
    page.header = {"left & right", "", "&P/&N"};
    page.footer[1] = "<centre>";
    page.centerHorizontally = page.printGridlines = true;
    page.zoom = 0;
    page.fitToPagesTall = std::nullopt;
    page.firstPageNumber = 3;
    page.printArea = {{0, 0, 99, 3}};
    page.titleRows = Span{0, 1};
    page.titleColumns = Span{0, 0};
}

std::unique_ptr<Workbook> MakeRich()
{
    auto book = std::make_unique<Workbook>("Arial", 10);
    Sheet& values = book->AddSheet("Values");
    AddTexts(values);
    AddNumbers(values);
    Sheet& formats = book->AddSheet("Formats");
    AddFonts(formats);
    AddFillsAndLines(formats);
    AddAlignments(formats);
    AddNumberFormats(formats);
    AddStyles(formats);
    Sheet& layout = book->AddSheet("Lay 'out' & more");
    AddLayout(layout);
    AddPage(layout);
    book->AddSheet("Empty");
    book->AddSheet("Hidden").visibility = SheetVisibility::Hidden;
    book->AddSheet("Deep").visibility = SheetVisibility::VeryHidden;
    Sheet& frozen = book->AddSheet("Frozen");
    frozen.view.frozenRows = 2;
    frozen.view.frozenColumns = 1;
    frozen.view.zoom = 85;
    book->SetActiveSheet(2);
    book->SetName("Total", "Values!$B$1");
    book->SetName("Local", "Formats!$A$1:$B$2", &formats);
    return book;
}

// --- shared with the peer ---

void AddSharedCells(Sheet& sheet)
{
    PutText(sheet, 0, 0, "Title");
    PutText(sheet, 1, 0, " a & <b>");
    PutText(sheet, 2, 0, "Title");
    sheet.SetNumber(0, 1, 1.5);
    sheet.SetNumber(1, 1, -3);
    sheet.SetNumber(2, 1, 0.1);
    sheet.SetBoolean(3, 1, true);
    sheet.SetFormula(4, 1, {"SUM(B1:B3)", -1.4});
}

void AddSharedFormats(Sheet& sheet)
{
    Look(sheet, Block::Cell(0, 0), [](Format& f) {
        f.font.bold = f.font.italic = true;
        f.font.color = kRed;
        f.font.twips = 280;
        f.ownGroups |= kFontGroup;
    });
    Look(sheet, Block::Cell(1, 1), [](Format& f) {
        f.fill = {Pattern::Solid, kPaleBlue, kAutomaticColor};
        f.ownGroups |= kFillGroup;
        Frame(f, LineStyle::Thin);
    });
    Look(sheet, Block::Cell(2, 1), NumberCode(sheet.Book(), "0.000_ "));
    Look(sheet, Block::Cell(2, 0), [](Format& f) {
        f.alignment.horizontal = HorizontalAlign::Center;
        f.alignment.vertical = VerticalAlign::Center;
        f.alignment.wrap = true;
        f.ownGroups |= kAlignmentGroup;
    });
}

void AddSharedLayout(Sheet& sheet)
{
    sheet.SetColumnWidth(0, 0, 20);
    sheet.SetColumnWidth(2, 3, 5.5);
    sheet.SetRowHeight(1, 1, 30);
    PutText(sheet, 6, 0, "wide");
    sheet.Merge({6, 0, 7, 2});
    sheet.page.paperSize = 9;
    sheet.page.landscape = true;
    sheet.page.leftMargin = sheet.page.rightMargin = 36;
    sheet.page.topMargin = sheet.page.bottomMargin = 72;
    sheet.page.header[1] = "&P of &N";
    sheet.page.centerHorizontally = true;
    sheet.page.printArea = {{0, 0, 9, 3}};
    sheet.page.titleRows = Span{0, 0};
    sheet.rowBreaks = {5};
    sheet.view.gridlines = false;
}

std::unique_ptr<Workbook> MakeShared()
{
    auto book = std::make_unique<Workbook>();
    Sheet& sheet = book->AddSheet("Data");
    AddSharedCells(sheet);
    AddSharedFormats(sheet);
    AddSharedLayout(sheet);
    book->AddSheet("Second sheet").visibility = SheetVisibility::Hidden;
    book->SetName("Total", "Data!$B$5");
    return book;
}

// --- plain ones ---

std::unique_ptr<Workbook> MakeCells(std::uint32_t rows)
{
    auto book = std::make_unique<Workbook>();
    Sheet& sheet = book->AddSheet("Sheet1");
    for (std::uint32_t row = 0; row < rows; ++row) {
        PutText(sheet, row, 0, "Member " + std::to_string(row));
        for (std::uint32_t column = 1; column < 10 && rows > 1; ++column)
            sheet.SetNumber(row, column, row * 0.37 + column);
    }
    return book;
}

} // namespace

std::unique_ptr<Workbook> MakeSample(const std::string& name)
{
    if (name == "rich")
        return MakeRich();
    if (name == "shared")
        return MakeShared();
    if (name == "small")
        return MakeCells(1);
    return name == "large" ? MakeCells(5000) : nullptr;
}
