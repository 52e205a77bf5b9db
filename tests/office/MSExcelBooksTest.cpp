#include "ExcelTest.h"

#include <stdexcept>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using ExcelBooks = ExcelTest;
using ExcelSheets = ExcelTest;

const char* const kSaveReport =
    "Book 0x11C call \"C:\\out\\report.xls\" opt opt opt opt opt i4 0 opt opt opt opt";
const char* const kSaveBackup =
    "Book 0x11C call \"C:\\out\\report_bak.xls\" opt opt opt opt opt i4 0 opt opt opt opt";

TEST_F(ExcelBooks, AsksTheServer)
{
    const struct {
        const char* label;
        std::function<void(CMSExcel&)> run;
        std::vector<std::string> calls;
    } kRows[] = {
        {"visible", [](CMSExcel& e) { e.SetVisible(5); }, {"App 0x22E put bool true"}},
        {"window state", [](CMSExcel& e) { e.SetWindowState(xlMinimized); }, {"App 0x18C put i4 -4140"}},
        {"add", [](CMSExcel& e) { e.AddBook(); }, {"Books 0xB5 call opt"}},
        {"open",
         [](CMSExcel& e) { e.Open("C:\\a.xls"); },
         {"Books 0x2AA call \"C:\\a.xls\" opt opt opt opt opt opt opt opt opt opt opt opt",
          "App 0x157 put bool false"}},
        {"activate", [](CMSExcel& e) { e.SetActiveBook("Book1"); }, {"Books 0xAA get \"Book1\""}},
        {"name", [](CMSExcel& e) { EXPECT_EQ(e.GetBookName(), "Book1"); }, {"Book 0x6E get"}},
        {"save", [](CMSExcel& e) { e.Save("Book1"); }, {"Books 0xAA get \"Book1\"", "Book 0x11B call"}},
        {"save as",
         [](CMSExcel& e) { e.SaveAs("Book1", "C:\\out\\report.xls"); },
         {"Books 0xAA get \"Book1\"", kSaveReport}},
        {"close one",
         [](CMSExcel& e) { e.Close("Book1"); },
         {"Books 0xAA get \"Book1\"", "Book 0x115 call opt \"Book1\" opt"}},
        {"close all", [](CMSExcel& e) { e.Close(); }, {"Books 0x115 call"}},
        {"close all again", [](CMSExcel& e) { e.Close(); }, {}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(CallsOf(row.run), row.calls);
    }
}

TEST_F(ExcelBooks, AFailedSaveIsTriedOnceMoreUnderTheBackupName)
{
    server.FailNext("Book 0x11C", RaiseProgramError);
    BoxCatcher boxes;
    EXPECT_THAT(CallsOf([](CMSExcel& e) { e.SaveAs("Book1", "C:\\out\\report.xls"); }),
                ElementsAre("Books 0xAA get \"Book1\"", kSaveReport, kSaveBackup));
    EXPECT_THAT(boxes.Texts(), ElementsAre("C:\\out\\report_bak.xls"));
}

TEST_F(ExcelBooks, TheBackupNameCutsAtTheFirstDot)
{
    static const struct {
        const char* path;
        const char* backup;
    } kRows[] = {
        {"C:\\out.2\\report.xls", "C:\\out_bak.xls"},
        {"report", "report_bak.xls"},
        {"a.b.c", "a_bak.xls"},
        {".hidden", "_bak.xls"},
        {"", "_bak.xls"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.path);
        server.FailNext("Book 0x11C", [](EXCEPINFO*) { return E_ACCESSDENIED; });
        BoxCatcher boxes;
        excel->SaveAs("Book1", row.path);
        EXPECT_THAT(boxes.Texts(), ElementsAre(row.backup));
    }
}

TEST_F(ExcelBooks, ASecondFailurePassesToTheHost)
{
    server.FailNext("Book 0x11C", RaiseProgramError, 2);
    BoxCatcher boxes;
    try {
        excel->SaveAs("Book1", "C:\\out\\report.xls");
        ADD_FAILURE() << "nothing thrown";
    } catch (COleDispatchException* e) {
        EXPECT_EQ(e->m_strDescription, "It cannot be done.");
        EXPECT_EQ(e->m_strSource, "Recorder");
        e->Delete();
    }
    EXPECT_EQ(boxes.Caught().size(), 1u);
}

TEST_F(ExcelBooks, SavingSwallowsWhatIsNoExceptionOfTheFramework)
{
    const RecordingServer::Fault throwOther = [](EXCEPINFO*) -> HRESULT {
        throw std::runtime_error("other");
    };
    BoxCatcher boxes;
    server.FailNext("Book 0x11C", throwOther);
    EXPECT_NO_THROW(excel->SaveAs("Book1", "C:\\a.xls"));
    server.FailNext("Book 0x11B", throwOther);
    EXPECT_NO_THROW(excel->Save("Book1"));
    server.FailNext("Book 0x11B", RaiseProgramError);
    EXPECT_NO_THROW(excel->Save("Book1"));
    EXPECT_THAT(boxes.Caught(), IsEmpty());
}

TEST_F(ExcelBooks, AnUnknownBookIsNotSavedElsewhere)
{
    server.FailNext("Books 0xAA", RaiseProgramError);
    BoxCatcher boxes;
    EXPECT_EQ(Thrown<COleDispatchException>([&] { excel->SaveAs("Other", "C:\\a.xls"); }), kProgramError);
    EXPECT_THAT(boxes.Caught(), IsEmpty());
}

TEST_F(ExcelSheets, AsksTheServer)
{
    const struct {
        const char* label;
        std::function<void(CMSExcel&)> run;
        std::vector<std::string> calls;
    } kRows[] = {
        {"add",
         [](CMSExcel& e) { e.AddSheet("Loads"); },
         {"Book 0x1E5 get", "Sheets 0xB5 call opt opt i2 1 opt", "Sheet(New1) 0x6E put \"Loads\""}},
        {"activate",
         [](CMSExcel& e) { e.SetActiveSheet("Loads"); },
         {"Book 0x1E5 get", "Sheets 0xAA get \"Loads\""}},
        {"hide, by the sheets as listed",
         [](CMSExcel& e) { e.SetHideSheet("Loads"); },
         {"Sheets 0xAA get \"Loads\"", "Sheet(Loads) 0x22E put i4 0"}},
        {"select",
         [](CMSExcel& e) { e.SetSheetSelection("Sheet2"); },
         {"Book 0x1E5 get", "Sheets 0xAA get \"Sheet2\"", "Sheet(Sheet2) 0xEB call opt"}},
        {"rename",
         [](CMSExcel& e) { e.SetSheetName("Sheet2", "Cases"); },
         {"Book 0x1E5 get", "Sheets 0xAA get \"Sheet2\"", "Sheet(Sheet2) 0x6E put \"Cases\""}},
        {"name by index from 0",
         [](CMSExcel& e) { EXPECT_EQ(e.GetSheetName(0), "Loads"); },
         {"Sheets 0xAA get i2 1", "Sheet(Loads) 0x6E get"}},
        {"count",
         [](CMSExcel& e) { EXPECT_EQ(e.GetWorkSheetCount(), 4); },
         {"Book 0x1E5 get", "Sheets id of Count", "Sheets 0x76 get (locale 2048)"}},
        {"delete",
         [](CMSExcel& e) { e.DeleteSheet("Loads"); },
         {"Book 0x1E5 get", "Sheets 0xAA get \"Loads\"", "Sheet(Loads) 0x75 call"}},
        {"move behind",
         [](CMSExcel& e) { e.MoveSheet("Sheet1", "Cases"); },
         {"Book 0x1E5 get", "Sheets 0xAA get \"Sheet1\"", "Book 0x1E5 get", "Sheets 0x76 get",
          "Sheets 0xAA get i2 1", "Sheet(Sheet1) 0x6E get", "Sheets 0xAA get i2 2", "Sheet(Cases) 0x6E get",
          "Sheet(Sheet1) 0x27D call opt object"}},
        {"copy",
         [](CMSExcel& e) { e.CopySheet("Cases", "Copy"); },
         {"Book 0x1E5 get", "Sheets 0x76 get", "Sheets 0xAA get i2 1", "Sheet(Cases) 0x6E get",
          "Sheet(Sheet1) 0x227 call opt object", "Sheets 0xAA get i2 2",
          "Sheet(Sheet1 (2)) 0x6E put \"Copy\""}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(CallsOf(row.run), row.calls);
    }
    EXPECT_THAT(server.SheetNames(), ElementsAre("Cases", "Copy", "Sheet1", "Sheet3"));
}

TEST_F(ExcelSheets, NamesAreListedOneByOne)
{
    CStringArray names;
    names.Add("stale");
    server.SetSheetNames({"A", "B"});
    EXPECT_THAT(CallsOf([&](CMSExcel& e) { e.GetSheetsName(names); }),
                ElementsAre("Book 0x1E5 get", "Sheets 0x76 get", "Sheets 0xAA get i2 1", "Sheet(A) 0x6E get",
                            "Sheets 0xAA get i2 2", "Sheet(B) 0x6E get"));
    ASSERT_EQ(names.GetSize(), 2);
    EXPECT_EQ(names[0] + names[1], "AB");
}

TEST_F(ExcelSheets, ANewLastSheetEndsUpLast)
{
    excel->AddSheet2("Loads");
    EXPECT_THAT(server.SheetNames(), ElementsAre("Sheet1", "Sheet2", "Sheet3", "Loads"));
}

TEST_F(ExcelSheets, AMoveBehindNobodyGoesToTheEnd)
{
    excel->MoveSheet("Sheet1", "sheet2");
    EXPECT_THAT(server.SheetNames(), ElementsAre("Sheet2", "Sheet3", "Sheet1"));
}

TEST_F(ExcelSheets, ACopyIsOfTheCurrentSheet)
{
    excel->SetActiveSheet("Sheet3");
    excel->CopySheet("Sheet1", "Copy");
    EXPECT_THAT(server.SheetNames(), ElementsAre("Sheet1", "Copy", "Sheet2", "Sheet3"));
    excel->CopySheet("nobody", "Last");
    EXPECT_THAT(server.SheetNames(), ElementsAre("Sheet1", "Copy", "Sheet2", "Sheet3", "Last"));
}

TEST_F(ExcelSheets, OnlyDefaultSheetsAreDeleted)
{
    server.SetSheetNames({"Sheet1", "Data", "sheet2"});
    excel->DeleteDefaultSheet();
    EXPECT_THAT(server.SheetNames(), ElementsAre("Data", "sheet2"));
}

TEST_F(ExcelSheets, NamesCompareExactly)
{
    server.SetSheetNames({"Table1", "Table12", "Other", "Table22"});
    EXPECT_EQ(excel->IsExistSheetName("Table1"), 1);
    EXPECT_EQ(excel->IsExistSheetName("table1"), 0);
    EXPECT_EQ(excel->IsExistSheetNameInclude("able2"), 1);
    EXPECT_EQ(excel->IsExistSheetNameInclude("ABLE2"), 0);
    EXPECT_EQ(excel->GetMaximumSheetName("Table"), "Table12");
    EXPECT_EQ(excel->GetMaximumSheetName("table"), "");
}

TEST_F(ExcelSheets, SheetsAreListedWhereNoneWereYet)
{
    excel->ReleaseBeforeSave();
    EXPECT_EQ(excel->GetSheetName(2), "Sheet3");
}

TEST_F(ExcelSheets, FailuresPassToTheHost)
{
    server.FailNext("Sheets 0xAA", RaiseProgramError);
    EXPECT_EQ(Thrown<COleDispatchException>([&] { excel->SetActiveSheet("Sheet1"); }), kProgramError);
    server.FailNext("Sheet 0x6E", [](EXCEPINFO*) { return DISP_E_MEMBERNOTFOUND; });
    EXPECT_EQ(Thrown<COleException>([&] { excel->AddSheet("Sheet9"); }),
              static_cast<SCODE>(DISP_E_MEMBERNOTFOUND));
}

} // namespace
