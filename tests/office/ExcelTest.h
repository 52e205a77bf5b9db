// A report on a recording server: one workbook, its first sheet current.
#pragma once

#include "Boxes.h"
#include "RecordingServer.h"

#include <MSExcel.h>

#include <afxole.h>
#include <gmock/gmock.h>

constexpr SCODE kProgramError = static_cast<SCODE>(0x800A03EC);

// The SCODE of the EXCEPTION that `action` throws; S_OK when it throws nothing.
template <class EXCEPTION, class ACTION>
SCODE Thrown(ACTION action)
{
    try {
        action();
    } catch (EXCEPTION* e) {
        const SCODE sc = COleException::Process(e);
        e->Delete();
        return sc;
    }
    return S_OK;
}

class ExcelTest : public testing::Test
{
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(AfxOleInit()); }

    void SetUp() override
    {
        excel = std::make_unique<CMSExcel>();
        excel->AddBook();
        excel->SetActiveSheet("Sheet1");
        server.TakeCalls();
    }

    // What `action` asks of the server.
    template <class ACTION>
    std::vector<std::string> CallsOf(ACTION action)
    {
        server.TakeCalls();
        action(*excel);
        return server.TakeCalls();
    }

    RecordingServer server;
    std::unique_ptr<CMSExcel> excel;
};
