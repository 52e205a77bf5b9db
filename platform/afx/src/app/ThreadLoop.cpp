#include <afxwin.h>

namespace {

// Of a caret that blinks and a menu that scrolls; the system's own.
constexpr UINT kSystemTimer = 0x0118;
constexpr UINT kNcMouseMove = 0x00A0;

bool IsQueueEmpty()
{
    MSG message;
    return !::PeekMessage(&message, nullptr, 0, 0, PM_NOREMOVE);
}

bool IsMouseMove(UINT message)
{
    return message == WM_MOUSEMOVE || message == kNcMouseMove;
}

bool IsSamePlace(const POINT& a, const POINT& b)
{
    return a.x == b.x && a.y == b.y;
}

} // namespace

int CWinThread::Run()
{
    LONG idleCount = 0;
    for (bool idle = true;;) {
        while (idle && IsQueueEmpty())
            idle = OnIdle(idleCount++) != FALSE;
        do {
            if (!PumpMessage())
                return ExitInstance();
            if (IsIdleMessage(&m_msgCur)) {
                idle = true;
                idleCount = 0;
            }
        } while (!IsQueueEmpty());
    }
}

BOOL CWinThread::PumpMessage()
{
    // -1 is an error of the call itself: nothing to dispatch, and no reason to end.
    const BOOL answer = ::GetMessage(&m_msgCur, nullptr, 0, 0);
    if (answer > 0 && !PreTranslateMessage(&m_msgCur)) {
        ::TranslateMessage(&m_msgCur);
        ::DispatchMessage(&m_msgCur);
    }
    return answer != 0;
}

BOOL CWinThread::PreTranslateMessage(MSG* message)
{
    if (!message->hwnd && DispatchThreadMessageEx(message))
        return TRUE;
    CWnd* main = AfxGetMainWnd();
    if (CWnd::WalkPreTranslateTree(main ? main->m_hWnd : nullptr, message))
        return TRUE;
    // The main window also looks at what goes to modeless dialogs beside it.
    CWnd* window = main ? CWnd::FromHandle(message->hwnd) : nullptr;
    return window && window->GetTopLevelParent() != main && main->PreTranslateMessage(message);
}

BOOL CWinThread::DispatchThreadMessageEx(MSG* message)
{
    const AFX_MSGMAP_ENTRY* entry = AfxFindMessageEntry(GetMessageMap(), message->message);
    if (entry)
        entry->pfn(this, message->wParam, message->lParam);
    return entry != nullptr;
}

BOOL CWinThread::OnIdle(LONG count)
{
    if (count == 0) {
        CWnd::DeleteTempMap();
        CDC::DeleteTempMap();
        CGdiObject::DeleteTempMap();
    }
    return FALSE;
}

BOOL CWinThread::IsIdleMessage(MSG* message)
{
    if (!IsMouseMove(message->message))
        return message->message != WM_PAINT && message->message != kSystemTimer;
    const bool still = message->message == m_lastMove.message && IsSamePlace(message->pt, m_lastMove.pt);
    m_lastMove = *message;
    return !still;
}
