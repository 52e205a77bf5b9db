// Report writer for the spreadsheet program, over OLE automation.
//
//   CMSExcel excel;                       // a private, invisible instance
//   if (!excel.IsExcel())
//       return;
//   excel.AddBook();
//   excel.AddSheet("Loads");
//   excel.SetValue(0, 0, CString("Node"));
//   excel.SetCellInNumber3DotFormat("B2", "B9");
//   excel.SaveAs(excel.GetBookName(), "C:\\out\\report.xls");
//   excel.Quit();                         // no destructor does this
//
// Units: rows and columns count from 0, sheets and positions of the program itself from 1; lengths are
// points, column widths characters of the default font, margins millimetres; colours are RGB(r, g, b).
// Errors: a failing automation call throws COleDispatchException or COleException (by pointer, to be deleted)
// unless the member says otherwise. Test IsExcel() first: without an instance every call throws.
// Threads: only the thread that made the object, on which the host has initialised OLE (AfxOleInit).
#pragma once

#include <afxcoll.h>
#include <afxdisp.h>

#include "Excel9.h"

class AFX_EXT_CLASS CMSExcel
{
public:
    // Starts a new instance, hidden and without alerts. Where that fails a box says "Cannot start Excel".
    // The calling thread's OLE message filter, if it has one, gets its two dialogs switched off.
    CMSExcel();
    // Releases what it holds; the instance goes on until Quit.
    virtual ~CMSExcel();
    // A copy drives the same instance, workbook and sheet, with references of its own.
    CMSExcel(const CMSExcel&) = default;
    CMSExcel& operator=(const CMSExcel&) = default;

    // ---- session

    // 1 when the constructor could start an instance, else 0.
    int IsExcel() const;
    // Closes all workbooks unsaved and ends the instance.
    void Quit();
    void SetVisible(int visible);
    void SetWindowState(XlWindowState state);
    // Lets go of the current sheet and all that belongs to it; the workbook stays current.
    void ReleaseBeforeSave();

    // The object's Count; 0 for null. Where it cannot be read a box says "IDispatch Count Not Found".
    static int GetPropertyCount(IDispatch* object);
    void GetRangeCount(Excel9::Range range, int& rows, int& columns);
    // Calls the member `name` of `object` late-bound: `kind` is DISPATCH_METHOD..., the `count` VARIANTs that
    // follow are its arguments, last one first. The caller clears them and *result.
    // A null `object` ends the process after a box, with exit code 0. When the call fails, `count` + 1
    // VARIANTs of memory stay allocated.
    static HRESULT AutoWrap(int kind, VARIANT* result, IDispatch* object, LPCOLESTR name, int count, ...);
    // Shows the message library's text for automation errors, with the number, followed by `detail`.
    void ErrorinExcel(int number, CString detail);

    // ---- workbooks

    void AddBook();
    void Open(CString path);
    // Makes the workbook current for this object; nothing is activated in the program.
    void SetActiveBook(CString name);
    CString GetBookName();
    // Any exception is swallowed.
    void Save(CString name);
    // When saving fails it is tried once more as "_bak.xls": the path up to its first dot, also one in a
    // folder's name, takes that ending, and a box tells the new path. The second failure passes to the
    // caller.
    void SaveAs(CString name, CString path);
    // All workbooks; none can be added then.
    void Close();
    void Close(CString name);

    // ---- sheets; names compare exactly here, whatever the program itself does

    // Before the sheet that is active in the program.
    void AddSheet(CString name);
    // After the last sheet.
    void AddSheet2(CString name);
    void DeleteSheet(CString name);
    // Deletes those of "Sheet1", "Sheet2", "Sheet3" that exist.
    void DeleteDefaultSheet();
    // Moves a sheet behind `afterName`, or to the end when there is no such sheet. It becomes current.
    void MoveSheet(CString name, CString afterName);
    // Copies the CURRENT sheet (make `sourceName` current first) behind `sourceName`; the copy becomes
    // current.
    void CopySheet(CString sourceName, CString newName);
    // Makes the sheet current for this object; nothing is activated in the program.
    void SetActiveSheet(CString name);
    void SetSheetSelection(CString name);
    void SetSheetName(CString oldName, CString newName);
    void SetHideSheet(CString name);
    void GetSheetsName(CStringArray& names);
    // `index` counts from 0. Answers for the sheets as they were listed last.
    CString GetSheetName(short index);
    int GetWorkSheetCount();
    int IsExistSheetName(CString name);
    int IsExistSheetNameInclude(CString text);
    // The longest name that contains `text`, the first of several; "" when there is none.
    CString GetMaximumSheetName(CString text);

    // ---- references

