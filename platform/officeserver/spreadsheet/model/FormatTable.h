// The formats of a workbook, each held once and named by a number.
#pragma once

#include "spreadsheet/model/Format.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <unordered_map>
#include <vector>

namespace zek::office {

using FormatId = std::uint32_t;

// What a cell looks like that nobody formatted.
constexpr FormatId kDefaultFormat = 0;

class FormatTable
{
public:
    FormatTable();

    // The number of `format`, the same for equal formats.
    FormatId Intern(const Format& format);

    const Format& At(FormatId id) const { return m_formats[id]; }
    std::size_t Size() const { return m_formats.size(); }

    // After a style changed: every format of that style takes the groups it does not set itself. Numbers
    // stay; two of them may then stand for equal formats.
    void Restyle(StyleId style, const Format& styleFormat);

    // Every format for which `change` answers true was changed by it; numbers stay.
    void Rework(const std::function<bool(Format&)>& change);

private:
    struct Hash {
        std::size_t operator()(const Format& format) const;
    };
    std::vector<Format> m_formats;
    std::unordered_map<Format, FormatId, Hash> m_index;
};

} // namespace zek::office
