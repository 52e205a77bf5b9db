#include "WndProc.h"

#include <afxapp_.h>

namespace {

// A modal loop's own affairs: the idle work, and showing the window when there is nothing else to do.
class ModalIdle
{
public:
    ModalIdle(CWnd* window, DWORD flags) : m_window(window), m_flags(flags)
    {
        m_show = (flags & MLF_SHOWONIDLE) != 0 && (window->GetStyle() & WS_VISIBLE) == 0;
    }

    // While the queue is empty. Stops when the window goes or the loop has ended.
    void Work()
    {
        MSG message;
        while (m_busy && m_window->ContinueModal() && !::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            Show();
            if (m_window->ContinueModal())
                Tell();
        }
    }

    void Again()
    {
        m_busy = true;
        m_count = 0;
    }

private:
    void Show()
    {
        if (!m_show)
            return;
        m_show = false;
        m_window->ShowWindow(SW_SHOWNORMAL);
        m_window->UpdateWindow();
    }

    void Tell()
    {
        const HWND window = m_window->m_hWnd;
        const HWND parent = ::GetParent(window);
        if (m_count == 0 && parent && (m_flags & MLF_NOIDLEMSG) == 0)
            ::SendMessageA(parent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(window));
        m_busy = (m_flags & MLF_NOKICKIDLE) == 0 &&
                 ::SendMessageA(window, WM_KICKIDLE, MSGF_DIALOGBOX, m_count++) != 0;
    }

    CWnd* m_window;
    DWORD m_flags;
    bool m_show;
    bool m_busy = true;
    LPARAM m_count = 0;
};

// Takes messages as the thread's own loop does; a thread without an object has a plain one.
class Pump
{
public:
    // False for WM_QUIT, which stays in the queue for the outer loops.
    bool One()
    {
        const bool more = m_thread ? m_thread->PumpMessage() != FALSE : PlainOne();
        if (!more)
            ::PostQuitMessage(static_cast<int>(Message().wParam));
        return more;
    }

    // Whether the message calls for another idle time.
    bool WasWork()
    {
        return m_thread ? m_thread->IsIdleMessage(&Message()) != FALSE : m_message.message != WM_PAINT;
    }

private:
    MSG& Message() { return m_thread ? m_thread->m_msgCur : m_message; }

    bool PlainOne()
    {
        const BOOL answer = ::GetMessageA(&m_message, nullptr, 0, 0);
        if (answer > 0 && !CWnd::WalkPreTranslateTree(nullptr, &m_message)) {
            ::TranslateMessage(&m_message);
            ::DispatchMessageA(&m_message);
        }
        return answer != 0;
    }

    CWinThread* const m_thread = AfxGetThread();
    MSG m_message = {};
};

} // namespace

int CWnd::RunModalLoop(DWORD flags)
{
    ModalIdle idle(this, flags);
    Pump pump;
    m_nModalResult = -1;
    m_continueModal = true;
    bool quit = false;
    while (ContinueModal() && !quit) {
        idle.Work();
        if (!ContinueModal())
            break;
        quit = !pump.One();
        if (pump.WasWork())
            idle.Again();
    }
    m_continueModal = false;
    return quit ? -1 : m_nModalResult;
}

BOOL CWnd::ContinueModal()
{
    return m_continueModal && m_hWnd;
}

void CWnd::EndModalLoop(int result)
{
    m_nModalResult = result;
    if (!m_continueModal)
        return;
    m_continueModal = false;
    ::PostMessageA(m_hWnd, WM_NULL, 0, 0); // the loop may be waiting
}
