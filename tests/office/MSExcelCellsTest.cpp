#include "ExcelTest.h"

#include <climits>

using testing::ElementsAre;

namespace {

using ExcelCells = ExcelTest;

using Calls = std::vector<std::string>;
using Action = std::function<void(CMSExcel&)>;

const char* const kBlock = "Sheet(Sheet1) 0xC5 get \"B3\" \"D7\"";
const char* const kCell = "Sheet(Sheet1) 0xC5 get \"B3\" opt";

// The calls after the one that takes the block B3:D7.
Calls OnBlock(Calls calls)
{
    calls.insert(calls.begin(), kBlock);
    return calls;
}

Calls OnFont(Calls calls)
{
    calls.insert(calls.begin(), "Range 0x92 get");
    return OnBlock(calls);
}

struct Row {
    const char* label;
    Action byText;
    Action byNumber; // of the same cells; null where there is no such form
    Calls calls;
};

// Every operation on the cell B3 or the block B3:D7.
const Row kRows[] = {
    {"text",
     [](CMSExcel& e) { e.SetValue("B3", "x"); },
     [](CMSExcel& e) { e.SetValue(2, 1, "x"); },
     {kCell, "Range 0x6 put \"x\""}},
    {"number",
     [](CMSExcel& e) { e.SetValue("B3", 0.1); },
     [](CMSExcel& e) { e.SetValue(2, 1, 0.1); },
     {kCell, "Range 0x6 put r8 0.10000000000000001"}},
    {"read",
     [](CMSExcel& e) { e.GetValue("B3"); },
     [](CMSExcel& e) { e.GetValue(2, 1); },
     {kCell, "Range 0x6 get"}},
    {"read text",
     [](CMSExcel& e) { e.GetValueString("B3"); },
     [](CMSExcel& e) { e.GetValueString(2, 1); },
     {kCell, "Range 0x6 get"}},
    {"value and format",
     [](CMSExcel& e) { e.SetValueInUserFormat("B3", "1", "0.0"); },
     nullptr,
     {kCell, "Range 0x6 put \"1\"", "Range 0x449 put \"0.0\""}},
    {"name", [](CMSExcel& e) { e.SetCellName("B3", "Total"); }, nullptr, {kCell, "Range 0x6E put \"Total\""}},
    {"width", [](CMSExcel& e) { e.SetColumnWidth("B3", "D7", static_cast<short>(9)); },
     [](CMSExcel& e) { e.SetColumnWidth(2, 1, 6, 3, static_cast<short>(9)); },
     OnBlock({"Range 0xF2 put i2 9"})},
    {"fractional width", [](CMSExcel& e) { e.SetColumnWidth("B3", "D7", 9.5); },
     [](CMSExcel& e) { e.SetColumnWidth(2, 1, 6, 3, 9.5); }, OnBlock({"Range 0xF2 put r8 9.5"})},
    {"height", [](CMSExcel& e) { e.SetRowHeight("B3", "D7", 20); },
     [](CMSExcel& e) { e.SetRowHeight(2, 1, 6, 3, 20); }, OnBlock({"Range 0x110 put i2 20"})},
    {"height of all",
     [](CMSExcel& e) { e.SetRowHeight(20); },
     nullptr,
     {"Sheet(Sheet1) 0xEE get", "Cells 0x110 put i2 20"}},
    {"merge", [](CMSExcel& e) { e.SetMergeCell("B3", "D7"); },
     [](CMSExcel& e) { e.SetMergeCell(2, 1, 6, 3); }, OnBlock({"Range 0x7B get", "Range 0xD0 put r8 12.75"})},
    {"horizontal", [](CMSExcel& e) { e.SetHorAlign("B3", "D7", xlHAlignCenter); },
     [](CMSExcel& e) { e.SetHorAlign(2, 1, 6, 3, xlHAlignCenter); }, OnBlock({"Range 0x88 put i2 -4108"})},
    {"vertical", [](CMSExcel& e) { e.SetVerAlign("B3", "D7", xlVAlignTop); },
     [](CMSExcel& e) { e.SetVerAlign(2, 1, 6, 3, xlVAlignTop); }, OnBlock({"Range 0x89 put i2 -4160"})},
    {"font", [](CMSExcel& e) { e.SetFont("B3", "D7", 9, RGB(1, 2, 3), "Arial", 1); },
     [](CMSExcel& e) { e.SetFont(2, 1, 6, 3, 9, RGB(1, 2, 3), "Arial", 1); },
     OnFont({"Font 0x68 put i2 9", "Font 0x63 put i4 197121", "Font 0x6E put \"Arial\"",
             "Font 0x60 put bool true"})},
    {"size and face", [](CMSExcel& e) { e.SetFont("B3", "D7", 9, "Arial"); },
     [](CMSExcel& e) { e.SetFont(2, 1, 6, 3, 9, "Arial"); },
     OnFont({"Font 0x68 put i2 9", "Font 0x6E put \"Arial\""})},
    {"face", [](CMSExcel& e) { e.SetFontFace("B3", "D7", "Arial"); },
     [](CMSExcel& e) { e.SetFontFace(2, 1, 6, 3, "Arial"); }, OnFont({"Font 0x6E put \"Arial\""})},
    {"size", [](CMSExcel& e) { e.SetFontSize("B3", "D7", 9); },
     [](CMSExcel& e) { e.SetFontSize(2, 1, 6, 3, 9); }, OnFont({"Font 0x68 put i2 9"})},
    {"bold", [](CMSExcel& e) { e.SetFontBold("B3", "D7", 2); },
     [](CMSExcel& e) { e.SetFontBold(2, 1, 6, 3, 2); }, OnFont({"Font 0x60 put bool true"})},
    {"underline", [](CMSExcel& e) { e.SetFontUnderline("B3", "D7", 2); },
     [](CMSExcel& e) { e.SetFontUnderline(2, 1, 6, 3, 2); }, OnFont({"Font 0x6A put bool true"})},
    {"outline", [](CMSExcel& e) { e.SetFontOutline("B3", "D7", 0); },
     [](CMSExcel& e) { e.SetFontOutline(2, 1, 6, 3, 0); }, OnFont({"Font 0xDD put bool false"})},
    {"strikethrough", [](CMSExcel& e) { e.SetFontStrikethrough("B3", "D7", -1); },
     [](CMSExcel& e) { e.SetFontStrikethrough(2, 1, 6, 3, -1); }, OnFont({"Font 0x69 put bool true"})},
    {"subscript", [](CMSExcel& e) { e.SetFontSubscript("B3", "D7", 1); },
     [](CMSExcel& e) { e.SetFontSubscript(2, 1, 6, 3, 1); }, OnFont({"Font 0xB3 put bool true"})},
    {"superscript", [](CMSExcel& e) { e.SetFontSuperscript("B3", "D7", 0); },
     [](CMSExcel& e) { e.SetFontSuperscript(2, 1, 6, 3, 0); }, OnFont({"Font 0xB2 put bool false"})},
    {"text colour", [](CMSExcel& e) { e.SetTextColor("B3", "D7", RGB(255, 0, 0)); },
     [](CMSExcel& e) { e.SetTextColor(2, 1, 6, 3, RGB(255, 0, 0)); }, OnFont({"Font 0x63 put i4 255"})},
    {"back colour", [](CMSExcel& e) { e.SetBackColor("B3", "D7", RGB(0, 0, 255)); },
     [](CMSExcel& e) { e.SetBackColor(2, 1, 6, 3, RGB(0, 0, 255)); },
     OnBlock({"Range 0x81 get", "Interior 0x63 put i4 16711680"})},
    {"borders", [](CMSExcel& e) { e.SetBorder("B3", "D7", xlContinuous, xlThin); },
     [](CMSExcel& e) { e.SetBorder(2, 1, 6, 3, xlContinuous, xlThin); },
     OnBlock({"Range 0x1B3 get", "Borders 0x77 put i2 1", "Borders 0x78 put i2 2"})},
    {"one line", [](CMSExcel& e) { e.CellLine("B3", "D7", xlEdgeTop, xlDouble, xlThick, 3); },
     [](CMSExcel& e) { e.CellLine(2, 1, 6, 3, xlEdgeTop, xlDouble, xlThick, 3); },
     OnBlock({"Range 0x1B3 get", "Borders 0xAA get i4 8", "Border 0x77 put i2 -4119", "Border 0x78 put i2 4",
              "Border 0x61 put i2 3"})},
    {"outline of the block", [](CMSExcel& e) { e.CellOutLine("B3", "D7", xlContinuous, xlMedium, 5); },
     [](CMSExcel& e) { e.CellOutLine(2, 1, 6, 3, xlContinuous, xlMedium, 5); },
     OnBlock({"Range 0x42B call i2 1 i4 -4138 i4 5 opt"})},
    {"number format", [](CMSExcel& e) { e.SetNumberFormat("B3", "D7", "0%"); },
     [](CMSExcel& e) { e.SetNumberFormat(2, 1, 6, 3, "0%"); }, OnBlock({"Range 0xC1 put \"0%\""})},
    {"as text", [](CMSExcel& e) { e.SetCellInTextFormat("B3", "D7"); },
     [](CMSExcel& e) { e.SetCellInTextFormat(2, 1, 6, 3); }, OnBlock({"Range 0x449 put \"@\""})},
    {"as text, by its second name", [](CMSExcel& e) { e.SetCellInTextFormat("B3", "D7"); },
     [](CMSExcel& e) { e.SetColumnInTextFormat(2, 1, 6, 3); }, OnBlock({"Range 0x449 put \"@\""})},
    {"three decimals", [](CMSExcel& e) { e.SetCellInNumber3DotFormat("B3", "D7"); },
     [](CMSExcel& e) { e.SetCellInNumber3DotFormat(2, 1, 6, 3); }, OnBlock({"Range 0x449 put \"0.000_ \""})},
    {"two decimals", [](CMSExcel& e) { e.SetCellInNumber2DotFormat("B3", "D7"); },
     [](CMSExcel& e) { e.SetCellInNumber2DotFormat(2, 1, 6, 3); }, OnBlock({"Range 0x449 put \"0.00_ \""})},
    {"user format", [](CMSExcel& e) { e.SetCellInUserFormat("B3", "D7", "0.0"); },
     [](CMSExcel& e) { e.SetCellInUserFormat(2, 1, 6, 3, "0.0"); }, OnBlock({"Range 0x449 put \"0.0\""})},
    {"insert", [](CMSExcel& e) { e.InsertCell("B3", "D7", xlShiftDown); },
     [](CMSExcel& e) { e.InsertCell(2, 1, 6, 3, xlShiftDown); }, OnBlock({"Range 0xFC call i4 -4121"})},
    {"delete", [](CMSExcel& e) { e.DeletCell("B3", "D7", xlShiftUp); },
     [](CMSExcel& e) { e.DeletCell(2, 1, 6, 3, xlShiftUp); }, OnBlock({"Range 0x75 call i4 -4162"})},
    {"clear", [](CMSExcel& e) { e.Clear("B3", "D7"); }, [](CMSExcel& e) { e.Clear(2, 1, 6, 3); },
     OnBlock({"Range 0x6F call"})},
    {"style", [](CMSExcel& e) { e.SetStyle("B3", "D7", "Head"); },
     [](CMSExcel& e) { e.SetStyle(2, 1, 6, 3, "Head"); }, OnBlock({"Range 0x104 put \"Head\""})},
    {"style of the sheet",
     [](CMSExcel& e) { e.SetSheetStyle("Head"); },
     nullptr,
     {"Sheet(Sheet1) 0xEE get", "Cells 0x104 put \"Head\""}},
    {"page break",
     [](CMSExcel& e) { e.SetHPageBreakBeforeActiveCell("B3"); },
     [](CMSExcel& e) { e.SetHPageBreakBeforeActiveCell(2, 1); },
     {"Sheet(Sheet1) 0x58A get", kCell, "Breaks 0xB5 call object"}},
    {"page break and selection",
     [](CMSExcel& e) { e.PageBreak("B3"); },
     nullptr,
     {"Sheet(Sheet1) 0x58A get", kCell, "Breaks 0xB5 call object", "Range 0xEB call"}},
    {"nothing", [](CMSExcel& e) { e.MakeTable(); }, [](CMSExcel& e) { e.HeaderFooterSet(1); }, {}},
};

TEST_F(ExcelCells, AskTheServer)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(CallsOf(row.byText), row.calls);
        if (row.byNumber) {
            EXPECT_EQ(CallsOf(row.byNumber), row.calls);
        }
    }
}

