#include "../CodePage.h"
#include "../Error.h"
#include "../dialogs/BoxThread.h"
#include "BackendLoader.h"
#include "KeyText.h"
#include "Queue.h"
#include "Window.h"

namespace {

const HWND kNoWindow = reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1));

// False for a window that is not there.
bool MakeFilter(HWND window, UINT first, UINT last, MessageFilter& filter)
{
    if (window == HWND_BROADCAST || window == HWND_TOPMOST)
        window = kNoWindow;
    if (window && window != kNoWindow && !WindowOf(window))
        return false;
    filter.window = window;
    filter.first = first;
    filter.last = first || last ? last : filter.last;
    return true;
}

bool IsKeyMessage(UINT message)
{
    return message == WM_KEYDOWN || message == WM_KEYUP || message == WM_SYSKEYDOWN || message == WM_SYSKEYUP;
}

// What the toolkit has to tell becomes messages here.
void LetToolkitTell()
{
    if (UiThread() == GetCurrentThreadId())
        Backend()->Wait(0);
}

} // namespace

BOOL WINAPI GetMessageA(LPMSG message, HWND window, UINT first, UINT last)
{
    MessageFilter filter;
    if (!message || !MakeFilter(window, first, last, filter))
        return -1;
    MessageQueue& queue = *ThisQueue();
    for (;;) {
        queue.DeliverSent();
        if (queue.Take(filter, true, *message))
            return message->message != WM_QUIT;
        queue.Wait(filter);
    }
}

BOOL WINAPI PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT flags)
{
    MessageFilter filter;
    if (!message || !MakeFilter(window, first, last, filter))
        return FALSE;
    MessageQueue& queue = *ThisQueue();
    queue.DeliverSent();
    if (queue.Take(filter, flags & PM_REMOVE, *message))
        return TRUE;
    LetToolkitTell();
    return queue.Take(filter, flags & PM_REMOVE, *message);
}

BOOL WINAPI WaitMessage()
{
    ThisQueue()->Wait({});
    return TRUE;
}

DWORD WINAPI GetQueueStatus(UINT flags)
{
    return ThisQueue()->Status(flags);
}

SHORT WINAPI GetKeyState(int key)
{
    return ThisQueue()->KeyState(key);
}

BOOL WINAPI TranslateMessage(const MSG* message)
{
    if (!message || !IsKeyMessage(message->message))
        return FALSE;
    const bool system = message->message == WM_SYSKEYDOWN;
    if (system || message->message == WM_KEYDOWN)
        for (const char c : TypedText(*ThisQueue(), *message))
            PostMessageA(message->hwnd, system ? WM_SYSCHAR : WM_CHAR, static_cast<BYTE>(c), message->lParam);
    return TRUE;
}

LRESULT WINAPI DispatchMessageA(const MSG* message)
{
    if (!message)
        return 0;
    if (message->message == WM_TIMER && message->lParam) {
        const auto callback = reinterpret_cast<TIMERPROC>(message->lParam);
        if (ThisQueue()->HasTimer(callback))
            callback(message->hwnd, WM_TIMER, message->wParam, GetTickCount());
        return 0;
    }
    if (!message->hwnd)
        return 0;
    if (IsBoxKey(*message))
        return 0;
    return OwnWindowOf(message->hwnd)
               ? CallWindow(message->hwnd, message->message, message->wParam, message->lParam)
               : 0;
}
