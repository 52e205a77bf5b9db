#include "../Error.h"
#include "BackendLoader.h"
#include "Queue.h"
#include "Window.h"

#include <algorithm>

namespace {

constexpr UINT_PTR kFirstFreeId = 32767;

Timer* Earliest(std::vector<Timer>& timers, const MessageFilter& filter)
{
    Timer* earliest = nullptr;
    for (Timer& timer : timers)
        if (filter.Accepts(timer.window) && (!earliest || timer.due < earliest->due))
            earliest = &timer;
    return earliest;
}

} // namespace

UINT_PTR MessageQueue::FreeTimerId() const
{
    UINT_PTR id = kFirstFreeId;
    const auto isTaken = [&id](const Timer& timer) { return !timer.window && timer.id == id; };
    while (id && std::any_of(m_timers.begin(), m_timers.end(), isTaken))
        --id;
    return id;
}

Timer* MessageQueue::FindTimer(HWND window, UINT_PTR id)
{
    const auto found = std::find_if(m_timers.begin(), m_timers.end(), [&](const Timer& timer) {
        return timer.window == window && timer.id == id;
    });
    return found == m_timers.end() ? nullptr : &*found;
}

UINT_PTR MessageQueue::SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC callback)
{
    const std::chrono::milliseconds period(
        std::clamp<UINT>(milliseconds, USER_TIMER_MINIMUM, USER_TIMER_MAXIMUM));
    const Lock lock(m_mutex);
    Timer* timer = FindTimer(window, id);
    if (!timer) {
        const UINT_PTR given = window ? id : FreeTimerId();
        m_timers.push_back({window, given, {}, nullptr, {}});
        timer = &m_timers.back();
    }
    timer->period = period;
    timer->callback = callback;
    timer->due = Clock::now() + period;
    const UINT_PTR given = timer->id;
    ArmToolkit();
    Arrived(0);
    return given;
}

bool MessageQueue::KillTimer(HWND window, UINT_PTR id)
{
    const Lock lock(m_mutex);
    return std::erase_if(m_timers,
                         [&](const Timer& timer) { return timer.window == window && timer.id == id; });
}

bool MessageQueue::HasTimer(TIMERPROC callback)
{
    const Lock lock(m_mutex);
    return std::any_of(m_timers.begin(), m_timers.end(),
                       [callback](const Timer& timer) { return timer.callback == callback; });
}

bool MessageQueue::TakeTimer(const MessageFilter& filter, bool remove, MSG& message)
{
    if (!filter.Accepts(WM_TIMER))
        return false;
    const WindowGuard guard;
    const Lock lock(m_mutex);
    Timer* timer = Earliest(m_timers, filter);
    const auto now = Clock::now();
    if (!timer || timer->due > now)
        return false;
    message = {timer->window,  WM_TIMER, timer->id, reinterpret_cast<LPARAM>(timer->callback),
               GetTickCount(), {}};
    if (remove) {
        // A timer that could not be served in time does not catch up.
        timer->due = std::max(timer->due + timer->period, now);
        ArmToolkit();
    }
    return true;
}

DWORD MessageQueue::MillisecondsToWait(const MessageFilter& filter) const
{
    if (!filter.Accepts(WM_TIMER))
        return INFINITE;
    const Timer* timer = Earliest(const_cast<std::vector<Timer>&>(m_timers), filter);
    if (!timer)
        return INFINITE;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(timer->due - Clock::now());
    return static_cast<DWORD>(std::max<long long>(left.count(), 0));
}

// The toolkit's own loop, where a host runs it, must know when to look here again.
void MessageQueue::ArmToolkit()
{
    if (UiThread() == m_thread && m_thread == GetCurrentThreadId())
        Backend()->WakeAfter(MillisecondsToWait({}));
}

namespace {

// A window's timers belong to its thread, whoever sets them.
std::shared_ptr<MessageQueue> TimerQueue(HWND handle)
{
    if (!handle)
        return ThisQueue();
    const WindowRef window = WindowOf(handle);
    return window ? QueueOf(window->thread) : nullptr;
}

} // namespace

UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC callback)
{
    const auto queue = TimerQueue(window);
    if (!queue)
        return 0;
    const UINT_PTR given = queue->SetTimer(window, id, milliseconds, callback);
    return given ? given : 1; // a window may number a timer 0
}

BOOL WINAPI KillTimer(HWND window, UINT_PTR id)
{
    const auto queue = TimerQueue(window);
    return queue && (queue->KillTimer(window, id) || Fail(ERROR_INVALID_PARAMETER));
}
