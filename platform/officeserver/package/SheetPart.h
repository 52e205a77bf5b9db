// A worksheet part. What is small is built as a tree; the cells are streamed into its place in the tree's
// text.
#pragma once

#include "package/BookContent.h"
#include "package/PartSource.h"
#include "package/StylesPart.h"

#include <pugixml.hpp>

#include <string>

namespace zek::office {

// Everything of the sheet but its cells; `document` then holds an empty sheetData element.
// `selected`: its tab is selected.
void BuildSheetFrame(pugi::xml_document& document, const Sheet& sheet, const StylesPart& styles,
                     bool selected);

// A column's width as files hold it: characters of the default font and the padding of a cell, in units of
// the widest digit, which is 7 pixels wide.
double StoredColumnWidth(double characters);

class SheetSource : public PartSource
{
public:
    // Sheet number `index`. `content` and `styles` must outlive the object.
    SheetSource(const BookContent& content, const StylesPart& styles, std::size_t index);

    void Next(std::string& piece) override;

private:
    void AppendRow(std::string& piece, const StoredRow& stored);
    void AppendRowHead(std::string& piece, const Row& row) const;
    void AppendCell(std::string& piece, const Cell& cell);
    void AppendValue(std::string& piece, const Cell& cell) const;
    void AppendFormula(std::string& piece, const Formula& formula) const;

    const BookContent& m_content;
    const StylesPart& m_styles;
    const Sheet& m_sheet;
    const std::vector<StoredRow>& m_rows;
    std::string m_head, m_tail; // the part's text before and behind the rows
    std::string m_rowNumber;    // of the row at hand, as text
    std::size_t m_next = 0;
    bool m_ended = false;
};

} // namespace zek::office
