// What one started server is: its settings and its open workbooks.
//
// Automation objects hold a Session alive through references to it or to what is in it, so that none of
// them dangles; after a workbook was closed or a sheet deleted, what refers to it refuses with an
// AutomationError.
#pragma once

#include "automation/AutomationError.h"
#include "spreadsheet/model/Workbook.h"

#include <memory>
#include <string>
#include <vector>

namespace zek::office {

class Session;
struct BookState;

struct SheetState {
    BookState* book = nullptr;
    Sheet* sheet = nullptr; // null: deleted, or the workbook is closed
};

struct BookState {
    Session* session = nullptr;
    std::unique_ptr<Workbook> model; // null: closed
    std::string name;                // "Book1"; once saved the file's name with its ending
    std::string folder;              // Win32 path; empty: never saved
    bool saved = true;
    bool windowVisible = true;
    LONG windowState = 0; // XlWindowState; 0: the application's
    std::string caption;  // empty: the name
    std::vector<std::unique_ptr<SheetState>> sheets;

    // The folder's path and the name; the name alone when it was never saved.
    std::string FullName() const;
};

using SessionRef = std::shared_ptr<Session>;
using BookRef = std::shared_ptr<BookState>;
using SheetRef = std::shared_ptr<SheetState>;

class Session : public std::enable_shared_from_this<Session>
{
public:
    // --- Workbooks, in the order in which they were opened ---

    std::size_t BookCount() const { return m_open.size(); }
    BookRef BookAt(std::size_t index);
    // By name with or without its ending, without case; null when there is none.
    BookRef FindBook(std::string_view name);
    // A workbook with `sheets` empty sheets, named "Book1", "Book2", ...; becomes the active one.
    BookRef AddBook(LONG sheets);
    void CloseBook(BookState& book);
    void CloseAll();
    // Null when none is open.
    BookRef ActiveBook();
    void SetActiveBook(BookState& book);

    // The state of a sheet of an open workbook.
    SheetRef StateOf(BookState& book, Sheet& sheet);
    SheetRef ActiveSheet();
    // Its objects refuse from now on.
    void Forget(BookState& book, const Sheet& sheet);

    // --- Settings of the application ---

    bool displayAlerts = true;
    bool visible = false;
    bool screenUpdating = true;
    bool interactive = true;
    bool userControl = false;
    LONG windowState;
    LONG calculation;
    LONG sheetsInNewWorkbook = 3;
    LONG cutCopyMode = 0;
    std::string caption = "Microsoft Excel";
    std::string standardFont = "Calibri";
    double standardFontSize = 11;

    Session();

private:
    BookRef RefTo(BookState& book) { return {shared_from_this(), &book}; }

    std::vector<std::unique_ptr<BookState>> m_books; // closed ones too: objects may still refer to them
    std::vector<BookState*> m_open;
    BookState* m_active = nullptr;
    unsigned m_lastNumber = 0;
};

// The model behind a reference; throws AutomationError when it is gone.
Workbook& Live(const BookRef& book);
Sheet& Live(const SheetRef& sheet);

// The workbook that a sheet's reference belongs to.
BookRef BookOf(const SheetRef& sheet);
SessionRef SessionOf(const BookRef& book);
SessionRef SessionOf(const SheetRef& sheet);

} // namespace zek::office
