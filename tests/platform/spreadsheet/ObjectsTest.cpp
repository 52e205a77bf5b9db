// The server's members through IDispatch.
#include "Client.h"

#include "spreadsheet/objects/ApplicationObject.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace zek::office;

namespace {

struct Step {
    const char* text;
    const char* answer;
};

// Runs the steps one after the other on one server.
template <std::size_t N>
void RunSteps(Client& client, const Step (&steps)[N])
{
    for (const Step& step : steps) {
        SCOPED_TRACE(step.text);
        EXPECT_EQ(client.Ask(step.text), step.answer);
    }
}

const char* const kPart = "error 800A03EC Cannot change part of a merged cell.";

} // namespace

TEST(SpreadsheetServer, StartsLikeAFreshProgram)
{
    Client client;
    RunSteps(client, {
                         {"app.Workbooks.Count", "I4 1"},
                         {"wb.Name", "'Book1'"},
                         {"wb.Sheets.Count", "I4 3"},
                         {"wb.Sheets(3).Name", "'Sheet3'"},
                         {"wb.ActiveSheet.Name", "'Sheet1'"},
                         {"app.Visible", "FALSE"},
                         {"app.DisplayAlerts", "TRUE"},
                         {"app.Workbooks.Add.Name", "'Book2'"},
                         {"app.ActiveWorkbook.Name", "'Book2'"},
                         {"app.Workbooks('BOOK1').Name", "'Book1'"},
                         {"wb.Styles('normal').Name", "'Normal'"},
                         {"Range('A1').ColumnWidth", "R8 8.43"},
                         {"Range('A1').RowHeight", "R8 15"},
                         {"Range('B3').Left", "R8 48"},
                         {"Range('B3').Top", "R8 30"},
                         {"Range('A1:B2').Width", "R8 96"},
                         {"UsedRange.Address", "'$A$1'"},
                         {"app.Workbooks('none')", "error 8002000B Invalid index."},
                     });
}

