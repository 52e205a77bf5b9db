#include "Thread.h"

#include "PostedTexts.h"

#include <memory>

CThread::CThread() = default;
CThread::CThread(const CThread&) = default;
CThread& CThread::operator=(const CThread&) = default;

CThread::~CThread()
{
    m_nStop = 1;
    m_pThread = nullptr;
}

void CThread::Progress(UINT wParam, LPARAM lParam)
{
    ::PostMessage(m_hWnd, m_nMsg, wParam, lParam);
}

// The text before is not overwritten: its copy holds the characters that the window may be reading.
void CThread::ProgressText(UINT wParam, const char* text)
{
    m_strProgress = text;
    KeepPostedText(m_strProgress);
    Progress(wParam, reinterpret_cast<LPARAM>(static_cast<LPCSTR>(m_strProgress)));
}

// The thread must not run, and end, before its object is known here.
int CThread::ThreadBegin(CWnd* pWnd, UINT nMsg)
{
    m_hWnd = pWnd ? pWnd->GetSafeHwnd() : nullptr;
    m_nMsg = nMsg;
    m_pThread = AfxBeginThread(&CThread::ThreadProc, this, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
    if (!m_pThread)
        return 0;
    m_pThread->ResumeThread(); // this object may be gone from now on
    return 1;
}

UINT AFX_CDECL CThread::ThreadProc(void* p)
{
    const std::unique_ptr<CThread> job(static_cast<CThread*>(p)); // deletes it after an exception too
    job->ThreadRun();
    job->m_pThread = nullptr;
    return 0;
}
