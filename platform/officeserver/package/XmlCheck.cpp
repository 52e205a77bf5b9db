#include "package/XmlCheck.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zek::office {
namespace {

constexpr std::string_view kSpaces = " \t\r\n";

// Characters that need no look: neither markup nor control nor beyond ASCII.
constexpr std::array<bool, 256> MakePlainTable()
{
    std::array<bool, 256> table{};
    for (unsigned c = 0x20; c < 0x80; ++c)
        table[c] = c != '<' && c != '&';
    table['\t'] = table['\r'] = table['\n'] = true;
    return table;
}
constexpr std::array<bool, 256> kPlain = MakePlainTable();

bool IsCharacter(unsigned long code)
{
    return code == '\t' || code == '\n' || code == '\r' || (code >= 0x20 && code <= 0xD7FF) ||
           (code >= 0xE000 && code <= 0xFFFD) || (code >= 0x10000 && code <= 0x10FFFF);
}

// The bytes of the UTF-8 sequence at the front, 0 when there is none or XML does not allow it.
std::size_t WideSize(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < size)
        return 0;
    unsigned long code = lead & (0xFFu >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) {
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80)
            return 0;
        code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
    }
    constexpr unsigned long kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    return code >= kSmallest[size] && IsCharacter(code) ? size : 0;
}

bool IsNumberEntity(std::string_view digits)
{
    const bool hex = !digits.empty() && digits[0] == 'x';
    digits.remove_prefix(hex ? 1 : 0);
    unsigned long code = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), code, hex ? 16 : 10);
    return error == std::errc() && end == digits.data() + digits.size() && IsCharacter(code);
}

// The bytes of the entity at the front, 0 when it is none that may stand there.
std::size_t EntitySize(std::string_view text)
{
    const std::size_t end = text.find(';');
    if (end == std::string_view::npos || end < 2)
        return 0;
    const std::string_view name = text.substr(1, end - 1);
    constexpr std::string_view kNames[] = {"amp", "lt", "gt", "quot", "apos"};
    const bool known = name[0] == '#'
                           ? IsNumberEntity(name.substr(1))
                           : std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames);
    return known ? end + 1 : 0;
}

bool IsText(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        const auto c = static_cast<unsigned char>(text[at]);
        const std::size_t size = kPlain[c]   ? 1
                                 : c == '&'  ? EntitySize(text.substr(at))
                                 : c >= 0x80 ? WideSize(text.substr(at))
                                             : 0;
        if (size == 0)
            return false;
        at += size;
    }
    return true;
}

bool IsNameCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ':' ||
           c == '_' || c == '-' || c == '.' || static_cast<unsigned char>(c) >= 0x80;
}

// Cuts the name off the front; "" when there is none.
std::string_view CutName(std::string_view& text)
{
    std::size_t size = 0;
    while (size < text.size() && IsNameCharacter(text[size]))
        ++size;
    if (size > 0 && ((text[0] >= '0' && text[0] <= '9') || text[0] == '-' || text[0] == '.'))
        size = 0;
    const std::string_view name = text.substr(0, size);
    text.remove_prefix(size);
    return name;
}

// Cuts ` name="value"` off the front; "" when it is none.
std::string_view CutAttribute(std::string_view& text)
{
    const std::size_t start = text.find_first_not_of(kSpaces);
    if (start == 0 || start == std::string_view::npos)
        return {};
    text.remove_prefix(start);
    const std::string_view name = CutName(text);
    if (name.empty() || text.size() < 3 || text[0] != '=' || (text[1] != '"' && text[1] != '\''))
        return {};
    const std::size_t end = text.find(text[1], 2);
    if (end == std::string_view::npos || !IsText(text.substr(2, end - 2)))
        return {};
    text.remove_prefix(end + 1);
    return name;
}

