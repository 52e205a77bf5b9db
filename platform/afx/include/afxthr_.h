// Threads of the framework: workers that run one function, and threads with a message loop of their own.
//
//   UINT Measure(LPVOID model) { ...; return 0; }
//   AfxBeginThread(Measure, &model);                          // a worker
//   AfxBeginThread(RUNTIME_CLASS(CWatchThread));              // InitInstance, Run, ExitInstance
//
// Ownership: a thread object with m_bAutoDelete (the default) is deleted as its thread ends, and its handle
// with it; who waits for such a thread starts it suspended and copies or keeps the handle first. Errors: an
// exception that leaves a thread's function, InitInstance, Run or ExitInstance is told to the user and ends
// the thread with the code -1. Threads: the members that say nothing else belong to the object's own thread.
#pragma once

#include "afxexc_.h"
#include "afxwnd_.h"

#include <memory>

class AfxThreadReady;

using AFX_THREADPROC = UINT(AFX_CDECL*)(LPVOID);

class AFX_CORE_CLASS CWinThread : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinThread)
public:
    CWinThread();
    CWinThread(AFX_THREADPROC procedure, LPVOID parameter);
    ~CWinThread() override;

    // Starts the thread; with CREATE_SUSPENDED it waits for ResumeThread. FALSE when it cannot be made. From
    // either's return on the thread has a message queue: PostThreadMessage reaches it.
    // Until its InitInstance sets another, the application's main window is the thread's main window too.
    BOOL CreateThread(DWORD flags = 0, UINT stack = 0, LPSECURITY_ATTRIBUTES security = nullptr);

    // What a thread with a message loop does first: FALSE (the default) ends it without Run.
    virtual BOOL InitInstance();
    // Handles messages and idle time until WM_QUIT, then answers ExitInstance().
    virtual int Run();
    // The thread's exit code: by default the one given to PostQuitMessage, 0 when the loop did not run.
    virtual int ExitInstance();

    // Waits for a message and dispatches it unless PreTranslateMessage takes it. FALSE on WM_QUIT.
    virtual BOOL PumpMessage();
    // TRUE: the message is done with. Asks the thread's own message map (ON_THREAD_MESSAGE), then the windows
    // from the message's up to the main window.
    virtual BOOL PreTranslateMessage(MSG* message);
    // Called while no message waits, `count` from 0 up, until it answers FALSE.
    virtual BOOL OnIdle(LONG count);
    // Whether idle time follows the message: not after timers of the system, painting, and a still mouse.
    virtual BOOL IsIdleMessage(MSG* message);

    // An exception that a handler of `message` let out; it is deleted afterwards. The answer is the
    // message's.
    virtual LRESULT ProcessWndProcException(CException* exception, const MSG* message);

    // m_pActiveWnd if there is one, else m_pMainWnd.
    virtual CWnd* GetMainWnd();

    // Deletes the object if m_bAutoDelete says so.
    virtual void Delete();

    // Threads: any. The suspend count before, (DWORD)-1 on failure.
    DWORD ResumeThread();
    BOOL SetThreadPriority(int priority);
    int GetThreadPriority();
    // FALSE before the thread runs and when it has ended.
    BOOL PostThreadMessage(UINT message, WPARAM wParam, LPARAM lParam);

    operator HANDLE() const { return m_hThread; }

    CWnd* m_pMainWnd = nullptr; // when its window ends, so does the thread
    CWnd* m_pActiveWnd = nullptr;
    BOOL m_bAutoDelete = TRUE;
    HANDLE m_hThread = nullptr;
    DWORD m_nThreadID = 0;
    LPVOID m_pThreadParams = nullptr;
    AFX_THREADPROC m_pfnThreadProc = nullptr;
    MSG m_msgCur = {}; // the last message taken

protected:
    // Hands a message without a window to the message map. TRUE: handled.
    virtual BOOL DispatchThreadMessageEx(MSG* message);

private:
    MSG m_lastMove = {};
    std::shared_ptr<AfxThreadReady> m_ready; // until the thread has been resumed
};

// Starts a worker. Null when it cannot be made.
AFX_CORE_API CWinThread* AFXAPI AfxBeginThread(AFX_THREADPROC procedure, LPVOID parameter,
                                               int priority = THREAD_PRIORITY_NORMAL, UINT stack = 0,
                                               DWORD flags = 0, LPSECURITY_ATTRIBUTES security = nullptr);

// Starts a thread with a message loop, of a class derived from CWinThread. Null when it cannot be made.
AFX_CORE_API CWinThread* AFXAPI AfxBeginThread(CRuntimeClass* threadClass,
                                               int priority = THREAD_PRIORITY_NORMAL, UINT stack = 0,
                                               DWORD flags = 0, LPSECURITY_ATTRIBUTES security = nullptr);

// Ends the calling thread at once; deletes its thread object unless `deleteThread` is FALSE.
// Differs: on Linux objects on the thread's stack are destroyed.
AFX_CORE_API void AFXAPI AfxEndThread(UINT exitCode, BOOL deleteThread = TRUE);

// The calling thread's object: the application on the thread that made it; null on a thread without one.
AFX_CORE_API CWinThread* AFXAPI AfxGetThread();

// The calling thread's main window; null without one.
AFX_CORE_API CWnd* AFXAPI AfxGetMainWnd();

// Tells the calling thread's object of an exception that a message's handler let out; what it answers.
AFX_CORE_API LRESULT AFXAPI AfxProcessWndProcException(CException* exception, const MSG* message);
