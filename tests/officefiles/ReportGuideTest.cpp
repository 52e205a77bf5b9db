// The example of docs/reports.md, as it stands there, against the built-in server.
#include "Scratch.h"

#include <ZEK_lib.h>

#include <gmock/gmock.h>

namespace {

void WriteReport()
{
    AfxOleInit();                                  // once per thread, before the first report

    CMSExcel excel;                                // a private, invisible instance
    if (!excel.IsExcel())
        return;                                    // a box has said "Cannot start Excel"
    excel.AddBook();
    excel.AddSheet2("Loads");                      // behind the sheets that are there, and current
    excel.DeleteDefaultSheet();
    excel.SetActiveSheet("Loads");                 // the deletion left another sheet current

    excel.SetValue("A1", "Node");
    excel.SetValue("B1", "Force, kN");
    excel.SetFontBold("A1", "B1", TRUE);
    for (short i = 0; i < 3; ++i) {
        excel.SetValue(i + 1, 0, i + 101.0);       // rows and columns count from 0
        excel.SetValue(i + 1, 1, 12.5 * i);
    }
    excel.SetCellInNumber3DotFormat("B2", "B4");
    excel.SetBorder("A1", "B4", xlContinuous, xlThin);
    excel.SetPageSetup(xlPortrait, xlPaperA4);
    excel.SetMargin(20, 15, 20, 20);               // millimetres: left, right, top, bottom

    excel.SaveAs(excel.GetBookName(), "loads.xlsx");
    excel.Quit();                                  // no destructor does this
}

TEST(ReportGuide, LeavesAWorkbookInTheCurrentFolder)
{
    const ScratchFolder folder;
    char before[MAX_PATH];
    ASSERT_NE(GetCurrentDirectoryA(MAX_PATH, before), 0U);
    ASSERT_TRUE(SetCurrentDirectoryA(folder.Path().c_str()));
    WriteReport();
    SetCurrentDirectoryA(before);
    EXPECT_EQ(ReadWholeFile(folder.Path("loads.xlsx")).substr(0, 2), "PK");
}

} // namespace
