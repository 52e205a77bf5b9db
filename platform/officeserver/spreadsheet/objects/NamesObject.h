// Names: the defined names of a workbook; Name: one of them.
#pragma once

#include "spreadsheet/objects/ModelObject.h"

#include <string>

namespace zek::office {

// Defines a name or gives it a new meaning. "Sheet!Name" is a name of that sheet alone. Refuses what is no
// name. `refersTo` is a formula without '='; `scope` null: the whole workbook.
void DefineName(const BookRef& book, std::string_view name, std::string_view refersTo, const Sheet* scope);

class NameObject final : public ModelObject
{
public:
    NameObject(BookRef book, const DefinedName& name)
        : m_book(std::move(book)), m_name(name.name), m_scope(name.scope)
    {
    }
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
    IDispatch* Parent() override;

    // With the sheet's name before it when it is a sheet's own.
    std::string Name();
    void SetName(const Argument& value);
    // With the leading '='.
    std::string RefersTo();
    void SetRefersTo(const Argument& value);
    IDispatch* RefersToRange();
    bool Visible();
    void SetVisible(const Argument& value);
    void Delete();

protected:
    SessionRef TheSession() const override { return SessionOf(m_book); }
    BookState* ChangedBook() const override { return m_book.get(); }

private:
    DefinedName& Known();

    BookRef m_book;
    std::string m_name;
    const Sheet* m_scope;
};

class NamesObject final : public ModelObject
{
public:
    explicit NamesObject(BookRef book) : m_book(std::move(book)) {}
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
    IDispatch* Parent() override;

    IDispatch* Add(const Arguments& arguments);
    IDispatch* Item(const Arguments& index);
    LONG Count();
    IUnknown* NewEnum();

protected:
    SessionRef TheSession() const override { return SessionOf(m_book); }
    BookState* ChangedBook() const override { return m_book.get(); }

private:
    BookRef m_book;
};

} // namespace zek::office
