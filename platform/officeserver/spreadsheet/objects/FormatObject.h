// The base of Font, Interior, Borders and Border: parts of what cells or a style look like.
#pragma once

#include "spreadsheet/objects/FormatTarget.h"
#include "spreadsheet/objects/ModelObject.h"

namespace zek::office {

class FormatObject : public ModelObject
{
public:
    IDispatch* Parent() override;

protected:
    explicit FormatObject(FormatTarget target) : m_target(std::move(target)) {}
    SessionRef TheSession() const override { return SessionOf(m_target.TheBook()); }
    BookState* ChangedBook() const override { return m_target.TheBook().get(); }
    const FormatTarget& Target() const { return m_target; }

private:
    FormatTarget m_target;
};

// A colour as members answer it: 0x00BBGGRR as a floating-point number.
double ColorNumber(Color color, Color automatic);
// Refuses what is no colour.
Color ColorFrom(const Argument& value);
// 1 to 56, or the automatic colour for 0 and xlColorIndexAutomatic; refuses other numbers.
Color ColorOfIndex(LONG index);
LONG IndexOfColor(Color color);

} // namespace zek::office
