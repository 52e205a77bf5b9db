// The start of a program: from its entry through the application object to the exit code.
#include <afxwin.h>

namespace {

// An application that does not want to run has its window ended and still tells its exit code.
int Refuse(CWinThread& thread)
{
    if (thread.m_pMainWnd)
        thread.m_pMainWnd->DestroyWindow();
    return thread.ExitInstance();
}

} // namespace

BOOL AFXAPI AfxWinInit(HINSTANCE instance, HINSTANCE, LPSTR commandLine, int showCommand)
{
    if (CWinApp* app = AfxGetApp()) {
        app->m_hInstance = instance;
        app->m_lpCmdLine = commandLine;
        app->m_nCmdShow = showCommand;
    }
    return TRUE;
}

int AFXAPI AfxWinMain(HINSTANCE instance, HINSTANCE previous, LPSTR commandLine, int showCommand)
{
    CWinThread* thread = AfxGetThread();
    CWinApp* app = AfxGetApp();
    if (!thread || !AfxWinInit(instance, previous, commandLine, showCommand))
        return -1;
    if (app && !app->InitApplication())
        return -1;
    return thread->InitInstance() ? thread->Run() : Refuse(*thread);
}

void AFXAPI AfxPostQuitMessage(int exitCode)
{
    ::PostQuitMessage(exitCode);
}