    // "AA10" for row 9, column 26. From column 255 on the letters are missing.
    static CString GetCell(short row, short column);
    // "$AA$10".
    static CString GetCellOrgExp(short row, short column);
    void GetCellSize(short row1, short column1, short row2, short column2, double& width, double& height,
                     double& left, double& top);
    // Points in a millimetre.
    static double GetValueFromMilimeterToPoint();

    // ---- values; `cell` may be a block ("A1:C4")

    // As typed in: a text that reads as a number becomes one, one that begins with "=" a formula.
    void SetValue(CString cell, CString value);
    void SetValue(CString cell, double value);
    void SetValue(short row, short column, CString value);
    void SetValue(short row, short column, double value);
    void SetValueInUserFormat(CString cell, CString value, CString format);
    // 0 when the cell holds no number; nothing is converted.
    double GetValue(CString cell);
    double GetValue(short row, short column);
    // "" when the cell holds no text; nothing is converted.
    CString GetValueString(CString cell);
    CString GetValueString(short row, short column);
    // Defines a name of the workbook for the cell.
    void SetCellName(CString cell, CString name);
    // "" when the cell has no name.
    CString GetCellName(CString cell);

    // ---- sizes and structure

    void SetColumnWidth(CString from, CString to, short width);
    void SetColumnWidth(CString from, CString to, double width);
    void SetColumnWidth(short row1, short column1, short row2, short column2, short width);
    void SetColumnWidth(short row1, short column1, short row2, short column2, double width);
    void SetRowHeight(CString from, CString to, short height);
    void SetRowHeight(short row1, short column1, short row2, short column2, short height);
    // Every row of the sheet.
    void SetRowHeight(short height);
    // Merges a block of visible height.
    void SetMergeCell(CString from, CString to);
    void SetMergeCell(short row1, short column1, short row2, short column2);
    // `shift`: XlInsertShiftDirection, XlDeleteShiftDirection.
    void InsertCell(CString from, CString to, short shift);
    void InsertCell(short row1, short column1, short row2, short column2, short shift);
    void DeletCell(CString from, CString to, short shift);
    void DeletCell(short row1, short column1, short row2, short column2, short shift);
    // Contents and formats.
    void Clear(CString from, CString to);
    void Clear(short row1, short column1, short row2, short column2);

    // ---- alignment (XlHAlign, XlVAlign), fonts, colours

    void SetHorAlign(CString from, CString to, short align);
    void SetHorAlign(short row1, short column1, short row2, short column2, short align);
    void SetVerAlign(CString from, CString to, short align);
    void SetVerAlign(short row1, short column1, short row2, short column2, short align);
    void SetFont(CString from, CString to, short size, DWORD color, CString face, int bold);
    void SetFont(short row1, short column1, short row2, short column2, short size, DWORD color, CString face,
                 int bold);
    void SetFont(CString from, CString to, short size, CString face);
    void SetFont(short row1, short column1, short row2, short column2, short size, CString face);
    void SetFontFace(CString from, CString to, CString face);
    void SetFontFace(short row1, short column1, short row2, short column2, CString face);
    void SetFontSize(CString from, CString to, short size);
    void SetFontSize(short row1, short column1, short row2, short column2, short size);
    void SetFontBold(CString from, CString to, int bold);
    void SetFontBold(short row1, short column1, short row2, short column2, int bold);
    void SetFontUnderline(CString from, CString to, int underline);
    void SetFontUnderline(short row1, short column1, short row2, short column2, int underline);
    void SetFontOutline(CString from, CString to, int outline);
    void SetFontOutline(short row1, short column1, short row2, short column2, int outline);
    void SetFontStrikethrough(CString from, CString to, int strikethrough);
    void SetFontStrikethrough(short row1, short column1, short row2, short column2, int strikethrough);
    void SetFontSubscript(CString from, CString to, int subscript);
    void SetFontSubscript(short row1, short column1, short row2, short column2, int subscript);
    void SetFontSuperscript(CString from, CString to, int superscript);
    void SetFontSuperscript(short row1, short column1, short row2, short column2, int superscript);
    void SetTextColor(CString from, CString to, DWORD color);
    void SetTextColor(short row1, short column1, short row2, short column2, DWORD color);
    void SetBackColor(CString from, CString to, DWORD color);
    void SetBackColor(short row1, short column1, short row2, short column2, DWORD color);

    // ---- borders (XlLineStyle, XlBorderWeight, XlBordersIndex, palette index)

    // All lines of the block.
    void SetBorder(CString from, CString to, short lineStyle, short weight);
    void SetBorder(short row1, short column1, short row2, short column2, short lineStyle, short weight);
    // One edge or inner line.
    void CellLine(CString from, CString to, short index, short lineStyle, short weight, short colorIndex);
    void CellLine(short row1, short column1, short row2, short column2, short index, short lineStyle,
                  short weight, short colorIndex);
    // The outline of the block.
    void CellOutLine(CString from, CString to, short lineStyle, short weight, short colorIndex);
    void CellOutLine(short row1, short column1, short row2, short column2, short lineStyle, short weight,
                     short colorIndex);

