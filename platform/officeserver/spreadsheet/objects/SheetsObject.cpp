#include "spreadsheet/objects/SheetsObject.h"

#include "spreadsheet/objects/Enumerator.h"
#include "spreadsheet/objects/NamesObject.h"
#include "spreadsheet/objects/PageBreaksObject.h"
#include "spreadsheet/objects/PageSetupObject.h"
#include "spreadsheet/objects/RangeObject.h"
#include "spreadsheet/objects/RangeReference.h"
#include "spreadsheet/objects/WorkbooksObject.h"

namespace zek::office {
namespace {

constexpr LONG kMostNewSheets = 255;

const char* const kLastVisible = "A workbook must contain at least one visible worksheet. To hide, delete, "
                                 "or move the selected sheet, you "
                                 "must first insert a new sheet or unhide a sheet that is already hidden.";
const char* const kOtherWorkbook = "Moving or copying a sheet to another workbook is not available.";

const char* FaultText(SheetNameFault fault)
{
    return fault == SheetNameFault::Taken
               ? "Cannot rename a sheet to the same name as another sheet, a referenced object library or a "
                 "workbook referenced by Visual Basic."
               : "You typed an invalid name for a sheet or chart. The name may have 1 to 31 characters and "
                 "none "
                 "of these: : \\ / ? * [ ]";
}

// The position that the sheets named by Before and After describe; `fallback` when both are missing.
std::size_t PlaceFrom(const BookRef& book, const Arguments& places, std::size_t fallback)
{
    const bool after = places[0].IsMissing();
    const Argument place = after ? places[1] : places[0];
    if (place.IsMissing())
        return fallback;
    if (!after && !places[1].IsMissing())
        throw AutomationError();
    const auto* const sheet = dynamic_cast<WorksheetObject*>(place.Object());
    if (!sheet)
        place.Refuse();
    const std::size_t index = Live(book).IndexOf(Live(sheet->TheSheet()));
    if (index == Live(book).SheetCount())
        throw AutomationError(kOtherWorkbook);
    return after ? index + 1 : index;
}

} // namespace

IDispatch* WorksheetObject::Parent()
{
    return new WorkbookObject(BookOf(m_sheet));
}

std::size_t WorksheetObject::Place() const
{
    const Sheet& sheet = Live(m_sheet);
    return sheet.Book().IndexOf(sheet);
}

std::string WorksheetObject::Name()
{
    return Live(m_sheet).Name();
}

void WorksheetObject::SetName(const Argument& value)
{
    Sheet& sheet = Live(m_sheet);
    const std::string name = value.Text();
    const SheetNameFault fault = sheet.Book().CheckSheetName(name, &sheet);
    if (fault != SheetNameFault::None)
        throw AutomationError(FaultText(fault));
    sheet.Book().RenameSheet(sheet, name);
}

LONG WorksheetObject::Visible()
{
    switch (Live(m_sheet).visibility) {
    case SheetVisibility::Visible:
        return xl::kSheetVisible;
    case SheetVisibility::Hidden:
        return xl::kSheetHidden;
    default:
        return xl::kSheetVeryHidden;
    }
}

void WorksheetObject::SetVisible(const Argument& value)
{
    Sheet& sheet = Live(m_sheet);
    Workbook& book = sheet.Book();
    const LONG number = value.Long();
    if (number != xl::kSheetHidden && number != xl::kSheetVeryHidden && number != xl::kSheetVisible &&
        number != 1)
        throw AutomationError();
    const SheetVisibility wanted = number == xl::kSheetHidden       ? SheetVisibility::Hidden
                                   : number == xl::kSheetVeryHidden ? SheetVisibility::VeryHidden
                                                                    : SheetVisibility::Visible;
    if (wanted != SheetVisibility::Visible && sheet.visibility == SheetVisibility::Visible &&
        book.VisibleSheets() == 1)
        throw AutomationError(kLastVisible);
    book.SetVisibility(sheet, wanted);
}

void WorksheetObject::Delete()
{
    Sheet& sheet = Live(m_sheet);
    Workbook& book = sheet.Book();
    if (sheet.visibility == SheetVisibility::Visible && book.VisibleSheets() == 1)
        throw AutomationError(kLastVisible);
    SessionOf(m_sheet)->Forget(*m_sheet->book, sheet);
    book.RemoveSheet(book.IndexOf(sheet));
}

void WorksheetObject::Move(const Arguments& places)
{
    Workbook& book = Live(m_sheet).Book();
    const std::size_t from = Place();
    const std::size_t before = PlaceFrom(BookOf(m_sheet), places, book.SheetCount() + 1);
    if (before > book.SheetCount())
        throw AutomationError(kOtherWorkbook);
    const std::size_t to = before > from ? before - 1 : before;
    book.MoveSheet(from, to);
    if (Live(m_sheet).visibility == SheetVisibility::Visible)
        book.SetActiveSheet(to);
}

void WorksheetObject::Copy(const Arguments& places)
{
    const Sheet& sheet = Live(m_sheet);
    Workbook& book = sheet.Book();
    const std::size_t index = PlaceFrom(BookOf(m_sheet), places, book.SheetCount() + 1);
    if (index > book.SheetCount())
        throw AutomationError(kOtherWorkbook);
    book.CopySheet(sheet, index);
    book.SetActiveSheet(index);
}

void WorksheetObject::Select(const Arguments& replace)
{
    Sheet& sheet = Live(m_sheet);
    if (sheet.visibility != SheetVisibility::Visible)
        throw AutomationError();
    if (replace[0].FlagOr(true))
        return Activate();
    sheet.selected = true;
}

void WorksheetObject::Activate()
{
    if (Live(m_sheet).visibility != SheetVisibility::Visible)
        throw AutomationError();
    Live(m_sheet).Book().SetActiveSheet(Place());
}

LONG WorksheetObject::Index()
{
    return static_cast<LONG>(Place()) + 1;
}

LONG WorksheetObject::Type()
{
    return xl::kWorksheet;
}

// Null at the end of the row of tabs.
IDispatch* WorksheetObject::Neighbour(std::size_t index) const
{
    Workbook& book = Live(m_sheet).Book();
    if (index >= book.SheetCount())
        return nullptr;
    return new WorksheetObject(SessionOf(m_sheet)->StateOf(*m_sheet->book, book.SheetAt(index)));
}

IDispatch* WorksheetObject::Next()
{
    return Neighbour(Place() + 1);
}

IDispatch* WorksheetObject::Previous()
{
    return Neighbour(Place() - 1);
}

IDispatch* WorksheetObject::Range(const Arguments& corners)
{
    Live(m_sheet);
    Block block;
    if (corners[0].IsText() && corners[1].IsMissing() && ParseWholeArea(corners[0].TextView(), block))
        return new RangeObject(m_sheet, block);
    const CellsOfSheet cells = ResolveCorners(m_sheet, corners[0], corners[1]);
    // Another sheet's cells are asked for through that sheet.
    if (cells.sheet != m_sheet)
        throw AutomationError();
    return new RangeObject(cells.sheet, cells.areas);
}

IDispatch* WorksheetObject::Cells()
{
    return new RangeObject(m_sheet, Block::WholeSheet());
}

IDispatch* WorksheetObject::Rows()
{
    return new RangeObject(m_sheet, Block::WholeSheet(), RangeObject::Unit::Rows);
}

IDispatch* WorksheetObject::Columns()
{
    return new RangeObject(m_sheet, Block::WholeSheet(), RangeObject::Unit::Columns);
}

IDispatch* WorksheetObject::UsedRange()
{
    return new RangeObject(m_sheet, Live(m_sheet).UsedBlock());
}

IDispatch* WorksheetObject::Names()
{
    return new NamesObject(BookOf(m_sheet));
}

double WorksheetObject::StandardWidth()
{
    return Live(m_sheet).DefaultColumnWidth();
}

void WorksheetObject::SetStandardWidth(const Argument& value)
{
    const double width = value.Number();
    if (!(width >= 0 && width <= kMaxColumnWidth))
        throw AutomationError();
    Live(m_sheet).SetDefaultColumnWidth(width);
}

double WorksheetObject::StandardHeight()
{
    return Live(m_sheet).DefaultRowHeight();
}

IDispatch* WorksheetObject::PageSetup()
{
    return new PageSetupObject(m_sheet);
}

IDispatch* WorksheetObject::HPageBreaks()
{
    return new PageBreaksObject(m_sheet, PageBreakKind::Rows);
}

IDispatch* WorksheetObject::VPageBreaks()
{
    return new PageBreaksObject(m_sheet, PageBreakKind::Columns);
}

bool WorksheetObject::DisplayPageBreaks()
{
    return Live(m_sheet).view.showPageBreaks;
}

void WorksheetObject::SetDisplayPageBreaks(const Argument& value)
{
    Live(m_sheet).view.showPageBreaks = value.Flag();
}

void WorksheetObject::ResetAllPageBreaks()
{
    Live(m_sheet).rowBreaks.clear();
    Live(m_sheet).columnBreaks.clear();
}

const MemberTable& WorksheetObject::Members()
{
    using W = WorksheetObject;
    static const MemberTable table = ModelTable(
        "Worksheet",
        {
            {"Name", 0x6E, Property<&W::Name, &W::SetName>()},
            {"Visible", 0x22E, Property<&W::Visible, &W::SetVisible>()},
            {"Delete", 0x75, Call<&W::Delete>()},
            {"Move", 0x27D, Call<&W::Move>(0, 2)},
            {"Copy", 0x227, Call<&W::Copy>(0, 2)},
            {"Select", 0xEB, Call<&W::Select>(0, 1)},
            {"Activate", 0x130, Call<&W::Activate>()},
            {"Index", 0x1E6, Get<&W::Index>()},
            {"Type", 0x6C, Get<&W::Type>()},
            {"Next", 0x1F6, Get<&W::Next>()},
            {"Previous", 0x1F7, Get<&W::Previous>()},
            {"Range", 0xC5, Get<&W::Range>(1, 2)},
            {"Cells", 0xEE, Get<&W::Cells>()},
            {"Rows", 0x102, Get<&W::Rows>()},
            {"Columns", 0xF1, Get<&W::Columns>()},
            {"UsedRange", 0x19C, Get<&W::UsedRange>()},
            {"Names", 0x1BA, Get<&W::Names>()},
            {"StandardWidth", 0x198, Property<&W::StandardWidth, &W::SetStandardWidth>()},
            {"StandardHeight", 0x197, Get<&W::StandardHeight>()},
            {"PageSetup", 0x3E6, Get<&W::PageSetup>()},
            {"HPageBreaks", 0x58A, Get<&W::HPageBreaks>()},
            {"VPageBreaks", 0x58B, Get<&W::VPageBreaks>()},
            {"DisplayPageBreaks", 0x59B, Property<&W::DisplayPageBreaks, &W::SetDisplayPageBreaks>()},
            {"ResetAllPageBreaks", 0x592, Call<&W::ResetAllPageBreaks>()},
        });
    return table;
}

IDispatch* SheetsObject::Parent()
{
    return new WorkbookObject(m_book);
}

IDispatch* SheetsObject::Add(const Arguments& arguments)
{
    Workbook& book = Live(m_book);
    const LONG count = arguments[2].LongOr(1);
    if (count < 1 || count > kMostNewSheets || arguments[3].LongOr(xl::kWorksheet) != xl::kWorksheet)
        throw AutomationError();
    const std::size_t place = PlaceFrom(m_book, arguments, book.ActiveSheet());
    for (LONG i = 0; i < count; ++i)
        book.AddSheet(book.NewSheetName(), place);
    book.SetActiveSheet(place);
    return new WorksheetObject(SessionOf(m_book)->StateOf(*m_book, book.SheetAt(place)));
}

IDispatch* SheetsObject::Item(const Arguments& index)
{
    Workbook& book = Live(m_book);
    Sheet* sheet = nullptr;
    if (index[0].IsText()) {
        sheet = book.FindSheet(index[0].Text());
    } else {
        const LONG number = index[0].Long();
        if (number >= 1 && static_cast<std::size_t>(number) <= book.SheetCount())
            sheet = &book.SheetAt(static_cast<std::size_t>(number) - 1);
    }
    if (!sheet)
        throw AutomationError::BadIndex();
    return new WorksheetObject(SessionOf(m_book)->StateOf(*m_book, *sheet));
}

LONG SheetsObject::Count()
{
    return static_cast<LONG>(Live(m_book).SheetCount());
}

IUnknown* SheetsObject::NewEnum()
{
    return new Enumerator(Live(m_book).SheetCount(), [book = m_book](std::uint64_t index) -> IDispatch* {
        Workbook& model = Live(book);
        if (index >= model.SheetCount())
            throw AutomationError();
        return new WorksheetObject(SessionOf(book)->StateOf(*book, model.SheetAt(index)));
    });
}

const MemberTable& SheetsObject::Members()
{
    using S = SheetsObject;
    static const MemberTable table =
        ModelTable("Sheets", {
                                 {"Add", 0xB5, Call<&S::Add>(0, 4)},
                                 {"Item", 0xAA, Get<&S::Item>(1, 1)},
                                 {"_Default", 0x0, Get<&S::Item>(1, 1)},
                                 {"Count", 0x76, Get<&S::Count>()},
                                 {"_NewEnum", DISPID_NEWENUM, Get<&S::NewEnum>()},
                             });
    return table;
}

} // namespace zek::office
