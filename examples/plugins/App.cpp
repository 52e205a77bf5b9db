// A host with plug-ins:
//   plugins [run]      run: lengthens the beam, calculates, prints what the window says, and ends
#include "BeamForm.h"
#include "Plugins.h"

#include <cstring>
#include <memory>

namespace {

// Hands the beam to whoever asks.
class CBeamAgency : public CServiceAgency
{
public:
    explicit CBeamAgency(CBeam& beam) : m_beam(beam) {}
    int DoService(int nCode, void* pData) override
    {
        if (nCode != kGetBeam)
            return 0;
        *static_cast<CBeam**>(pData) = &m_beam;
        return 1;
    }

private:
    CBeam& m_beam;
};

class CMainFrame : public CFrameWnd
{
public:
    explicit CMainFrame(CBeam& beam) : m_form(beam) {}

    bool Open()
    {
        const CRect place(CPoint(60, 60), CSize(480, 240));
        return Create(nullptr, "Beam", WS_OVERLAPPEDWINDOW, place) && m_form.Create(IDD_BEAM, this);
    }
    CBeamForm& Form() { return m_form; }

protected:
    void OnSetFocus(CWnd*) { m_form.SetFocus(); } // the keyboard is the form's
    void OnDestroy()
    {
        m_form.Stop(); // nothing that the job uses may go before it
        CFrameWnd::OnDestroy();
    }
    DECLARE_MESSAGE_MAP()

private:
    CBeamForm m_form;
};

BEGIN_MESSAGE_MAP(CMainFrame, CFrameWnd)
ON_WM_DESTROY()
ON_WM_SETFOCUS()
END_MESSAGE_MAP()

// The host's own things, in the order in which they depend on each other.
struct Host {
    CBeam beam;
    CDynModuleMgr plugins;
};

class CPluginsApp : public CWinApp
{
public:
    CPluginsApp() : CWinApp("Plugins") {}

    BOOL InitInstance() override;
    int ExitInstance() override;

private:
    void LoadPlugins();
    bool OpenWindow();

    std::unique_ptr<Host> m_host;
};

void CPluginsApp::LoadPlugins()
{
    CServiceHeadOffice::Instance()->RegAgency("Beam", new CBeamAgency(m_host->beam));
    for (const auto& [name, file] :
         {std::pair("Units", "BEAM_units.DLL"), {"Deflection", "BEAM_deflection.DLL"}}) {
        if (!LoadPlugin(m_host->plugins, name, file))
            FmtMessageBox("The plug-in %s cannot be started.", file);
    }
}

bool CPluginsApp::OpenWindow()
{
    auto* frame = new CMainFrame(m_host->beam); // deletes itself with its window
    if (!frame->Open()) {
        FmtMessageBox("No window can be opened.");
        return false;
    }
    m_pMainWnd = frame;
    frame->ShowWindow(m_nCmdShow);
    frame->UpdateWindow();
    return true;
}

BOOL CPluginsApp::InitInstance()
{
    m_host = std::make_unique<Host>();
    LoadPlugins();
    if (!OpenWindow())
        return FALSE;
    if (std::strcmp(m_lpCmdLine, "run") == 0)
        static_cast<CMainFrame*>(m_pMainWnd)->Form().RunAlone();
    return TRUE;
}

// Before the static objects of the program, and of its plug-ins, end.
int CPluginsApp::ExitInstance()
{
    m_host = nullptr;
    return CWinApp::ExitInstance();
}

CPluginsApp theApp;

} // namespace
