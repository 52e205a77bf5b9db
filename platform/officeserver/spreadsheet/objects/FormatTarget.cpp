#include "spreadsheet/objects/FormatTarget.h"

namespace zek::office {

const Style& FormatTarget::Style() const
{
    const zek::office::Style& style = Live(m_book).Styles()[m_style];
    if (style.deleted)
        throw AutomationError();
    return style;
}

} // namespace zek::office
