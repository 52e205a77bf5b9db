// Windows: one for each open workbook; Window: how a workbook's active sheet is shown.
#pragma once

#include "spreadsheet/objects/ModelObject.h"

#include <string>

namespace zek::office {

class WindowObject final : public ModelObject
{
public:
    explicit WindowObject(BookRef book) : m_book(std::move(book)) {}
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
    IDispatch* Parent() override;

    template <bool SheetView::*Flag>
    bool GetFlag()
    {
        return View().*Flag;
    }
    template <bool SheetView::*Flag>
    void SetFlag(const Argument& value)
    {
        View().*Flag = value.Flag();
    }
    // Rows or columns that stay above or left of the split; first one shown, counted from 1.
    template <std::uint32_t SheetView::*Count>
    LONG GetCount()
    {
        return static_cast<LONG>(View().*Count);
    }
    template <std::uint32_t SheetView::*Count, std::uint32_t Limit>
    void SetCount(const Argument& value)
    {
        View().*Count = Position(value, 0, Limit - 1);
    }
    template <std::uint32_t SheetView::*Place>
    LONG GetPlace()
    {
        return static_cast<LONG>(View().*Place) + 1;
    }
    template <std::uint32_t SheetView::*Place, std::uint32_t Limit>
    void SetPlace(const Argument& value)
    {
        View().*Place = Position(value, 1, Limit) - 1;
    }

    // XlWindowView.
    LONG GetView();
    void SetView(const Argument& value);
    // Per cent, 10 to 400.
    LONG Zoom();
    void SetZoom(const Argument& value);
    LONG WindowState();
    void SetWindowState(const Argument& value);
    // A split is always a frozen one.
    bool FreezePanes();
    // Freezes at the split, or above and left of the active cell where there is none.
    void SetFreezePanes(const Argument& value);
    bool Visible();
    void SetVisible(const Argument& value);
    std::string Caption();
    void SetCaption(const Argument& value);
    IDispatch* ActiveSheet();
    IDispatch* ActiveCell();
    IDispatch* Selection();
    bool Activate();
    bool Close(const Arguments& arguments);

protected:
    SessionRef TheSession() const override { return SessionOf(m_book); }
    BookState* ChangedBook() const override { return m_book.get(); }

private:
    SheetRef Shown() const;
    SheetView& View() const { return Live(Shown()).view; }
    static std::uint32_t Position(const Argument& value, LONG least, std::uint32_t most);

    BookRef m_book;
};

class WindowsObject final : public ModelObject
{
public:
    // The windows of one workbook, or of all.
    explicit WindowsObject(SessionRef session, BookRef book = nullptr)
        : m_session(std::move(session)), m_book(std::move(book))
    {
    }
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
    IDispatch* Parent() override;

    // By number, or by the window's title.
    IDispatch* Item(const Arguments& index);
    LONG Count();
    IUnknown* NewEnum();

protected:
    SessionRef TheSession() const override { return m_session; }

private:
    std::vector<BookRef> Books() const;

    SessionRef m_session;
    BookRef m_book;
};

} // namespace zek::office
