#include "package/StylesPart.h"

#include "package/ContentTypes.h"
#include "package/SaveError.h"
#include "package/StylePieces.h"
#include "package/XmlText.h"

#include <cerrno>

namespace zek::office {
namespace {

constexpr unsigned kMaxCellFormats = 65490;
constexpr unsigned kFirstOwnNumberFormat = 164;

struct NumberFormatRow {
    unsigned id;
    std::string_view code;
};

// The numbered formats that mean the same to every reader in every country. Those of dates and money do
// not: their codes are written out.
constexpr NumberFormatRow kNumberFormats[] = {
    {0, "General"}, {1, "0"},         {2, "0.00"},   {3, "#,##0"},      {4, "#,##0.00"}, {9, "0%"},
    {10, "0.00%"},  {11, "0.00E+00"}, {12, "# ?/?"}, {13, "# ?\?/?\?"}, {49, "@"},
};

struct StyleRow {
    std::string_view name;
    unsigned id;
};
constexpr StyleRow kBuiltInStyles[] = {
    {"Normal", 0},    {"Comma", 3},        {"Currency", 4},  {"Percent", 5},
    {"Comma [0]", 6}, {"Currency [0]", 7}, {"Hyperlink", 8}, {"Followed Hyperlink", 9},
};

struct GroupRow {
    FormatGroup group;
    const char* attribute;
};
constexpr GroupRow kGroups[] = {
    {kNumberGroup, "applyNumberFormat"}, {kFontGroup, "applyFont"},
    {kFillGroup, "applyFill"},           {kBorderGroup, "applyBorder"},
    {kAlignmentGroup, "applyAlignment"}, {kProtectionGroup, "applyProtection"},
};

// True when the format's group is its own or looks different from its style's.
bool Applies(const Format& format, const Format& style, FormatGroup group)
{
    Format copy = format;
    CopyGroups(copy, style, group);
    copy.ownGroups = format.ownGroups;
    return (format.ownGroups & group) != 0 || !(copy == format);
}

} // namespace

unsigned PieceList::Intern(const std::string& piece)
{
    const auto [found, isNew] = m_numbers.emplace(piece, static_cast<unsigned>(m_pieces.size()));
    if (isNew)
        m_pieces.push_back(&found->first);
    return found->second;
}

void PieceList::AppendTo(std::string& out, const char* element) const
{
    out += "<" + std::string(element) + " count=\"" + std::to_string(m_pieces.size()) + "\">";
    for (const std::string* piece : m_pieces)
        out += *piece;
    out += "</" + std::string(element) + ">";
}

StylesPart::StylesPart(const BookContent& content)
    : m_book(content.book), m_styleUsed(m_book.Styles().size()), m_styleNumbers(m_book.Styles().size()),
      m_numbers(m_book.Formats().Size())
{
    // The first two fills are fixed; the first font and border are those of the style "Normal".
    m_fills.Intern(FillPiece({}));
    m_fills.Intern(FillPiece({.pattern = Pattern::Gray16}));
    for (FormatId id : content.formats)
        m_styleUsed[m_book.Formats().At(id).style] = true;
    AddStyles();
    for (FormatId id : content.formats) {
        m_numbers[id] = m_cellFormats.Intern(CellRecord(m_book.Formats().At(id)));
        if (m_numbers[id] >= kMaxCellFormats)
            throw SaveError(EINVAL, "Cannot save more than 65490 different cell formats");
    }
}

// Styles that ship with every workbook are stored once something uses them.
bool StylesPart::IsStored(StyleId style) const
{
    const Style& entry = m_book.Styles()[style];
    return style == kNormalStyle || m_styleUsed[style] || (!entry.builtIn && !entry.deleted);
}

void StylesPart::AddStyles()
{
    for (StyleId id = 0; id < m_book.Styles().size(); ++id) {
        if (!IsStored(id))
            continue;
        const Style& style = m_book.Styles()[id];
        m_styleNumbers[id] = static_cast<unsigned>(m_styleRecords.size());
        m_styleRecords.push_back(StyleRecord(style.format));
        if (style.deleted)
            continue;
        m_styleNames += "<cellStyle name=\"";
        AppendStoredText(m_styleNames, style.name);
        m_styleNames += "\" xfId=\"" + std::to_string(m_styleNumbers[id]) + "\"";
        for (const StyleRow& row : kBuiltInStyles)
            if (style.builtIn && row.name == style.name)
                m_styleNames += " builtinId=\"" + std::to_string(row.id) + "\"";
        m_styleNames += "/>";
    }
}

std::string StylesPart::StyleRecord(const Format& format)
{
    return Record(format, "");
}

std::string StylesPart::CellRecord(const Format& format)
{
    std::string attributes = " xfId=\"" + std::to_string(m_styleNumbers[format.style]) + "\"";
    for (const GroupRow& row : kGroups)
        if (Applies(format, m_book.Styles()[format.style].format, row.group))
            attributes += " " + std::string(row.attribute) + "=\"1\"";
    return Record(format, attributes);
}

std::string StylesPart::Record(const Format& format, const std::string& attributes)
{
    const std::string children = AlignmentPiece(format.alignment) + ProtectionPiece(format.protection);
    std::string record = "<xf numFmtId=\"" + std::to_string(NumberFormat(format.numberFormat));
    record += "\" fontId=\"" + std::to_string(m_fonts.Intern(FontPiece(format.font)));
    record += "\" fillId=\"" + std::to_string(m_fills.Intern(FillPiece(format.fill)));
    record += "\" borderId=\"" + std::to_string(m_borders.Intern(BorderPiece(format.borders))) + "\"";
    record += attributes;
    return record + (children.empty() ? "/>" : ">" + children + "</xf>");
}

std::string StylesPart::FontPiece(const Font& font) const
{
    return office::FontPiece(font, m_book.Typefaces().Text(font.name));
}

unsigned StylesPart::NumberFormat(TextId id)
{
    const std::string_view code = m_book.NumberFormats().Text(id);
    for (const NumberFormatRow& row : kNumberFormats)
        if (row.code == code)
            return row.id;
    const auto next = static_cast<unsigned>(kFirstOwnNumberFormat + m_numberFormats.size());
    return m_numberFormats.emplace(id, next).first->second;
}

void StylesPart::AppendNumberFormats(std::string& out) const
{
    if (m_numberFormats.empty())
        return;
    std::map<unsigned, TextId> byNumber;
    for (const auto& [id, number] : m_numberFormats)
        byNumber[number] = id;
    out += "<numFmts count=\"" + std::to_string(byNumber.size()) + "\">";
    for (const auto& [number, id] : byNumber) {
        out += "<numFmt numFmtId=\"" + std::to_string(number) + "\" formatCode=\"";
        AppendStoredText(out, m_book.NumberFormats().Text(id));
        out += "\"/>";
    }
    out += "</numFmts>";
}

std::string StylesPart::Text() const
{
    std::string out(kXmlDeclaration);
    out += "<styleSheet xmlns=\"" + std::string(kSheetNamespace) + "\">";
    AppendNumberFormats(out);
    m_fonts.AppendTo(out, "fonts");
    m_fills.AppendTo(out, "fills");
    m_borders.AppendTo(out, "borders");
    out += "<cellStyleXfs count=\"" + std::to_string(m_styleRecords.size()) + "\">";
    for (const std::string& record : m_styleRecords)
        out += record;
    out += "</cellStyleXfs>";
    m_cellFormats.AppendTo(out, "cellXfs");
    std::size_t names = 0;
    for (StyleId id = 0; id < m_book.Styles().size(); ++id)
        names += IsStored(id) && !m_book.Styles()[id].deleted;
    out += "<cellStyles count=\"" + std::to_string(names) + "\">" + m_styleNames + "</cellStyles>";
    return out + "<dxfs count=\"0\"/></styleSheet>";
}

} // namespace zek::office