    // ---- number formats; all but SetNumberFormat write the program's local form

    void SetNumberFormat(CString from, CString to, CString format);
    void SetNumberFormat(short row1, short column1, short row2, short column2, CString format);
    // "@".
    void SetCellInTextFormat(CString from, CString to);
    void SetCellInTextFormat(short row1, short column1, short row2, short column2);
    // "0.000_ ", with a space's width to the right.
    void SetCellInNumber3DotFormat(CString from, CString to);
    void SetCellInNumber3DotFormat(short row1, short column1, short row2, short column2);
    // "0.00_ ".
    void SetCellInNumber2DotFormat(CString from, CString to);
    void SetCellInNumber2DotFormat(short row1, short column1, short row2, short column2);
    void SetCellInUserFormat(CString from, CString to, CString format);
    void SetCellInUserFormat(short row1, short column1, short row2, short column2, CString format);
    // The same formats on the whole columns `first` to `last`.
    void SetColumnInTextFormat(short first, short last);
    void SetColumnInNumber3DotFormat(short first, short last);
    void SetColumnInNumber2DotFormat(short first, short last);
    // Despite its name, on the block only.
    void SetColumnInTextFormat(short row1, short column1, short row2, short column2);

    // ---- styles

    void SetStyle(CString from, CString to, CString style);
    void SetStyle(short row1, short column1, short row2, short column2, CString style);
    void SetSheetStyle(CString style);
    void AddStyle(CString name, short size, DWORD color, CString face, int bold);
    // The style "Normal" of the workbook.
    void SetDefaultStyle(short size, DWORD color, CString face, int bold);
    // The font of workbooks that the program makes from now on.
    void SetStandardFont(CString face, int size);

    // ---- view and page

    void SetDisplayZeros(bool show);
    // Page-break preview when not 0, else the normal view.
    void SetPageView(int pageBreaks);
    // The normal view when true, else page-break preview.
    void SetPageNormalView(bool normal);
    // Shows or hides the grid.
    void SetGraduation(int show);
    void SetPageSetup(XlPageOrientation orientation, XlPaperSize paperSize);
    void SetMargin(double left, double right, double top, double bottom);
    // A page begins above the cell.
    void SetHPageBreakBeforeActiveCell(CString cell);
    void SetHPageBreakBeforeActiveCell(short row, short column);
    void PageBreak(CString cell);
    // Selects the sheet "Table" and names its used range "Page".
    void PageBreak();
    // Prints `rows` rows and `columns` columns with `rowsPerPage` rows on every page.
    void SetHPageBreak(short rowsPerPage, short rows, short columns);

    // These two do nothing.
    void MakeTable();
    void HeaderFooterSet(int option);

protected:
    // The range from-to of the current sheet, kept in m_range.
    Excel9::Range& TakeRange(const CString& from, const CString& to);
    Excel9::Range& TakeRange(const CString& cell);
    Excel9::Range& TakeAllCells();
    Excel9::Font& TakeFont(const CString& from, const CString& to);
    Excel9::Font& TakeFont(Excel9::Style& style);
    Excel9::Sheets& TakeSheets();
    Excel9::Sheets& HeldSheets();
    void TakeSheet(const VARIANT& index);
    CString ProbeName(int position);
    short FindSheet(const CString& name);
    void SaveWorkbookAs(const CString& path);
    void FormatColumns(short first, short last, LPCTSTR format);
    void PutFont(Excel9::Font& font, short size, DWORD color, const CString& face, int bold);
    Excel9::Window ActiveWindow();

    Excel9::_Application m_application;
    Excel9::Workbooks m_workbooks;
    Excel9::_Workbook m_workbook;
    Excel9::Sheets m_sheets;
    Excel9::_Worksheet m_worksheet;
    Excel9::Range m_range;
    Excel9::Range m_range2;
    Excel9::Font m_font;
    Excel9::Interior m_interior;
    Excel9::Borders m_borders;
    Excel9::Border m_border;
    Excel9::Styles m_styles;
    Excel9::Style m_style;
    COleDispatchDriver m_pictures;
    COleDispatchDriver m_picture;
    COleDispatchDriver m_chartObjects;
    COleDispatchDriver m_chartObject; // survives ReleaseBeforeSave
    COleDispatchDriver m_chart;       // survives ReleaseBeforeSave
    Excel9::Windows m_windows;
    Excel9::_Worksheet m_nameProbe;
    Excel9::PageSetup m_pageSetup;
    Excel9::HPageBreaks m_pageBreaks;
    COleDispatchDriver m_shapes;

public:
    COleVariant covTrue;     // VT_I2 1
    COleVariant covFalse;    // VT_I2 0
    COleVariant covOptional; // stands for an omitted argument

protected:
    int m_started = 0;
};
