// The examples of docs/windows.md, as they stand there.
#include "Boxes.h"
#include "GuideIds.h"
#include "TestProduct.h"

#include <ZEK_lib.h>

#include <gmock/gmock.h>

#include <cstring>
#include <functional>
#include <string>

using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;

namespace {

class CReportApp : public CWinApp
{
public:
    CReportApp() : CWinApp("Report") {}

    BOOL InitInstance() override
    {
        auto* frame = new CFrameWnd; // deletes itself with its window
        if (!frame->Create(nullptr, "Report")) {
            FmtMessageBox("%s cannot open a window.", AfxGetAppName());
            return FALSE; // the program ends
        }
        m_pMainWnd = frame; // the program ends with this window
        frame->ShowWindow(m_nCmdShow);
        return TRUE;
    }
};

CReportApp theApp;

class CSizeDialog : public CDialog
{
public:
    explicit CSizeDialog(CWnd* parent = nullptr) : CDialog(IDD_SIZE, parent) {}

    int m_count = 1;

protected:
    BOOL OnInitDialog() override
    {
        CSpecialChar::FillWindowChar(this, IDC_AREA, CSpecialChar::m_cs2Square);
        return CDialog::OnInitDialog(); // shows the members
    }

    void DoDataExchange(CDataExchange* exchange) override
    {
        CDialog::DoDataExchange(exchange);
        DDX_Text(exchange, IDC_COUNT, m_count);
        DDV_MinMaxInt(exchange, m_count, 1, 99);
    }
};

// What a person does at the screen: tried while the thread handles messages, until it could be done.
std::function<bool()> g_person;

void CALLBACK LetPersonAct(HWND, UINT, UINT_PTR timer, DWORD)
{
    if (g_person())
        KillTimer(nullptr, timer);
}

void Meanwhile(std::function<bool()> person)
{
    g_person = std::move(person);
    SetTimer(nullptr, 0, 1, &LetPersonAct);
}

BOOL CALLBACK TakeDialog(HWND window, LPARAM found)
{
    char name[16] = "";
    GetClassNameA(window, name, sizeof name);
    const bool taken = std::strcmp(name, "#32770") == 0 && IsWindowVisible(window);
    if (taken)
        *reinterpret_cast<HWND*>(found) = window;
    return !taken;
}

HWND OpenDialog()
{
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &TakeDialog, reinterpret_cast<LPARAM>(&dialog));
    return dialog;
}

CString TextOf(HWND window, int id)
{
    char text[64] = "";
    GetDlgItemTextA(window, id, text, sizeof text);
    return text;
}

// A main window with the members that the examples are from.
class CMain : public CFrameWnd
{
public:
    CMain() { Create(nullptr, "Main"); }

    void ShowSize()
    {
        if (!m_size.GetSafeHwnd())
            m_size.Create(IDD_SIZE, this);
        m_size.ShowWindow(SW_SHOW);
    }

    void Tell(const CString& name, int count)
    {
        FmtMessageBox("%s has %d elements.", name, count);
        if (FmtMessageBox(*this, nullptr, MB_YESNO | MB_ICONQUESTION, "Delete %d nodes?", count) == IDYES)
            DeleteNodes();
        TimedMessageBox(nullptr, nullptr, MB_OK, 3000, "Saved as %s.", name); // closes after three seconds
    }

    void DeleteNodes() { ++m_deletions; }

    CSizeDialog m_size;
    int m_deletions = 0;
};

TEST(WindowsGuide, AProgramLastsAsLongAsItsMainWindow)
{
    Meanwhile([] {
        return theApp.m_pMainWnd && theApp.m_pMainWnd->IsWindowVisible() &&
               theApp.m_pMainWnd->PostMessage(WM_CLOSE);
    });
    char none[] = "";
    EXPECT_EQ(AfxWinMain(GetModuleHandleA(nullptr), nullptr, none, SW_SHOW), 0);
    EXPECT_EQ(theApp.m_pMainWnd, nullptr);
}

TEST(WindowsGuide, AModalDialogAnswersItsValues)
{
    CString area;
    Meanwhile([&area] {
        const HWND dialog = OpenDialog();
        if (!dialog)
            return false;
        area = TextOf(dialog, IDC_AREA);
        SetDlgItemTextA(dialog, IDC_COUNT, "7");
        SendMessageA(dialog, WM_COMMAND, IDOK, 0);
        return true;
    });
    int count = 0;
    CSizeDialog dialog;
    if (dialog.DoModal() == IDOK)
        count = dialog.m_count;
    EXPECT_EQ(count, 7);
    EXPECT_EQ(area, "Area (m" + CSpecialChar::m_cs2Square + ")");
}

TEST(WindowsGuide, AModelessDialogIsOpenedOnce)
{
    auto* main = new CMain;
    main->ShowSize();
    const HWND dialog = main->m_size.m_hWnd;
    EXPECT_TRUE(IsWindowVisible(dialog));
    main->ShowSize();
    EXPECT_EQ(main->m_size.m_hWnd, dialog);
    main->m_size.DestroyWindow();
    main->DestroyWindow();
}

TEST(WindowsGuide, MessageBoxes)
{
    auto* main = new CMain;
    main->ShowWindow(SW_SHOW);
    theApp.m_pMainWnd = main;
    {
        BoxCatcher boxes(IDYES);
        main->Tell("Beam", 3);
        EXPECT_THAT(boxes.Texts(), ElementsAre("Beam has 3 elements.", "Delete 3 nodes?", "Saved as Beam."));
    }
    EXPECT_EQ(main->m_deletions, 1);
    theApp.m_pMainWnd = nullptr;
    main->DestroyWindow();
}

TEST(WindowsGuide, TextsOfTheMessageLibrary)
{
    const TestProduct product("GUIDE");
    CString title = CMsgDll::pfuncLoadStr("IDS_TITLE", 0); // copied at once
    EXPECT_EQ(title, "Sizes of members");
    EXPECT_EQ(CMsgDll::pfuncLoadStr("IDS_NONE", 0), nullptr);
}

TEST(WindowsGuide, APathIsShortened)
{
    auto* main = new CMain;
    CWnd control;
    ASSERT_TRUE(control.Create("STATIC", "", WS_CHILD, CRect(0, 0, 160, 20), main, 1));
    CWnd* label = &control;
    const CString path = "C:\\Projects\\Bridge at the harbour\\Results\\report.xlsx";
    {
        CRect room;
        label->GetClientRect(room);
        CClientDC dc(label);
        CFont* before = dc.SelectObject(label->GetFont());
        label->SetWindowText(CFileCtrl(path).GetAbbPathNameExt(&dc, room));
        dc.SelectObject(before);
    }
    CString shown;
    label->GetWindowText(shown);
    EXPECT_THAT(std::string(shown), StartsWith("C:\\..."));
    EXPECT_THAT(std::string(shown), EndsWith("\\report.xlsx"));
    control.DestroyWindow();
    main->DestroyWindow();
}

TEST(WindowsGuide, SwitchesOfTesters)
{
    ASSERT_EQ(CRegistry::WriteProfileString("HKEY_CURRENT_USER\\Software\\TOVEN\\TEST", "Trace", "on"), 1);
    bool traced = false;
    const auto StartTrace = [&traced] { traced = true; };
    if (CTestEnvMgr::IsTestEnvST("Trace", "on"))
        StartTrace();
    EXPECT_TRUE(traced);
    CRegistry::WriteProfileString("HKEY_CURRENT_USER\\Software\\TOVEN\\TEST", "Trace", nullptr);
}

} // namespace
