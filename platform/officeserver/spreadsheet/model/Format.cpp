#include "spreadsheet/model/Format.h"

namespace zek::office {

void CopyGroups(Format& target, const Format& source, std::uint8_t groups)
{
    if (groups & kNumberGroup)
        target.numberFormat = source.numberFormat;
    if (groups & kFontGroup)
        target.font = source.font;
    if (groups & kAlignmentGroup)
        target.alignment = source.alignment;
    if (groups & kBorderGroup)
        target.borders = source.borders;
    if (groups & kFillGroup)
        target.fill = source.fill;
    if (groups & kProtectionGroup)
        target.protection = source.protection;
}

} // namespace zek::office
