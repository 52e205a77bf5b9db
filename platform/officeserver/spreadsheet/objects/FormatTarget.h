// What a Font, Interior, Borders or Style object changes: cells of a sheet, or a style.
#pragma once

#include "spreadsheet/Session.h"

#include <optional>
#include <utility>
#include <vector>

namespace zek::office {

class FormatTarget
{
public:
    FormatTarget(SheetRef sheet, std::vector<Block> areas)
        : m_sheet(std::move(sheet)), m_areas(std::move(areas))
    {
    }
    FormatTarget(BookRef book, StyleId style) : m_book(std::move(book)), m_style(style) {}

    bool IsStyle() const { return m_book != nullptr; }
    const SheetRef& TheSheet() const { return m_sheet; }
    const std::vector<Block>& Areas() const { return m_areas; }
    BookRef TheBook() const { return m_book ? m_book : BookOf(m_sheet); }
    StyleId TheStyle() const { return m_style; }
    Workbook& Model() const { return Live(TheBook()); }

    // edit(Format&) for every format; the attribute groups in `groups` become the cells' own.
    template <class Edit>
    void Change(std::uint8_t groups, Edit&& edit) const
    {
        if (IsStyle()) {
            Format format = Style().format;
            edit(format);
            Model().ChangeStyle(m_style, format);
            return;
        }
        for (const Block& area : m_areas)
            ChangeCells(area, groups, edit);
    }

    // The same for one block of the sheet.
    template <class Edit>
    void ChangeCells(const Block& block, std::uint8_t groups, Edit&& edit) const
    {
        Sheet& sheet = Live(m_sheet);
        FormatTable& formats = sheet.Book().Formats();
        sheet.ChangeFormat(block, [&](FormatId id) {
            Format format = formats.At(id);
            edit(format);
            format.ownGroups |= groups;
            return formats.Intern(format);
        });
    }

    // What read(const Format&) answers for every format; nothing when they differ.
    template <class Read>
    auto Common(Read&& read) const -> std::optional<decltype(read(std::declval<const Format&>()))>
    {
        if (IsStyle())
            return read(Style().format);
        std::optional<decltype(read(std::declval<const Format&>()))> common;
        bool same = true;
        for (const Block& area : m_areas)
            Live(m_sheet).VisitFormats(area, [&](FormatId id) {
                auto value = read(Live(m_sheet).Book().Formats().At(id));
                same = same && (!common || *common == value);
                common = std::move(value);
                return same;
            });
        return same ? common : std::nullopt;
    }

private:
    // The style, which must not have been deleted.
    const zek::office::Style& Style() const;

    SheetRef m_sheet;
    std::vector<Block> m_areas;
    BookRef m_book;
    StyleId m_style = kNormalStyle;
};

} // namespace zek::office
