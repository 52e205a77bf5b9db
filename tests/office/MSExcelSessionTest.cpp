#include "ExcelTest.h"

#include <MsgDll.h>

#include <afxwin.h>

#include <utility>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using ExcelSession = ExcelTest;

constexpr SCODE kNotConnected = static_cast<SCODE>(CO_E_OBJNOTCONNECTED);

TEST(ExcelStart, StartsHiddenAndSilent)
{
    ASSERT_TRUE(AfxOleInit());
    RecordingServer server;
    AfxOleGetMessageFilter()->EnableBusyDialog();
    AfxOleGetMessageFilter()->EnableNotRespondingDialog();
    const CMSExcel excel;
    EXPECT_EQ(excel.IsExcel(), 1);
    EXPECT_THAT(server.TakeCalls(), ElementsAre("App 0x23C get", "App 0x157 put bool false",
                                                "App 0x22E put bool false", "App 0x1AE get"));
    EXPECT_FALSE(AfxOleGetMessageFilter()->IsBusyDialogEnabled());
    EXPECT_FALSE(AfxOleGetMessageFilter()->IsNotRespondingDialogEnabled());
    EXPECT_TRUE(excel.covTrue == static_cast<short>(1));
    EXPECT_TRUE(excel.covFalse == static_cast<short>(0));
    EXPECT_EQ(excel.covOptional.vt, VT_ERROR);
    EXPECT_EQ(excel.covOptional.scode, static_cast<SCODE>(0x80020004));
}

TEST(ExcelStart, WithoutAServerSaysSoAndStaysUsableForNothing)
{
    ASSERT_TRUE(AfxOleInit());
    const MissingServer missing;
    BoxCatcher boxes;
    CMSExcel excel;
    EXPECT_EQ(excel.IsExcel(), 0);
    EXPECT_THAT(boxes.Texts(), ElementsAre("Cannot start Excel"));
    excel.Quit();
    EXPECT_EQ(Thrown<COleException>([&] { excel.AddBook(); }), kNotConnected);
}

TEST_F(ExcelSession, EndLetsGoOfEverythingAndQuitsNothing)
{
    excel->SetBackColor("A1", "B2", RGB(1, 2, 3));
    EXPECT_GT(server.LiveObjects(), 0);
    server.TakeCalls();
    excel.reset();
    EXPECT_EQ(server.LiveObjects(), 0);
    EXPECT_THAT(server.TakeCalls(), IsEmpty());
}

TEST_F(ExcelSession, CopiesShareTheInstance)
{
    CMSExcel copy(*excel);
    CMSExcel assigned;
    assigned = *excel;
    EXPECT_EQ(server.Instances(), 2);
    excel.reset();
    server.TakeCalls();
    copy.SetSheetName("Sheet1", "Loads");
    assigned.SetSheetName("Loads", "Cases");
    EXPECT_EQ(server.SheetNames()[0], "Cases");
    EXPECT_EQ(copy.IsExcel() + assigned.IsExcel(), 2);
    EXPECT_TRUE(copy.covTrue == static_cast<short>(1));
}

TEST_F(ExcelSession, QuitClosesReleasesAndEndsOnce)
{
    EXPECT_THAT(CallsOf([](CMSExcel& e) { e.Quit(); }), ElementsAre("Books 0x115 call", "App 0x12E call"));
    EXPECT_THAT(CallsOf([](CMSExcel& e) { e.Quit(); }), IsEmpty());
    EXPECT_EQ(Thrown<COleException>([&] { excel->AddBook(); }), kNotConnected);
    EXPECT_EQ(server.LiveObjects(), 1) << "the current workbook stays held";
}

TEST_F(ExcelSession, ReleaseBeforeSaveKeepsTheWorkbook)
{
    excel->SetBackColor("A1", "B2", RGB(1, 2, 3));
    EXPECT_THAT(CallsOf([](CMSExcel& e) { e.ReleaseBeforeSave(); }), IsEmpty());
    EXPECT_EQ(server.LiveObjects(), 3) << "application, workbooks, workbook";
    EXPECT_EQ(excel->GetBookName(), "Book1");
    EXPECT_EQ(Thrown<COleException>([&] { excel->SetValue("A1", 1.0); }), kNotConnected);
}

// The first workbook's sheets, past the writer: for objects that it hands to nobody.
class Objects
{
public:
    LPDISPATCH Range()
    {
        m_application.CreateDispatch("Excel.Application");
        m_books.AttachDispatch(m_application.GetWorkbooks());
        m_book.AttachDispatch(m_books.Add(COleVariant()));
        m_sheets.AttachDispatch(m_book.GetSheets());
        m_sheet.AttachDispatch(m_sheets.GetItem(COleVariant(static_cast<short>(1))));
        return m_sheet.GetCells();
    }

private:
    Excel9::_Application m_application;
    Excel9::Workbooks m_books;
    Excel9::_Workbook m_book;
    Excel9::Sheets m_sheets;
    Excel9::_Worksheet m_sheet;
};

