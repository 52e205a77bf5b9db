// Tells on standard output how it is started and ended.
#include <afxwin.h>

#include <cstdio>

namespace {

class CProgram : public CWinApp
{
public:
    BOOL InitApplication() override
    {
        std::printf("arguments: %s\nInitApplication", m_lpCmdLine);
        return AfxGetApp() == this && AfxGetThread() == this;
    }

    BOOL InitInstance() override
    {
        std::printf(" InitInstance");
        return TRUE;
    }

    int ExitInstance() override
    {
        std::printf(" ExitInstance\n");
        return CWinApp::ExitInstance();
    }
};

CProgram theApp;

} // namespace
