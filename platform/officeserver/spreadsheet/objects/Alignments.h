// Alignments and number formats, which Range and Style both have, in the object model's numbers.
#pragma once

#include "automation/Arguments.h"
#include "spreadsheet/objects/FormatTarget.h"

#include <optional>
#include <string>

namespace zek::office {

std::optional<LONG> HorizontalOf(const FormatTarget& target);
void PutHorizontal(const FormatTarget& target, const Argument& value);
std::optional<LONG> VerticalOf(const FormatTarget& target);
void PutVertical(const FormatTarget& target, const Argument& value);
std::optional<LONG> RotationOf(const FormatTarget& target);
void PutRotation(const FormatTarget& target, const Argument& value);
std::optional<LONG> IndentOf(const FormatTarget& target);
void PutIndent(const FormatTarget& target, const Argument& value);
std::optional<std::string> NumberFormatOf(const FormatTarget& target);
// Refuses formats that cannot be one: longer than 255 characters, quotes or brackets left open.
void PutNumberFormat(const FormatTarget& target, const Argument& value);

template <bool Alignment::*Flag>
std::optional<bool> AlignmentFlagOf(const FormatTarget& target)
{
    return target.Common([](const Format& format) { return format.alignment.*Flag; });
}
template <bool Alignment::*Flag>
void PutAlignmentFlag(const FormatTarget& target, const Argument& value)
{
    const bool flag = value.Flag();
    target.Change(kAlignmentGroup, [flag](Format& format) { format.alignment.*Flag = flag; });
}

} // namespace zek::office
