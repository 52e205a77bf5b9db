// A job in the background that tells a window how far it is.
//
//   class CMeshJob : public CThread
//   {
//   public:
//       void ThreadRun() override
//       {
//           for (UINT i = 1; i <= 100; ++i) {
//               MeshPart(i);
//               Progress(i, 0);
//           }
//           ProgressText(100, "Done");
//       }
//   };
//   (new CMeshJob)->ThreadBegin(this, kMeshProgress);     // the window gets kMeshProgress with 1, 2 ... 100
//
// Ownership: from a ThreadBegin that answers 1 on, the object belongs to its thread, which deletes it when
// ThreadRun returns or throws. So it comes from `new`, and its maker must not touch it any more: it may be
// gone before ThreadBegin returns. There is no way to wait for it, nor a result; what the host needs of them,
// the job and the host agree upon, through objects that outlive the job.
//
// Errors:  an exception that leaves ThreadRun is told to the user in a box, as of any thread of the
// framework. Threads: ThreadRun, Progress, ProgressText and the destructor run on the job's thread. They
// never wait for
//          the window. Nothing guards the fields.
#pragma once

#include <afxwin.h>

class AFX_EXT_CLASS CThread
{
public:
    CThread();
    CThread(const CThread&);
    CThread& operator=(const CThread&);
    // Neither waits for the thread nor ends it.
    virtual ~CThread();

    // The job.
    virtual void ThreadRun() = 0;

    // Posts the message of ThreadBegin to its window. What the numbers mean is agreed with the window.
    // Without a window the message goes to the queue of the job's own thread. A window that is gone, or has
    // thousands of messages waiting, gets nothing.
    virtual void Progress(UINT wParam, LPARAM lParam);

    // Keeps a copy of the text and hands its address to Progress as the second parameter, an LPCSTR for the
    // window. The window reads it while it handles the message: each text stays as it was posted until 1,024
    // more have been posted by all jobs together, or 4 MB of them, also when the job has ended. A job that
    // posts faster than the window reads waits for the window by means of its own. Null counts as "".
    virtual void ProgressText(UINT wParam, const char* text);

    // Runs the job on a thread of its own and has its progress sent as `nMsg` to the window (null: to
    // none): 1. 0 when there is no thread to be had; the object is the caller's then, as before.
    int ThreadBegin(CWnd* pWnd, UINT nMsg);

    // What the thread runs: ThreadRun of the CThread that `p` points to, then deletes it. 0.
    static UINT AFX_CDECL ThreadProc(void* p);

protected:
    int m_nStop = 0; // 1 from the destructor on

private:
    CWinThread* m_pThread = nullptr; // while the job runs
    HWND m_hWnd = nullptr;
    UINT m_nMsg = 0;
    CString m_strProgress; // the last text
};
