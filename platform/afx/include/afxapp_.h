// The application object: a program's start, message loop and end, its profile, and message boxes.
//
//   class CReportApp : public CWinApp {
//       BOOL InitInstance() override
//       {
//           SetRegistryKey("Example");
//           auto* frame = new CReportFrame;
//           m_pMainWnd = frame;
//           return frame->Create(nullptr, "Report") && frame->ShowWindow(m_nCmdShow) == FALSE;
//       }
//   };
//   CReportApp theApp;      // and the program links ZEK::main, whose entry runs theApp through AfxWinMain
//
// Threads: the application object belongs to the thread that made it; AfxMessageBox may be called from any.
#pragma once

#include "afxcoll.h"
#include "afxthr_.h"

// The application. There is at most one; it is found by AfxGetApp from its construction to its destruction.
class AFX_CORE_CLASS CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)
public:
    // `appName` null: the program's name without folder and ending.
    explicit CWinApp(LPCSTR appName = nullptr);
    ~CWinApp() override;

    // FALSE ends the program before InitInstance.
    virtual BOOL InitApplication();
    BOOL InitInstance() override; // TRUE
    // Ends after the messages that wait already when InitInstance has left no main window.
    int Run() override;
    int ExitInstance() override;
    BOOL OnIdle(LONG count) override;
    // Tells the user, but for a CUserException, who has been told.
    LRESULT ProcessWndProcException(CException* exception, const MSG* message) override;

    // `code` 1 shows the wait cursor, -1 ends that, 0 shows it again if it should be there. Calls nest.
    virtual void DoWaitCursor(int code);
    HCURSOR LoadStandardCursor(LPCSTR name) const;

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

    // Shows a message box for AfxMessageBox; the button's identifier. The main window's last active popup
    // owns it, and the main window is disabled as well meanwhile. Differs: `helpContext` is not used.
    virtual int DoMessageBox(LPCSTR text, UINT style, UINT helpContext);

    HINSTANCE m_hInstance;
    LPCSTR m_lpCmdLine; // from AfxWinInit on without the program's name
    int m_nCmdShow;     // how the main window is to be shown at first
    // Own copies, made with strdup; who replaces one frees the old one.
    LPCSTR m_pszAppName;
    LPCSTR m_pszExeName;
    LPCSTR m_pszProfileName;
    LPCSTR m_pszRegistryKey;

private:
    HKEY OpenSection(LPCSTR section, bool create) const;
    BOOL WriteRegistryValue(LPCSTR section, LPCSTR entry, DWORD type, const void* data, DWORD size);

    int m_waitCursors = 0;
    HCURSOR m_cursorBefore = nullptr;
};

AFX_CORE_API CWinApp* AFXAPI AfxGetApp();
AFX_CORE_API LPCSTR AFXAPI AfxGetAppName(); // the program's name when there is no application object

// Shows a message box and waits for the answer: the button's identifier. A style without an icon gets the
// exclamation mark when its buttons are OK, OK/Cancel, Yes/No or Yes/No/Cancel. Works without an application
// object; the caption is then the program's name.
AFX_CORE_API int AFXAPI AfxMessageBox(LPCSTR text, UINT style = MB_OK, UINT helpId = 0);
// The text is `textId` of the string tables; `helpId` -1 is the text's own number.
AFX_CORE_API int AFXAPI AfxMessageBox(UINT textId, UINT style = MB_OK, UINT helpId = static_cast<UINT>(-1));

// What a program's entry calls: notes its arguments in the application object; TRUE.
AFX_CORE_API BOOL AFXAPI AfxWinInit(HINSTANCE instance, HINSTANCE previous, LPSTR commandLine,
                                    int showCommand);
// Runs the application object: InitApplication, InitInstance, Run; ExitInstance when InitInstance refuses.
// The exit code; -1 without an application object or when InitApplication refuses.
AFX_CORE_API int AFXAPI AfxWinMain(HINSTANCE instance, HINSTANCE previous, LPSTR commandLine,
                                   int showCommand);
// Ends the calling thread's message loop.
AFX_CORE_API void AFXAPI AfxPostQuitMessage(int exitCode);