TEST(SpreadsheetServer, RefusesCallsByKindCountAndType)
{
    Client client;
    RunSteps(client, {
                         {"NoSuchMember", "failed 80020006 NoSuchMember"},
                         {"#7777", "failed 80020003"},
                         {"Range", "failed 8002000E"},
                         {"Range('A1','B2','C3')", "failed 8002000E"},
                         {"Index = 3", "failed 80020003"},
                         {"Range('A1').Font.Size = 'big'", "failed 80020005 argument 0"},
                         {"wb.Sheets.Item('Sheet1', 2)", "failed 8002000E"},
                         {"Range('A1').BorderAround(1, 'thin')", "failed 80020005 argument 0"},
                         {"Range(1)", "failed 80020005 argument 0"},
                         {"rAnGe('A1').aDDress", "'$A$1'"},
                         {"#C5('B2').#EC", "'$B$2'"},
                         {"Range('A1', missing).Address", "'$A$1'"},
                         {"HPageBreaks.Add('A1')", "failed 80020005 argument 0"},
                     });
    Value put;
    DISPID names[] = {7};
    DISPPARAMS params{&*put, names, 1, 1};
    IDispatch* const app = client.Application();
    EXPECT_EQ(app->Invoke(0x22E, IID_NULL, 0, DISPATCH_PROPERTYPUT, &params, nullptr, nullptr, nullptr),
              DISP_E_NONAMEDARGS);
    EXPECT_EQ(app->Invoke(0x22E, IID_IDispatch, 0, DISPATCH_PROPERTYGET, &params, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(app->Invoke(0x22E, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
              E_INVALIDARG);
}

TEST(SpreadsheetServer, FollowsArgumentsByReference)
{
    Client client;
    client.Name("r", "Range('A1')");
    VARIANT number;
    number.vt = VT_I4;
    number.lVal = 42;
    LONG plain = 7;
    VARIANT byVariant{}, byLong{};
    byVariant.vt = VT_BYREF | VT_VARIANT;
    byVariant.pvarVal = &number;
    byLong.vt = VT_BYREF | VT_I4;
    byLong.plVal = &plain;
    Value range;
    DISPID put = DISPID_PROPERTYPUT;
    for (VARIANT* argument : {&byVariant, &byLong}) {
        Value sheet;
        DISPPARAMS none{};
        client.Application()->Invoke(0x133, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &*sheet, nullptr,
                                     nullptr);
        DISPPARAMS get{};
        Value cells;
        sheet->pdispVal->Invoke(0xEE, IID_NULL, 0, DISPATCH_PROPERTYGET, &get, &*cells, nullptr, nullptr);
        Value index;
        StoreResult(*index, LONG{1});
        VARIANT both[] = {*argument, *index, *index};
        DISPPARAMS params{both, &put, 3, 1};
        ASSERT_EQ(cells->pdispVal->Invoke(0xAA, IID_NULL, 0, DISPATCH_PROPERTYPUT, &params, nullptr, nullptr,
                                          nullptr),
                  S_OK);
        EXPECT_EQ(client.Ask("r.Value"), argument == &byVariant ? "R8 42" : "R8 7");
    }
}

TEST(SpreadsheetServer, KeepsValuesAsEntered)
{
    Client client;
    RunSteps(client, {
                         {"Range('A1').Value = '12.5'", ""},
                         {"Range('A1').Value", "R8 12.5"},
                         {"Range('A2').NumberFormat = '@'", ""},
                         {"Range('A2').Value = '12.5'", ""},
                         {"Range('A2').Value", "'12.5'"},
                         {"Range('A3').Value = true", ""},
                         {"Range('A3').Value", "TRUE"},
                         {"Range('A4').Value = '2024-05-31'", ""},
                         {"Range('A4').Value", "DATE 45443"},
                         {"Range('A4').Value2", "R8 45443"},
                         {"Range('A4').NumberFormat", "'m/d/yyyy'"},
                         {"Range('A5').Value = '$3'", ""},
                         {"Range('A5').Value", "CY 30000"},
                         {"Range('A6').Value = '=A1*2'", ""},
                         {"Range('A6').Formula", "'=A1*2'"},
                         {"Range('A6').HasFormula", "TRUE"},
                         {"Range('A6').Value = '=A1*('",
                          "error 800A03EC Unable to set the Value property of the Range class"},
                         {"Range('B1:B3').Formula = '=A1+$A$1'", ""},
                         {"Range('B3').Formula", "'=A3+$A$1'"},
                         {"Range('A1').Value = nan", ""},
                         {"Range('A1').Value", "ERROR 2036"},
                         {"Range('A1').Value = null", ""},
                         {"Range('A1').Value", "EMPTY"},
                         {"Range('C1:D2').Value = 5", ""},
                         {"Range('C1:D2').Value", "[R8 5, R8 5; R8 5, R8 5]"},
                         {"Range('F1:G2').Value = @Range('C1:D2')", ""},
                         {"Range('F1:H1').Value", "[R8 5, R8 5, EMPTY]"},
                         {"Cells.Value = 1", "error 800A0007 Not enough memory"},
                         {"Cells.Count", "error 800A0006 Overflow"},
                         {"Range('C1:D2').ClearContents", "TRUE"},
                         {"Range('C1').Value", "EMPTY"},
                     });
    const std::string longest(32767, 'x');
    EXPECT_EQ(client.Ask("Range('E1').Value = '" + longest + "'"), "");
    EXPECT_EQ(client.Ask("Range('E1').Value = '" + longest + "x'"),
              "error 800A03EC Unable to set the Value property of the Range class");
    EXPECT_EQ(client.Ask("Range('E1').Value"), "'" + longest + "'");
}

TEST(SpreadsheetServer, FindsCells)
{
    Client client;
    RunSteps(
        client,
        {
            {"Range('$B$3').Address", "'$B$3'"},
            {"Range('B3','D7').Address", "'$B$3:$D$7'"},
            {"Range('D7','B3').Address", "'$B$3:$D$7'"},
            {"Range(@Range('A1'), @Range('C2')).Address", "'$A$1:$C$2'"},
            {"Range('3:5').Address", "'$3:$5'"},
            {"Range('B:D').Count", "I4 3145728"},
            {"Range('A1,C3:D4').Address", "'$A$1,$C$3:$D$4'"},
            {"Range('A1,C3:D4').Count", "I4 5"},
            {"Range('Sheet1!A1').Address", "'$A$1'"},
            {"Range('Sheet2!A1')", "error 800A03EC Unable to get the Range property of the Worksheet class"},
            {"Range('A0')", "error 800A03EC Unable to get the Range property of the Worksheet class"},
            {"Range('')", "error 800A03EC Unable to get the Range property of the Worksheet class"},
            {"Range('A1048577')", "error 800A03EC Unable to get the Range property of the Worksheet class"},
            {"Range('XFE1')", "error 800A03EC Unable to get the Range property of the Worksheet class"},
            {"Range('1')", "error 800A03EC Unable to get the Range property of the Worksheet class"},
            {"Range('B2').Offset(-1, 2).Address", "'$D$1'"},
            {"Range('B2').Offset(-2)", "error 800A03EC Unable to get the Offset property of the Range class"},
            {"Range('B2').Resize(2, 3).Address", "'$B$2:$D$3'"},
            {"Range('B2:C3').Item(2, 1).Address", "'$B$3'"},
            {"Range('B2:C3').Item(3).Address", "'$B$3'"},
            {"Range('B2:C3').Rows.Count", "I4 2"},
            {"Range('B2:D3').Columns.Count", "I4 3"},
            {"Range('B2:D3').EntireColumn.Address", "'$B:$D'"},
            {"Range('B2').Address(false, false)", "'B2'"},
            {"Range('B2').Address(missing, false)", "'B$2'"},
            {"Range('B2').Range('B2').Address", "'$C$3'"},
            {"Range('A1:B2').Name = 'Block'", ""},
            {"Range('block').Address", "'$A$1:$B$2'"},
            {"Range('A1:B2').Name.Name", "'Block'"},
            {"Range('A1:B2').Name.RefersTo", "'=Sheet1!$A$1:$B$2'"},
            {"Range('A1').Name", "error 800A03EC Unable to get the Name property of the Range class"},
            {"Range('A1').Name = 'A1'", "error 800A03EC That name is not valid."},
            {"Range('A1').Name = '2x'", "error 800A03EC That name is not valid."},
            {"UsedRange.Name = 'Page'", ""},
            {"wb.Names.Count", "I4 2"},
        });
}

TEST(SpreadsheetServer, FormatsCells)
{
    Client client;
    RunSteps(client, {
                         {"Range('A1:B1').Font.Bold = true", ""},
                         {"Range('A1:B2').Font.Bold", "NULL"},
                         {"Range('A1').Font.Underline = true", ""},
                         {"Range('A1').Font.Underline", "I4 2"},
                         {"Range('A1').Font.Underline = false", ""},
                         {"Range('A1').Font.Underline", "I4 -4142"},
                         {"Range('A1').Font.Underline = 3",
                          "error 800A03EC Unable to set the Underline property of the Font class"},
                         {"Range('A1').Font.Subscript = 1", ""},
                         {"Range('A1').Font.Superscript = true", ""},
                         {"Range('A1').Font.Subscript", "FALSE"},
                         {"Range('A1').Font.Color = 255", ""},
                         {"Range('A1').Font.ColorIndex", "I4 3"},
                         {"Range('A1').Font.ColorIndex = 57",
                          "error 800A03EC Unable to set the ColorIndex property of the Font class"},
                         {"Range('A1').Font.Size = 410",
                          "error 800A03EC Unable to set the Size property of the Font class"},
                         {"Range('A1').Interior.ColorIndex", "I4 -4142"},
                         {"Range('A1').Interior.Color = 65280", ""},
                         {"Range('A1').Interior.Pattern", "I4 1"},
                         {"Range('A1').Interior.ColorIndex = -4142", ""},
                         {"Range('A1').Interior.Color", "R8 16777215"},
                         {"Range('A1').HorizontalAlignment = -4108", ""},
                         {"Range('A1').HorizontalAlignment", "I4 -4108"},
                         {"Range('A1').VerticalAlignment = 1",
                          "error 800A03EC Unable to set the VerticalAlignment property of the Range class"},
                         {"Range('A1').NumberFormatLocal = '0.00_ '", ""},
                         {"Range('A1').NumberFormat", "'0.00_ '"},
                         {"Range('A1').NumberFormat = '0\"'",
                          "error 800A03EC Unable to set the NumberFormat property of the Range class"},
                         {"Range('B:D').NumberFormat = '@'", ""},
                         {"Range('C500').NumberFormat", "'@'"},
                         {"Range('A1').Orientation = 45", ""},
                         {"Range('A1').Orientation", "I4 45"},
                         {"Range('A1').Orientation = 91",
                          "error 800A03EC Unable to set the Orientation property of the Range class"},
                         {"Range('A1').Clear", "TRUE"},
                         {"Range('A1').Font.Bold", "FALSE"},
                     });
}

TEST(SpreadsheetServer, DrawsBorders)
{
    Client client;
    RunSteps(client, {
                         {"Range('B2:C3').Borders.LineStyle = 1", ""},
                         {"Range('B2:C3').Borders.Weight", "I4 2"},
                         {"Range('B2:C3').Borders.Weight = 1", ""},
                         {"Range('B2').Borders(10).Weight", "I4 1"},
                         {"Range('B2').Borders(5).LineStyle", "I4 -4142"},
                         {"Range('A2').Borders(10).LineStyle", "I4 1"}, // the neighbour's left edge
                         {"Range('E5').Borders(9).LineStyle = -4119", ""},
                         {"Range('E5').Borders(9).Weight", "I4 4"},
                         {"Range('E5').Borders(9).Weight = 2", ""},
                         {"Range('E5').Borders(9).LineStyle", "I4 1"},
                         {"Range('E6').Borders(8).LineStyle = -4142", ""},
                         {"Range('E5').Borders(9).LineStyle", "I4 -4142"}, // the shared edge is gone for both
                         {"Range('F6').Borders(9).Weight = -4138", ""},
                         {"Range('F6').Borders(9).LineStyle", "I4 1"},
                         {"Range('F6').Borders(9).LineStyle = -4115", ""},
                         {"Range('F6').Borders(9).Weight", "I4 -4138"},
                         {"Range('F6').Borders(9).ColorIndex = 5", ""},
                         {"Range('F6').Borders(9).Color", "R8 16711680"},
                         {"Range('H1:J3').BorderAround(1, 4, 3)", "TRUE"},
                         {"Range('H1:J3').Borders(12).LineStyle", "I4 -4142"},
                         {"Range('H1:H3').Borders(7).Weight", "I4 4"},
                         {"Range('I1:J1').Borders(7).LineStyle", "I4 -4142"},
                         {"Range('H1:J3').Borders.LineStyle", "NULL"},
                         {"Range('L1:M2').Borders(11).LineStyle = 1", ""},
                         {"Range('L1').Borders(10).LineStyle", "I4 1"},
                         {"Range('L1').Borders(7).LineStyle", "I4 -4142"},
                         {"Range('A1').Borders(6).LineStyle = 1", ""},
                         {"Range('A1').Borders(5).LineStyle", "I4 -4142"},
                         {"Range('A1').Borders(4711)",
                          "error 800A03EC Unable to get the Borders property of the Range class"},
                         {"Range('A1').Borders(7).LineStyle = 99",
                          "error 800A03EC Unable to set the LineStyle property of the Border class"},
                     });
}

TEST(SpreadsheetServer, MergesInsertsDeletes)
{
    Client client;
    RunSteps(client, {
                         {"Range('B2').Value = 7", ""},
                         {"Range('A1:B2').MergeCells = 30", ""},
                         {"Range('A1').Value", "R8 7"},
                         {"Range('B2').Value = 9", ""}, // covered cells take nothing
                         {"Range('B2').Value", "EMPTY"},
                         {"Range('A1:C1').MergeCells", "NULL"},
                         {"Range('B1').MergeArea.Address", "'$A$1:$B$2'"},
                         {"Range('A1:B2').MergeCells = true", ""},
                         {"Range('B2:C3').MergeCells = 1", kPart},
                         {"Range('A1').MergeCells = 1", kPart},
                         {"Range('A1:C3').Merge", "EMPTY"},
                         {"Range('A1').MergeArea.Address", "'$A$1:$C$3'"},
                         {"Range('B1').ClearContents", kPart},
                         {"Range('D1').Value = 1", ""},
                         {"Range('2:2').Insert(-4121)", "TRUE"},
                         {"Range('A1').MergeArea.Address", "'$A$1:$C$4'"},
                         {"Range('A2').Insert(-4121)", "error 800A03EC Insert method of Range class failed"},
                         {"Range('A1').Delete(-4162)", kPart},
                         {"Range('A:C').Delete", "TRUE"},
                         {"Range('A1').Value", "R8 1"},
                         {"Range('A1').Insert(12)", "error 800A03EC Insert method of Range class failed"},
                         {"Range('A1048576').Value = 1", ""},
                         {"Range('1:1').Insert", "error 800A03EC Insert method of Range class failed"},
                         {"Range('A1048576').Value", "R8 1"},
                         {"Range('D1:E2').Value = 3", ""},
                         {"Range('D1:E2').Merge(true)", "EMPTY"},
                         {"Range('D2').MergeArea.Address", "'$D$2:$E$2'"},
                         {"Range('D1:E2').Copy(@Range('G5'))", "TRUE"},
                         {"Range('G6').MergeArea.Address", "'$G$6:$H$6'"},
                         {"Range('G5').Value", "R8 3"},
                     });
}

TEST(SpreadsheetServer, SizesRowsAndColumns)
{
    Client client;
    RunSteps(client, {
                         {"Range('B1:C1').ColumnWidth = 20", ""},
                         {"Range('A1:B1').ColumnWidth", "NULL"},
                         {"Range('B1').Width", "R8 108.75"},
                         {"Range('D1').Left", "R8 265.5"},
                         {"Range('B1').ColumnWidth = 256",
                          "error 800A03EC Unable to set the ColumnWidth property of the Range class"},
                         {"Range('A2:A3').RowHeight = 30", ""},
                         {"Range('A1:A3').Height", "R8 75"},
                         {"Range('A2').RowHeight = -1",
                          "error 800A03EC Unable to set the RowHeight property of the Range class"},
                         {"Cells.RowHeight = 20", ""},
                         {"Range('A2').RowHeight", "R8 20"},
                         {"Range('A9').Top", "R8 160"},
                         {"Range('A2').RowHeight = 0", ""},
                         {"Range('2:2').Hidden", "TRUE"},
                         {"Range('A3').Top", "R8 20"},
                         {"Range('B:B').Hidden = true", ""},
                         {"Range('B1').Width", "R8 0"},
                         {"Range('B1').Hidden = true",
                          "error 800A03EC Unable to set the Hidden property of the Range class"},
                     });
}

TEST(SpreadsheetServer, KeepsSheetsInOrder)
{
    Client client;
    const std::string last = "error 800A03EC A workbook must contain at least one visible worksheet.";
    RunSteps(client, {
                         {"wb.Sheets.Add.Name", "'Sheet4'"},
                         {"wb.Sheets(1).Name", "'Sheet4'"},
                         {"wb.ActiveSheet.Name", "'Sheet4'"},
                         {"wb.Sheets.Add(missing, @wb.Sheets(4), 1, missing).Index", "I4 5"},
                         {"wb.Sheets(1).Move(missing, @wb.Sheets('Sheet2'))", "EMPTY"},
                         {"wb.Sheets('sheet4').Index", "I4 3"},
                         {"ws.Copy(missing, @ws)", "EMPTY"},
                         {"wb.Sheets(2).Name", "'Sheet1 (2)'"},
                         {"wb.ActiveSheet.Name", "'Sheet1 (2)'"},
                         {"ws.Name = 'Data'", ""},
                         {"ws.Name = 'DATA'", ""},
                         {"ws.Visible = 0", ""},
                         {"ws.Select", "error 800A03EC Select method of Worksheet class failed"},
                         {"wb.Sheets(9)", "error 8002000B Invalid index."},
                         {"wb.Sheets('Sheet5').Delete", "EMPTY"},
                         {"wb.Sheets.Count", "I4 5"},
                         {"wb.Sheets.Add(missing, missing, 1, -4109)",
                          "error 800A03EC Add method of Sheets class failed"},
                     });
    for (const char* name : {"", "a/b", "a:b", "[x]", "'x", "x'", "what?", "12345678901234567890123456789012",
                             "sheet2", "History"})
        EXPECT_TRUE(client.Ask("ws.Name = '" + std::string(name) + "'").starts_with("error 800A03EC"))
            << name;
    EXPECT_EQ(client.Ask("ws.Name = '1234567890123456789012345678901'"), "");
    for (const char* name : {"Sheet2", "Sheet3", "Sheet4"})
        EXPECT_EQ(client.Ask("wb.Sheets('" + std::string(name) + "').Delete"), "EMPTY");
    EXPECT_TRUE(client.Ask("wb.Sheets('Sheet1 (2)').Delete").starts_with(last));
    EXPECT_TRUE(client.Ask("wb.Sheets('Sheet1 (2)').Visible = 0").starts_with(last));
}

TEST(SpreadsheetServer, ClosedAndDeletedObjectsRefuse)
{
    const std::string gone = "error 800A03EC The object invoked has disconnected from its clients.";
    Client client;
    client.Name("r", "Range('A1')");
    client.Name("f", "Range('A1').Font");
    client.Name("p", "PageSetup");
    client.Name("s", "wb.Sheets(2)");
    EXPECT_EQ(client.Ask("ws.Delete"), "EMPTY");
    for (const char* text : {"r.Value", "f.Bold = true", "p.PaperSize", "ws.Name", "ws.Range('A1')"})
        EXPECT_EQ(client.Ask(text), gone) << text;
    EXPECT_EQ(client.Ask("app.Quit"), "EMPTY");
    for (const char* text : {"s.Name", "wb.Sheets", "wb.Save", "wb.Name"})
        EXPECT_EQ(client.Ask(text), gone) << text;
    EXPECT_EQ(client.Ask("app.ActiveWindow"), "nothing");
}

TEST(SpreadsheetServer, SetsPagesWindowsAndStyles)
{
    Client client;
    RunSteps(client, {
                         {"PageSetup.PaperSize", "I4 9"},
                         {"PageSetup.PaperSize = 8", ""},
                         {"PageSetup.Orientation = 2", ""},
                         {"PageSetup.Orientation = 3",
                          "error 800A03EC Unable to set the Orientation property of the PageSetup class"},
                         {"PageSetup.LeftMargin = 28.346456692913385", ""},
                         {"PageSetup.LeftMargin", "R8 28.346456692913385"},
                         {"PageSetup.TopMargin = -1",
                          "error 800A03EC Unable to set the TopMargin property of the PageSetup class"},
                         {"PageSetup.PrintArea = 'A1:C10'", ""},
                         {"PageSetup.PrintArea", "'$A$1:$C$10'"},
                         {"PageSetup.PrintArea = 'nowhere'",
                          "error 800A03EC Unable to set the PrintArea property of the PageSetup class"},
                         {"PageSetup.PrintTitleRows = '1:2'", ""},
                         {"PageSetup.PrintTitleRows", "'$1:$2'"},
                         {"PageSetup.PrintTitleRows = 'A1'",
                          "error 800A03EC Unable to set the PrintTitleRows property of the PageSetup class"},
                         {"PageSetup.Zoom = false", ""},
                         {"PageSetup.Zoom", "FALSE"},
                         {"PageSetup.Zoom = 80", ""},
                         {"PageSetup.FitToPagesTall = false", ""},
                         {"PageSetup.CenterHeader = 'Report &P'", ""},
                         {"PageSetup.CenterHeader", "'Report &P'"},
                         {"app.ActiveWindow.View = 2", ""},
                         {"app.ActiveWindow.View = 3",
                          "error 800A03EC Unable to set the View property of the Window class"},
                         {"app.ActiveWindow.DisplayZeros = false", ""},
                         {"app.Windows.Count", "I4 1"},
                         {"app.WindowState = -4137", ""},
                         {"app.ActiveWindow.WindowState", "I4 -4137"},
                         {"wb.Styles.Add('Head').Font.Size = 20", ""},
                         {"wb.Styles.Add('HEAD')", "error 800A03EC Add method of Styles class failed"},
                         {"Range('A1:A2').Style = 'head'", ""},
                         {"Range('A1').Font.Size", "R8 20"},
                         {"Range('A1').Font.Bold = true", ""},
                         {"wb.Styles('Head').Font.Size = 24", ""},
                         {"Range('A2').Font.Size", "R8 24"},
                         {"Range('A1').Font.Size", "R8 20"}, // has a font of its own since it is bold
                         {"wb.Styles('Normal').Font.Name = 'Arial'", ""},
                         {"Range('Z99').Font.Name", "'Arial'"},
                         {"Range('A1').Style.Name", "'Head'"},
                         {"Range('A1').Style = 'none'",
                          "error 800A03EC Unable to set the Style property of the Range class"},
                         {"app.StandardFont = 'Batang'", ""},
                         {"app.Workbooks.Add.Sheets(1).Range('A1').Font.Name", "'Batang'"},
                     });
}

TEST(SpreadsheetServer, CountsAndMovesPageBreaks)
{
    Client client;
    RunSteps(client,
             {
                 {"HPageBreaks.Count", "I4 0"},
                 {"HPageBreaks.Add(@Range('A11')).Type", "I4 -4135"},
                 {"HPageBreaks.Add(@Range('A1'))", "error 800A03EC Add method of HPageBreaks class failed"},
                 {"HPageBreaks.Count", "I4 1"},
                 {"PageSetup.PrintArea = 'A1:C120'", ""},
                 // 841.89 - 108 points hold 48 rows of 15 points: 11-58, 59-106, 107-120.
                 {"HPageBreaks.Count", "I4 3"},
                 {"HPageBreaks.Item(2).Location.Address", "'$A$59'"},
                 {"HPageBreaks.Item(2).Type", "I4 -4105"},
                 {"HPageBreaks.Item(2).Location = @Range('A21')", ""},
                 {"HPageBreaks.Item(2).Type", "I4 -4135"},
                 {"HPageBreaks.Item(3).Location.Address", "'$A$69'"},
                 {"HPageBreaks.Item(9)", "error 8002000B Invalid index."},
                 {"PageSetup.Zoom = false", ""},
                 {"HPageBreaks.Count", "I4 2"},
             });
}

// What the report writers call, by name and published identifier.
TEST(SpreadsheetServer, HasThePublishedIdentifiers)
{
    const struct {
        const char* object;
        const char* members;
    } rows[] = {
        {"app",
         "Workbooks 23C DisplayAlerts 157 Visible 22E Windows 1AE WindowState 18C Quit 12E ActiveWindow 2F7 "
         "StandardFont 39C StandardFontSize 39D"},
        {"app.Workbooks", "Add B5 Open 2AA Item AA Close 115 Count 76"},
        {"wb", "Sheets 1E5 Name 6E Save 11B SaveAs 11C Close 115 Styles 1ED"},
        {"wb.Sheets", "Add B5 Item AA Count 76"},
        {"ws", "Name 6E Visible 22E Delete 75 Move 27D Copy 227 Select EB Range C5 Cells EE PageSetup 3E6 "
               "HPageBreaks 58A "
               "UsedRange 19C DisplayPageBreaks 59B"},
        {"Range('A1')",
         "Rows 102 Columns F1 Value 6 NumberFormatLocal 449 NumberFormat C1 Name 6E ColumnWidth F2 RowHeight "
         "110 "
         "Height 7B Width 7A Left 7F Top 7E MergeCells D0 HorizontalAlignment 88 VerticalAlignment 89 Font "
         "92 "
         "Interior 81 Borders 1B3 BorderAround 42B Insert FC Delete 75 Clear 6F Style 104 EntireColumn F6"},
        {"Range('A1').Font", "Size 68 Color 63 Name 6E Bold 60 Underline 6A OutlineFont DD Strikethrough 69 "
                             "Subscript B3 Superscript B2"},
        {"Range('A1').Borders", "Item AA LineStyle 77 Weight 78 ColorIndex 61"},
        {"Range('A1').Interior", "Color 63"},
        {"wb.Styles", "Add B5 Item AA"},
        {"app.ActiveWindow", "DisplayZeros 289 View 4AA DisplayGridlines 285"},
        {"PageSetup", "LeftMargin 3E7 RightMargin 3E8 TopMargin 3E9 BottomMargin 3EA PaperSize 3EF "
                      "Orientation 86 PrintArea 3FB"},
        {"HPageBreaks", "Add B5 Count 76 Item AA"},
    };
    for (const auto& row : rows) {
        Client client;
        client.Name("o", row.object);
        std::istringstream members(row.members);
        std::string name;
        for (LONG id = 0; members >> name >> std::hex >> id;) {
            SCOPED_TRACE(std::string(row.object) + "." + name);
            EXPECT_EQ(client.MemberId("o", name), id);
        }
    }
}

TEST(SpreadsheetServer, LetsEverythingGo)
{
    const LONG before = LiveObject::Count();
    {
        Client client;
        for (const char* text :
             {"Range('A1:B9').Font.Bold = true", "wb.Sheets.Add", "Range('A1').Style.Name", "Range('ZZZZ1')",
              "Cells.Item(2, 2).Borders.Item(9).Weight", "wb.Sheets(1).Parent.Application.Name",
              "Range('A1') = 5", "Range('A1').Copy(@wb)", "Range('A1').Value = @Range('B1')"})
            client.Ask(text);
        EXPECT_GT(LiveObject::Count(), before);
        client.Ask("app.Quit");
    }
    EXPECT_EQ(LiveObject::Count(), before);
}
