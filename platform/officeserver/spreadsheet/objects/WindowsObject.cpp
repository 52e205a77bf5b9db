#include "spreadsheet/objects/WindowsObject.h"

#include "spreadsheet/model/Unicode.h"
#include "spreadsheet/objects/ApplicationObject.h"
#include "spreadsheet/objects/Enumerator.h"
#include "spreadsheet/objects/RangeObject.h"
#include "spreadsheet/objects/SheetsObject.h"
#include "spreadsheet/objects/WorkbooksObject.h"

#include <algorithm>

namespace zek::office {
namespace {

constexpr LONG kLeastZoom = 10;
constexpr LONG kMostZoom = 400;

} // namespace

IDispatch* WindowObject::Parent()
{
    return new WorkbookObject(m_book);
}

SheetRef WindowObject::Shown() const
{
    Workbook& model = Live(m_book);
    return SessionOf(m_book)->StateOf(*m_book, model.SheetAt(model.ActiveSheet()));
}

std::uint32_t WindowObject::Position(const Argument& value, LONG least, std::uint32_t most)
{
    const LONG position = value.Long();
    if (position < least || position > static_cast<LONG>(most))
        throw AutomationError();
    return static_cast<std::uint32_t>(position);
}

LONG WindowObject::GetView()
{
    return View().pageBreakPreview ? xl::kPageBreakPreview : xl::kNormalView;
}

void WindowObject::SetView(const Argument& value)
{
    const LONG view = value.Long();
    if (view != xl::kNormalView && view != xl::kPageBreakPreview)
        throw AutomationError();
    View().pageBreakPreview = view == xl::kPageBreakPreview;
}

LONG WindowObject::Zoom()
{
    return View().zoom;
}

void WindowObject::SetZoom(const Argument& value)
{
    const LONG zoom = value.Long();
    if (value.IsBoolean() || zoom < kLeastZoom || zoom > kMostZoom)
        throw AutomationError();
    View().zoom = zoom;
}

LONG WindowObject::WindowState()
{
    Live(m_book);
    return m_book->windowState == 0 ? SessionOf(m_book)->windowState : m_book->windowState;
}

void WindowObject::SetWindowState(const Argument& value)
{
    Live(m_book);
    m_book->windowState = WindowStateFrom(value);
}

bool WindowObject::FreezePanes()
{
    return View().frozenRows > 0 || View().frozenColumns > 0;
}

void WindowObject::SetFreezePanes(const Argument& value)
{
    SheetView& view = View();
    if (!value.Flag()) {
        view.frozenRows = view.frozenColumns = 0;
    } else if (!FreezePanes()) {
        view.frozenRows = view.activeRow - std::min(view.activeRow, view.scrollRow);
        view.frozenColumns = view.activeColumn - std::min(view.activeColumn, view.scrollColumn);
    }
}

bool WindowObject::Visible()
{
    Live(m_book);
    return m_book->windowVisible;
}

void WindowObject::SetVisible(const Argument& value)
{
    Live(m_book);
    m_book->windowVisible = value.Flag();
}

std::string WindowObject::Caption()
{
    Live(m_book);
    return m_book->caption.empty() ? m_book->name : m_book->caption;
}

void WindowObject::SetCaption(const Argument& value)
{
    Live(m_book);
    m_book->caption = value.Text();
}

IDispatch* WindowObject::ActiveSheet()
{
    return new WorksheetObject(Shown());
}

IDispatch* WindowObject::ActiveCell()
{
    const SheetView& view = View();
    return new RangeObject(Shown(), Block::Cell(view.activeRow, view.activeColumn));
}

IDispatch* WindowObject::Selection()
{
    return new RangeObject(Shown(), View().selection);
}

bool WindowObject::Activate()
{
    Live(m_book);
    SessionOf(m_book)->SetActiveBook(*m_book);
    return true;
}

// The only window of a workbook: the workbook closes with it.
bool WindowObject::Close(const Arguments& arguments)
{
    WorkbookObject* const book = new WorkbookObject(m_book);
    Value holder;
    StoreResult(*holder, static_cast<IDispatch*>(book));
    book->Close(arguments);
    return true;
}

const MemberTable& WindowObject::Members()
{
    using W = WindowObject;
    using V = SheetView;
    static const MemberTable table = ModelTable(
        "Window",
        {
            {"DisplayZeros", 0x289, Property<&W::GetFlag<&V::zeros>, &W::SetFlag<&V::zeros>>()},
            {"DisplayGridlines", 0x285, Property<&W::GetFlag<&V::gridlines>, &W::SetFlag<&V::gridlines>>()},
            {"DisplayHeadings", 0x286, Property<&W::GetFlag<&V::headings>, &W::SetFlag<&V::headings>>()},
            {"View", 0x4AA, Property<&W::GetView, &W::SetView>()},
            {"Zoom", 0x297, Property<&W::Zoom, &W::SetZoom>()},
            {"WindowState", 0x18C, Property<&W::WindowState, &W::SetWindowState>()},
            {"FreezePanes", 0x28A, Property<&W::FreezePanes, &W::SetFreezePanes>()},
            {"SplitRow", 0x294,
             Property<&W::GetCount<&V::frozenRows>, &W::SetCount<&V::frozenRows, kRowCount>>()},
            {"SplitColumn", 0x292,
             Property<&W::GetCount<&V::frozenColumns>, &W::SetCount<&V::frozenColumns, kColumnCount>>()},
            {"ScrollRow", 0x28F,
             Property<&W::GetPlace<&V::scrollRow>, &W::SetPlace<&V::scrollRow, kRowCount>>()},
            {"ScrollColumn", 0x28E,
             Property<&W::GetPlace<&V::scrollColumn>, &W::SetPlace<&V::scrollColumn, kColumnCount>>()},
            {"Visible", 0x22E, Property<&W::Visible, &W::SetVisible>()},
            {"Caption", 0x8B, Property<&W::Caption, &W::SetCaption>()},
            {"ActiveSheet", 0x133, Get<&W::ActiveSheet>()},
            {"ActiveCell", 0x131, Get<&W::ActiveCell>()},
            {"Selection", 0x93, Get<&W::Selection>()},
            {"RangeSelection", 0x4A5, Get<&W::Selection>()},
            {"Activate", 0x130, Call<&W::Activate>()},
            {"Close", 0x115, Call<&W::Close>(0, 3)},
        });
    return table;
}

IDispatch* WindowsObject::Parent()
{
    if (m_book)
        return new WorkbookObject(m_book);
    return new ApplicationObject(m_session);
}

std::vector<BookRef> WindowsObject::Books() const
{
    if (m_book) {
        Live(m_book);
        return {m_book};
    }
    std::vector<BookRef> books;
    for (std::size_t i = 0; i < m_session->BookCount(); ++i)
        books.push_back(m_session->BookAt(i));
    return books;
}

IDispatch* WindowsObject::Item(const Arguments& index)
{
    const std::vector<BookRef> books = Books();
    if (index[0].IsText()) {
        const std::string title = index[0].Text();
        for (const BookRef& book : books)
            if (EqualsNoCase(book->caption.empty() ? book->name : book->caption, title))
                return new WindowObject(book);
        throw AutomationError::BadIndex();
    }
    const LONG number = index[0].Long();
    if (number < 1 || static_cast<std::size_t>(number) > books.size())
        throw AutomationError::BadIndex();
    return new WindowObject(books[static_cast<std::size_t>(number) - 1]);
}

LONG WindowsObject::Count()
{
    return static_cast<LONG>(Books().size());
}

IUnknown* WindowsObject::NewEnum()
{
    return new Enumerator(Books().size(), [books = Books()](std::uint64_t index) -> IDispatch* {
        return new WindowObject(books[index]);
    });
}

const MemberTable& WindowsObject::Members()
{
    using W = WindowsObject;
    static const MemberTable table =
        ModelTable("Windows", {
                                  {"Item", 0xAA, Get<&W::Item>(1, 1)},
                                  {"_Default", 0x0, Get<&W::Item>(1, 1)},
                                  {"Count", 0x76, Get<&W::Count>()},
                                  {"_NewEnum", DISPID_NEWENUM, Get<&W::NewEnum>()},
                              });
    return table;
}

} // namespace zek::office
