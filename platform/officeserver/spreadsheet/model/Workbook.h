// A workbook: sheets in order, styles, names, and the pools that its cells share.
//
// Plain values without automation and without a file format. One thread at a time.
//
//   Workbook book;
//   Sheet& sheet = book.AddSheet("Data");
//   sheet.SetText(0, 0, book.Texts().Intern("Node"));
#pragma once

#include "spreadsheet/model/Format.h"
#include "spreadsheet/model/FormatTable.h"
#include "spreadsheet/model/Sheet.h"
#include "spreadsheet/model/TextPool.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zek::office {

constexpr std::size_t kMaxSheetName = 31;   // UTF-16 units
constexpr std::size_t kMaxCellText = 32767; // UTF-16 units

struct Style {
    std::string name; // UTF-8
    Format format;    // format.style is the style's own number
    bool builtIn = false;
    bool deleted = false; // no cell uses it; its number is kept
};

struct DefinedName {
    std::string name;             // UTF-8
    const Sheet* scope = nullptr; // null: the whole workbook
    std::string refersTo;         // formula without the leading '='
    bool visible = true;
};

enum class SheetNameFault { None, Empty, TooLong, BadCharacter, Taken };

class Workbook
{
public:
    // A workbook without sheets; style 0 is "Normal" with the given font. `fontSize` is in points.
    explicit Workbook(std::string_view fontName = "Calibri", double fontSize = 11);

    // --- Sheets, in the order of their tabs ---

    std::size_t SheetCount() const { return m_sheets.size(); }
    Sheet& SheetAt(std::size_t index) const { return *m_sheets[index]; }
    // Null when there is none; letters compare without case.
    Sheet* FindSheet(std::string_view name) const;
    // SheetCount() when it is not of this workbook.
    std::size_t IndexOf(const Sheet& sheet) const;

    // What is wrong with a sheet name; `self` may keep its own name in another spelling.
    SheetNameFault CheckSheetName(std::string_view name, const Sheet* self = nullptr) const;

    // The name must have passed the check. Without an index the sheet goes to the end.
    Sheet& AddSheet(std::string_view name);
    Sheet& AddSheet(std::string_view name, std::size_t index);
    // "Sheet1", "Sheet2", ...: the next one that was not given before and is not taken.
    std::string NewSheetName();
    // Formulas and names that mention the sheet follow.
    void RenameSheet(Sheet& sheet, std::string_view name);
    void MoveSheet(std::size_t from, std::size_t to);
    // A copy named "Name (2)" or the next free number, at `index`.
    Sheet& CopySheet(const Sheet& source, std::size_t index);
    // Its names go with it; references to it become #REF!. The sheet lives as long as the answer.
    std::unique_ptr<Sheet> RemoveSheet(std::size_t index);

    std::size_t VisibleSheets() const;
    std::size_t ActiveSheet() const { return m_activeSheet; }
    // A hidden sheet is never active: the next visible one takes its place.
    void SetVisibility(Sheet& sheet, SheetVisibility visibility);
    // Selects its tab alone.
    void SetActiveSheet(std::size_t index);

    // --- Styles ---

    const std::vector<Style>& Styles() const { return m_styles; }
    // kNoStyle when there is none; letters compare without case.
    static constexpr StyleId kNoStyle = 0xFFFF;
    StyleId FindStyle(std::string_view name) const;
    StyleId AddStyle(std::string_view name, const Format& format);
    // Formats that stem from the style follow in the groups that they do not set themselves.
    void ChangeStyle(StyleId style, const Format& format);
    // Formats of the style go back to "Normal".
    void DeleteStyle(StyleId style);
    // What a cell of the style looks like to which nothing else was done.
    FormatId StyleFormat(StyleId style);

    // --- Pools ---

    FormatTable& Formats() { return m_formats; }
    const FormatTable& Formats() const { return m_formats; }
    // Texts of cells (UTF-8); texts that no cell holds any more stay.
    TextPool& Texts() { return m_texts; }
    const TextPool& Texts() const { return m_texts; }
    TextPool& Typefaces() { return m_typefaces; }
    const TextPool& Typefaces() const { return m_typefaces; }
    TextPool& NumberFormats() { return m_numberFormats; }
    const TextPool& NumberFormats() const { return m_numberFormats; }

    // --- Names ---

    // Print areas and titles are not among them: they are in the sheets' page setup.
    std::vector<DefinedName>& Names() { return m_names; }
    const std::vector<DefinedName>& Names() const { return m_names; }
    // Null when there is none; letters compare without case.
    DefinedName* FindName(std::string_view name, const Sheet* scope = nullptr);
    // Replaces a name of the same scope.
    DefinedName& SetName(std::string_view name, std::string_view refersTo, const Sheet* scope = nullptr);

    // --- Properties ---

    bool date1904 = false;

private:
    friend class Sheet;
    void KeepOneActive();
    // Formulas and names follow the cells that an insertion or deletion at `block` of `moved` moves.
    void ShiftReferences(const Sheet& moved, const Block& block, Shift shift, bool insert);
    static void ShiftFormula(std::string& formula, bool standsOnIt, const Sheet& moved, const Block& block,
                             Shift shift, bool insert);

    std::vector<std::unique_ptr<Sheet>> m_sheets;
    std::size_t m_activeSheet = 0;
    unsigned m_lastSheetNumber = 0;
    std::vector<Style> m_styles;
    std::vector<DefinedName> m_names;
    FormatTable m_formats;
    TextPool m_texts;
    TextPool m_typefaces;
    TextPool m_numberFormats;
};

} // namespace zek::office
