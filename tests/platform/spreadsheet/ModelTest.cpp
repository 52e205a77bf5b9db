// The workbook model against a grid that holds every cell.
#include "spreadsheet/model/FormulaReferences.h"
#include "spreadsheet/model/Unicode.h"
#include "spreadsheet/model/Workbook.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <random>

using namespace zek::office;

namespace {

constexpr std::uint32_t kSide = 14;

FormatId BoldItalic(Workbook& book, int bits)
{
    Format format = book.Formats().At(kDefaultFormat);
    format.font.bold = bits & 1;
    format.font.italic = bits & 2;
    return book.Formats().Intern(format);
}

struct GridCell {
    double number = 0; // 0: empty
    int format = 0;
    bool operator==(const GridCell&) const = default;
};

// Rows and columns of cells, moved one by one.
class Grid
{
public:
    GridCell& At(std::uint32_t row, std::uint32_t column) { return m_cells[{row, column}]; }

    void Shift(const Block& block, zek::office::Shift shift, bool insert)
    {
        std::map<std::pair<std::uint32_t, std::uint32_t>, GridCell> after;
        const bool down = shift == zek::office::Shift::Vertical;
        for (const auto& [place, cell] : m_cells) {
            auto [row, column] = place;
            std::uint32_t& along = down ? row : column;
            const std::uint32_t across = down ? column : row;
            const std::uint32_t at = down ? block.firstRow : block.firstColumn;
            const std::uint32_t count = down ? block.Rows() : block.Columns();
            const bool moves = along >= at && across >= (down ? block.firstColumn : block.firstRow) &&
                               across <= (down ? block.lastColumn : block.lastRow);
            if (moves && !insert && along < at + count)
                continue;
            if (moves)
                along += insert ? count : 0 - count;
            after[{row, column}] = cell;
        }
        m_cells.swap(after);
        if (insert && (down ? block.firstRow : block.firstColumn) > 0)
            LookLikeNeighbours(block, down);
    }

private:
    void LookLikeNeighbours(const Block& block, bool down)
    {
        for (std::uint32_t row = block.firstRow; row <= std::min(block.lastRow, 3 * kSide); ++row)
            for (std::uint32_t column = block.firstColumn; column <= std::min(block.lastColumn, 3 * kSide);
                 ++column)
                At(row, column).format =
                    down ? At(block.firstRow - 1, column).format : At(row, block.firstColumn - 1).format;
    }

    std::map<std::pair<std::uint32_t, std::uint32_t>, GridCell> m_cells;
};

GridCell CellOf(const Sheet& sheet, std::uint32_t row, std::uint32_t column)
{
    const Cell* const cell = sheet.Find(row, column);
    const Font& font = sheet.Book().Formats().At(sheet.FormatAt(row, column)).font;
    return {cell && cell->kind == CellKind::Number ? cell->number : 0, font.bold + 2 * font.italic};
}

class Dice
{
public:
    explicit Dice(unsigned seed) : m_engine(seed) {}
    std::uint32_t Below(std::uint32_t limit)
    {
        return std::uniform_int_distribution<std::uint32_t>(0, limit - 1)(m_engine);
    }
    Block SmallBlock()
    {
        const std::uint32_t row = Below(kSide), column = Below(kSide);
        return {row, column, row + Below(4), column + Below(4)};
    }
    Block AnyBlock()
    {
        Block block = SmallBlock();
        const std::uint32_t kind = Below(8);
        if (kind == 0 || kind == 2) {
            block.firstRow = 0;
            block.lastRow = kRowCount - 1;
        }
        if (kind == 1 || kind == 2) {
            block.firstColumn = 0;
            block.lastColumn = kColumnCount - 1;
        }
        return block;
    }

private:
    std::mt19937 m_engine;
};

} // namespace

TEST(SheetModel, ValuesMoveAsInAGrid)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        Workbook book;
        Sheet& sheet = book.AddSheet("S");
        Grid grid;
        for (int step = 0; step < 120; ++step) {
            const Block block = dice.SmallBlock();
            const Block wide = dice.AnyBlock();
            const auto shift = dice.Below(2) ? Shift::Vertical : Shift::Horizontal;
            const bool whole = wide.HasAllRows() || wide.HasAllColumns();
            const auto fitting = wide.HasAllColumns() ? Shift::Vertical : whole ? Shift::Horizontal : shift;
            const int bits = static_cast<int>(dice.Below(4));
            switch (dice.Below(5)) {
            case 0:
            case 1:
                sheet.SetNumber(block.firstRow, block.firstColumn, step + 1);
                grid.At(block.firstRow, block.firstColumn).number = step + 1;
                break;
            case 2:
                sheet.SetFormat(block, BoldItalic(book, bits));
                for (std::uint32_t row = block.firstRow; row <= block.lastRow; ++row)
                    for (std::uint32_t column = block.firstColumn; column <= block.lastColumn; ++column)
                        grid.At(row, column).format = bits;
                break;
            case 3:
                if (wide.Cells() == Block::WholeSheet().Cells())
                    break;
                ASSERT_TRUE(sheet.InsertCells(wide, fitting));
                grid.Shift(wide, fitting, true);
                break;
            default:
                if (wide.Cells() == Block::WholeSheet().Cells())
                    break;
                ASSERT_TRUE(sheet.DeleteCells(wide, fitting));
                grid.Shift(wide, fitting, false);
            }
        }
        for (std::uint32_t row = 0; row < 2 * kSide; ++row)
            for (std::uint32_t column = 0; column < 2 * kSide; ++column)
                ASSERT_EQ(CellOf(sheet, row, column), grid.At(row, column)) << row << " " << column;
    }
}