bool AreAttributes(std::string_view text)
{
    constexpr std::size_t kMany = 64; // more than any tag of ours has
    std::array<std::string_view, kMany> names;
    std::size_t count = 0;
    while (text.find_first_not_of(kSpaces) != std::string_view::npos) {
        const std::string_view name = CutAttribute(text);
        const auto end = names.begin() + static_cast<std::ptrdiff_t>(count);
        if (name.empty() || count == kMany || std::find(names.begin(), end, name) != end)
            return false;
        names[count++] = name;
    }
    return true;
}

// True when the tag, whose last character is '>', ends there and not inside a value or a comment.
bool IsWholeTag(std::string_view tag)
{
    if (tag.starts_with("<?"))
        return tag.size() >= 4 && tag.ends_with("?>");
    if (tag.starts_with("<!--"))
        return tag.size() >= 7 && tag.ends_with("-->");
    if (tag.starts_with("<![CDATA["))
        return tag.size() >= 12 && tag.ends_with("]]>");
    char quote = 0;
    for (char c : tag)
        if (quote == 0 && (c == '"' || c == '\''))
            quote = c;
        else if (c == quote)
            quote = 0;
    return quote == 0;
}

} // namespace

// The size of the rest of the token at the front of `piece`; npos when it does not end there.
std::size_t XmlCheck::TokenEnd(std::string_view piece) const
{
    if (!m_inTag)
        return piece.find('<');
    for (std::size_t end = piece.find('>'); end != std::string_view::npos; end = piece.find('>', end + 1)) {
        const std::string_view here = piece.substr(0, end + 1);
        if (m_token.empty() ? IsWholeTag(here) : IsWholeTag(m_token + std::string(here)))
            return end + 1;
    }
    return std::string_view::npos;
}

bool XmlCheck::Add(const char* data, std::size_t size)
{
    std::string_view piece(data, size);
    while (!m_broken && !piece.empty()) {
        const std::size_t end = TokenEnd(piece);
        if (end == std::string_view::npos) {
            m_token.append(piece);
            break;
        }
        if (m_token.empty())
            m_broken = !TakeToken(piece.substr(0, end));
        else
            m_broken = !TakeToken(m_token.append(piece.substr(0, end)));
        m_token.clear();
        piece.remove_prefix(end);
        m_inTag = !m_inTag;
    }
    return !m_broken;
}

bool XmlCheck::IsComplete() const
{
    return !m_broken && m_rootSeen && m_open.empty() && !m_inTag &&
           m_token.find_first_not_of(kSpaces) == std::string::npos;
}

bool XmlCheck::TakeToken(std::string_view token)
{
    return m_inTag ? TakeTag(token) : TakeText(token);
}

bool XmlCheck::TakeText(std::string_view text) const
{
    return m_open.empty() ? text.find_first_not_of(kSpaces) == std::string_view::npos : IsText(text);
}

bool XmlCheck::TakeTag(std::string_view tag)
{
    if (tag.starts_with("<?") || tag.starts_with("<!--"))
        return true;
    if (tag.starts_with("<!"))
        return tag.starts_with("<![CDATA[") && !m_open.empty();
    if (tag.starts_with("</"))
        return TakeEndTag(tag.substr(2, tag.size() - 3));
    const bool empty = tag.ends_with("/>");
    std::string_view rest = tag.substr(1, tag.size() - (empty ? 3 : 2));
    const std::string_view name = CutName(rest);
    if (name.empty() || (m_open.empty() && m_rootSeen) || !AreAttributes(rest))
        return false;
    m_rootSeen = true;
    if (!empty) {
        m_open.push_back(m_names.size());
        m_names.append(name);
    }
    return true;
}

bool XmlCheck::TakeEndTag(std::string_view name)
{
    name = name.substr(0, name.find_last_not_of(kSpaces) + 1);
    if (m_open.empty() || std::string_view(m_names).substr(m_open.back()) != name)
        return false;
    m_names.resize(m_open.back());
    m_open.pop_back();
    return true;
}

} // namespace zek::office
