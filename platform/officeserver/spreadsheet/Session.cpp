#include "spreadsheet/Session.h"

#include "spreadsheet/Constants.h"
#include "spreadsheet/model/Unicode.h"

#include <algorithm>

namespace zek::office {
namespace {

const char* const kGone = "The object invoked has disconnected from its clients.";

std::string_view WithoutEnding(std::string_view name)
{
    return name.substr(0, std::min(name.size(), name.rfind('.')));
}

} // namespace

std::string BookState::FullName() const
{
    if (folder.empty())
        return name;
    return folder.back() == '\\' ? folder + name : folder + '\\' + name;
}

Session::Session() : windowState(xl::kNormal), calculation(xl::kCalculationAutomatic)
{
}

BookRef Session::BookAt(std::size_t index)
{
    return RefTo(*m_open[index]);
}

BookRef Session::FindBook(std::string_view name)
{
    const auto find = [&](auto nameOf) -> BookRef {
        for (BookState* const book : m_open)
            if (EqualsNoCase(nameOf(*book), name))
                return RefTo(*book);
        return nullptr;
    };
    if (BookRef exact = find([](const BookState& book) { return std::string_view(book.name); }))
        return exact;
    return find([](const BookState& book) { return WithoutEnding(book.name); });
}

BookRef Session::AddBook(LONG sheets)
{
    auto made = std::make_unique<BookState>();
    made->session = this;
    made->model = std::make_unique<Workbook>(standardFont, standardFontSize);
    do
        made->name = "Book" + std::to_string(++m_lastNumber);
    while (FindBook(made->name));
    for (LONG i = 0; i < sheets; ++i)
        made->model->AddSheet(made->model->NewSheetName());
    m_books.push_back(std::move(made));
    m_open.push_back(m_books.back().get());
    m_active = m_open.back();
    return RefTo(*m_active);
}

void Session::CloseBook(BookState& book)
{
    std::erase(m_open, &book);
    for (const auto& state : book.sheets)
        state->sheet = nullptr;
    book.model.reset();
    if (m_active == &book)
        m_active = m_open.empty() ? nullptr : m_open.back();
}

void Session::CloseAll()
{
    while (!m_open.empty())
        CloseBook(*m_open.back());
}

BookRef Session::ActiveBook()
{
    return m_active ? RefTo(*m_active) : nullptr;
}

void Session::SetActiveBook(BookState& book)
{
    m_active = &book;
}

SheetRef Session::StateOf(BookState& book, Sheet& sheet)
{
    auto place = std::ranges::find(book.sheets, &sheet, [](const auto& state) { return state->sheet; });
    if (place == book.sheets.end()) {
        book.sheets.push_back(std::make_unique<SheetState>(SheetState{&book, &sheet}));
        place = book.sheets.end() - 1;
    }
    return {shared_from_this(), place->get()};
}

SheetRef Session::ActiveSheet()
{
    if (!m_active)
        throw AutomationError();
    Workbook& model = *m_active->model;
    return StateOf(*m_active, model.SheetAt(model.ActiveSheet()));
}

void Session::Forget(BookState& book, const Sheet& sheet)
{
    for (const auto& state : book.sheets)
        if (state->sheet == &sheet)
            state->sheet = nullptr;
}

Workbook& Live(const BookRef& book)
{
    if (!book->model)
        throw AutomationError(kGone);
    return *book->model;
}

Sheet& Live(const SheetRef& sheet)
{
    if (!sheet->sheet)
        throw AutomationError(kGone);
    return *sheet->sheet;
}

BookRef BookOf(const SheetRef& sheet)
{
    return {sheet, sheet->book};
}

SessionRef SessionOf(const BookRef& book)
{
    return book->session->shared_from_this();
}

SessionRef SessionOf(const SheetRef& sheet)
{
    return sheet->book->session->shared_from_this();
}

} // namespace zek::office
