// A host with windows: how a program starts on the library, names itself, finds its texts and language, reads
// its switches and shows its dialogs.
//   dialogs [section] [message]     what to open besides the main window
#include "DemoProduct.h"
#include "MainFrame.h"

#include <cstring>

namespace {

class CDialogsApp : public CWinApp
{
public:
    CDialogsApp() : CWinApp("Dialogs") {}

    BOOL InitInstance() override;

private:
    bool IsAskedFor(const char* what) const { return std::strstr(m_lpCmdLine, what) != nullptr; }

    DemoProduct m_product;
};

BOOL CDialogsApp::InitInstance()
{
    auto* frame = new CMainFrame; // deletes itself when its window is gone
    if (!frame->Open()) {
        FmtMessageBox("%s", DemoText("IDS_DEMO_NO_WINDOW"));
        return FALSE;
    }
    m_pMainWnd = frame;
    frame->ShowWindow(m_nCmdShow);
    frame->UpdateWindow();
    if (IsAskedFor("section"))
        frame->ShowSection();
    if (IsAskedFor("message"))
        frame->ShowMessage();
    return TRUE;
}

CDialogsApp theApp;

} // namespace
