// A worksheet: cells in any order, column and row formats, sizes, merged areas, breaks, page setup, view.
//
// Rows and columns are counted from 0. Positions are not checked here; whoever takes them from outside
// does that. Cells are kept row by row in the order of their columns, 16 bytes each; a row, column or
// sheet that is formatted as a whole costs no cells.
//
//   Sheet& sheet = book.AddSheet("Data");
//   sheet.SetNumber(0, 0, 1.5);
//   sheet.VisitRows([](std::uint32_t row, const Row& content) { ... });
#pragma once

#include "spreadsheet/model/Block.h"
#include "spreadsheet/model/Cell.h"
#include "spreadsheet/model/MergeTable.h"
#include "spreadsheet/model/PageSetup.h"

#include <array>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace zek::office {

class Workbook;

constexpr double kDefaultRowHeight = 15;     // points
constexpr double kDefaultColumnWidth = 8.43; // characters of the default font
constexpr double kMaxRowHeight = 409.5;
constexpr double kMaxColumnWidth = 255;
constexpr FormatId kNoFormat = 0xFFFFFFFF;

enum class SheetVisibility : std::uint8_t { Visible, Hidden, VeryHidden };

struct Row {
    std::vector<Cell> cells;       // by column
    FormatId format = kNoFormat;   // of the cells that are not there; kNoFormat: the columns' formats
    std::uint16_t heightTwips = 0; // twentieths of a point; 0: the sheet's default
    bool hidden = false;

    bool IsEmpty() const { return cells.empty() && format == kNoFormat && heightTwips == 0 && !hidden; }
    double Height() const { return heightTwips / 20.0; }
};

// Neighbouring columns that agree. Columns in no run have the default width and format.
struct ColumnRun {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    double width = -1; // characters; below 0: the sheet's default
    FormatId format = kDefaultFormat;
    bool hidden = false;

    bool IsPlain() const { return width < 0 && format == kDefaultFormat && !hidden; }
    bool LooksLike(const ColumnRun& other) const
    {
        return width == other.width && format == other.format && hidden == other.hidden;
    }
};

enum class Shift : std::uint8_t { Vertical, Horizontal };

class Sheet
{
public:
    Sheet(Workbook& book, std::string name);
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    Workbook& Book() const { return m_book; }

    // UTF-8. Renaming goes through Workbook::RenameSheet.
    const std::string& Name() const { return m_name; }

    // --- Cells ---

    // Null when the cell is neither filled nor formatted by itself. Valid until the next change.
    const Cell* Find(std::uint32_t row, std::uint32_t column) const;

    // A value put into a cell leaves its format.
    void SetNumber(std::uint32_t row, std::uint32_t column, double value);
    void SetText(std::uint32_t row, std::uint32_t column, TextId text);
    void SetBoolean(std::uint32_t row, std::uint32_t column, bool value);
    void SetError(std::uint32_t row, std::uint32_t column, CellError error);
    void SetFormula(std::uint32_t row, std::uint32_t column, Formula formula);
    void SetEmpty(std::uint32_t row, std::uint32_t column);

    const Formula& FormulaAt(FormulaId id) const { return m_formulas[id]; }
    Formula& FormulaAt(FormulaId id) { return m_formulas[id]; }

    // visit(rowNumber, const Row&) for every row that holds anything, from the top.
    template <class Visit>
    void VisitRows(Visit&& visit) const
    {
        for (std::size_t chunk = 0; chunk < m_chunks.size(); ++chunk)
            for (std::size_t row = 0; m_chunks[chunk] && row < kChunkRows; ++row)
                if (const Row& content = (*m_chunks[chunk])[row]; !content.IsEmpty())
                    visit(static_cast<std::uint32_t>(chunk * kChunkRows + row), content);
    }

    // Null when the row holds nothing and never did.
    const Row* FindRow(std::uint32_t row) const;

    // The smallest block that holds every filled or formatted cell; A1 when there is none.
    Block UsedBlock() const;

    // Values only; formats stay.
    void ClearValues(const Block& block);

    // --- Formats ---