TEST(SheetModel, FormatsOfRowsAndColumnsLookAsIfEveryCellHadThem)
{
    constexpr std::uint32_t kShown = kSide + 6;
    for (unsigned seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        Workbook book;
        Sheet& sheet = book.AddSheet("S");
        std::array<std::array<int, kShown>, kShown> grid{};
        for (int step = 0; step < 40; ++step) {
            const Block block = dice.AnyBlock();
            const int flip = 1 + static_cast<int>(dice.Below(2));
            sheet.ChangeFormat(block, [&](FormatId id) {
                const Font& font = book.Formats().At(id).font;
                return BoldItalic(book, (font.bold + 2 * font.italic) ^ flip);
            });
            for (std::uint32_t row = 0; row < kShown; ++row)
                for (std::uint32_t column = 0; column < kShown; ++column)
                    grid[row][column] ^= block.Contains(row, column) ? flip : 0;
            const Block seen = dice.SmallBlock();
            std::set<FormatId> visited, expected;
            sheet.VisitFormats(seen, [&](FormatId id) { return visited.insert(id).second || true; });
            for (std::uint32_t row = seen.firstRow; row <= seen.lastRow; ++row)
                for (std::uint32_t column = seen.firstColumn; column <= seen.lastColumn; ++column)
                    expected.insert(BoldItalic(book, grid[row][column]));
            ASSERT_EQ(visited, expected) << step;
        }
        for (std::uint32_t row = 0; row < kShown; ++row)
            for (std::uint32_t column = 0; column < kShown; ++column)
                ASSERT_EQ(CellOf(sheet, row, column).format, grid[row][column]) << row << " " << column;
    }
}

TEST(SheetModel, WholeColumnsAndRowsCostNoCells)
{
    Workbook book;
    Sheet& sheet = book.AddSheet("S");
    sheet.SetFormat({0, 1, kRowCount - 1, 3}, BoldItalic(book, 1));
    sheet.SetFormat(Block::WholeSheet(), BoldItalic(book, 2));
    sheet.SetFormat({4, 0, 5, kColumnCount - 1}, BoldItalic(book, 3));
    std::size_t cells = 0;
    sheet.VisitRows([&](std::uint32_t, const Row& row) { cells += row.cells.size(); });
    EXPECT_EQ(cells, 0u);
    EXPECT_EQ(CellOf(sheet, 4, 9).format, 3);
    EXPECT_EQ(CellOf(sheet, 9, 9).format, 2);
}

TEST(SheetModel, RandomMergesAreFoundAsInAList)
{
    Dice dice(7);
    MergeTable table;
    std::vector<Block> list;
    const auto tall = [&] { return dice.Below(5) == 0 ? 100 + dice.Below(200) : dice.Below(6); };
    for (int step = 0; step < 3000; ++step) {
        const std::uint32_t row = dice.Below(900), column = dice.Below(12);
        const Block block{row, column, row + tall(), column + 1 + dice.Below(3)};
        std::vector<Block> overlapping;
        std::ranges::copy_if(list, std::back_inserter(overlapping),
                             [&](const Block& b) { return b.Overlaps(block); });
        std::vector<Block> found = table.Overlapping(block);
        const auto order = [](const Block& a) { return std::pair(a.firstRow, a.firstColumn); };
        std::ranges::sort(overlapping, {}, order);
        std::ranges::sort(found, {}, order);
        ASSERT_EQ(found, overlapping) << step;
        const Block* const here = table.Find(row, column);
        ASSERT_EQ(here != nullptr,
                  std::ranges::any_of(list, [&](const Block& b) { return b.Contains(row, column); }));
        if (overlapping.empty()) {
            table.Add(block);
            list.push_back(block);
        } else if (dice.Below(2)) {
            table.Remove(overlapping.front());
            std::erase(list, overlapping.front());
        }
    }
}