TEST_F(ExcelCells, WholeColumnsWorkbooksAndWindows)
{
    const char* const window = "App 0x2F7 get";
    const char* const pages = "Sheet(Sheet1) 0x3E6 get";
    const struct {
        const char* label;
        Action run;
        Calls calls;
    } kOthers[] = {
        {"text columns",
         [](CMSExcel& e) { e.SetColumnInTextFormat(1, 27); },
         {"Sheet(Sheet1) 0xC5 get \"B1\" \"AB1\"", "Range 0xF6 get", "Columns 0x449 put \"@\""}},
        {"three decimals",
         [](CMSExcel& e) { e.SetColumnInNumber3DotFormat(0, 0); },
         {"Sheet(Sheet1) 0xC5 get \"A1\" \"A1\"", "Range 0xF6 get", "Columns 0x449 put \"0.000_ \""}},
        {"two decimals",
         [](CMSExcel& e) { e.SetColumnInNumber2DotFormat(0, 1); },
         {"Sheet(Sheet1) 0xC5 get \"A1\" \"B1\"", "Range 0xF6 get", "Columns 0x449 put \"0.00_ \""}},
        {"add style",
         [](CMSExcel& e) { e.AddStyle("Head", 12, RGB(0, 1, 0), "Arial", 0); },
         {"Book 0x1ED get", "Styles 0xB5 call \"Head\" opt", "Style 0x92 get", "Font 0x68 put i2 12",
          "Font 0x63 put i4 256", "Font 0x6E put \"Arial\"", "Font 0x60 put bool false"}},
        {"default style",
         [](CMSExcel& e) { e.SetDefaultStyle(10, 0, "Arial", 1); },
         {"Book 0x1ED get", "Styles 0xAA get \"Normal\"", "Style 0x92 get", "Font 0x68 put i2 10",
          "Font 0x63 put i4 0", "Font 0x6E put \"Arial\"", "Font 0x60 put bool true"}},
        {"standard font",
         [](CMSExcel& e) { e.SetStandardFont("Arial", 10); },
         {"App 0x39C put \"Arial\"", "App 0x39D put r8 10"}},
        {"zeros", [](CMSExcel& e) { e.SetDisplayZeros(false); }, {window, "Window 0x289 put bool false"}},
        {"grid", [](CMSExcel& e) { e.SetGraduation(3); }, {window, "Window 0x285 put bool true"}},
        {"break view", [](CMSExcel& e) { e.SetPageView(7); }, {window, "Window 0x4AA put i4 2"}},
        {"no break view", [](CMSExcel& e) { e.SetPageView(0); }, {window, "Window 0x4AA put i4 1"}},
        {"normal view", [](CMSExcel& e) { e.SetPageNormalView(true); }, {window, "Window 0x4AA put i4 1"}},
        {"no normal view",
         [](CMSExcel& e) { e.SetPageNormalView(false); },
         {window, "Window 0x4AA put i4 2"}},
        {"paper",
         [](CMSExcel& e) { e.SetPageSetup(xlLandscape, xlPaperA4); },
         {pages, "PageSetup 0x3EF put i4 9", "PageSetup 0x86 put i4 2"}},
        {"margins",
         [](CMSExcel& e) { e.SetMargin(10, 10, 20, 0); },
         {pages, "PageSetup 0x3E7 put r8 28.346456692913385", "PageSetup 0x3E8 put r8 28.346456692913385",
          "PageSetup 0x3E9 put r8 56.69291338582677", "PageSetup 0x3EA put r8 0"}},
        {"equal pages",
         [](CMSExcel& e) { e.SetHPageBreak(50, 120, 8); },
         {"Sheet(Sheet1) 0x59B put bool true", window, "Window 0x4AA put i4 2", pages,
          "PageSetup 0x3FB put \"A1:H120\"", "Sheet(Sheet1) 0x58A get", "Breaks 0x76 get",
          "Breaks 0xAA get i4 1", "Sheet(Sheet1) 0xC5 get \"A51\" opt", "Break 0x575 putref object",
          "Breaks 0xAA get i4 2", "Sheet(Sheet1) 0xC5 get \"A101\" opt", "Break 0x575 putref object"}},
    };
    for (const auto& row : kOthers) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(CallsOf(row.run), row.calls);
    }
}

