#include "spreadsheet/objects/NamesObject.h"

#include "spreadsheet/Entry.h"
#include "spreadsheet/model/Reference.h"
#include "spreadsheet/objects/Enumerator.h"
#include "spreadsheet/objects/RangeObject.h"
#include "spreadsheet/objects/RangeReference.h"
#include "spreadsheet/objects/WorkbooksObject.h"

namespace zek::office {
namespace {

constexpr UINT kAddArguments = 11;

// "=Data!$A$1" without the '='; a text that is no formula is a constant in quotes.
std::string MeaningFrom(const Argument& value)
{
    if (value.IsObject()) {
        const RangeObject* const range = RangeObject::From(value.Object());
        if (!range)
            value.Refuse();
        return ReferenceText(Live(range->TheSheet()), range->Areas());
    }
    const std::string text = value.Text();
    if (text.empty() || text.front() != '=')
        return value.IsText() ? '"' + text + '"' : text;
    if (!IsPlausibleFormula(std::string_view(text).substr(1)))
        throw AutomationError();
    return text.substr(1);
}

} // namespace

void DefineName(const BookRef& book, std::string_view name, std::string_view refersTo, const Sheet* scope)
{
    Workbook& model = Live(book);
    if (const std::size_t mark = name.rfind('!'); mark != name.npos) {
        std::string sheet(name.substr(0, mark));
        if (sheet.size() > 2 && sheet.front() == '\'' && sheet.back() == '\'')
            sheet = sheet.substr(1, sheet.size() - 2);
        scope = model.FindSheet(sheet);
        if (!scope)
            throw AutomationError();
        name.remove_prefix(mark + 1);
    }
    if (!IsDefinableName(name))
        throw AutomationError("That name is not valid.");
    model.SetName(name, refersTo, scope);
}

IDispatch* NameObject::Parent()
{
    return new WorkbookObject(m_book);
}

DefinedName& NameObject::Known()
{
    DefinedName* const known = Live(m_book).FindName(m_name, m_scope);
    if (!known)
        throw AutomationError();
    return *known;
}

std::string NameObject::Name()
{
    const DefinedName& name = Known();
    return name.scope ? SheetPrefix(name.scope->Name()) + name.name : name.name;
}

void NameObject::SetName(const Argument& value)
{
    const std::string text = value.Text();
    DefinedName& name = Known();
    DefinedName* const other = Live(m_book).FindName(text, m_scope);
    if (!IsDefinableName(text) || (other && other != &name))
        throw AutomationError("That name is not valid.");
    name.name = m_name = text;
}

std::string NameObject::RefersTo()
{
    return "=" + Known().refersTo;
}

void NameObject::SetRefersTo(const Argument& value)
{
    Known().refersTo = MeaningFrom(value);
}

IDispatch* NameObject::RefersToRange()
{
    Workbook& model = Live(m_book);
    const DefinedName& name = Known();
    Sheet& sheet =
        name.scope ? model.SheetAt(model.IndexOf(*name.scope)) : model.SheetAt(model.ActiveSheet());
    const CellsOfSheet cells = ResolveReference(SessionOf(m_book)->StateOf(*m_book, sheet), name.refersTo);
    return new RangeObject(cells.sheet, cells.areas);
}

bool NameObject::Visible()
{
    return Known().visible;
}

void NameObject::SetVisible(const Argument& value)
{
    Known().visible = value.Flag();
}

void NameObject::Delete()
{
    const DefinedName& name = Known();
    std::vector<DefinedName>& names = Live(m_book).Names();
    names.erase(names.begin() + (&name - names.data()));
}

const MemberTable& NameObject::Members()
{
    using N = NameObject;
    static const MemberTable table =
        ModelTable("Name", {
                               {"Name", 0x6E, Property<&N::Name, &N::SetName>()},
                               {"RefersTo", 0x3AA, Property<&N::RefersTo, &N::SetRefersTo>()},
                               {"Value", 0x6, Property<&N::RefersTo, &N::SetRefersTo>()},
                               {"_Default", 0x0, Get<&N::RefersTo>()},
                               {"RefersToRange", 0x488, Get<&N::RefersToRange>()},
                               {"Visible", 0x22E, Property<&N::Visible, &N::SetVisible>()},
                               {"Delete", 0x75, Call<&N::Delete>()},
                           });
    return table;
}

IDispatch* NamesObject::Parent()
{
    return new WorkbookObject(m_book);
}

// What has to do with macros is refused; the other spellings of the meaning are not known.
IDispatch* NamesObject::Add(const Arguments& arguments)
{
    const std::string name = arguments[0].Text();
    DefineName(m_book, name, MeaningFrom(arguments[1]), nullptr);
    for (UINT i = 3; i < kAddArguments; ++i)
        if (!arguments[i].IsMissing())
            arguments[i].Refuse();
    DefinedName* const made = Live(m_book).FindName(name);
    if (!made)
        return Live(m_book).Names().empty() ? nullptr : new NameObject(m_book, Live(m_book).Names().back());
    made->visible = arguments[2].FlagOr(true);
    return new NameObject(m_book, *made);
}

IDispatch* NamesObject::Item(const Arguments& index)
{
    std::vector<DefinedName>& names = Live(m_book).Names();
    if (index[0].IsText()) {
        const std::string text = index[0].Text();
        for (const DefinedName& name : names)
            if (EqualsNoCase(name.scope ? SheetPrefix(name.scope->Name()) + name.name : name.name, text))
                return new NameObject(m_book, name);
        throw AutomationError();
    }
    const LONG number = index[0].Long();
    if (number < 1 || static_cast<std::size_t>(number) > names.size())
        throw AutomationError();
    return new NameObject(m_book, names[static_cast<std::size_t>(number) - 1]);
}

LONG NamesObject::Count()
{
    return static_cast<LONG>(Live(m_book).Names().size());
}

IUnknown* NamesObject::NewEnum()
{
    return new Enumerator(Live(m_book).Names().size(), [book = m_book](std::uint64_t index) -> IDispatch* {
        return new NameObject(book, Live(book).Names().at(index));
    });
}

const MemberTable& NamesObject::Members()
{
    using N = NamesObject;
    static const MemberTable table = ModelTable("Names", {
                                                             {"Add", 0xB5, Call<&N::Add>(2, kAddArguments)},
                                                             {"Item", 0xAA, Call<&N::Item>(1, 1)},
                                                             {"_Default", 0x0, Call<&N::Item>(1, 1)},
                                                             {"Count", 0x76, Get<&N::Count>()},
                                                             {"_NewEnum", DISPID_NEWENUM, Get<&N::NewEnum>()},
                                                         });
    return table;
}

} // namespace zek::office
