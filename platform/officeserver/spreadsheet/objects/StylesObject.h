// Styles: the named styles of a workbook; Style: one of them.
#pragma once

#include "spreadsheet/objects/FormatTarget.h"
#include "spreadsheet/objects/ModelObject.h"

#include <string>

namespace zek::office {

class StyleObject final : public ModelObject
{
public:
    StyleObject(BookRef book, StyleId style) : m_book(std::move(book)), m_style(style) {}
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
    IDispatch* Parent() override;
    StyleId TheStyle() const { return m_style; }

    std::string Name();
    bool BuiltIn();
    IDispatch* Font();
    IDispatch* Interior();
    IDispatch* Borders(const Arguments& index);
    std::optional<std::string> NumberFormat();
    void SetNumberFormat(const Argument& value);
    std::optional<LONG> HorizontalAlignment();
    void SetHorizontalAlignment(const Argument& value);
    std::optional<LONG> VerticalAlignment();
    void SetVerticalAlignment(const Argument& value);
    std::optional<bool> WrapText();
    void SetWrapText(const Argument& value);
    // Built-in styles stay.
    bool Delete();

protected:
    SessionRef TheSession() const override { return SessionOf(m_book); }
    BookState* ChangedBook() const override { return m_book.get(); }

private:
    const Style& Known() const;
    FormatTarget Looks() const { return {m_book, m_style}; }

    BookRef m_book;
    StyleId m_style;
};

class StylesObject final : public ModelObject
{
public:
    explicit StylesObject(BookRef book) : m_book(std::move(book)) {}
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
    IDispatch* Parent() override;

    // A style that looks like "Normal", or like the first cell of the range `BasedOn`.
    IDispatch* Add(const Arguments& arguments);
    IDispatch* Item(const Arguments& index);
    LONG Count();
    IUnknown* NewEnum();

protected:
    SessionRef TheSession() const override { return SessionOf(m_book); }
    BookState* ChangedBook() const override { return m_book.get(); }

private:
    std::vector<StyleId> Kept() const;

    BookRef m_book;
};

} // namespace zek::office
