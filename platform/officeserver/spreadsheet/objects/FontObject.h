// Font: of cells or of a style. Members answer VT_NULL where the cells differ.
#pragma once

#include "spreadsheet/objects/FormatObject.h"

#include <string>

namespace zek::office {

class FontObject : public FormatObject
{
public:
    explicit FontObject(FormatTarget target) : FormatObject(std::move(target)) {}
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();

    std::optional<std::string> Name();
    void SetName(const Argument& value);
    // Points, 1 to 409.
    std::optional<double> Size();
    void SetSize(const Argument& value);
    std::optional<double> Color();
    void SetColor(const Argument& value);
    std::optional<LONG> ColorIndex();
    void SetColorIndex(const Argument& value);
    // XlUnderlineStyle; true is a single line, false none.
    std::optional<LONG> Underline();
    void SetUnderline(const Argument& value);
    // "Regular", "Bold", "Italic", "Bold Italic".
    std::optional<std::string> FontStyle();
    void SetFontStyle(const Argument& value);

    template <bool Font::*Flag>
    std::optional<bool> GetFlag()
    {
        return Target().Common([](const Format& format) { return format.font.*Flag; });
    }
    template <bool Font::*Flag>
    void SetFlag(const Argument& value)
    {
        const bool flag = value.Flag();
        Target().Change(kFontGroup, [flag](Format& format) { format.font.*Flag = flag; });
    }
    template <Script Kind>
    std::optional<bool> GetScript()
    {
        return Target().Common([](const Format& format) { return format.font.script == Kind; });
    }
    // Raised and lowered exclude each other; taking one away leaves the other.
    template <Script Kind>
    void SetScript(const Argument& value)
    {
        const bool flag = value.Flag();
        Target().Change(kFontGroup, [flag](Format& format) {
            if (flag || format.font.script == Kind)
                format.font.script = flag ? Kind : Script::Baseline;
        });
    }
};

} // namespace zek::office
