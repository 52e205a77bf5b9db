// Workbooks: the open workbooks; Workbook: one of them.
#pragma once

#include "spreadsheet/objects/ModelObject.h"

#include <string>

namespace zek::office {

class WorkbookObject final : public ModelObject
{
public:
    explicit WorkbookObject(BookRef book) : m_book(std::move(book)) {}
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
    IDispatch* Parent() override;

    std::string Name();
    std::string FullName();
    std::string Path();
    bool Saved();
    void SetSaved(const Argument& value);
    bool ReadOnly();
    LONG FileFormat();

    IDispatch* Sheets();
    IDispatch* ActiveSheet();
    IDispatch* Styles();
    IDispatch* Names();
    IDispatch* Windows();
    void Activate();

    // To the file it was last saved to; a new workbook goes to the current folder under its own name.
    void Save();
    // Arguments: file name, format, password, ... A name without an ending gets ".xlsx". Whatever the
    // ending, the content is Office Open XML. Passwords are refused, and so are other formats.
    void SaveAs(const Arguments& arguments);
    void SaveCopyAs(const Arguments& arguments);
    // Changes are saved when the first argument says so, else lost: there is nobody to ask.
    void Close(const Arguments& arguments);

protected:
    SessionRef TheSession() const override { return SessionOf(m_book); }
    // Saving is no change; what changes cells marks the workbook itself.
    void Changed() override {}

private:
    BookRef m_book;
};

class WorkbooksObject final : public ModelObject
{
public:
    explicit WorkbooksObject(SessionRef session) : m_session(std::move(session)) {}
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
    IDispatch* Parent() override;

    // With the number of sheets that the application is set to, or one for the worksheet template.
    IDispatch* Add(const Arguments& arguments);
    // Existing files cannot be opened yet: refuses.
    IDispatch* Open(const Arguments& arguments);
    // By number, or by name with or without its ending.
    IDispatch* Item(const Arguments& index);
    LONG Count();
    // Closes all; changes are lost.
    void Close();
    IUnknown* NewEnum();

protected:
    SessionRef TheSession() const override { return m_session; }

private:
    SessionRef m_session;
};

} // namespace zek::office
