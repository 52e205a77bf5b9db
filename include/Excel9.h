// Typed dispatch drivers for the spreadsheet program's object model, type library of its release 2000.
//
//   Excel9::Range range(sheet.GetRange(COleVariant("A1"), COleVariant("C4")));
//   range.SetNumberFormat(COleVariant("0.00"));
//
// Each member is one automation call by its fixed identifier; no name is looked up. A property X is GetX and
// SetX (SetRefX where an object is put by reference), a method bears its own name.
// Errors: as COleDispatchDriver::InvokeHelper.
// Ownership: an LPDISPATCH or VARIANT that comes back is the caller's; give an object to a driver.
#pragma once

#include <afxdisp.h>

#include "Excel9Enums.h"

namespace Excel9 {

// The kinds of call that the drivers are made of.
class Driver : public COleDispatchDriver
{
public:
    using COleDispatchDriver::COleDispatchDriver;

protected:
    // One VARIANT parameter for each of `values`.
    template <class... VALUES>
    void Invoke(DISPID id, WORD kind, VARTYPE type, void* result, const VALUES&... values)
    {
        static constexpr BYTE kParameters[] = {kVariant<VALUES>..., 0};
        InvokeHelper(id, kind, type, result, kParameters, static_cast<const VARIANT*>(&values)...);
    }
    template <class T>
    T Get(DISPID id, VARTYPE type)
    {
        T value{};
        InvokeHelper(id, DISPATCH_PROPERTYGET, type, &value, VTS_NONE);
        return value;
    }
    template <class... VALUES>
    LPDISPATCH GetDispatch(DISPID id, const VALUES&... values)
    {
        LPDISPATCH object = nullptr;
        Invoke(id, DISPATCH_PROPERTYGET, VT_DISPATCH, &object, values...);
        return object;
    }
    template <class... VALUES>
    LPDISPATCH CallForDispatch(DISPID id, const VALUES&... values)
    {
        LPDISPATCH object = nullptr;
        Invoke(id, DISPATCH_METHOD, VT_DISPATCH, &object, values...);
        return object;
    }
    template <class... VALUES>
    void Call(DISPID id, const VALUES&... values)
    {
        Invoke(id, DISPATCH_METHOD, VT_EMPTY, nullptr, values...);
    }
    CString GetText(DISPID id) { return Get<CString>(id, VT_BSTR); }
    LONG GetLong(DISPID id) { return Get<LONG>(id, VT_I4); }
    VARIANT GetVariant(DISPID id) { return Get<VARIANT>(id, VT_VARIANT); }