    // What the cell looks like: its own format, else its row's, else its column's.
    FormatId FormatAt(std::uint32_t row, std::uint32_t column) const;

    // Puts `format` in place of every format in the block. Whole columns, whole rows and the whole sheet
    // keep it once per column or row.
    void SetFormat(const Block& block, FormatId format);

    // Every cell's format F in the block becomes change(F).
    template <class Change>
    void ChangeFormat(const Block& block, Change&& change)
    {
        ApplyFormat(block, &change, [](void* context, FormatId format) {
            return (*static_cast<std::remove_reference_t<Change>*>(context))(format);
        });
    }

    // visit(format) for the formats in the block, each at least once, until it answers false.
    template <class Visit>
    void VisitFormats(const Block& block, Visit&& visit) const
    {
        WalkFormats(block, &visit, [](void* context, FormatId format) {
            return (*static_cast<std::remove_reference_t<Visit>*>(context))(format);
        });
    }

    // --- Sizes ---

    // By column, never touching the sheet's default; runs do not overlap and neighbours differ.
    const std::vector<ColumnRun>& Columns() const { return m_columns; }
    ColumnRun ColumnAt(std::uint32_t column) const;

    // Characters; 0 hides the columns.
    double ColumnWidth(std::uint32_t column) const;
    void SetColumnWidth(std::uint32_t first, std::uint32_t last, double characters);
    void SetColumnsHidden(std::uint32_t first, std::uint32_t last, bool hidden);

    // Points; 0 hides the rows. Every row of the sheet at once changes the default height.
    double RowHeight(std::uint32_t row) const;
    void SetRowHeight(std::uint32_t first, std::uint32_t last, double points);
    // Back to the default height.
    void ResetRowHeight(std::uint32_t first, std::uint32_t last);
    void SetRowsHidden(std::uint32_t first, std::uint32_t last, bool hidden);
    bool IsRowHidden(std::uint32_t row) const;

    double DefaultRowHeight() const { return m_defaultRowHeight; }
    bool HasOwnDefaultRowHeight() const { return m_ownDefaultRowHeight; }
    double DefaultColumnWidth() const { return m_defaultColumnWidth; }
    void SetDefaultColumnWidth(double characters) { m_defaultColumnWidth = characters; }

    // Heights of the rows, widths of the columns, added up in points. Hidden ones count nothing.
    double RowsPoints(std::uint32_t first, std::uint32_t last) const;
    double ColumnsPoints(std::uint32_t first, std::uint32_t last) const;
    // Distance of the cell's top or left edge from the sheet's, in points.
    double TopOf(std::uint32_t row) const { return row == 0 ? 0 : RowsPoints(0, row - 1); }
    double LeftOf(std::uint32_t column) const { return column == 0 ? 0 : ColumnsPoints(0, column - 1); }

    // --- Merged areas ---

    const MergeTable& Merges() const { return m_merges; }

    // Keeps the value of the first cell only and gives its look, borders aside, to the whole area. Areas
    // inside the block are taken in; false, and no change, when one is cut by the block's edge.
    bool Merge(const Block& block);
    // Splits every area that shares a cell with the block.
    void Unmerge(const Block& block);

    // --- Inserting and deleting ---

    // Moves the cells at and behind the block away from it, down or to the right; a block of whole rows or
    // columns moves those with their sizes, formats, breaks and areas. The new cells look like the
    // neighbours above or to the left; cells that were never formatted themselves take the look of their
    // new place. Formulas and names that refer to moved cells follow.
    // False, and no change: filled cells would leave the sheet, or a merged area would be torn.
    bool InsertCells(const Block& block, Shift shift);

    // Takes the block's cells out and moves those behind it up or to the left; references into the block
    // become #REF!. False, and no change, when a merged area would be torn.
    bool DeleteCells(const Block& block, Shift shift);

    // Copies values, formats and areas to the block of the same size at the position, on this sheet or
    // another of the workbook; relative references move along. Whole rows and columns carry
    // their sizes. False, and no change, when an area at the target would be torn.
    bool CopyCells(const Block& source, Sheet& target, std::uint32_t row, std::uint32_t column) const;

    // --- Printing and showing ---

