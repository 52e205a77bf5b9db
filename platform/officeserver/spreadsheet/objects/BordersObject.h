// Borders: all edges and inner lines of cells together; Border: one of them.
#pragma once

#include "spreadsheet/objects/BorderLines.h"
#include "spreadsheet/objects/FormatObject.h"

#include <vector>

namespace zek::office {

// A group of border lines. Members answer VT_NULL where lines differ.
class BorderLinesObject : public FormatObject
{
public:
    // XlLineStyle; a style draws lines, xlNone takes them away.
    std::optional<LONG> LineStyle();
    void SetLineStyle(const Argument& value);
    // XlBorderWeight. A weight, or a colour, draws a line where there was none.
    std::optional<LONG> Weight();
    void SetWeight(const Argument& value);
    std::optional<double> Color();
    void SetColor(const Argument& value);
    // xlColorIndexNone takes the lines away.
    std::optional<LONG> ColorIndex();
    void SetColorIndex(const Argument& value);

protected:
    BorderLinesObject(FormatTarget target, std::vector<LONG> indices)
        : FormatObject(std::move(target)), m_indices(std::move(indices))
    {
    }
    void Change(const std::function<void(Line&)>& edit);

private:
    template <class Read>
    auto CommonOf(Read read) -> std::optional<decltype(read(Line{}))>;

    std::vector<LONG> m_indices;
};

class BorderObject final : public BorderLinesObject
{
public:
    BorderObject(FormatTarget target, LONG index) : BorderLinesObject(std::move(target), {index}) {}
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
};

class BordersObject final : public BorderLinesObject
{
public:
    // The four edges of every cell: a block's outer edges and its inner lines, no diagonals.
    explicit BordersObject(FormatTarget target);
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();

    IDispatch* Item(const Arguments& arguments);
    LONG Count();
};

} // namespace zek::office
