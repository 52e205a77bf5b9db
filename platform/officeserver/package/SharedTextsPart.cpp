#include "package/SharedTextsPart.h"

#include "package/ContentTypes.h"
#include "package/SaveError.h"
#include "package/XmlText.h"
#include "spreadsheet/model/Unicode.h"

#include <cerrno>

namespace zek::office {
namespace {

constexpr std::size_t kPieceSize = 64 * 1024;

} // namespace

void SharedTextsSource::Next(std::string& piece)
{
    if (m_ended)
        return;
    if (!m_begun)
        AppendHead(piece);
    m_begun = true;
    while (m_next < m_content.texts.size() && piece.size() < kPieceSize)
        AppendText(piece, m_content.book.Texts().Text(m_content.texts[m_next++]));
    if (m_next < m_content.texts.size())
        return;
    piece += "</sst>";
    m_ended = true;
}

void SharedTextsSource::AppendHead(std::string& piece) const
{
    piece += kXmlDeclaration;
    piece += "<sst xmlns=\"";
    piece += kSheetNamespace;
    piece += "\" count=\"" + std::to_string(m_content.textCells);
    piece += "\" uniqueCount=\"" + std::to_string(m_content.texts.size()) + "\">";
}

void SharedTextsSource::AppendText(std::string& piece, std::string_view text) const
{
    // A UTF-16 unit takes at least one byte, so most texts need no counting.
    if (text.size() > kMaxCellText && Utf16Length(text) > kMaxCellText)
        throw SaveError(EINVAL, "Cannot save a text of more than 32767 characters");
    piece += NeedsPreservedSpace(text) ? "<si><t xml:space=\"preserve\">" : "<si><t>";
    AppendStoredText(piece, text);
    piece += "</t></si>";
}

} // namespace zek::office
