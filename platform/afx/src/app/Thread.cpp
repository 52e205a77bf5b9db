#include "ThreadState.h"

#include <afxwin.h>

#include <process.h>

#include <exception>
#include <memory>
#include <new>
#include <utility>

// clang-format off
IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)
// clang-format on

namespace {

constexpr UINT kFailed = static_cast<UINT>(-1);

thread_local constinit CWinThread* t_thread = nullptr;

} // namespace

// Set when a new thread can be posted to.
class AfxThreadReady
{
public:
    AfxThreadReady() : m_event(::CreateEventA(nullptr, TRUE, FALSE, nullptr)) {}
    ~AfxThreadReady()
    {
        if (m_event)
            ::CloseHandle(m_event);
    }
    AfxThreadReady(const AfxThreadReady&) = delete;
    AfxThreadReady& operator=(const AfxThreadReady&) = delete;

    bool IsMade() const { return m_event != nullptr; }
    void Set() { ::SetEvent(m_event); }
    void Await() { ::WaitForSingleObject(m_event, INFINITE); }

private:
    HANDLE m_event;
};

namespace {

// What a new thread is told.
struct Start {
    CWinThread* thread;
    HWND mainWindow; // the application's
    std::shared_ptr<AfxThreadReady> ready;
};

// Has the system make the thread's message queue, so that nothing posted from now on is lost.
void MakeQueue()
{
    MSG message;
    ::PeekMessage(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
}

// Stands for a window that another thread owns: not in the handle map, and not destroyed at the end.
class LentWindow
{
public:
    explicit LentWindow(HWND window) { m_window.m_hWnd = window; }
    ~LentWindow() { m_window.m_hWnd = nullptr; }
    LentWindow(const LentWindow&) = delete;
    LentWindow& operator=(const LentWindow&) = delete;

    CWnd* Window() { return m_window.m_hWnd ? &m_window : nullptr; }

private:
    CWnd m_window;
};

UINT RunThread(CWinThread* thread)
{
    if (thread->m_pfnThreadProc)
        return thread->m_pfnThreadProc(thread->m_pThreadParams);
    return static_cast<UINT>(thread->InitInstance() ? thread->Run() : thread->ExitInstance());
}

void TellUser(LPCSTR reason)
{
    CString text("A task in the background has ended because of an error.");
    if (reason)
        text.AppendFormat("\n%s", reason);
    AfxMessageBox(text, MB_ICONSTOP);
}

// Nothing but the end of the thread itself leaves a thread's entry.
UINT RunGuarded(CWinThread* thread)
{
    try {
        return RunThread(thread);
    } catch (CException* e) {
        const AFX_EXCEPTION_LINK link(e);
        e->ReportError(MB_ICONSTOP);
    } catch (const std::exception& e) {
        TellUser(e.what());
    } catch (...) {
        if (!std::current_exception())
            throw; // no exception of C++: the thread ends itself
        TellUser(nullptr);
    }
    return kFailed;
}

UINT RunWithMainWindow(const Start& start)
{
    LentWindow window(start.mainWindow);
    if (!start.thread->m_pMainWnd)
        start.thread->m_pMainWnd = window.Window();
    const UINT code = RunGuarded(start.thread);
    if (start.thread->m_pMainWnd == window.Window())
        start.thread->m_pMainWnd = nullptr;
    return code;
}

unsigned __stdcall ThreadEntry(void* argument)
{
    const Start start = *std::unique_ptr<Start>(static_cast<Start*>(argument));
    AfxSetCurrentThread(start.thread);
    MakeQueue();
    start.ready->Set();
    const UINT code = RunWithMainWindow(start);
    start.thread->Delete();
    AfxSetCurrentThread(nullptr);
    return code;
}

HWND ApplicationWindow()
{
    const CWinApp* app = AfxGetApp();
    return app && app->m_pMainWnd ? app->m_pMainWnd->m_hWnd : nullptr;
}

CWinThread* Begin(std::unique_ptr<CWinThread> thread, int priority, UINT stack, DWORD flags,
                  LPSECURITY_ATTRIBUTES security)
{
    if (!thread || !thread->CreateThread(flags | CREATE_SUSPENDED, stack, security))
        return nullptr;
    thread->SetThreadPriority(priority);
    CWinThread* started = thread.release(); // deletes itself from now on
    if (!(flags & CREATE_SUSPENDED))
        started->ResumeThread();
    return started;
}

} // namespace

CWinThread* AfxCurrentThread()
{
    return t_thread;
}

void AfxSetCurrentThread(CWinThread* thread)
{
    t_thread = thread;
}

CWinThread::CWinThread() = default;

CWinThread::CWinThread(AFX_THREADPROC procedure, LPVOID parameter)
    : m_pThreadParams(parameter), m_pfnThreadProc(procedure)
{
}

CWinThread::~CWinThread()
{
    if (m_hThread)
        ::CloseHandle(m_hThread);
    if (AfxCurrentThread() == this)
        AfxSetCurrentThread(nullptr);
}

BOOL CWinThread::CreateThread(DWORD flags, UINT stack, LPSECURITY_ATTRIBUTES security)
{
    auto ready = std::make_shared<AfxThreadReady>();
    auto start = std::unique_ptr<Start>(new Start{this, ApplicationWindow(), ready});
    if (!ready->IsMade())
        return FALSE;
    unsigned id = 0;
    const auto handle =
        ::_beginthreadex(security, stack, ThreadEntry, start.get(), flags | CREATE_SUSPENDED, &id);
    if (handle == 0)
        return FALSE;
    static_cast<void>(start.release()); // the new thread's now
    m_hThread = reinterpret_cast<HANDLE>(handle);
    m_nThreadID = id;
    m_ready = std::move(ready);
    if (!(flags & CREATE_SUSPENDED))
        ResumeThread();
    return TRUE;
}

BOOL CWinThread::InitInstance()
{
    return FALSE;
}

int CWinThread::ExitInstance()
{
    return m_msgCur.message == WM_QUIT ? static_cast<int>(m_msgCur.wParam) : 0;
}

CWnd* CWinThread::GetMainWnd()
{
    return m_pActiveWnd ? m_pActiveWnd : m_pMainWnd;
}

void CWinThread::Delete()
{
    if (m_bAutoDelete)
        delete this;
}

DWORD CWinThread::ResumeThread()
{
    const auto ready = std::exchange(m_ready, nullptr);
    const DWORD before = ::ResumeThread(m_hThread); // the object may be gone from now on
    if (ready && before != static_cast<DWORD>(-1))
        ready->Await();
    return before;
}

BOOL CWinThread::SetThreadPriority(int priority)
{
    return ::SetThreadPriority(m_hThread, priority);
}

int CWinThread::GetThreadPriority()
{
    return ::GetThreadPriority(m_hThread);
}

BOOL CWinThread::PostThreadMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::PostThreadMessage(m_nThreadID, message, wParam, lParam);
}

