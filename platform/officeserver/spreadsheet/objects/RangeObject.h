// Range: cells of a sheet, in one or several blocks.
#pragma once

#include "spreadsheet/objects/FormatTarget.h"
#include "spreadsheet/objects/ModelObject.h"

#include <string>
#include <vector>

namespace zek::office {

class RangeObject final : public ModelObject
{
public:
    // What Count and Item count in.
    enum class Unit : std::uint8_t { Cells, Rows, Columns };

    RangeObject(SheetRef sheet, const Block& block, Unit unit = Unit::Cells)
        : m_sheet(std::move(sheet)), m_first(block), m_unit(unit)
    {
    }
    RangeObject(SheetRef sheet, const std::vector<Block>& areas)
        : m_sheet(std::move(sheet)), m_first(areas.front()), m_more(areas.begin() + 1, areas.end())
    {
    }

    // The range behind an object of anybody's; null when it is not one of ours.
    static RangeObject* From(IDispatch* object);

    const SheetRef& TheSheet() const { return m_sheet; }
    std::vector<Block> Areas() const;

    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
    IDispatch* Parent() override;

    // --- Values (RangeValues.cpp) ---

    // One cell's value; of several cells a two-dimensional array that counts from 1. Dates as VT_DATE,
    // amounts of money as VT_CY, other numbers as VT_R8. Formulas are not computed here: VT_EMPTY.
    Value GetValue();
    // As GetValue, numbers always as VT_R8.
    Value GetValue2();
    // Puts the value into every cell, an array's elements one by one. Texts are taken as if typed in.
    void SetValue(const Argument& value);
    // With the leading '='; other values as GetValue2 has them.
    Value GetFormula();
    std::optional<bool> HasFormula();
    bool Clear();
    bool ClearContents();
    bool ClearFormats();

    // --- Looks (RangeLooks.cpp) ---

    IDispatch* Font();
    IDispatch* Interior();
    IDispatch* Borders(const Arguments& index);
    bool BorderAround(const Arguments& arguments);
    std::optional<std::string> NumberFormat();
    void SetNumberFormat(const Argument& value);
    std::optional<LONG> HorizontalAlignment();
    void SetHorizontalAlignment(const Argument& value);
    std::optional<LONG> VerticalAlignment();
    void SetVerticalAlignment(const Argument& value);
    std::optional<bool> WrapText();
    void SetWrapText(const Argument& value);
    std::optional<bool> ShrinkToFit();
    void SetShrinkToFit(const Argument& value);
    // Degrees, or XlOrientation.
    std::optional<LONG> Orientation();
    void SetOrientation(const Argument& value);
    std::optional<LONG> IndentLevel();
    void SetIndentLevel(const Argument& value);
    std::optional<bool> Locked();
    void SetLocked(const Argument& value);
    // The Style object; VT_NULL when the cells differ.
    Value GetStyle();
    // A style's name or a Style object.
    void SetStyle(const Argument& value);

    // --- Sizes, merging, moving (RangeLayout.cpp) ---

    std::optional<double> ColumnWidth();
    void SetColumnWidth(const Argument& value);
    std::optional<double> RowHeight();
    void SetRowHeight(const Argument& value);
    double Width();
    double Height();
    double Left();
    double Top();
    // Of whole rows or columns.
    std::optional<bool> Hidden();
    void SetHidden(const Argument& value);
    bool AutoFit();
    std::optional<bool> MergeCells();
    void SetMergeCells(const Argument& value);
    void Merge(const Arguments& across);
    void UnMerge();
    IDispatch* MergeArea();
    bool Insert(const Arguments& shift);
    bool Delete(const Arguments& shift);
    bool Copy(const Arguments& destination);
    LONG PageBreak();
    void SetPageBreak(const Argument& value);

    // --- Where it is, and other ranges from it (RangePlaces.cpp) ---

    LONG Row();
    LONG Column();
    LONG Count();
    std::string Address(const Arguments& arguments);
    // Counted from 1, relative to the first cell; one index counts along the rows.
    Value Item(const Arguments& indices);
    void SetItem(const Arguments& indices);
    // Item, or the value when there is no index.
    Value Default(const Arguments& indices);
    void SetDefault(const Arguments& indices);
    IDispatch* Range(const Arguments& corners);
    IDispatch* Cells();
    IDispatch* Rows();
    IDispatch* Columns();
    IDispatch* EntireRow();
    IDispatch* EntireColumn();
    IDispatch* Offset(const Arguments& distances);
    IDispatch* Resize(const Arguments& sizes);
    IDispatch* Worksheet();
    IUnknown* NewEnum();
    bool Select();
    bool Activate();
    // The Name object that stands for exactly these cells; refuses when there is none.
    IDispatch* GetName();
    // Defines a name for the cells.
    void SetName(const Argument& value);

protected:
    SessionRef TheSession() const override { return SessionOf(m_sheet); }
    BookState* ChangedBook() const override { return m_sheet->book; }

private:
    template <class Work>
    void ForAreas(Work&& work) const
    {
        work(m_first);
        for (const Block& area : m_more)
            work(area);
    }
    FormatTarget Looks() const { return {m_sheet, Areas()}; }
    RangeObject* Sibling(const Block& block, Unit unit = Unit::Cells) const
    {
        return new RangeObject(m_sheet, block, unit);
    }
    RangeObject* ItemRange(const Arguments& indices) const;
    RangeObject* Widened(bool rows) const;
    void RefusePartOfMerge() const;
    void RefuseHugeFill() const;
    void PutArray(const Argument& value);
    Value ReadCells(bool plainNumbers);

    SheetRef m_sheet;
    Block m_first;
    std::vector<Block> m_more;
    Unit m_unit = Unit::Cells;
};

} // namespace zek::office
