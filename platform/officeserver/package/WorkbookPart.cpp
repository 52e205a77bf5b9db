#include "package/WorkbookPart.h"

#include "package/BookContent.h"
#include "package/ContentTypes.h"
#include "package/XmlText.h"
#include "spreadsheet/model/Reference.h"
#include "spreadsheet/model/Unicode.h"

#include <algorithm>
#include <tuple>

namespace zek::office {
namespace {

void AddViews(pugi::xml_node root, const Workbook& book)
{
    pugi::xml_node view = root.append_child("bookViews").append_child("workbookView");
    // A window of an ordinary size, in twentieths of a point.
    view.append_attribute("xWindow") = 240;
    view.append_attribute("yWindow") = 15;
    view.append_attribute("windowWidth") = 16095;
    view.append_attribute("windowHeight") = 9660;
    std::size_t firstVisible = 0;
    while (firstVisible < book.SheetCount() &&
           book.SheetAt(firstVisible).visibility != SheetVisibility::Visible)
        ++firstVisible;
    if (firstVisible > 0 && firstVisible < book.SheetCount())
        view.append_attribute("firstSheet") = static_cast<unsigned>(firstVisible);
    if (book.ActiveSheet() > 0)
        view.append_attribute("activeTab") = static_cast<unsigned>(book.ActiveSheet());
}

void AddSheets(pugi::xml_node root, const Workbook& book, const std::vector<std::string>& relations)
{
    pugi::xml_node sheets = root.append_child("sheets");
    for (std::size_t i = 0; i < book.SheetCount(); ++i) {
        const Sheet& sheet = book.SheetAt(i);
        pugi::xml_node node = sheets.append_child("sheet");
        node.append_attribute("name") = StoredText(sheet.Name()).c_str();
        node.append_attribute("sheetId") = static_cast<unsigned>(i + 1);
        if (sheet.visibility != SheetVisibility::Visible)
            node.append_attribute("state") =
                sheet.visibility == SheetVisibility::Hidden ? "hidden" : "veryHidden";
        node.append_attribute("r:id") = relations[i].c_str();
    }
}

// A defined name as it is written.
struct StoredName {
    std::string name;
    std::size_t scope; // index of the sheet; the number of sheets for the whole workbook
    std::string refersTo;
    bool visible;
};

std::string PrintTitles(const Sheet& sheet)
{
    const std::string prefix = SheetPrefix(sheet.Name());
    std::string titles;
    if (const auto& columns = sheet.page.titleColumns)
        titles = prefix + BlockText({0, columns->first, kRowCount - 1, columns->last});
    if (const auto& rows = sheet.page.titleRows)
        titles +=
            (titles.empty() ? "" : ",") + prefix + BlockText({rows->first, 0, rows->last, kColumnCount - 1});
    return titles;
}

std::string PrintArea(const Sheet& sheet)
{
    std::string area;
    for (const Block& block : sheet.page.printArea)
        area += (area.empty() ? "" : ",") + SheetPrefix(sheet.Name()) + BlockText(block);
    return area;
}

// All names, in the order in which programs store them: by name without case, then by sheet.
std::vector<StoredName> CollectNames(const Workbook& book)
{
    std::vector<StoredName> names;
    for (const DefinedName& name : book.Names())
        names.push_back({name.name, name.scope ? book.IndexOf(*name.scope) : book.SheetCount(), name.refersTo,
                         name.visible});
    for (std::size_t i = 0; i < book.SheetCount(); ++i) {
        const Sheet& sheet = book.SheetAt(i);
        if (!sheet.page.printArea.empty())
            names.push_back({"_xlnm.Print_Area", i, PrintArea(sheet), true});
        if (sheet.page.titleRows || sheet.page.titleColumns)
            names.push_back({"_xlnm.Print_Titles", i, PrintTitles(sheet), true});
    }
    std::stable_sort(names.begin(), names.end(), [](const StoredName& a, const StoredName& b) {
        return std::make_tuple(FoldCase(a.name), a.scope) < std::make_tuple(FoldCase(b.name), b.scope);
    });
    return names;
}

void AddNames(pugi::xml_node root, const Workbook& book)
{
    const std::vector<StoredName> names = CollectNames(book);
    if (names.empty())
        return;
    pugi::xml_node list = root.append_child("definedNames");
    for (const StoredName& name : names) {
        pugi::xml_node node = list.append_child("definedName");
        node.append_attribute("name") = StoredText(name.name).c_str();
        if (name.scope < book.SheetCount())
            node.append_attribute("localSheetId") = static_cast<unsigned>(name.scope);
        if (!name.visible)
            node.append_attribute("hidden") = "1";
        node.append_child(pugi::node_pcdata).set_value(StoredText(name.refersTo).c_str());
    }
}

} // namespace

std::string RelativeReference(const Block& block)
{
    std::string text;
    AppendColumn(text, block.firstColumn);
    text += std::to_string(block.firstRow + 1);
    if (block.IsOneCell())
        return text;
    AppendColumn(text += ':', block.lastColumn);
    return text + std::to_string(block.lastRow + 1);
}

void BuildWorkbook(pugi::xml_document& document, const BookContent& content,
                   const std::vector<std::string>& sheetRelations)
{
    const Workbook& book = content.book;
    pugi::xml_node root = document.append_child("workbook");
    root.append_attribute("xmlns") = kSheetNamespace;
    root.append_attribute("xmlns:r") = kRelationNamespace;
    pugi::xml_node properties = root.append_child("workbookPr");
    if (book.date1904)
        properties.append_attribute("date1904") = "1";
    AddViews(root, book);
    AddSheets(root, book, sheetRelations);
    AddNames(root, book);
    // Results that the file does not hold are computed when it is opened. A reader that computes asks its
    // user whether to save, so one with nothing to compute is not told to.
    if (content.hasFormulas)
        root.append_child("calcPr").append_attribute("fullCalcOnLoad") = "1";
}

} // namespace zek::office
