// Application: the object that a started server hands out.
#pragma once

#include "spreadsheet/objects/ModelObject.h"

#include <string>

namespace zek::office {

// XlWindowState from an argument; refuses other numbers.
LONG WindowStateFrom(const Argument& value);

class ApplicationObject final : public ModelObject
{
public:
    explicit ApplicationObject(SessionRef session) : m_session(std::move(session)) {}
    const MemberTable& Table() const override { return Members(); }
    static const MemberTable& Members();
    IDispatch* Parent() override;

    std::string Name();
    std::string Version();
    IDispatch* Workbooks();
    IDispatch* Windows();
    // Null without an open workbook.
    IDispatch* ActiveWorkbook();
    IDispatch* ActiveWindow();
    IDispatch* ActiveSheet();
    // These refuse without an open workbook.
    IDispatch* ActiveCell();
    IDispatch* Selection();
    IDispatch* Sheets();
    IDispatch* Names();
    IDispatch* Cells();
    IDispatch* Range(const Arguments& corners);
    // Closes all workbooks; changes are lost. Objects that the host still holds refuse from then on.
    void Quit();

    template <auto Flag>
    bool GetFlag()
    {
        return m_session.get()->*Flag;
    }
    template <auto Flag>
    void SetFlag(const Argument& value)
    {
        m_session.get()->*Flag = value.Flag();
    }
    LONG WindowState();
    void SetWindowState(const Argument& value);
    LONG Calculation();
    void SetCalculation(const Argument& value);
    LONG CutCopyMode();
    void SetCutCopyMode(const Argument& value);
    // 1 to 255.
    LONG SheetsInNewWorkbook();
    void SetSheetsInNewWorkbook(const Argument& value);
    std::string Caption();
    void SetCaption(const Argument& value);
    // Of workbooks that are made from then on.
    std::string StandardFont();
    void SetStandardFont(const Argument& value);
    double StandardFontSize();
    void SetStandardFontSize(const Argument& value);
    double CentimetersToPoints(const Arguments& arguments);
    double InchesToPoints(const Arguments& arguments);

protected:
    SessionRef TheSession() const override { return m_session; }

private:
    BookRef Active() const;

    SessionRef m_session;
};

} // namespace zek::office
