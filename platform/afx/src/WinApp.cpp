#include <afxwin.h>

#include "FilePath.h"

#include <atomic>
#include <cstdlib>
#include <cstring>

// clang-format off
IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)
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

UINT WithDefaultIcon(UINT style)
{
    constexpr UINT kButtons[] = {MB_OK, MB_OKCANCEL, MB_YESNO, MB_YESNOCANCEL};
    if ((style & MB_ICONMASK) != 0)
        return style;
    for (const UINT buttons : kButtons)
        if ((style & MB_TYPEMASK) == buttons)
            return style | MB_ICONEXCLAMATION;
    return style;
}

int ShowBox(LPCSTR text, LPCSTR caption, UINT style)
{
    return ::MessageBoxA(nullptr, text, caption, WithDefaultIcon(style));
}

} // namespace

CWinThread::CWinThread() = default;
CWinThread::~CWinThread() = default;

BOOL CWinThread::InitInstance()
{
    return FALSE;
}

int CWinThread::Run()
{
    return ExitInstance();
}

int CWinThread::ExitInstance()
{
    return 0;
}

CWinApp::CWinApp(LPCSTR appName)
    : m_hInstance(::GetModuleHandleA(nullptr)), m_lpCmdLine(::GetCommandLineA()), m_pszRegistryKey(nullptr)
{
    const CString program = ProgramName();
    m_pszExeName = Copied(program);
    m_pszAppName = Copied(appName ? appName : program.GetString());
    m_pszProfileName = Copied(program + ".INI");
    g_app = this;
}

CWinApp::~CWinApp()
{
    CWinApp* self = this;
    g_app.compare_exchange_strong(self, nullptr);
    for (LPCSTR text : {m_pszExeName, m_pszAppName, m_pszProfileName, m_pszRegistryKey})
        Free(text);
}

BOOL CWinApp::InitInstance()
{
    return TRUE;
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

int CWinApp::DoMessageBox(LPCSTR text, UINT style, UINT)
{
    return ShowBox(text, m_pszAppName, style);
}

CWinApp* AFXAPI AfxGetApp()
{
    return g_app;
}

CWinThread* AFXAPI AfxGetThread()
{
    return g_app;
}

CWnd* AFXAPI AfxGetMainWnd()
{
    const CWinApp* app = AfxGetApp();
    return app ? app->m_pMainWnd : nullptr;
}

LPCSTR AFXAPI AfxGetAppName()
{
    static const CString program = ProgramName();
    const CWinApp* app = AfxGetApp();
    return app ? app->m_pszAppName : program.GetString();
}

int AFXAPI AfxMessageBox(LPCSTR text, UINT style, UINT helpId)
{
    CWinApp* app = AfxGetApp();
    return app ? app->DoMessageBox(text, style, helpId) : ShowBox(text, AfxGetAppName(), style);
}
