#include <afxwin.h>

#include "FilePath.h"
#include "app/ThreadState.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>

// clang-format off
IMPLEMENT_DYNAMIC(CWinApp, CWinThread)
// clang-format on

namespace {

std::atomic<CWinApp*> g_app{nullptr};

LPCSTR Copied(LPCSTR text)
{
    char* copy = _strdup(text);
    if (!copy)
        AfxThrowMemoryException();
    return copy;
}

void Free(LPCSTR text)
{
    std::free(const_cast<char*>(text));
}

CString ProgramName()
{
    constexpr int kLongest = 32768;
    CString path;
    const DWORD length = ::GetModuleFileNameA(nullptr, path.GetBuffer(kLongest), kLongest);
    path.ReleaseBuffer(static_cast<int>(length));
    return AfxFileTitleOf(path);
}

} // namespace

CWinApp::CWinApp(LPCSTR appName)
    : m_hInstance(::GetModuleHandleA(nullptr)), m_lpCmdLine(::GetCommandLineA()), m_nCmdShow(SW_SHOWDEFAULT),
      m_pszRegistryKey(nullptr)
{
    const CString program = ProgramName();
    m_pszExeName = Copied(program);
    m_pszAppName = Copied(appName ? appName : program.GetString());
    m_pszProfileName = Copied(program + ".INI");
    m_bAutoDelete = FALSE; // usually a static object
    m_hThread = ::GetCurrentThread();
    m_nThreadID = ::GetCurrentThreadId();
    AfxSetCurrentThread(this);
    g_app = this;
}

CWinApp::~CWinApp()
{
    CWinApp* self = this;
    g_app.compare_exchange_strong(self, nullptr);
    for (LPCSTR text : {m_pszExeName, m_pszAppName, m_pszProfileName, m_pszRegistryKey})
        Free(text);
}

BOOL CWinApp::InitApplication()
{
    return TRUE;
}

BOOL CWinApp::InitInstance()
{
    return TRUE;
}

int CWinApp::Run()
{
    if (!m_pMainWnd)
        AfxPostQuitMessage(0);
    return CWinThread::Run();
}

int CWinApp::ExitInstance()
{
    return CWinThread::ExitInstance();
}

BOOL CWinApp::OnIdle(LONG count)
{
    CWinThread::OnIdle(count);
    return count < 1;
}

LRESULT CWinApp::ProcessWndProcException(CException* exception, const MSG* message)
{
    if (message->message == WM_CREATE || message->message == WM_PAINT)
        return CWinThread::ProcessWndProcException(exception, message);
    return AfxTellHandlerException(exception, *message);
}

void CWinApp::DoWaitCursor(int code)
{
    const int nested = m_waitCursors;
    m_waitCursors = std::max(nested + code, 0);
    if (!nested && !m_waitCursors)
        return;
    const HCURSOR before = ::SetCursor(m_waitCursors ? LoadStandardCursor(IDC_WAIT) : m_cursorBefore);
    if (!nested)
        m_cursorBefore = before;
}

HCURSOR CWinApp::LoadStandardCursor(LPCSTR name) const
{
    return ::LoadCursorA(nullptr, name);
}

void CWinApp::SetRegistryKey(LPCSTR key)
{
    LPCSTR registryKey = Copied(key);
    LPCSTR profileName = Copied(m_pszAppName);
    Free(m_pszRegistryKey);
    Free(m_pszProfileName);
    m_pszRegistryKey = registryKey;
    m_pszProfileName = profileName;
}

CWinApp* AFXAPI AfxGetApp()
{
    return g_app;
}

LPCSTR AFXAPI AfxGetAppName()
{
    static const CString program = ProgramName();
    const CWinApp* app = AfxGetApp();
    return app ? app->m_pszAppName : program.GetString();
}
