// The server as hosts meet it: found through the registry, saving files.
#include "Client.h"
#include "Scratch.h"

#include <objbase.h>
#include <windows.h>
#include <zekpath.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

class SpreadsheetSaving : public testing::Test
{
protected:
    std::string Save(const std::string& path) { return client.Ask("wb.SaveAs('" + path + "')"); }
    bool HasFile(const std::string& name) { return fs::exists(folder.Path(name)); }
    std::size_t Files()
    {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder.Path()), {}));
    }

    ScratchFolder folder;
    Client client;
};

} // namespace

TEST_F(SpreadsheetSaving, NamesTheWorkbookAfterItsFile)
{
    const std::string win32 = ZekWin32Path(folder.Path());
    EXPECT_EQ(client.Ask("wb.Saved"), "TRUE");
    EXPECT_EQ(client.Ask("Range('A1').Value = 1"), "");
    EXPECT_EQ(client.Ask("wb.Saved"), "FALSE");
    EXPECT_EQ(Save(folder.Path("report")), "EMPTY");
    EXPECT_TRUE(HasFile("report.xlsx"));
    EXPECT_EQ(client.Ask("wb.Saved"), "TRUE");
    EXPECT_EQ(client.Ask("wb.Name"), "'report.xlsx'");
    EXPECT_EQ(client.Ask("wb.Path"), "'" + win32 + "'");
    EXPECT_EQ(client.Ask("wb.FullName"), "'" + win32 + "\\report.xlsx'");
    for (const char* name : {"report.xlsx", "REPORT.XLSX", "Report"})
        EXPECT_EQ(client.Ask("app.Workbooks('" + std::string(name) + "').Name"), "'report.xlsx'") << name;
    EXPECT_EQ(Save(win32 + "\\old.xls"), "EMPTY");
    EXPECT_TRUE(HasFile("old.xls"));
    EXPECT_EQ(client.Ask("wb.Save"), "EMPTY");
    EXPECT_EQ(client.Ask("wb.SaveCopyAs('" + folder.Path("copy.xlsx") + "')"), "EMPTY");
    EXPECT_EQ(client.Ask("wb.Name"), "'old.xls'");
    EXPECT_EQ(Files(), 3u);
}

TEST_F(SpreadsheetSaving, RefusalsLeaveEverythingAsItWas)
{
    WriteWholeFile(folder.Path("kept.xlsx"), "old");
    fs::create_directory(folder.Path("folder.xlsx"));
    const std::string paths[] = {
        folder.Path("missing/report.xlsx"),
        folder.Path("folder.xlsx"),
        "",
        folder.Path("a?b.xlsx"),
        folder.Path() + "/",
    };
    for (const std::string& path : paths)
        EXPECT_TRUE(Save(path).starts_with("error 800A03EC")) << path << ": " << Save(path);
    EXPECT_TRUE(client.Ask("wb.SaveAs('" + folder.Path("kept.xlsx") + "', 6)").starts_with("error 800A03EC"));
    EXPECT_TRUE(client.Ask("wb.SaveAs('" + folder.Path("kept.xlsx") + "', 51, 'secret')")
                    .starts_with("error 800A03EC"));
    EXPECT_EQ(client.Ask("wb.Name"), "'Book1'");
    EXPECT_EQ(ReadWholeFile(folder.Path("kept.xlsx")), "old");
    EXPECT_EQ(Files(), 2u);
}

TEST_F(SpreadsheetSaving, TwoOpenWorkbooksCannotShareAName)
{
    EXPECT_EQ(Save(folder.Path("one.xlsx")), "EMPTY");
    client.Name("other", "app.Workbooks.Add");
    EXPECT_TRUE(client.Ask("other.SaveAs('" + folder.Path("ONE.xlsx") + "')").starts_with("error 800A03EC"));
    EXPECT_EQ(Files(), 1u);
}

TEST_F(SpreadsheetSaving, ClosingSavesOnlyWhenAsked)
{
    EXPECT_EQ(client.Ask("Range('A1').Value = 1"), "");
    EXPECT_EQ(client.Ask("wb.Close(true, '" + folder.Path("closed.xlsx") + "', missing)"), "EMPTY");
    EXPECT_TRUE(HasFile("closed.xlsx"));
    client.Name("other", "app.Workbooks.Add");
    EXPECT_EQ(client.Ask("other.Close(missing, '" + folder.Path("lost.xlsx") + "', missing)"), "EMPTY");
    EXPECT_FALSE(HasFile("lost.xlsx"));
    EXPECT_EQ(client.Ask("app.Workbooks.Count"), "I4 0");
    EXPECT_TRUE(
        client.Ask("app.Workbooks.Open('" + folder.Path("closed.xlsx") + "')").starts_with("error 800A03EC"));
}

// Through the registry and the module; each start is a server of its own.
TEST(SpreadsheetModule, StartsByItsProgramIdentifier)
{
    ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
    CLSID clsid;
    ASSERT_EQ(CLSIDFromProgID(OLESTR("Excel.Application"), &clsid), S_OK);
    IDispatch* servers[2] = {};
    for (IDispatch*& server : servers)
        ASSERT_EQ(
            CoCreateInstance(clsid, nullptr, CLSCTX_SERVER, IID_IDispatch, reinterpret_cast<void**>(&server)),
            S_OK);
    for (const bool visible : {true, false}) {
        VARIANT value{};
        value.vt = VT_BOOL;
        value.boolVal = visible ? VARIANT_TRUE : VARIANT_FALSE;
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS params{&value, &put, 1, 1};
        EXPECT_EQ(servers[visible ? 0 : 1]->Invoke(0x22E, IID_NULL, 0, DISPATCH_PROPERTYPUT, &params, nullptr,
                                                   nullptr, nullptr),
                  S_OK);
    }
    DISPPARAMS none{};
    VARIANT visible{};
    EXPECT_EQ(servers[0]->Invoke(0x22E, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &visible, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(visible.boolVal, VARIANT_TRUE);
    const HMODULE module = GetModuleHandleA("zek_officeserver.DLL");
    ASSERT_NE(module, nullptr);
    const auto canUnload = reinterpret_cast<HRESULT(WINAPI*)()>(
        reinterpret_cast<void (*)()>(GetProcAddress(module, "DllCanUnloadNow")));
    ASSERT_NE(canUnload, nullptr);
    EXPECT_EQ(canUnload(), S_FALSE);
    for (IDispatch* const server : servers)
        EXPECT_EQ(server->Release(), 0u);
    IUnknown* aggregated = nullptr;
    EXPECT_EQ(CoCreateInstance(clsid, reinterpret_cast<IUnknown*>(&clsid), CLSCTX_SERVER, IID_IUnknown,
                               reinterpret_cast<void**>(&aggregated)),
              CLASS_E_NOAGGREGATION);
    CoUninitialize();
}