TEST_F(ExcelCells, APageBreakWithoutACellGoesByTheTable)
{
    server.SetSheetNames({"Table"});
    EXPECT_THAT(CallsOf([](CMSExcel& e) { e.PageBreak(); }),
                ElementsAre("Sheets 0xAA get \"Table\"", "Sheet(Table) 0xEB call opt",
                            "Sheet(Table) 0x19C get", "UsedRange 0x6E put \"Page\""));
}

TEST_F(ExcelCells, SizesAreReadInPoints)
{
    double width = 0, height = 0, left = 0, top = 0;
    EXPECT_THAT(CallsOf([&](CMSExcel& e) { e.GetCellSize(2, 1, 6, 3, width, height, left, top); }),
                ElementsAre(kBlock, "Range 0x7A get", "Range 0x7B get", "Range 0x7F get", "Range 0x7E get"));
    EXPECT_EQ(width, 48.0);
    EXPECT_EQ(height, 12.75);
    EXPECT_EQ(left, 96.0);
    EXPECT_EQ(top, 25.5);
}

TEST_F(ExcelCells, ReadingConvertsNothing)
{
    const struct {
        const char* label;
        COleVariant value;
        double number;
        CString text;
    } kValues[] = {
        {"number", COleVariant(2.5), 2.5, ""},
        {"text", COleVariant("2.5"), 0.0, "2.5"},
        {"empty", COleVariant(), 0.0, ""},
        {"true", COleVariant(static_cast<short>(1), VT_BOOL), 0.0, ""},
        {"error", COleVariant(static_cast<LONG>(5), VT_ERROR), 0.0, ""},
        {"whole number", COleVariant(static_cast<LONG>(7)), 0.0, ""},
        {"long text", COleVariant(CString('x', 40000)), 0.0, CString('x', 40000)},
    };
    for (const auto& row : kValues) {
        SCOPED_TRACE(row.label);
        server.Answer("Range 0x6", row.value);
        EXPECT_EQ(excel->GetValue("A1"), row.number);
        EXPECT_EQ(excel->GetValueString("A1"), row.text);
    }
}

