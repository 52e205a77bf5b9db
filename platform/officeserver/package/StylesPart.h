// The styles part: fonts, fills, borders, number formats, styles and cell formats, each once.
#pragma once

#include "package/BookContent.h"

#include <map>
#include <string>
#include <vector>

namespace zek::office {

// Pieces of XML, each held once and known by its number.
class PieceList
{
public:
    unsigned Intern(const std::string& piece);
    // <element count="n">pieces</element>
    void AppendTo(std::string& out, const char* element) const;

private:
    std::vector<const std::string*> m_pieces; // keys of m_numbers
    std::map<std::string, unsigned> m_numbers;
};

class StylesPart
{
public:
    // Throws SaveError(EINVAL) for more cell formats than a file can hold.
    explicit StylesPart(const BookContent& content);

    // The number by which cells refer to a format of `content.formats`.
    unsigned CellFormat(FormatId format) const { return m_numbers[format]; }

    std::string Text() const;

private:
    void AddStyles();
    std::string StyleRecord(const Format& format);
    std::string CellRecord(const Format& format);
    std::string Record(const Format& format, const std::string& attributes);
    unsigned NumberFormat(TextId id);
    std::string FontPiece(const Font& font) const;
    bool IsStored(StyleId style) const;
    void AppendNumberFormats(std::string& out) const;

    const Workbook& m_book;
    PieceList m_fonts, m_fills, m_borders, m_cellFormats;
    std::map<TextId, unsigned> m_numberFormats; // those that are not built in
    std::vector<bool> m_styleUsed;              // by StyleId
    std::vector<unsigned> m_styleNumbers;       // by StyleId
    std::vector<std::string> m_styleRecords;
    std::string m_styleNames;
    std::vector<unsigned> m_numbers; // by FormatId
};

} // namespace zek::office
