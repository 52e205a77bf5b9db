#include "spreadsheet/objects/RangeReference.h"

#include "spreadsheet/model/Reference.h"
#include "spreadsheet/model/Unicode.h"
#include "spreadsheet/objects/RangeObject.h"

#include <algorithm>

namespace zek::office {
namespace {

// A name may stand for another one.
constexpr int kDeepestName = 16;
constexpr std::size_t kLongestName = 255;

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == text.npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// At commas outside quotes.
std::vector<std::string_view> SplitAreas(std::string_view text)
{
    std::vector<std::string_view> parts;
    bool quoted = false;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        quoted ^= text[i] == '\'';
        if (text[i] == ',' && !quoted) {
            parts.push_back(text.substr(start, i - start));
            start = i + 1;
        }
    }
    parts.push_back(text.substr(start));
    return parts;
}

std::string WithoutQuotes(std::string_view name)
{
    if (name.size() < 2 || name.front() != '\'' || name.back() != '\'')
        return std::string(name);
    std::string plain;
    for (std::size_t i = 1; i + 1 < name.size(); ++i) {
        plain += name[i];
        i += name[i] == '\'' ? 1 : 0;
    }
    return plain;
}

void Resolve(const SheetRef& from, std::string_view text, int depth, CellsOfSheet& found);

bool ResolveName(const SheetRef& from, const Sheet& scope, std::string_view name, int depth,
                 CellsOfSheet& found)
{
    Workbook& book = scope.Book();
    const DefinedName* known = book.FindName(name, &scope);
    if (!known)
        known = book.FindName(name);
    if (!known || depth >= kDeepestName)
        return false;
    Resolve(from, known->refersTo, depth + 1, found);
    return true;
}

void ResolveOne(const SheetRef& from, std::string_view part, int depth, CellsOfSheet& found)
{
    SheetRef sheet = from;
    const std::size_t mark = part.rfind('!');
    if (mark != part.npos) {
        Sheet* const named = Live(from).Book().FindSheet(WithoutQuotes(part.substr(0, mark)));
        if (!named)
            throw AutomationError();
        sheet = SessionOf(from)->StateOf(*from->book, *named);
        part.remove_prefix(mark + 1);
    }
    AreaReference area;
    const char* const end = part.data() + part.size();
    if (ParseArea(part.data(), end, area) != end) {
        if (!ResolveName(sheet, Live(sheet), part, depth, found))
            throw AutomationError();
        return;
    }
    if (found.sheet && found.sheet != sheet)
        throw AutomationError();
    found.sheet = sheet;
    found.areas.push_back(area.ToBlock());
}

void Resolve(const SheetRef& from, std::string_view text, int depth, CellsOfSheet& found)
{
    for (const std::string_view part : SplitAreas(text))
        ResolveOne(from, Trimmed(part), depth, found);
}

CellsOfSheet ResolveCorner(const SheetRef& sheet, const Argument& corner)
{
    if (corner.IsText()) {
        Block block;
        if (ParseWholeArea(corner.TextView(), block))
            return {sheet, {block}};
        return ResolveReference(sheet, corner.Text());
    }
    if (!corner.IsObject())
        corner.Refuse();
    const RangeObject* const range = RangeObject::From(corner.Object());
    if (!range)
        corner.Refuse();
    return {range->TheSheet(), range->Areas()};
}

} // namespace

bool ParseWholeArea(std::u16string_view text, Block& block)
{
    AreaReference area;
    const char16_t* const end = text.data() + text.size();
    if (text.empty() || ParseArea(text.data(), end, area) != end)
        return false;
    block = area.ToBlock();
    return true;
}

CellsOfSheet ResolveReference(const SheetRef& sheet, std::string_view text)
{
    CellsOfSheet found;
    Resolve(sheet, !text.empty() && text.front() == '=' ? text.substr(1) : text, 0, found);
    return found;
}

CellsOfSheet ResolveCorners(const SheetRef& sheet, const Argument& first, const Argument& last)
{
    CellsOfSheet cells = ResolveCorner(sheet, first);
    if (last.IsMissing())
        return cells;
    const CellsOfSheet other = ResolveCorner(sheet, last);
    if (Live(cells.sheet).Name() != Live(other.sheet).Name() || cells.sheet->book != other.sheet->book)
        throw AutomationError();
    std::vector<Block> areas = cells.areas;
    areas.insert(areas.end(), other.areas.begin(), other.areas.end());
    Block block = areas.front();
    for (const Block& area : areas)
        block = block.Union(area);
    return {cells.sheet, {block}};
}

std::string ReferenceText(const Sheet& sheet, const std::vector<Block>& areas)
{
    std::string text;
    for (const Block& area : areas) {
        if (!text.empty())
            text += ',';
        text += SheetPrefix(sheet.Name()) + BlockText(area);
    }
    return text;
}

std::string AreasText(const std::vector<Block>& areas, bool rowsAbsolute, bool columnsAbsolute)
{
    std::string text;
    for (const Block& area : areas) {
        if (!text.empty())
            text += ',';
        text += BlockText(area, rowsAbsolute, columnsAbsolute);
    }
    return text;
}

bool IsDefinableName(std::string_view name)
{
    if (name.empty() || Utf16Length(name) > kLongestName)
        return false;
    const auto isLetter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '\\' ||
               static_cast<unsigned char>(c) >= 0x80;
    };
    const auto isInner = [&](char c) {
        return isLetter(c) || (c >= '0' && c <= '9') || c == '.' || c == '?';
    };
    AreaReference area;
    const char* const end = name.data() + name.size();
    const bool oneLetter = EqualsNoCase(name, "r") || EqualsNoCase(name, "c");
    return isLetter(name.front()) && std::ranges::all_of(name, isInner) && !oneLetter &&
           ParseArea(name.data(), end, area) != end;
}

} // namespace zek::office