    PageSetup page;
    SheetView view;
    SheetVisibility visibility = SheetVisibility::Visible; // changed through Workbook::SetVisibility
    bool selected = false; // its tab is selected; the active sheet's always is

    // Manual breaks: the page ends above that row, or to the left of that column. Never 0.
    std::set<std::uint32_t> rowBreaks;
    std::set<std::uint32_t> columnBreaks;

private:
    friend class Workbook;
    using FormatFunction = FormatId (*)(void*, FormatId);
    using VisitFunction = bool (*)(void*, FormatId);
    static constexpr std::size_t kChunkRows = 64;
    using Chunk = std::array<Row, kChunkRows>;

    Row& MakeRow(std::uint32_t row);
    Row* RowOrNull(std::uint32_t row);
    Cell& MakeCell(std::uint32_t row, std::uint32_t column);
    Cell& ValueCell(std::uint32_t row, std::uint32_t column, CellKind kind);
    void DropValue(Cell& cell);
    void Prune(Row& row);
    // work(rowNumber, Row&) for the rows that exist.
    template <class Work>
    void WorkRows(std::uint32_t first, std::uint32_t last, Work&& work);
    std::uint32_t RowEnd() const { return static_cast<std::uint32_t>(m_chunks.size() * kChunkRows); }

    void ApplyFormat(const Block& block, void* context, FormatFunction change);
    void ApplyToColumns(const Block& block, void* context, FormatFunction change);
    void ApplyToRows(const Block& block, void* context, FormatFunction change);
    void ApplyToCells(const Block& block, void* context, FormatFunction change);
    void WalkFormats(const Block& block, void* context, VisitFunction visit) const;
    bool WalkColumnFormats(std::uint32_t first, std::uint32_t last, void* context, VisitFunction visit) const;
    bool WalkRowFormats(const Row& row, const Block& block, void* context, VisitFunction visit) const;
    FormatId ColumnFormat(std::uint32_t column) const;
    FormatId MainColumnFormat() const;
    FormatId InheritedFormat(const Row& row, std::uint32_t column) const
    {
        return row.format != kNoFormat ? row.format : ColumnFormat(column);
    }
    // Splits the runs at the ends and gives each run between them, gaps included, to work(ColumnRun&).
    template <class Work>
    void WorkColumns(std::uint32_t first, std::uint32_t last, Work&& work);

    void KeepFirstValue(const Block& block);
    void SetMerges(const std::vector<Block>& areas);
    bool MergesAfterShift(const Block& block, Shift shift, bool insert, std::vector<Block>& areas) const;
    bool HasValuesIn(const Block& block) const;
    void MoveAway(const Block& block, Shift shift);
    void MoveUp(const Block& block, Shift shift);
    void ShiftRows(std::uint32_t at, std::uint32_t count, bool insert);
    void ShiftColumnRuns(std::uint32_t at, std::uint32_t count, bool insert);
    void RemoveCells(const Block& block);
    void MoveCells(const Block& source, std::uint32_t row, std::uint32_t column);
    void LookLikeNeighbours(const Block& block, Shift shift);
    void CopyLook(std::uint32_t above, const Block& block);
    void ApplyOne(const Block& cellsOfARow, FormatId format);
    void ShiftSettings(const Block& block, Shift shift, bool insert);
    struct HeldCell;
    std::vector<HeldCell> HoldCells(const Block& block) const;
    void PutHeld(const HeldCell& held, std::int64_t rows, std::int64_t columns);
    void CopySizes(const Block& source, Sheet& target, const Block& place) const;
    void CopyFrom(const Sheet& source);

    Workbook& m_book;
    std::string m_name;
    std::vector<std::unique_ptr<Chunk>> m_chunks;
    std::vector<ColumnRun> m_columns;
    std::vector<Formula> m_formulas;
    std::vector<FormulaId> m_freeFormulas;
    MergeTable m_merges;
    double m_defaultRowHeight = kDefaultRowHeight;
    double m_defaultColumnWidth = kDefaultColumnWidth;
    bool m_ownDefaultRowHeight = false;
};

} // namespace zek::office
