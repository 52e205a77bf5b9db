#include "spreadsheet/objects/ApplicationObject.h"

#include "spreadsheet/objects/NamesObject.h"
#include "spreadsheet/objects/RangeObject.h"
#include "spreadsheet/objects/RangeReference.h"
#include "spreadsheet/objects/SheetsObject.h"
#include "spreadsheet/objects/WindowsObject.h"
#include "spreadsheet/objects/WorkbooksObject.h"

namespace zek::office {
namespace {

// The generation whose files and member identifiers the server has.
constexpr char kVersion[] = "12.0";
constexpr LONG kMostSheets = 255;
constexpr double kLargestFont = 409;
constexpr double kCentimetersPerInch = 2.54;

} // namespace

LONG WindowStateFrom(const Argument& value)
{
    const LONG state = value.Long();
    if (state != xl::kMaximized && state != xl::kMinimized && state != xl::kNormal)
        throw AutomationError();
    return state;
}

IDispatch* ApplicationObject::Parent()
{
    return new ApplicationObject(m_session);
}

std::string ApplicationObject::Name()
{
    return "Microsoft Excel";
}

std::string ApplicationObject::Version()
{
    return kVersion;
}

BookRef ApplicationObject::Active() const
{
    const BookRef book = m_session->ActiveBook();
    if (!book)
        throw AutomationError();
    return book;
}

IDispatch* ApplicationObject::Workbooks()
{
    return new WorkbooksObject(m_session);
}

IDispatch* ApplicationObject::Windows()
{
    return new WindowsObject(m_session);
}

IDispatch* ApplicationObject::ActiveWorkbook()
{
    const BookRef book = m_session->ActiveBook();
    return book ? new WorkbookObject(book) : nullptr;
}

IDispatch* ApplicationObject::ActiveWindow()
{
    const BookRef book = m_session->ActiveBook();
    return book ? new WindowObject(book) : nullptr;
}

IDispatch* ApplicationObject::ActiveSheet()
{
    return m_session->ActiveBook() ? new WorksheetObject(m_session->ActiveSheet()) : nullptr;
}

IDispatch* ApplicationObject::ActiveCell()
{
    const SheetRef sheet = m_session->ActiveSheet();
    const SheetView& view = Live(sheet).view;
    return new RangeObject(sheet, Block::Cell(view.activeRow, view.activeColumn));
}

IDispatch* ApplicationObject::Selection()
{
    const SheetRef sheet = m_session->ActiveSheet();
    return new RangeObject(sheet, Live(sheet).view.selection);
}

IDispatch* ApplicationObject::Sheets()
{
    return new SheetsObject(Active());
}

IDispatch* ApplicationObject::Names()
{
    return new NamesObject(Active());
}

IDispatch* ApplicationObject::Cells()
{
    return new RangeObject(m_session->ActiveSheet(), Block::WholeSheet());
}

IDispatch* ApplicationObject::Range(const Arguments& corners)
{
    const CellsOfSheet cells = ResolveCorners(m_session->ActiveSheet(), corners[0], corners[1]);
    return new RangeObject(cells.sheet, cells.areas);
}

void ApplicationObject::Quit()
{
    m_session->CloseAll();
}

LONG ApplicationObject::WindowState()
{
    return m_session->windowState;
}

void ApplicationObject::SetWindowState(const Argument& value)
{
    m_session->windowState = WindowStateFrom(value);
}

LONG ApplicationObject::Calculation()
{
    return m_session->calculation;
}

void ApplicationObject::SetCalculation(const Argument& value)
{
    const LONG kind = value.Long();
    if (kind != xl::kCalculationAutomatic && kind != xl::kCalculationManual &&
        kind != xl::kCalculationSemiautomatic)
        throw AutomationError();
    m_session->calculation = kind;
}

LONG ApplicationObject::CutCopyMode()
{
    return 0;
}

// There is no clipboard to leave: only switching it off makes sense.
void ApplicationObject::SetCutCopyMode(const Argument& value)
{
    if (value.Long() != 0)
        throw AutomationError();
}

LONG ApplicationObject::SheetsInNewWorkbook()
{
    return m_session->sheetsInNewWorkbook;
}

void ApplicationObject::SetSheetsInNewWorkbook(const Argument& value)
{
    const LONG count = value.Long();
    if (count < 1 || count > kMostSheets)
        throw AutomationError();
    m_session->sheetsInNewWorkbook = count;
}

std::string ApplicationObject::Caption()
{
    return m_session->caption;
}

void ApplicationObject::SetCaption(const Argument& value)
{
    m_session->caption = value.Text();
}

std::string ApplicationObject::StandardFont()
{
    return m_session->standardFont;
}

void ApplicationObject::SetStandardFont(const Argument& value)
{
    const std::string name = value.Text();
    if (name.empty())
        throw AutomationError();
    m_session->standardFont = name;
}

double ApplicationObject::StandardFontSize()
{
    return m_session->standardFontSize;
}

void ApplicationObject::SetStandardFontSize(const Argument& value)
{
    const double size = value.Number();
    if (!(size >= 1 && size <= kLargestFont))
        throw AutomationError();
    m_session->standardFontSize = size;
}

double ApplicationObject::CentimetersToPoints(const Arguments& arguments)
{
    return arguments[0].Number() * (kPointsPerInch / kCentimetersPerInch);
}

double ApplicationObject::InchesToPoints(const Arguments& arguments)
{
    return arguments[0].Number() * kPointsPerInch;
}

const MemberTable& ApplicationObject::Members()
{
    using A = ApplicationObject;
    using S = Session;
    static const MemberTable table = ModelTable(
        "Application",
        {
            {"Name", 0x6E, Get<&A::Name>()},
            {"_Default", 0x0, Get<&A::Name>()},
            {"Version", 0x188, Get<&A::Version>()},
            {"Workbooks", 0x23C, Get<&A::Workbooks>()},
            {"Windows", 0x1AE, Get<&A::Windows>()},
            {"ActiveWorkbook", 0x134, Get<&A::ActiveWorkbook>()},
            {"ActiveWindow", 0x2F7, Get<&A::ActiveWindow>()},
            {"ActiveSheet", 0x133, Get<&A::ActiveSheet>()},
            {"ActiveCell", 0x131, Get<&A::ActiveCell>()},
            {"Selection", 0x93, Get<&A::Selection>()},
            {"Sheets", 0x1E5, Get<&A::Sheets>()},
            {"Worksheets", 0x1EE, Get<&A::Sheets>()},
            {"Names", 0x1BA, Get<&A::Names>()},
            {"Cells", 0xEE, Get<&A::Cells>()},
            {"Range", 0xC5, Get<&A::Range>(1, 2)},
            {"Quit", 0x12E, Call<&A::Quit>()},
            {"DisplayAlerts", 0x157,
             Property<&A::GetFlag<&S::displayAlerts>, &A::SetFlag<&S::displayAlerts>>()},
            {"Visible", 0x22E, Property<&A::GetFlag<&S::visible>, &A::SetFlag<&S::visible>>()},
            {"ScreenUpdating", 0x17E,
             Property<&A::GetFlag<&S::screenUpdating>, &A::SetFlag<&S::screenUpdating>>()},
            {"Interactive", 0x169, Property<&A::GetFlag<&S::interactive>, &A::SetFlag<&S::interactive>>()},
            {"UserControl", 0x4BA, Property<&A::GetFlag<&S::userControl>, &A::SetFlag<&S::userControl>>()},
            {"WindowState", 0x18C, Property<&A::WindowState, &A::SetWindowState>()},
            {"Calculation", 0x13C, Property<&A::Calculation, &A::SetCalculation>()},
            {"CutCopyMode", 0x14A, Property<&A::CutCopyMode, &A::SetCutCopyMode>()},
            {"SheetsInNewWorkbook", 0x3E1, Property<&A::SheetsInNewWorkbook, &A::SetSheetsInNewWorkbook>()},
            {"Caption", 0x8B, Property<&A::Caption, &A::SetCaption>()},
            {"StandardFont", 0x39C, Property<&A::StandardFont, &A::SetStandardFont>()},
            {"StandardFontSize", 0x39D, Property<&A::StandardFontSize, &A::SetStandardFontSize>()},
            {"CentimetersToPoints", 0x43E, Call<&A::CentimetersToPoints>(1, 1)},
            {"InchesToPoints", 0x43F, Call<&A::InchesToPoints>(1, 1)},
        });
    return table;
}

} // namespace zek::office
