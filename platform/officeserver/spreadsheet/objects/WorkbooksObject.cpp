#include "spreadsheet/objects/WorkbooksObject.h"

#include "spreadsheet/model/Unicode.h"
#include "spreadsheet/objects/ApplicationObject.h"
#include "spreadsheet/objects/BookFile.h"
#include "spreadsheet/objects/Enumerator.h"
#include "spreadsheet/objects/NamesObject.h"
#include "spreadsheet/objects/SheetsObject.h"
#include "spreadsheet/objects/StylesObject.h"
#include "spreadsheet/objects/WindowsObject.h"

#include <algorithm>
#include <iterator>

namespace zek::office {
namespace {

constexpr UINT kSaveAsArguments = 12;
constexpr UINT kOpenArguments = 15;
// Numbers of formats that are written as Office Open XML: the usual one, the old binary one (hosts ask for
// it with their .xls names), and Office Open XML itself without and with macros.
constexpr LONG kWrittenFormats[] = {xl::kWorkbookNormal, 56, xl::kOpenXmlWorkbook,
                                    xl::kOpenXmlWorkbookMacroEnabled};

void RefuseOtherFormats(const Arguments& arguments)
{
    const LONG format = arguments[1].LongOr(xl::kWorkbookNormal);
    if (std::ranges::find(kWrittenFormats, format) == std::end(kWrittenFormats))
        throw AutomationError("This file format is not available; workbooks are saved as Office Open XML.");
    for (const UINT password : {2u, 3u})
        if (!arguments[password].IsMissing() && !arguments[password].Text().empty())
            throw AutomationError("Saving with a password is not available.");
}

void SaveTo(const BookRef& book, std::string_view path)
{
    Live(book);
    const BookFile file = LocateBookFile(path);
    const BookRef other = SessionOf(book)->FindBook(file.name);
    if (other && other != book && EqualsNoCase(other->name, file.name))
        throw AutomationError("You cannot save this workbook with the same name as another open workbook.");
    WriteBook(*book, file);
    book->name = file.name;
    book->folder = file.folder;
    book->saved = true;
}

} // namespace

IDispatch* WorkbookObject::Parent()
{
    return new ApplicationObject(SessionOf(m_book));
}

std::string WorkbookObject::Name()
{
    Live(m_book);
    return m_book->name;
}

std::string WorkbookObject::FullName()
{
    Live(m_book);
    return m_book->FullName();
}

std::string WorkbookObject::Path()
{
    Live(m_book);
    return m_book->folder;
}

bool WorkbookObject::Saved()
{
    Live(m_book);
    return m_book->saved;
}

void WorkbookObject::SetSaved(const Argument& value)
{
    Live(m_book);
    m_book->saved = value.Flag();
}

bool WorkbookObject::ReadOnly()
{
    Live(m_book);
    return false;
}

LONG WorkbookObject::FileFormat()
{
    Live(m_book);
    return xl::kOpenXmlWorkbook;
}

IDispatch* WorkbookObject::Sheets()
{
    Live(m_book);
    return new SheetsObject(m_book);
}

IDispatch* WorkbookObject::ActiveSheet()
{
    Workbook& model = Live(m_book);
    return new WorksheetObject(SessionOf(m_book)->StateOf(*m_book, model.SheetAt(model.ActiveSheet())));
}

IDispatch* WorkbookObject::Styles()
{
    Live(m_book);
    return new StylesObject(m_book);
}

IDispatch* WorkbookObject::Names()
{
    Live(m_book);
    return new NamesObject(m_book);
}

IDispatch* WorkbookObject::Windows()
{
    Live(m_book);
    return new WindowsObject(SessionOf(m_book), m_book);
}

void WorkbookObject::Activate()
{
    Live(m_book);
    SessionOf(m_book)->SetActiveBook(*m_book);
}

void WorkbookObject::Save()
{
    SaveTo(m_book, m_book->FullName());
}

void WorkbookObject::SaveAs(const Arguments& arguments)
{
    RefuseOtherFormats(arguments);
    SaveTo(m_book, arguments[0].IsMissing() ? m_book->FullName() : arguments[0].Text());
}

void WorkbookObject::SaveCopyAs(const Arguments& arguments)
{
    Live(m_book);
    WriteBook(*m_book, LocateBookFile(arguments[0].Text()));
}

void WorkbookObject::Close(const Arguments& arguments)
{
    Live(m_book);
    if (arguments[0].FlagOr(false)) {
        const bool named = !arguments[1].IsMissing() && m_book->folder.empty();
        if (!m_book->saved || named)
            SaveTo(m_book, named ? arguments[1].Text() : m_book->FullName());
    }
    SessionOf(m_book)->CloseBook(*m_book);
}

const MemberTable& WorkbookObject::Members()
{
    using W = WorkbookObject;
    static const MemberTable table =
        ModelTable("Workbook", {
                                   {"Name", 0x6E, Get<&W::Name>()},
                                   {"FullName", 0x121, Get<&W::FullName>()},
                                   {"Path", 0x123, Get<&W::Path>()},
                                   {"Saved", 0x12A, Property<&W::Saved, &W::SetSaved>()},
                                   {"ReadOnly", 0x128, Get<&W::ReadOnly>()},
                                   {"FileFormat", 0x120, Get<&W::FileFormat>()},
                                   {"Sheets", 0x1E5, Get<&W::Sheets>()},
                                   {"Worksheets", 0x1EE, Get<&W::Sheets>()},
                                   {"ActiveSheet", 0x133, Get<&W::ActiveSheet>()},
                                   {"Styles", 0x1ED, Get<&W::Styles>()},
                                   {"Names", 0x1BA, Get<&W::Names>()},
                                   {"Windows", 0x1AE, Get<&W::Windows>()},
                                   {"Activate", 0x130, Call<&W::Activate>()},
                                   {"Save", 0x11B, Call<&W::Save>()},
                                   {"SaveAs", 0x11C, Call<&W::SaveAs>(0, kSaveAsArguments)},
                                   {"SaveCopyAs", 0xAF, Call<&W::SaveCopyAs>(1, 1)},
                                   {"Close", 0x115, Call<&W::Close>(0, 3)},
                               });
    return table;
}

IDispatch* WorkbooksObject::Parent()
{
    return new ApplicationObject(m_session);
}

IDispatch* WorkbooksObject::Add(const Arguments& arguments)
{
    const Argument model = arguments[0];
    if (model.IsText())
        throw AutomationError("Templates are not available.");
    if (!model.IsMissing() && model.Long() != xl::kWorksheet)
        throw AutomationError();
    return new WorkbookObject(m_session->AddBook(model.IsMissing() ? m_session->sheetsInNewWorkbook : 1));
}

IDispatch* WorkbooksObject::Open(const Arguments& arguments)
{
    throw AutomationError("'" + arguments[0].Text() +
                          "' cannot be opened: this server does not read workbooks.");
}

IDispatch* WorkbooksObject::Item(const Arguments& index)
{
    BookRef book;
    if (index[0].IsText()) {
        book = m_session->FindBook(index[0].Text());
    } else {
        const LONG number = index[0].Long();
        if (number >= 1 && static_cast<std::size_t>(number) <= m_session->BookCount())
            book = m_session->BookAt(static_cast<std::size_t>(number) - 1);
    }
    if (!book)
        throw AutomationError::BadIndex();
    return new WorkbookObject(book);
}

LONG WorkbooksObject::Count()
{
    return static_cast<LONG>(m_session->BookCount());
}

void WorkbooksObject::Close()
{
    m_session->CloseAll();
}

IUnknown* WorkbooksObject::NewEnum()
{
    return new Enumerator(m_session->BookCount(), [session = m_session](std::uint64_t index) -> IDispatch* {
        if (index >= session->BookCount())
            throw AutomationError();
        return new WorkbookObject(session->BookAt(index));
    });
}

const MemberTable& WorkbooksObject::Members()
{
    using W = WorkbooksObject;
    static const MemberTable table =
        ModelTable("Workbooks", {
                                    {"Add", 0xB5, Call<&W::Add>(0, 1)},
                                    {"Open", 0x2AA, Call<&W::Open>(1, kOpenArguments)},
                                    {"Item", 0xAA, Get<&W::Item>(1, 1)},
                                    {"_Default", 0x0, Get<&W::Item>(1, 1)},
                                    {"Count", 0x76, Get<&W::Count>()},
                                    {"Close", 0x115, Call<&W::Close>()},
                                    {"_NewEnum", DISPID_NEWENUM, Get<&W::NewEnum>()},
                                });
    return table;
}

} // namespace zek::office
