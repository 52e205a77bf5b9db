// The application object, its profile, and message boxes.
//
//   class CReportApp : public CWinApp { ... };
//   CReportApp theApp;
//   theApp.SetRegistryKey("Example");
//   theApp.WriteProfileString("Report", "Folder", "C:\\reports");
//
// Threads: the application object belongs to the thread that made it; AfxMessageBox may be called from any.
// Differs: windows and the message loop are not offered yet; Run answers ExitInstance() at once.
#pragma once

#include "afxcoll.h"
#include "afxwnd_.h"

class AFX_CORE_CLASS CWinThread : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinThread)
public:
    CWinThread();
    ~CWinThread() override;

    // FALSE ends the thread before Run.
    virtual BOOL InitInstance();
    virtual int Run();
    virtual int ExitInstance();

    CWnd* m_pMainWnd = nullptr;
};

// The application. There is at most one; it is found by AfxGetApp from its construction to its destruction.
class AFX_CORE_CLASS CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)
public:
    // `appName` null: the program's name without folder and ending.
    explicit CWinApp(LPCSTR appName = nullptr);
    ~CWinApp() override;

    BOOL InitInstance() override;

    // From now on the profile lies in the registry, under HKEY_CURRENT_USER\Software\<key>\<application>;
    // before, in the file <program>.INI of the Windows folder.
    void SetRegistryKey(LPCSTR key);

    // The entry's value; `defaultValue` when there is no such entry (or one of another kind).
    UINT GetProfileInt(LPCSTR section, LPCSTR entry, int defaultValue);
    CString GetProfileString(LPCSTR section, LPCSTR entry, LPCSTR defaultValue = nullptr);
    // FALSE, *data null and *size 0 when there is no such entry. The caller frees *data with delete[].
    BOOL GetProfileBinary(LPCSTR section, LPCSTR entry, LPBYTE* data, UINT* size);

    // FALSE when the entry could not be stored.
    BOOL WriteProfileInt(LPCSTR section, LPCSTR entry, int value);
    // A null value removes the entry, a null entry the whole section.
    BOOL WriteProfileString(LPCSTR section, LPCSTR entry, LPCSTR value);
    BOOL WriteProfileBinary(LPCSTR section, LPCSTR entry, LPBYTE data, UINT size);

    // Shows a message box for AfxMessageBox; the button's identifier.
    // Differs: without an owner window, `helpContext` is not used.
    virtual int DoMessageBox(LPCSTR text, UINT style, UINT helpContext);

    HINSTANCE m_hInstance;
    LPCSTR m_lpCmdLine;
    // Own copies, made with strdup; who replaces one frees the old one.
    LPCSTR m_pszAppName;
    LPCSTR m_pszExeName;
    LPCSTR m_pszProfileName;
    LPCSTR m_pszRegistryKey;

private:
    HKEY OpenSection(LPCSTR section, bool create) const;
    BOOL WriteRegistryValue(LPCSTR section, LPCSTR entry, DWORD type, const void* data, DWORD size);
};

AFX_CORE_API CWinApp* AFXAPI AfxGetApp();
AFX_CORE_API CWinThread* AFXAPI AfxGetThread(); // the application; null without one
AFX_CORE_API CWnd* AFXAPI AfxGetMainWnd();      // null while there are no windows
AFX_CORE_API LPCSTR AFXAPI AfxGetAppName();     // the program's name when there is no application object

// Shows a message box and waits for the answer: the button's identifier. A style without an icon gets the
// exclamation mark when its buttons are OK, OK/Cancel, Yes/No or Yes/No/Cancel. Works without an application
// object; the caption is then the program's name.
AFX_CORE_API int AFXAPI AfxMessageBox(LPCSTR text, UINT style = MB_OK, UINT helpId = 0);
