#include "BoxThread.h"

#include "../windows/BackendLoader.h"

#include <atomic>

namespace {

constexpr UINT kRun = WM_APP;
constexpr LPCSTR kClass = "ZekBoxThread";

struct Job {
    const std::function<void()>& work;
    bool done = false;
};

// A window without a picture: what is sent to it runs on the thread that made it.
std::atomic<HWND> runner{nullptr};

LRESULT CALLBACK RunnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != kRun)
        return DefWindowProcA(window, message, wParam, lParam);
    Job& job = *reinterpret_cast<Job*>(lParam);
    job.work();
    job.done = true;
    return 0;
}

} // namespace

void PrepareBoxThread()
{
    if (runner || UiThread() != GetCurrentThreadId())
        return;
    WNDCLASSA description = {};
    description.lpfnWndProc = &RunnerProcedure;
    description.lpszClassName = kClass;
    RegisterClassA(&description);
    runner = CreateWindowExA(0, kClass, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
}

bool RunOnUiThread(const std::function<void()>& work)
{
    PrepareBoxThread();
    if (UiThread() == GetCurrentThreadId())
        return work(), true;
    Job job{work};
    if (runner)
        SendMessageA(runner, kRun, 0, reinterpret_cast<LPARAM>(&job));
    return job.done;
}
