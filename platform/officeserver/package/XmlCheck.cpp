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

// What the functions that take a token from the front of a text answer instead of its size.
constexpr std::size_t kIncomplete = std::string_view::npos;
constexpr std::size_t kBroken = kIncomplete - 1;

std::size_t NameSize(std::string_view text)
{
    if (text.empty() || (text[0] >= '0' && text[0] <= '9') || text[0] == '-' || text[0] == '.')
        return 0;
    std::size_t size = 0;
    while (size < text.size() && IsNameCharacter(text[size]))
        ++size;
    return size;
}

std::size_t SpaceSize(std::string_view text)
{
    return std::min(text.find_first_not_of(kSpaces), text.size());
}

// The attributes of one tag, from which a name that comes twice is told.
struct Attributes {
    static constexpr std::size_t kMany = 64; // more than any tag of ours has
    std::array<std::string_view, kMany> names;
    std::size_t count = 0;

    bool Add(std::string_view name)
    {
        const auto end = names.begin() + static_cast<std::ptrdiff_t>(count);
        if (count == kMany || std::find(names.begin(), end, name) != end)
            return false;
        names[count++] = name;
        return true;
    }
};

// Takes `name="value"`.
std::size_t TakeAttribute(std::string_view text, Attributes& attributes)
{
    const std::size_t name = NameSize(text);
    if (name + 2 >= text.size())
        return kIncomplete;
    const char quote = text[name + 1];
    if (name == 0 || text[name] != '=' || (quote != '"' && quote != '\''))
        return kBroken;
    const std::size_t start = name + 2;
    const std::size_t end = text.find(quote, start);
    if (end == std::string_view::npos)
        return kIncomplete;
    if (!IsText(text.substr(start, end - start)) || !attributes.Add(text.substr(0, name)))
        return kBroken;
    return end + 1;
}

// Takes the attributes behind a tag's name, up to its "/>" or ">".
std::size_t TakeAttributes(std::string_view text)
{
    Attributes attributes;
    for (std::size_t at = 0;;) {
        const std::size_t spaces = SpaceSize(text.substr(at));
        at += spaces;
        if (at == text.size())
            return kIncomplete;
        if (text[at] == '>' || text[at] == '/')
            return at;
        const std::size_t size = spaces > 0 ? TakeAttribute(text.substr(at), attributes) : kBroken;
        if (size >= kBroken)
            return size;
        at += size;
    }
}

struct Section {
    std::string_view begin, end;
    bool insideRoot; // may stand in an element only
};
constexpr Section kSections[] = {{"<?", "?>", false}, {"<!--", "-->", false}, {"<![CDATA[", "]]>", true}};

} // namespace

bool XmlCheck::Add(const char* data, std::size_t size)
{
    std::string joined;
    joined.swap(m_rest);
    if (!joined.empty())
        joined.append(data, size);
    std::string_view text = joined.empty() ? std::string_view(data, size) : joined;
    while (!m_broken && !text.empty()) {
        const std::size_t taken = TakeToken(text);
        if (taken == kIncomplete)
            break;
        m_broken = taken == kBroken;
        text.remove_prefix(m_broken ? text.size() : taken);
    }
    m_rest = text;
    return !m_broken;
}

bool XmlCheck::IsComplete() const
{
    return !m_broken && m_rootSeen && m_open.empty() && SpaceSize(m_rest) == m_rest.size();
}

std::size_t XmlCheck::TakeToken(std::string_view text)
{
    if (text[0] != '<')
        return TakeText(text);
    if (text.size() < 2)
        return kIncomplete;
    if (text[1] == '/')
        return TakeEndTag(text);
    return text[1] == '?' || text[1] == '!' ? TakeDeclaration(text) : TakeStartTag(text);
}

std::size_t XmlCheck::TakeText(std::string_view text)
{
    const std::size_t end = text.find('<');
    if (end == std::string_view::npos)
        return kIncomplete;
    text = text.substr(0, end);
    const bool good = m_open.empty() ? SpaceSize(text) == text.size() : IsText(text);
    return good ? end : kBroken;
}

std::size_t XmlCheck::TakeDeclaration(std::string_view text)
{
    for (const Section& section : kSections) {
        if (!text.starts_with(section.begin)) {
            if (section.begin.starts_with(text))
                return kIncomplete;
            continue;
        }
        const std::size_t end = text.find(section.end, section.begin.size());
        if (section.insideRoot && m_open.empty())
            return kBroken;
        return end == std::string_view::npos ? kIncomplete : end + section.end.size();
    }
    return kBroken;
}

std::size_t XmlCheck::TakeEndTag(std::string_view text)
{
    const std::size_t end = text.find('>');
    if (end == std::string_view::npos)
        return kIncomplete;
    const std::string_view inside = text.substr(2, end - 2);
    const std::string_view name = inside.substr(0, inside.find_last_not_of(kSpaces) + 1);
    if (m_open.empty() || std::string_view(m_names).substr(m_open.back()) != name)
        return kBroken;
    m_names.resize(m_open.back());
    m_open.pop_back();
    return end + 1;
}

std::size_t XmlCheck::TakeStartTag(std::string_view text)
{
    const std::string_view name = text.substr(1, NameSize(text.substr(1)));
    const std::size_t attributes = TakeAttributes(text.substr(1 + name.size()));
    if (attributes == kIncomplete)
        return kIncomplete;
    if (attributes == kBroken || name.empty() || (m_open.empty() && m_rootSeen))
        return kBroken;
    const std::size_t end = 1 + name.size() + attributes;
    if (text.substr(end).starts_with("/>")) {
        m_rootSeen = true;
        return end + 2;
    }
    if (text[end] != '>')
        return end + 1 == text.size() ? kIncomplete : kBroken;
    m_rootSeen = true;
    m_open.push_back(m_names.size());
    m_names.append(name);
    return end + 1;
}

} // namespace zek::office
