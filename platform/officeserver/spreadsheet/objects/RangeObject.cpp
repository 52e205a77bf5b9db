#include "spreadsheet/objects/RangeObject.h"

#include "spreadsheet/objects/SheetsObject.h"

namespace zek::office {

RangeObject* RangeObject::From(IDispatch* object)
{
    return dynamic_cast<RangeObject*>(object);
}

std::vector<Block> RangeObject::Areas() const
{
    std::vector<Block> areas{m_first};
    areas.insert(areas.end(), m_more.begin(), m_more.end());
    return areas;
}

IDispatch* RangeObject::Parent()
{
    return new WorksheetObject(m_sheet);
}

const MemberTable& RangeObject::Members()
{
    using R = RangeObject;
    static const MemberTable table = ModelTable(
        "Range",
        {
            {"Value", 0x6, Property<&R::GetValue, &R::SetValue>()},
            {"Value2", 0x56C, Property<&R::GetValue2, &R::SetValue>()},
            {"Formula", 0x105, Property<&R::GetFormula, &R::SetValue>()},
            {"FormulaLocal", 0x107, Property<&R::GetFormula, &R::SetValue>()},
            {"HasFormula", 0x10B, Get<&R::HasFormula>()},
            {"Clear", 0x6F, Call<&R::Clear>()},
            {"ClearContents", 0x71, Call<&R::ClearContents>()},
            {"ClearFormats", 0x70, Call<&R::ClearFormats>()},
            {"Font", 0x92, Get<&R::Font>()},
            {"Interior", 0x81, Get<&R::Interior>()},
            {"Borders", 0x1B3, Get<&R::Borders>(0, 1)},
            {"BorderAround", 0x42B, Call<&R::BorderAround>(0, 4)},
            {"NumberFormat", 0xC1, Property<&R::NumberFormat, &R::SetNumberFormat>()},
            {"NumberFormatLocal", 0x449, Property<&R::NumberFormat, &R::SetNumberFormat>()},
            {"HorizontalAlignment", 0x88, Property<&R::HorizontalAlignment, &R::SetHorizontalAlignment>()},
            {"VerticalAlignment", 0x89, Property<&R::VerticalAlignment, &R::SetVerticalAlignment>()},
            {"WrapText", 0x114, Property<&R::WrapText, &R::SetWrapText>()},
            {"ShrinkToFit", 0xD1, Property<&R::ShrinkToFit, &R::SetShrinkToFit>()},
            {"Orientation", 0x86, Property<&R::Orientation, &R::SetOrientation>()},
            {"IndentLevel", 0xC9, Property<&R::IndentLevel, &R::SetIndentLevel>()},
            {"Locked", 0x10D, Property<&R::Locked, &R::SetLocked>()},
            {"Style", 0x104, Property<&R::GetStyle, &R::SetStyle>()},
            {"ColumnWidth", 0xF2, Property<&R::ColumnWidth, &R::SetColumnWidth>()},
            {"RowHeight", 0x110, Property<&R::RowHeight, &R::SetRowHeight>()},
            {"Width", 0x7A, Get<&R::Width>()},
            {"Height", 0x7B, Get<&R::Height>()},
            {"Left", 0x7F, Get<&R::Left>()},
            {"Top", 0x7E, Get<&R::Top>()},
            {"Hidden", 0x10C, Property<&R::Hidden, &R::SetHidden>()},
            {"AutoFit", 0xED, Call<&R::AutoFit>()},
            {"MergeCells", 0xD0, Property<&R::MergeCells, &R::SetMergeCells>()},
            {"Merge", 0x234, Call<&R::Merge>(0, 1)},
            {"UnMerge", 0x568, Call<&R::UnMerge>()},
            {"MergeArea", 0x569, Get<&R::MergeArea>()},
            {"Insert", 0xFC, Call<&R::Insert>(0, 2)},
            {"Delete", 0x75, Call<&R::Delete>(0, 1)},
            {"Copy", 0x227, Call<&R::Copy>(0, 1)},
            {"PageBreak", 0xFF, Property<&R::PageBreak, &R::SetPageBreak>()},
            {"Row", 0x101, Get<&R::Row>()},
            {"Column", 0xF0, Get<&R::Column>()},
            {"Count", 0x76, Get<&R::Count>()},
            {"Address", 0xEC, Get<&R::Address>(0, 5)},
            {"AddressLocal", 0x1B5, Get<&R::Address>(0, 5)},
            {"Item", 0xAA, Property<&R::Item, &R::SetItem>(1, 2)},
            {"_Default", 0x0, Property<&R::Default, &R::SetDefault>(0, 2)},
            {"_NewEnum", DISPID_NEWENUM, Get<&R::NewEnum>()},
            {"Range", 0xC5, Get<&R::Range>(1, 2)},
            {"Cells", 0xEE, Get<&R::Cells>()},
            {"Rows", 0x102, Get<&R::Rows>()},
            {"Columns", 0xF1, Get<&R::Columns>()},
            {"EntireRow", 0xF7, Get<&R::EntireRow>()},
            {"EntireColumn", 0xF6, Get<&R::EntireColumn>()},
            {"Offset", 0xFE, Get<&R::Offset>(0, 2)},
            {"Resize", 0x100, Get<&R::Resize>(0, 2)},
            {"Worksheet", 0x15C, Get<&R::Worksheet>()},
            {"Select", 0xEB, Call<&R::Select>()},
            {"Activate", 0x130, Call<&R::Activate>()},
            {"Name", 0x6E, Property<&R::GetName, &R::SetName>()},
        });
    return table;
}

} // namespace zek::office
