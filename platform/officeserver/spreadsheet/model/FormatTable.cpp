#include "spreadsheet/model/FormatTable.h"

#include <initializer_list>

namespace zek::office {
namespace {

std::size_t Combine(std::initializer_list<std::uint64_t> words)
{
    std::uint64_t hash = 0;
    for (const std::uint64_t word : words) {
        hash = (hash ^ word) * 0x9E3779B97F4A7C15u;
        hash ^= hash >> 29;
    }
    return hash;
}

std::uint64_t Pair(std::uint64_t high, std::uint64_t low)
{
    return high << 32 | low;
}

std::uint64_t FlagsOf(const Format& f)
{
    std::uint64_t flags = 0;
    for (const bool flag : {f.font.bold, f.font.italic, f.font.strikethrough, f.font.outline, f.font.shadow,
                            f.borders.diagonalDown, f.borders.diagonalUp, f.alignment.wrap,
                            f.alignment.shrink, f.protection.locked, f.protection.formulaHidden})
        flags = flags << 1 | (flag ? 1 : 0);
    return flags;
}

std::uint64_t LineWord(const Line& line)
{
    return Pair(static_cast<std::uint64_t>(line.style), line.color);
}

std::uint64_t AlignmentWord(const Alignment& a)
{
    return static_cast<std::uint64_t>(a.horizontal) << 32 | static_cast<std::uint64_t>(a.vertical) << 24 |
           std::uint64_t{a.indent} << 16 | static_cast<std::uint16_t>(a.rotation);
}

} // namespace

std::size_t FormatTable::Hash::operator()(const Format& f) const
{
    const auto& lines = f.borders.lines;
    return Combine(
        {Pair(f.font.name, f.font.color),
         Pair(static_cast<std::uint64_t>(f.font.underline) << 8 | static_cast<std::uint64_t>(f.font.script),
              f.font.twips),
         FlagsOf(f), Pair(f.fill.color, f.fill.patternColor),
         Pair(static_cast<std::uint64_t>(f.fill.pattern), f.numberFormat), LineWord(lines[0]),
         LineWord(lines[1]), LineWord(lines[2]), LineWord(lines[3]), LineWord(lines[4]),
         AlignmentWord(f.alignment), Pair(f.style, f.ownGroups)});
}

FormatTable::FormatTable()
{
    Intern(Format{});
}

FormatId FormatTable::Intern(const Format& format)
{
    const auto [place, isNew] = m_index.try_emplace(format, static_cast<FormatId>(m_formats.size()));
    if (isNew)
        m_formats.push_back(format);
    return place->second;
}

void FormatTable::Restyle(StyleId style, const Format& styleFormat)
{
    Rework([&](Format& format) {
        if (format.style != style)
            return false;
        CopyGroups(format, styleFormat, static_cast<std::uint8_t>(kAllGroups & ~format.ownGroups));
        return true;
    });
}

void FormatTable::Rework(const std::function<bool(Format&)>& change)
{
    bool changed = false;
    for (Format& format : m_formats)
        changed |= change(format);
    if (!changed)
        return;
    m_index.clear();
    for (std::size_t id = 0; id < m_formats.size(); ++id)
        m_index.try_emplace(m_formats[id], static_cast<FormatId>(id));
}

} // namespace zek::office
