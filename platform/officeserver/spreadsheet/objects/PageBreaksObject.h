// HPageBreaks and VPageBreaks: where a sheet's pages end; HPageBreak and VPageBreak: one such place.
#pragma once

#include "spreadsheet/objects/ModelObject.h"

#include <vector>

namespace zek::office {

enum class PageBreakKind { Rows, Columns };

struct PagePlace {
    std::uint32_t at = 0; // the row or column that begins a page
    bool manual = false;
};

// The manual breaks, and the automatic ones that the paper makes necessary, in order. The automatic ones are
// estimated from the sizes of rows and columns; there is none when the sheet is fitted to pages.
std::vector<PagePlace> PagePlaces(const Sheet& sheet, PageBreakKind kind);

class PageBreakObject final : public ModelObject
{
public:
    PageBreakObject(SheetRef sheet, PageBreakKind kind, std::uint32_t at)
        : m_sheet(std::move(sheet)), m_kind(kind), m_at(at)
    {
    }
    const MemberTable& Table() const override { return Members(m_kind); }
    static const MemberTable& Members(PageBreakKind kind);
    IDispatch* Parent() override;

    IDispatch* Location();
    // Moves the break there, which makes it a manual one.
    void SetLocation(const Argument& value);
    LONG Type();
    void SetType(const Argument& value);
    // Automatic breaks stay.
    void Delete();

protected:
    SessionRef TheSession() const override { return SessionOf(m_sheet); }
    BookState* ChangedBook() const override { return m_sheet->book; }

private:
    std::set<std::uint32_t>& Manual() const;

    SheetRef m_sheet;
    PageBreakKind m_kind;
    std::uint32_t m_at;
};

class PageBreaksObject final : public ModelObject
{
public:
    PageBreaksObject(SheetRef sheet, PageBreakKind kind) : m_sheet(std::move(sheet)), m_kind(kind) {}
    const MemberTable& Table() const override { return Members(m_kind); }
    static const MemberTable& Members(PageBreakKind kind);
    IDispatch* Parent() override;

    // Above, or to the left of, a range's first cell.
    IDispatch* Add(const Arguments& arguments);
    IDispatch* Item(const Arguments& index);
    LONG Count();
    IUnknown* NewEnum();

protected:
    SessionRef TheSession() const override { return SessionOf(m_sheet); }
    BookState* ChangedBook() const override { return m_sheet->book; }

private:
    SheetRef m_sheet;
    PageBreakKind m_kind;
};

} // namespace zek::office