    void PutVariant(DISPID id, const VARIANT& value)
    {
        Invoke(id, DISPATCH_PROPERTYPUT, VT_EMPTY, nullptr, value);
    }
    void PutText(DISPID id, LPCTSTR value) { SetProperty(id, VT_BSTR, value); }
    void PutLong(DISPID id, LONG value) { SetProperty(id, VT_I4, value); }
    void PutDouble(DISPID id, double value) { SetProperty(id, VT_R8, value); }
    void PutBool(DISPID id, BOOL value) { SetProperty(id, VT_BOOL, value); }

private:
    template <class VALUE>
    static constexpr BYTE kVariant = VT_VARIANT;
};

class _Application : public Driver
{
public:
    using Driver::Driver;
    LPDISPATCH GetWorkbooks() { return GetDispatch(0x23C); }
    LPDISPATCH GetWindows() { return GetDispatch(0x1AE); }
    LPDISPATCH GetActiveWindow() { return GetDispatch(0x2F7); }
    void SetDisplayAlerts(BOOL value) { PutBool(0x157, value); }
    void SetVisible(BOOL value) { PutBool(0x22E, value); }
    void SetWindowState(LONG value) { PutLong(0x18C, value); }
    void SetStandardFont(LPCTSTR value) { PutText(0x39C, value); }
    void SetStandardFontSize(double value) { PutDouble(0x39D, value); }
    void Quit() { Call(0x12E); }
};

class Workbooks : public Driver
{
public:
    using Driver::Driver;
    LPDISPATCH Add(const VARIANT& pattern) { return CallForDispatch(0xB5, pattern); }
    LPDISPATCH Open(const VARIANT& fileName, const VARIANT& updateLinks, const VARIANT& readOnly,
                    const VARIANT& format, const VARIANT& password, const VARIANT& writeResPassword,
                    const VARIANT& ignoreReadOnlyRecommended, const VARIANT& origin, const VARIANT& delimiter,
                    const VARIANT& editable, const VARIANT& notify, const VARIANT& converter,
                    const VARIANT& addToMru)
    {
        return CallForDispatch(0x2AA, fileName, updateLinks, readOnly, format, password, writeResPassword,
                               ignoreReadOnlyRecommended, origin, delimiter, editable, notify, converter,
                               addToMru);
    }
    LPDISPATCH GetItem(const VARIANT& index) { return GetDispatch(0xAA, index); }
    void Close() { Call(0x115); }
};

class _Workbook : public Driver
{
public:
    using Driver::Driver;
    LPDISPATCH GetSheets() { return GetDispatch(0x1E5); }
    LPDISPATCH GetStyles() { return GetDispatch(0x1ED); }
    CString GetName() { return GetText(0x6E); }
    void Save() { Call(0x11B); }
    void SaveAs(const VARIANT& fileName, const VARIANT& fileFormat, const VARIANT& password,
                const VARIANT& writeResPassword, const VARIANT& readOnlyRecommended,
                const VARIANT& createBackup, LONG accessMode, const VARIANT& conflictResolution,
                const VARIANT& addToMru, const VARIANT& textCodepage, const VARIANT& textVisualLayout)
    {
        static constexpr BYTE kParameters[] = VTS_VARIANT VTS_VARIANT VTS_VARIANT VTS_VARIANT VTS_VARIANT
            VTS_VARIANT VTS_I4 VTS_VARIANT VTS_VARIANT VTS_VARIANT VTS_VARIANT;
        InvokeHelper(0x11C, DISPATCH_METHOD, VT_EMPTY, nullptr, kParameters, &fileName, &fileFormat,
                     &password, &writeResPassword, &readOnlyRecommended, &createBackup, accessMode,
                     &conflictResolution, &addToMru, &textCodepage, &textVisualLayout);
    }
    void Close(const VARIANT& saveChanges, const VARIANT& fileName, const VARIANT& routeWorkbook)
    {
        Call(0x115, saveChanges, fileName, routeWorkbook);
    }
};

class Sheets : public Driver
{
public:
    using Driver::Driver;
    LPDISPATCH Add(const VARIANT& before, const VARIANT& after, const VARIANT& count, const VARIANT& type)
    {
        return CallForDispatch(0xB5, before, after, count, type);
    }
    LPDISPATCH GetItem(const VARIANT& index) { return GetDispatch(0xAA, index); }
    LONG GetCount() { return GetLong(0x76); }
};

class _Worksheet : public Driver
{
public:
    using Driver::Driver;
    CString GetName() { return GetText(0x6E); }
    void SetName(LPCTSTR value) { PutText(0x6E, value); }
    void SetVisible(LONG value) { PutLong(0x22E, value); }
    void SetDisplayPageBreaks(BOOL value) { PutBool(0x59B, value); }
    void Delete() { Call(0x75); }
    void Move(const VARIANT& before, const VARIANT& after) { Call(0x27D, before, after); }
    void Copy(const VARIANT& before, const VARIANT& after) { Call(0x227, before, after); }
    void Select(const VARIANT& replace) { Call(0xEB, replace); }
    LPDISPATCH GetRange(const VARIANT& cell1, const VARIANT& cell2)
    {
        return GetDispatch(0xC5, cell1, cell2);
    }
    LPDISPATCH GetCells() { return GetDispatch(0xEE); }
    LPDISPATCH GetUsedRange() { return GetDispatch(0x19C); }
    LPDISPATCH GetPageSetup() { return GetDispatch(0x3E6); }
    LPDISPATCH GetHPageBreaks() { return GetDispatch(0x58A); }
};

class Range : public Driver
{
public:
    using Driver::Driver;
    LPDISPATCH GetRows() { return GetDispatch(0x102); }
    LPDISPATCH GetColumns() { return GetDispatch(0xF1); }
    LPDISPATCH GetEntireColumn() { return GetDispatch(0xF6); }
    LPDISPATCH GetFont() { return GetDispatch(0x92); }
    LPDISPATCH GetInterior() { return GetDispatch(0x81); }
    LPDISPATCH GetBorders() { return GetDispatch(0x1B3); }
    VARIANT GetValue() { return GetVariant(6); }
    void SetValue(const VARIANT& value) { PutVariant(6, value); }
    VARIANT GetName() { return GetVariant(0x6E); }
    void SetName(const VARIANT& value) { PutVariant(0x6E, value); }
    VARIANT GetWidth() { return GetVariant(0x7A); }
    VARIANT GetHeight() { return GetVariant(0x7B); }
    VARIANT GetLeft() { return GetVariant(0x7F); }
    VARIANT GetTop() { return GetVariant(0x7E); }
    void SetNumberFormat(const VARIANT& value) { PutVariant(0xC1, value); }
    void SetNumberFormatLocal(const VARIANT& value) { PutVariant(0x449, value); }
    void SetColumnWidth(const VARIANT& value) { PutVariant(0xF2, value); }
    void SetRowHeight(const VARIANT& value) { PutVariant(0x110, value); }
    void SetMergeCells(const VARIANT& value) { PutVariant(0xD0, value); }
    void SetHorizontalAlignment(const VARIANT& value) { PutVariant(0x88, value); }
    void SetVerticalAlignment(const VARIANT& value) { PutVariant(0x89, value); }
    void SetStyle(const VARIANT& value) { PutVariant(0x104, value); }
    void BorderAround(const VARIANT& lineStyle, LONG weight, LONG colorIndex, const VARIANT& color)
    {
        static constexpr BYTE kParameters[] = VTS_VARIANT VTS_I4 VTS_I4 VTS_VARIANT;
        InvokeHelper(0x42B, DISPATCH_METHOD, VT_EMPTY, nullptr, kParameters, &lineStyle, weight, colorIndex,
                     &color);
    }
    void Insert(const VARIANT& shift) { Call(0xFC, shift); }
    void Delete(const VARIANT& shift) { Call(0x75, shift); }
    void Clear() { Call(0x6F); }
    void Select() { Call(0xEB); }
};

class Font : public Driver
{
public:
    using Driver::Driver;
    void SetSize(const VARIANT& value) { PutVariant(0x68, value); }
    void SetColor(const VARIANT& value) { PutVariant(0x63, value); }
    void SetName(const VARIANT& value) { PutVariant(0x6E, value); }
    void SetBold(BOOL value) { PutBool(0x60, value); }
    void SetUnderline(const VARIANT& value) { PutVariant(0x6A, value); }
    void SetOutlineFont(const VARIANT& value) { PutVariant(0xDD, value); }
    void SetStrikethrough(const VARIANT& value) { PutVariant(0x69, value); }
    void SetSubscript(BOOL value) { PutBool(0xB3, value); }
    void SetSuperscript(BOOL value) { PutBool(0xB2, value); }
};

class Interior : public Driver
{
public:
    using Driver::Driver;
    void SetColor(const VARIANT& value) { PutVariant(0x63, value); }
};

class Border : public Driver
{
public:
    using Driver::Driver;
    void SetLineStyle(const VARIANT& value) { PutVariant(0x77, value); }
    void SetWeight(const VARIANT& value) { PutVariant(0x78, value); }
    void SetColorIndex(const VARIANT& value) { PutVariant(0x61, value); }
};

class Borders : public Driver
{
public:
    using Driver::Driver;
    LPDISPATCH GetItem(LONG index)
    {
        static constexpr BYTE kParameters[] = VTS_I4;
        LPDISPATCH object = nullptr;
        InvokeHelper(0xAA, DISPATCH_PROPERTYGET, VT_DISPATCH, &object, kParameters, index);
        return object;
    }
    void SetLineStyle(const VARIANT& value) { PutVariant(0x77, value); }
    void SetWeight(const VARIANT& value) { PutVariant(0x78, value); }
};

class Styles : public Driver
{
public:
    using Driver::Driver;
    LPDISPATCH Add(LPCTSTR name, const VARIANT& basedOn)
    {
        static constexpr BYTE kParameters[] = VTS_BSTR VTS_VARIANT;
        LPDISPATCH object = nullptr;
        InvokeHelper(0xB5, DISPATCH_METHOD, VT_DISPATCH, &object, kParameters, name, &basedOn);
        return object;
    }
    LPDISPATCH GetItem(const VARIANT& index) { return GetDispatch(0xAA, index); }
};

class Style : public Driver
{
public:
    using Driver::Driver;
    LPDISPATCH GetFont() { return GetDispatch(0x92); }
};

class Name : public Driver
{
public:
    using Driver::Driver;
    CString GetName() { return GetText(0x6E); }
};

class Windows : public Driver
{
public:
    using Driver::Driver;
    LONG GetCount() { return GetLong(0x76); }
};

class Window : public Driver
{
public:
    using Driver::Driver;
    void SetDisplayZeros(BOOL value) { PutBool(0x289, value); }
    void SetView(LONG value) { PutLong(0x4AA, value); }
    void SetDisplayGridlines(BOOL value) { PutBool(0x285, value); }
};

class PageSetup : public Driver
{
public:
    using Driver::Driver;
    void SetLeftMargin(double points) { PutDouble(0x3E7, points); }
    void SetRightMargin(double points) { PutDouble(0x3E8, points); }
    void SetTopMargin(double points) { PutDouble(0x3E9, points); }
    void SetBottomMargin(double points) { PutDouble(0x3EA, points); }
    void SetPaperSize(LONG value) { PutLong(0x3EF, value); }
    void SetOrientation(LONG value) { PutLong(0x86, value); }
    void SetPrintArea(LPCTSTR value) { PutText(0x3FB, value); }
};

class HPageBreak : public Driver
{
public:
    using Driver::Driver;
    void SetRefLocation(LPDISPATCH value) { SetProperty(0x575, VT_DISPATCH, value); }
};

class HPageBreaks : public Driver
{
public:
    using Driver::Driver;
    LPDISPATCH Add(LPDISPATCH before)
    {
        static constexpr BYTE kParameters[] = VTS_DISPATCH;
        LPDISPATCH object = nullptr;
        InvokeHelper(0xB5, DISPATCH_METHOD, VT_DISPATCH, &object, kParameters, before);
        return object;
    }
    LPDISPATCH GetItem(LONG index)
    {
        static constexpr BYTE kParameters[] = VTS_I4;
        LPDISPATCH object = nullptr;
        InvokeHelper(0xAA, DISPATCH_PROPERTYGET, VT_DISPATCH, &object, kParameters, index);
        return object;
    }
    LONG GetCount() { return GetLong(0x76); }
};

} // namespace Excel9