TEST_F(ExcelCells, NamesOfCells)
{
    EXPECT_EQ(excel->GetCellName("A1"), "") << "the server answers nothing";
    server.Answer("Range 0x6E", COleVariant("Total"));
    EXPECT_EQ(excel->GetCellName("A1"), "Total");
    server.FailNext("Range 0x6E", RaiseProgramError);
    EXPECT_EQ(excel->GetCellName("A1"), "") << "a cell without a name";
    server.FailNext("Range 0x6E", [](EXCEPINFO* raised) {
        raised->scode = E_OUTOFMEMORY;
        return DISP_E_EXCEPTION;
    });
    EXPECT_EQ(Thrown<COleDispatchException>([&] { excel->GetCellName("A1"); }), E_OUTOFMEMORY);
    server.FailNext("Sheet 0xC5", RaiseProgramError);
    EXPECT_EQ(Thrown<COleDispatchException>([&] { excel->GetCellName("A0"); }), kProgramError);
}

TEST_F(ExcelCells, NameObjectsTellTheirName)
{
    server.AnswerObject("Range 0x6E", "Name");
    server.Answer("Name 0x6E", COleVariant("Total"));
    EXPECT_EQ(excel->GetCellName("A1"), "Total");
}

TEST(ExcelReferences, FromRowAndColumn)
{
    static const struct {
        short row, column;
        const char* relative;
        const char* absolute;
    } kReferences[] = {
        {0, 0, "A1", "$A$1"},
        {2, 1, "B3", "$B$3"},
        {0, 25, "Z1", "$Z$1"},
        {0, 26, "AA1", "$AA$1"},
        {9, 26, "AA10", "$AA$10"},
        {0, 51, "AZ1", "$AZ$1"},
        {0, 52, "BA1", "$BA$1"},
        {0, 254, "IU1", "$IU$1"},
        {0, 255, "1", "$$1"},
        {0, SHRT_MAX, "1", "$$1"},
        {SHRT_MAX, 0, "A32768", "$A$32768"},
        {-1, 0, "A0", "$A$0"},
        {SHRT_MIN, 0, "A-32767", "$A$-32767"},
    };
    for (const auto& row : kReferences) {
        SCOPED_TRACE(row.relative);
        EXPECT_EQ(CMSExcel::GetCell(row.row, row.column), row.relative);
        EXPECT_EQ(CMSExcel::GetCellOrgExp(row.row, row.column), row.absolute);
    }
    EXPECT_EQ(CMSExcel::GetValueFromMilimeterToPoint(), 2.834645669291339);
}

} // namespace
