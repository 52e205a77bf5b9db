#include "spreadsheet/model/Workbook.h"

#include "spreadsheet/model/FormulaReferences.h"
#include "spreadsheet/model/Unicode.h"

#include <algorithm>
#include <cmath>

namespace zek::office {
namespace {

// Every formula of the book, those of names included, may be rewritten: change(text, sheet it stands on).
template <class Change>
void WorkFormulas(std::vector<std::unique_ptr<Sheet>>& sheets, std::vector<DefinedName>& names,
                  Change&& change)
{
    for (const auto& sheet : sheets)
        sheet->VisitRows([&](std::uint32_t, const Row& row) {
            for (const Cell& cell : row.cells)
                if (cell.kind == CellKind::Formula)
                    change(sheet->FormulaAt(cell.formula).text);
        });
    for (DefinedName& name : names)
        change(name.refersTo);
}

} // namespace

Workbook::Workbook(std::string_view fontName, double fontSize)
{
    m_typefaces.Intern(fontName);
    m_numberFormats.Intern("General");
    Format normal;
    normal.font.twips = static_cast<std::uint16_t>(std::lround(fontSize * 20));
    m_styles.push_back({"Normal", normal, true, false});
    m_formats.Restyle(kNormalStyle, normal);
}

Sheet* Workbook::FindSheet(std::string_view name) const
{
    const auto place =
        std::ranges::find_if(m_sheets, [&](const auto& s) { return EqualsNoCase(s->Name(), name); });
    return place == m_sheets.end() ? nullptr : place->get();
}

std::size_t Workbook::IndexOf(const Sheet& sheet) const
{
    const auto place = std::ranges::find(m_sheets, &sheet, [](const auto& s) { return s.get(); });
    return static_cast<std::size_t>(place - m_sheets.begin());
}

SheetNameFault Workbook::CheckSheetName(std::string_view name, const Sheet* self) const
{
    if (name.empty())
        return SheetNameFault::Empty;
    if (Utf16Length(name) > kMaxSheetName)
        return SheetNameFault::TooLong;
    using namespace std::string_view_literals;
    if (name.find_first_of(":\\/?*[]\0\3"sv) != name.npos || name.front() == '\'' || name.back() == '\'')
        return SheetNameFault::BadCharacter;
    // Set aside for the list of changes of a shared workbook.
    if (EqualsNoCase(name, "History"))
        return SheetNameFault::Taken;
    const Sheet* const other = FindSheet(name);
    return other && other != self ? SheetNameFault::Taken : SheetNameFault::None;
}

Sheet& Workbook::AddSheet(std::string_view name)
{
    return AddSheet(name, m_sheets.size());
}

Sheet& Workbook::AddSheet(std::string_view name, std::size_t index)
{
    const auto place = m_sheets.begin() + static_cast<std::ptrdiff_t>(index);
    Sheet& sheet = **m_sheets.insert(place, std::make_unique<Sheet>(*this, std::string(name)));
    if (m_sheets.size() > 1 && index <= m_activeSheet)
        ++m_activeSheet;
    m_sheets[m_activeSheet]->selected = true;
    return sheet;
}

std::string Workbook::NewSheetName()
{
    std::string name;
    do
        name = "Sheet" + std::to_string(++m_lastSheetNumber);
    while (FindSheet(name));
    return name;
}

void Workbook::RenameSheet(Sheet& sheet, std::string_view name)
{
    const std::string old = sheet.Name();
    sheet.m_name = name;
    WorkFormulas(m_sheets, m_names, [&](std::string& formula) {
        formula = RewriteReferences(formula, [&](FormulaReference& reference) {
            if (!reference.hasSheet || !EqualsNoCase(reference.sheet, old))
                return Rewrite::Keep;
            reference.sheet = name;
            return Rewrite::Change;
        });
    });
}

void Workbook::MoveSheet(std::size_t from, std::size_t to)
{
    const Sheet& active = *m_sheets[m_activeSheet];
    std::unique_ptr<Sheet> moved = std::move(m_sheets[from]);
    m_sheets.erase(m_sheets.begin() + static_cast<std::ptrdiff_t>(from));
    m_sheets.insert(m_sheets.begin() + static_cast<std::ptrdiff_t>(to), std::move(moved));
    m_activeSheet = IndexOf(active);
}

Sheet& Workbook::CopySheet(const Sheet& source, std::size_t index)
{
    std::string name;
    unsigned number = 1;
    do {
        const std::string tail = " (" + std::to_string(++number) + ")";
        std::u16string head = ToUtf16(source.Name());
        head.resize(std::min(head.size(), kMaxSheetName - tail.size()));
        name = ToUtf8(head) + tail;
    } while (FindSheet(name));
    Sheet& copy = AddSheet(name, index);
    copy.CopyFrom(source);
    return copy;
}

std::unique_ptr<Sheet> Workbook::RemoveSheet(std::size_t index)
{
    std::unique_ptr<Sheet> removed = std::move(m_sheets[index]);
    m_sheets.erase(m_sheets.begin() + static_cast<std::ptrdiff_t>(index));
    std::erase_if(m_names, [&](const DefinedName& name) { return name.scope == removed.get(); });
    WorkFormulas(m_sheets, m_names, [&](std::string& formula) {
        formula = RewriteReferences(formula, [&](FormulaReference& reference) {
            const bool lost = reference.hasSheet && EqualsNoCase(reference.sheet, removed->Name());
            return lost ? Rewrite::Lose : Rewrite::Keep;
        });
    });
    if (index < m_activeSheet)
        --m_activeSheet;
    else if (index == m_activeSheet)
        KeepOneActive();
    return removed;
}

std::size_t Workbook::VisibleSheets() const
{
    return static_cast<std::size_t>(std::ranges::count_if(
        m_sheets, [](const auto& sheet) { return sheet->visibility == SheetVisibility::Visible; }));
}

void Workbook::SetActiveSheet(std::size_t index)
{
    for (const auto& sheet : m_sheets)
        sheet->selected = false;
    m_activeSheet = index;
    m_sheets[index]->selected = true;
}

// The active sheet is gone or hidden: the next visible one to the right, else to the left.
void Workbook::KeepOneActive()
{
    const auto isVisible = [](const auto& sheet) { return sheet->visibility == SheetVisibility::Visible; };
    const auto from =
        m_sheets.begin() + static_cast<std::ptrdiff_t>(std::min(m_activeSheet, m_sheets.size()));
    auto place = std::find_if(from, m_sheets.end(), isVisible);
    if (place == m_sheets.end())
        place = std::find_if(m_sheets.rbegin(), m_sheets.rend(), isVisible).base() - 1;
    SetActiveSheet(static_cast<std::size_t>(place - m_sheets.begin()));
}

void Workbook::SetVisibility(Sheet& sheet, SheetVisibility visibility)
{
    sheet.visibility = visibility;
    if (visibility == SheetVisibility::Visible)
        return;
    sheet.selected = false;
    if (IndexOf(sheet) == m_activeSheet)
        KeepOneActive();
}

StyleId Workbook::FindStyle(std::string_view name) const
{
    for (std::size_t i = 0; i < m_styles.size(); ++i)
        if (!m_styles[i].deleted && EqualsNoCase(m_styles[i].name, name))
            return static_cast<StyleId>(i);
    return kNoStyle;
}

StyleId Workbook::AddStyle(std::string_view name, const Format& format)
{
    const auto style = static_cast<StyleId>(m_styles.size());
    m_styles.push_back({std::string(name), format, false, false});
    m_styles.back().format.style = style;
    m_styles.back().format.ownGroups = 0;
    return style;
}

void Workbook::ChangeStyle(StyleId style, const Format& format)
{
    Format& kept = m_styles[style].format;
    kept = format;
    kept.style = style;
    kept.ownGroups = 0;
    m_formats.Restyle(style, kept);
}

void Workbook::DeleteStyle(StyleId style)
{
    m_styles[style].deleted = true;
    m_formats.Rework([&](Format& format) {
        if (format.style != style)
            return false;
        format.style = kNormalStyle;
        CopyGroups(format, m_styles[kNormalStyle].format,
                   static_cast<std::uint8_t>(kAllGroups & ~format.ownGroups));
        return true;
    });
}

FormatId Workbook::StyleFormat(StyleId style)
{
    return m_formats.Intern(m_styles[style].format);
}

DefinedName* Workbook::FindName(std::string_view name, const Sheet* scope)
{
    const auto place = std::ranges::find_if(
        m_names, [&](const DefinedName& n) { return n.scope == scope && EqualsNoCase(n.name, name); });
    return place == m_names.end() ? nullptr : &*place;
}

DefinedName& Workbook::SetName(std::string_view name, std::string_view refersTo, const Sheet* scope)
{
    if (DefinedName* const known = FindName(name, scope)) {
        known->refersTo = refersTo;
        return *known;
    }
    m_names.push_back({std::string(name), scope, std::string(refersTo), true});
    return m_names.back();
}

void Workbook::ShiftReferences(const Sheet& moved, const Block& block, Shift shift, bool insert)
{
    for (const auto& sheet : m_sheets)
        sheet->VisitRows([&](std::uint32_t, const Row& row) {
            for (const Cell& cell : row.cells)
                if (cell.kind == CellKind::Formula)
                    ShiftFormula(sheet->FormulaAt(cell.formula).text, sheet.get() == &moved, moved, block,
                                 shift, insert);
        });
    for (DefinedName& name : m_names)
        ShiftFormula(name.refersTo, false, moved, block, shift, insert);
}

void Workbook::ShiftFormula(std::string& formula, bool standsOnIt, const Sheet& moved, const Block& block,
                            Shift shift, bool insert)
{
    const bool vertical = shift == Shift::Vertical;
    formula = RewriteReferences(formula, [&](FormulaReference& reference) {
        if (reference.hasSheet ? !EqualsNoCase(reference.sheet, moved.Name()) : !standsOnIt)
            return Rewrite::Keep;
        CellReference& first = reference.area.first;
        CellReference& last = reference.area.last;
        const Block area = reference.area.ToBlock();
        const bool inTheWay =
            vertical ? block.firstColumn <= area.firstColumn && area.lastColumn <= block.lastColumn
                     : block.firstRow <= area.firstRow && area.lastRow <= block.lastRow;
        const bool whole = reference.area.kind == (vertical ? AreaKind::Columns : AreaKind::Rows);
        if (!inTheWay || whole)
            return Rewrite::Keep;
        Block after = area;
        const bool kept = vertical ? ShiftSpan(after.firstRow, after.lastRow, block.firstRow, block.Rows(),
                                               insert, kRowCount)
                                   : ShiftSpan(after.firstColumn, after.lastColumn, block.firstColumn,
                                               block.Columns(), insert, kColumnCount);
        if (!kept)
            return Rewrite::Lose;
        if (after == area)
            return Rewrite::Keep;
        first.row = after.firstRow;
        first.column = after.firstColumn;
        last.row = after.lastRow;
        last.column = after.lastColumn;
        return Rewrite::Change;
    });
}

} // namespace zek::office
