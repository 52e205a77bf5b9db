// Sheets: the sheets of a workbook in the order of their tabs; Worksheet: one of them.
#pragma once

#include "spreadsheet/objects/ModelObject.h"

#include <string>

namespace zek::office {

class WorksheetObject final : public ModelObject
{
public:
    explicit WorksheetObject(SheetRef sheet) : m_sheet(std::move(sheet)) {}
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
    IDispatch* Parent() override;
    const SheetRef& TheSheet() const { return m_sheet; }

    std::string Name();
    // 1 to 31 characters without : \ / ? * [ ], no apostrophe at an end, no other sheet's name.
    void SetName(const Argument& value);
    LONG Visible();
    // The last visible sheet stays visible.
    void SetVisible(const Argument& value);
    void Delete();
    // Before or after a sheet of the same workbook.
    void Move(const Arguments& places);
    // As "Name (2)", which becomes the active sheet.
    void Copy(const Arguments& places);
    void Select(const Arguments& replace);
    void Activate();
    LONG Index();
    LONG Type();
    IDispatch* Next();
    IDispatch* Previous();

    IDispatch* Range(const Arguments& corners);
    IDispatch* Cells();
    IDispatch* Rows();
    IDispatch* Columns();
    IDispatch* UsedRange();
    IDispatch* Names();
    double StandardWidth();
    void SetStandardWidth(const Argument& value);
    double StandardHeight();

    IDispatch* PageSetup();
    IDispatch* HPageBreaks();
    IDispatch* VPageBreaks();
    bool DisplayPageBreaks();
    void SetDisplayPageBreaks(const Argument& value);
    void ResetAllPageBreaks();

protected:
    SessionRef TheSession() const override { return SessionOf(m_sheet); }
    BookState* ChangedBook() const override { return m_sheet->book; }

private:
    std::size_t Place() const;
    IDispatch* Neighbour(std::size_t index) const;

    SheetRef m_sheet;
};

class SheetsObject final : public ModelObject
{
public:
    explicit SheetsObject(BookRef book) : m_book(std::move(book)) {}
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
    IDispatch* Parent() override;

    // Before the active sheet unless told; the new sheet becomes active. Worksheets only.
    IDispatch* Add(const Arguments& arguments);
    // By number or name, the name without case.
    IDispatch* Item(const Arguments& index);
    LONG Count();
    IUnknown* NewEnum();

protected:
    SessionRef TheSession() const override { return SessionOf(m_book); }
    BookState* ChangedBook() const override { return m_book.get(); }

private:
    BookRef m_book;
};

} // namespace zek::office
