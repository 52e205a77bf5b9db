// Interior: the fill of cells or of a style. Members answer VT_NULL where the cells differ.
#pragma once

#include "spreadsheet/objects/FormatObject.h"

namespace zek::office {

class InteriorObject : public FormatObject
{
public:
    explicit InteriorObject(FormatTarget target) : FormatObject(std::move(target)) {}
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();

    // A colour makes an empty fill a solid one; no fill answers white.
    std::optional<double> Color();
    void SetColor(const Argument& value);
    // xlColorIndexNone takes the fill away.
    std::optional<LONG> ColorIndex();
    void SetColorIndex(const Argument& value);
    // XlPattern.
    std::optional<LONG> Pattern();
    void SetPattern(const Argument& value);
    std::optional<double> PatternColor();
    void SetPatternColor(const Argument& value);
    std::optional<LONG> PatternColorIndex();
    void SetPatternColorIndex(const Argument& value);
};

} // namespace zek::office