LRESULT CWinThread::ProcessWndProcException(CException*, const MSG* message)
{
    if (message->message == WM_PAINT) // or it would come again at once
        ::RedrawWindow(message->hwnd, nullptr, nullptr, RDW_VALIDATE);
    return message->message == WM_CREATE ? -1 : 0;
}

CWinThread* AFXAPI AfxBeginThread(AFX_THREADPROC procedure, LPVOID parameter, int priority, UINT stack,
                                  DWORD flags, LPSECURITY_ATTRIBUTES security)
{
    return Begin(std::make_unique<CWinThread>(procedure, parameter), priority, stack, flags, security);
}

CWinThread* AFXAPI AfxBeginThread(CRuntimeClass* threadClass, int priority, UINT stack, DWORD flags,
                                  LPSECURITY_ATTRIBUTES security)
{
    std::unique_ptr<CObject> object(threadClass->CreateObject());
    CWinThread* thread = DYNAMIC_DOWNCAST(CWinThread, object.get());
    if (thread)
        static_cast<void>(object.release());
    return Begin(std::unique_ptr<CWinThread>(thread), priority, stack, flags, security);
}

void AFXAPI AfxEndThread(UINT exitCode, BOOL deleteThread)
{
    CWinThread* thread = AfxCurrentThread();
    if (thread && deleteThread)
        thread->Delete();
    AfxSetCurrentThread(nullptr);
    ::_endthreadex(exitCode);
}

CWinThread* AFXAPI AfxGetThread()
{
    return AfxCurrentThread();
}

CWnd* AFXAPI AfxGetMainWnd()
{
    CWinThread* thread = AfxGetThread();
    return thread ? thread->GetMainWnd() : nullptr;
}

LRESULT AFXAPI AfxProcessWndProcException(CException* exception, const MSG* message)
{
    CWinThread* thread = AfxGetThread();
    return thread ? thread->ProcessWndProcException(exception, message)
                  : AfxTellHandlerException(exception, *message);
}

LRESULT AfxTellHandlerException(CException* exception, const MSG& message)
{
    const bool isMemory = exception->IsKindOf(RUNTIME_CLASS(CMemoryException));
    if (!exception->IsKindOf(RUNTIME_CLASS(CUserException)))
        exception->ReportError(isMemory ? MB_ICONEXCLAMATION | MB_SYSTEMMODAL : MB_ICONSTOP);
    return message.message == WM_COMMAND; // as if the command had been handled
}
