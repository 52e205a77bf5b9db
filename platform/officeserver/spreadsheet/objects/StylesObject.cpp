#include "spreadsheet/objects/StylesObject.h"

#include "spreadsheet/objects/Alignments.h"
#include "spreadsheet/objects/BordersObject.h"
#include "spreadsheet/objects/Enumerator.h"
#include "spreadsheet/objects/FontObject.h"
#include "spreadsheet/objects/InteriorObject.h"
#include "spreadsheet/objects/RangeObject.h"
#include "spreadsheet/objects/WorkbooksObject.h"

namespace zek::office {
namespace {

constexpr std::size_t kLongestStyleName = 255;
constexpr std::size_t kMostStyles = 4000;

} // namespace

IDispatch* StyleObject::Parent()
{
    return new WorkbookObject(m_book);
}

const Style& StyleObject::Known() const
{
    const Style& style = Live(m_book).Styles()[m_style];
    if (style.deleted)
        throw AutomationError();
    return style;
}

std::string StyleObject::Name()
{
    return Known().name;
}

bool StyleObject::BuiltIn()
{
    return Known().builtIn;
}

IDispatch* StyleObject::Font()
{
    return new FontObject(Looks());
}

IDispatch* StyleObject::Interior()
{
    return new InteriorObject(Looks());
}

IDispatch* StyleObject::Borders(const Arguments& index)
{
    if (index[0].IsMissing())
        return new BordersObject(Looks());
    if (!IsBorderIndex(index[0].Long()))
        throw AutomationError();
    return new BorderObject(Looks(), index[0].Long());
}

std::optional<std::string> StyleObject::NumberFormat()
{
    return NumberFormatOf(Looks());
}

void StyleObject::SetNumberFormat(const Argument& value)
{
    PutNumberFormat(Looks(), value);
}

std::optional<LONG> StyleObject::HorizontalAlignment()
{
    return HorizontalOf(Looks());
}

void StyleObject::SetHorizontalAlignment(const Argument& value)
{
    PutHorizontal(Looks(), value);
}

std::optional<LONG> StyleObject::VerticalAlignment()
{
    return VerticalOf(Looks());
}

void StyleObject::SetVerticalAlignment(const Argument& value)
{
    PutVertical(Looks(), value);
}

std::optional<bool> StyleObject::WrapText()
{
    return AlignmentFlagOf<&Alignment::wrap>(Looks());
}

void StyleObject::SetWrapText(const Argument& value)
{
    PutAlignmentFlag<&Alignment::wrap>(Looks(), value);
}

bool StyleObject::Delete()
{
    if (Known().builtIn)
        throw AutomationError();
    Live(m_book).DeleteStyle(m_style);
    return true;
}

const MemberTable& StyleObject::Members()
{
    using S = StyleObject;
    static const MemberTable table = ModelTable(
        "Style",
        {
            {"Name", 0x6E, Get<&S::Name>()},
            {"NameLocal", 0x3A9, Get<&S::Name>()},
            {"BuiltIn", 0x229, Get<&S::BuiltIn>()},
            {"Font", 0x92, Get<&S::Font>()},
            {"Interior", 0x81, Get<&S::Interior>()},
            {"Borders", 0x1B3, Get<&S::Borders>(0, 1)},
            {"NumberFormat", 0xC1, Property<&S::NumberFormat, &S::SetNumberFormat>()},
            {"NumberFormatLocal", 0x449, Property<&S::NumberFormat, &S::SetNumberFormat>()},
            {"HorizontalAlignment", 0x88, Property<&S::HorizontalAlignment, &S::SetHorizontalAlignment>()},
            {"VerticalAlignment", 0x89, Property<&S::VerticalAlignment, &S::SetVerticalAlignment>()},
            {"WrapText", 0x114, Property<&S::WrapText, &S::SetWrapText>()},
            {"Delete", 0x75, Call<&S::Delete>()},
        });
    return table;
}

IDispatch* StylesObject::Parent()
{
    return new WorkbookObject(m_book);
}

IDispatch* StylesObject::Add(const Arguments& arguments)
{
    Workbook& book = Live(m_book);
    const std::string name = arguments[0].Text();
    if (name.empty() || Utf16Length(name) > kLongestStyleName || book.Styles().size() >= kMostStyles ||
        book.FindStyle(name) != Workbook::kNoStyle)
        throw AutomationError();
    Format format = book.Styles()[kNormalStyle].format;
    if (!arguments[1].IsMissing()) {
        const RangeObject* const model = RangeObject::From(arguments[1].Object());
        if (!model)
            arguments[1].Refuse();
        const Block first = model->Areas().front();
        format = book.Formats().At(Live(model->TheSheet()).FormatAt(first.firstRow, first.firstColumn));
    }
    return new StyleObject(m_book, book.AddStyle(name, format));
}

std::vector<StyleId> StylesObject::Kept() const
{
    std::vector<StyleId> kept;
    const std::vector<Style>& styles = Live(m_book).Styles();
    for (std::size_t i = 0; i < styles.size(); ++i)
        if (!styles[i].deleted)
            kept.push_back(static_cast<StyleId>(i));
    return kept;
}

IDispatch* StylesObject::Item(const Arguments& index)
{
    if (index[0].IsText()) {
        const StyleId style = Live(m_book).FindStyle(index[0].Text());
        if (style == Workbook::kNoStyle)
            throw AutomationError();
        return new StyleObject(m_book, style);
    }
    const std::vector<StyleId> kept = Kept();
    const LONG number = index[0].Long();
    if (number < 1 || static_cast<std::size_t>(number) > kept.size())
        throw AutomationError();
    return new StyleObject(m_book, kept[static_cast<std::size_t>(number) - 1]);
}

LONG StylesObject::Count()
{
    return static_cast<LONG>(Kept().size());
}

IUnknown* StylesObject::NewEnum()
{
    return new Enumerator(Kept().size(), [book = m_book, kept = Kept()](std::uint64_t index) -> IDispatch* {
        return new StyleObject(book, kept[index]);
    });
}

const MemberTable& StylesObject::Members()
{
    using S = StylesObject;
    static const MemberTable table =
        ModelTable("Styles", {
                                 {"Add", 0xB5, Call<&S::Add>(1, 2)},
                                 {"Item", 0xAA, Get<&S::Item>(1, 1)},
                                 {"_Default", 0x0, Get<&S::Item>(1, 1)},
                                 {"Count", 0x76, Get<&S::Count>()},
                                 {"_NewEnum", DISPID_NEWENUM, Get<&S::NewEnum>()},
                             });
    return table;
}

} // namespace zek::office
