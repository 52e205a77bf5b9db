// A host with windows: how a program starts on the library, tells who it is, and shows its main window.
#include "DemoProduct.h"
#include "MainFrame.h"

namespace {

class CDialogsApp : public CWinApp
{
public:
    CDialogsApp() : CWinApp("Dialogs") {}

    BOOL InitInstance() override;
    int ExitInstance() override;

private:
    DemoProduct m_product; // from now on the library knows the host
    bool m_started = false;
};

BOOL CDialogsApp::InitInstance()
{
    auto* frame = new CMainFrame; // deletes itself with its window, or here when there is none
    if (!frame->Open()) {
        FmtMessageBox("%s", DemoText("IDS_DEMO_NO_WINDOW"));
        return FALSE;
    }
    m_pMainWnd = frame; // the program ends with this window
    frame->ShowWindow(m_nCmdShow);
    frame->UpdateWindow();
    m_started = true;
    return TRUE;
}

int CDialogsApp::ExitInstance()
{
    const int code = CWinApp::ExitInstance();
    return m_started ? code : 1;
}

CDialogsApp theApp; // all that the program consists of: its entry is ZEK::main's

} // namespace