TEST(FormulaReferences, FollowWhatMoves)
{
    struct Row {
        const char* label;
        const char* formula;
        Block block;
        Shift shift;
        bool insert;
        const char* expected;
    };
    const Block row2{1, 0, 1, kColumnCount - 1};
    const Block columnB{0, 1, kRowCount - 1, 1};
    const Row rows[] = {
        {"below the row", "A3+$A$3", row2, Shift::Vertical, true, "A4+$A$4"},
        {"above the row", "A1", row2, Shift::Vertical, true, "A1"},
        {"across the row", "SUM(A1:B5)", row2, Shift::Vertical, true, "SUM(A1:B6)"},
        {"deleted", "A2*2", row2, Shift::Vertical, false, "#REF!*2"},
        {"shrinks", "SUM(A1:A3)", row2, Shift::Vertical, false, "SUM(A1:A2)"},
        {"own sheet by name", "S!C1", columnB, Shift::Horizontal, true, "S!D1"},
        {"other sheet", "Other!C1", columnB, Shift::Horizontal, true, "Other!C1"},
        {"quoted text", "\"C1\"&C1", columnB, Shift::Horizontal, false, "\"C1\"&B1"},
        {"function and name", "LOG10(C1)+C1x", columnB, Shift::Horizontal, true, "LOG10(D1)+C1x"},
        {"whole columns", "SUM(C:D)", columnB, Shift::Horizontal, true, "SUM(D:E)"},
        {"whole columns, rows moved", "SUM(C:D)", row2, Shift::Vertical, true, "SUM(C:D)"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        Workbook book;
        Sheet& sheet = book.AddSheet("S");
        book.AddSheet("Other");
        sheet.SetFormula(0, 0, {row.formula, {}});
        book.SetName("N", row.formula);
        ASSERT_TRUE(row.insert ? sheet.InsertCells(row.block, row.shift)
                               : sheet.DeleteCells(row.block, row.shift));
        EXPECT_EQ(sheet.FormulaAt(sheet.Find(0, 0)->formula).text, row.expected);
    }
    EXPECT_EQ(MovedFormula("A1+$B$2+C$3+'a b'!D4", 2, 1), "B3+$B$2+D$3+'a b'!E6");
    EXPECT_EQ(MovedFormula("A1", -1, 0), "#REF!");
}

TEST(SheetModel, SheetsAreRenamedCopiedRemovedWithTheirReferences)
{
    Workbook book;
    Sheet& data = book.AddSheet("Data");
    Sheet& sums = book.AddSheet("Sums");
    sums.SetFormula(0, 0, {"SUM(Data!A1:A9)", {}});
    book.SetName("All", "Data!$A$1:$A$9");
    book.RenameSheet(data, "Raw data");
    EXPECT_EQ(sums.FormulaAt(0).text, "SUM('Raw data'!A1:A9)");
    EXPECT_EQ(book.FindName("ALL")->refersTo, "'Raw data'!$A$1:$A$9");
    data.SetNumber(3, 3, 4);
    data.Merge({5, 0, 5, 2});
    Sheet& copy = book.CopySheet(data, 1);
    EXPECT_EQ(copy.Name(), "Raw data (2)");
    EXPECT_EQ(copy.Find(3, 3)->number, 4);
    EXPECT_EQ(copy.Merges().Size(), 1u);
    book.SetActiveSheet(0);
    book.RemoveSheet(0);
    EXPECT_EQ(sums.FormulaAt(0).text, "SUM(#REF!)");
    EXPECT_EQ(&book.SheetAt(book.ActiveSheet()), &copy);
}

TEST(Unicode, ConvertsAndRepairs)
{
    const struct {
        const char* label;
        std::u16string wide;
        std::string narrow;
    } rows[] = {
        {"ascii", u"abc", "abc"},
        {"two bytes", u"\u00E9", "\xC3\xA9"},
        {"three bytes", u"\uD55C", "\xED\x95\x9C"},
        {"pair", u"\U0001F600", "\xF0\x9F\x98\x80"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(ToUtf8(row.wide), row.narrow);
        EXPECT_EQ(ToUtf16(row.narrow), row.wide);
        EXPECT_EQ(Utf16Length(row.narrow), row.wide.size());
    }
    EXPECT_EQ(ToUtf8(std::u16string{u'a', char16_t{0xD800}}), "a\xEF\xBF\xBD");
    for (const char* bad : {"\x80", "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xE2\x82"})
        EXPECT_EQ(ToUtf16(bad)[0], u'\xFFFD') << bad;
    EXPECT_TRUE(EqualsNoCase("\xC3\x84Z1", "\xC3\xA4z1"));
    EXPECT_FALSE(EqualsNoCase("a", "b"));
}
