// PageSetup: how a sheet is printed.
#pragma once

#include "spreadsheet/objects/ModelObject.h"

#include <string>

namespace zek::office {

class PageSetupObject final : public ModelObject
{
public:
    explicit PageSetupObject(SheetRef sheet) : m_sheet(std::move(sheet)) {}
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
    IDispatch* Parent() override;

    // Points.
    template <double PageSetup::*Margin>
    double GetMargin()
    {
        return Page().*Margin;
    }
    template <double PageSetup::*Margin>
    void SetMargin(const Argument& value)
    {
        Page().*Margin = MarginFrom(value);
    }
    template <bool PageSetup::*Flag>
    bool GetFlag()
    {
        return Page().*Flag;
    }
    template <bool PageSetup::*Flag>
    void SetFlag(const Argument& value)
    {
        Page().*Flag = value.Flag();
    }
    template <std::array<std::string, 3> PageSetup::*Line, std::size_t Part>
    std::string GetLine()
    {
        return (Page().*Line)[Part];
    }
    // At most 255 characters together.
    template <std::array<std::string, 3> PageSetup::*Line, std::size_t Part>
    void SetLine(const Argument& value)
    {
        (Page().*Line)[Part] = LineFrom(value);
    }
    // Pages; false: as many as it takes.
    template <std::optional<int> PageSetup::*Pages>
    Value GetPages()
    {
        return PagesValue(Page().*Pages);
    }
    template <std::optional<int> PageSetup::*Pages>
    void SetPages(const Argument& value)
    {
        Page().*Pages = PagesFrom(value);
    }

    // XlPaperSize; A4 when nobody asked for a size.
    LONG PaperSize();
    void SetPaperSize(const Argument& value);
    LONG Orientation();
    void SetOrientation(const Argument& value);
    LONG Order();
    void SetOrder(const Argument& value);
    // Per cent, 10 to 400; false: fit to pages.
    Value Zoom();
    void SetZoom(const Argument& value);
    // xlAutomatic when there is none.
    LONG FirstPageNumber();
    void SetFirstPageNumber(const Argument& value);
    // "$A$1:$C$10"; "" for the whole sheet.
    std::string PrintArea();
    void SetPrintArea(const Argument& value);
    // "$1:$3" and "$A:$B"; "" for none.
    std::string PrintTitleRows();
    void SetPrintTitleRows(const Argument& value);
    std::string PrintTitleColumns();
    void SetPrintTitleColumns(const Argument& value);

protected:
    SessionRef TheSession() const override { return SessionOf(m_sheet); }
    BookState* ChangedBook() const override { return m_sheet->book; }

private:
    zek::office::PageSetup& Page() const { return Live(m_sheet).page; }
    static double MarginFrom(const Argument& value);
    static std::string LineFrom(const Argument& value);
    static Value PagesValue(std::optional<int> pages);
    static std::optional<int> PagesFrom(const Argument& value);
    std::vector<Block> AreasFrom(const Argument& value) const;

    SheetRef m_sheet;
};

} // namespace zek::office
