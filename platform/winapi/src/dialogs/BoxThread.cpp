#include "BoxThread.h"

#include "../windows/BackendLoader.h"
#include "../windows/Queue.h"
#include "State.h"

#include <utility>

namespace {

constexpr DWORD kPatience = 1000; // milliseconds, for a thread that is busy or has stopped asking

// When the process's first thread ends, so does the process: nobody is to run any more then.
struct AtTheEnd {
    ~AtTheEnd()
    {
        if (GetCurrentThreadId() != GetCurrentProcessId())
            AbandonForeignRuns();
    }
};

bool IsDialogKey(UINT message)
{
    return message == WM_KEYDOWN || message == WM_CHAR || message == WM_SYSCHAR;
}

// Null unless the window is in a box that another thread waits for.
HWND ForeignBox(HWND window)
{
    const HWND top = GetAncestor(window, GA_ROOT);
    const DialogState* state = StateOf(top);
    return state && state->run && state->run->waiter != GetCurrentThreadId() ? top : nullptr;
}

} // namespace

void ChooseUiThread()
{
    static const std::function<void()> load = [] { Backend(); };
    const DWORD first = GetCurrentProcessId();
    if (UiThread() == 0 && first != GetCurrentThreadId() && IsDisplayNamed())
        RunOnThread(first, load, kPatience);
}

bool RunOnUiThread(const std::function<void()>& work)
{
    return RunOnThread(UiThread(), work);
}

bool IsBoxKey(const MSG& message)
{
    // What is no key of the dialog's own comes here again, to be dispatched.
    thread_local const MSG* known = nullptr;
    const HWND box = IsDialogKey(message.message) && &message != known ? ForeignBox(message.hwnd) : nullptr;
    if (!box)
        return false;
    MSG key = message;
    const MSG* before = std::exchange(known, &key);
    const bool taken = IsDialogMessageA(box, &key);
    known = before;
    return taken;
}

void WatchForTheEnd()
{
    thread_local AtTheEnd atTheEnd;
    static_cast<void>(atTheEnd);
}