TEST_F(ExcelSession, CountsRowsAndColumnsByName)
{
    Objects objects;
    const Excel9::Range range(objects.Range());
    const int live = server.LiveObjects();
    int rows = 0;
    int columns = 0;
    EXPECT_THAT(CallsOf([&](CMSExcel& e) { e.GetRangeCount(range, rows, columns); }),
                ElementsAre("Cells 0x102 get", "Rows id of Count", "Rows 0x76 get (locale 2048)",
                            "Cells 0xF1 get", "Columns id of Count", "Columns 0x76 get (locale 2048)"));
    EXPECT_EQ(rows, 4);
    EXPECT_EQ(columns, 3);
    EXPECT_EQ(server.LiveObjects(), live);
}

TEST_F(ExcelSession, CountOfNothingIsZeroWithoutABox)
{
    BoxCatcher boxes;
    EXPECT_EQ(CMSExcel::GetPropertyCount(nullptr), 0);
    EXPECT_THAT(boxes.Caught(), IsEmpty());
}

TEST_F(ExcelSession, AnUnreadableCountIsZeroWithABox)
{
    server.FailNext("Sheets 0x76", [](EXCEPINFO*) { return DISP_E_MEMBERNOTFOUND; });
    BoxCatcher boxes;
    EXPECT_EQ(excel->GetWorkSheetCount(), 0);
    ASSERT_EQ(boxes.Caught().size(), 1u);
    EXPECT_EQ(boxes.Caught()[0].text, "IDispatch Count Not Found");
    EXPECT_EQ(boxes.Caught()[0].caption, "Error");
    EXPECT_EQ(boxes.Caught()[0].style, static_cast<UINT>(MB_OK));
}

TEST_F(ExcelSession, LateCallsHandTheirArgumentsOn)
{
    Objects objects;
    const COleDispatchDriver range(objects.Range());
    VARIANT last{};
    last.vt = VT_I4;
    last.lVal = 2;
    VARIANT first{};
    first.vt = VT_I2;
    first.iVal = 1;
    server.TakeCalls();
    EXPECT_EQ(CMSExcel::AutoWrap(DISPATCH_PROPERTYPUT, nullptr, range.m_lpDispatch, OLESTR("Count"), 2, last,
                                 first),
              S_OK);
    EXPECT_THAT(server.TakeCalls(),
                ElementsAre("Cells id of Count", "Cells 0x76 put i2 1 i4 2 (locale 2048)"));
    EXPECT_EQ(CMSExcel::AutoWrap(DISPATCH_METHOD, nullptr, range.m_lpDispatch, OLESTR("Nothing"), 0),
              static_cast<HRESULT>(DISP_E_UNKNOWNNAME));
    EXPECT_EQ(CMSExcel::AutoWrap(DISPATCH_METHOD, nullptr, range.m_lpDispatch, OLESTR("Count"), -1),
              E_INVALIDARG);
}

TEST(ExcelSessionDeathTest, ANullObjectEndsTheProcessWithoutAnError)
{
    const auto call = [] {
        BoxCatcher boxes;
        CMSExcel::AutoWrap(DISPATCH_METHOD, nullptr, nullptr, OLESTR("Count"), 0);
    };
    EXPECT_EXIT(call(), testing::ExitedWithCode(0), "");
}

// The messages that are asked for, in place of the message library's.
const char* g_message = nullptr;
const char* GiveMessage(const char* key, int option)
{
    return option == 0 && CString(key) == "IDS_ZEK_ERROR_IN_EXCEL_AUTOMATION" ? g_message : "wrong question";
}

TEST_F(ExcelSession, ErrorBoxesNeverTrustTheMessage)
{
    static const struct {
        const char* message;
        const char* text;
    } kRows[] = {
        {"Error %d: ", "Error 7: detail %d"},
        {"Error ", "Error detail %d"},
        {"", "detail %d"},
        {nullptr, "detail %d"},
    };
    const auto loader = std::exchange(CMsgDll::pfuncLoadStr, &GiveMessage);
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.message ? row.message : "null");
        g_message = row.message;
        BoxCatcher boxes;
        excel->ErrorinExcel(7, "detail %d");
        EXPECT_THAT(boxes.Texts(), ElementsAre(row.text));
        EXPECT_EQ(boxes.Caught()[0].caption, "");
        EXPECT_EQ(boxes.Caught()[0].style, static_cast<UINT>(MB_OK));
    }
    for (const char* hostile : {"%s", "%n", "%d %d %s", "%999999999d", "%*d", "%"}) {
        SCOPED_TRACE(hostile);
        g_message = hostile;
        BoxCatcher boxes;
        excel->ErrorinExcel(7, "detail");
        EXPECT_EQ(boxes.Caught().size(), 1u);
    }
    CMsgDll::pfuncLoadStr = loader;
}

TEST_F(ExcelSession, ErrorBoxesBearTheProductsName)
{
    const auto loader = std::exchange(CMsgDll::pfuncLoadStr, &GiveMessage);
    g_message = "Error %d";
    CWinApp app;
    app.SetRegistryKey("ZekOfficeTest");
    app.WriteProfileString("ZEK_Product", "ProductName", "Frames 3");
    BoxCatcher boxes;
    excel->ErrorinExcel(1, "");
    ASSERT_EQ(boxes.Caught().size(), 1u);
    EXPECT_EQ(boxes.Caught()[0].text, "Error 1");
    EXPECT_EQ(boxes.Caught()[0].caption, "Frames 3");
    app.WriteProfileString("ZEK_Product", nullptr, nullptr);
    CMsgDll::pfuncLoadStr = loader;
}

} // namespace
