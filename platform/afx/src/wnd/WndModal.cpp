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

// Painting is no work that calls for another idle time.
bool IsWork(const MSG& message)
{
    return message.message != WM_PAINT;
}

// False for WM_QUIT, which stays in the queue for the outer loops.
bool PumpOne(MSG& message)
{
    if (::GetMessageA(&message, nullptr, 0, 0) <= 0) {
        ::PostQuitMessage(static_cast<int>(message.wParam));
        return false;
    }
    if (!CWnd::WalkPreTranslateTree(nullptr, &message)) {
        ::TranslateMessage(&message);
        ::DispatchMessageA(&message);
    }
    return true;
}

} // namespace

int CWnd::RunModalLoop(DWORD flags)
{
    ModalIdle idle(this, flags);
    m_nModalResult = -1;
    m_continueModal = true;
    bool quit = false;
    while (ContinueModal() && !quit) {
        idle.Work();
        if (!ContinueModal())
            break;
        MSG message = {};
        quit = !PumpOne(message);
        if (IsWork(message))
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
