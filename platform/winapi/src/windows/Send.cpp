#include "../Error.h"
#include "BackendLoader.h"
#include "Queue.h"
#include "Window.h"

#include <algorithm>

namespace {

bool IsBroadcast(HWND window)
{
    return window == HWND_BROADCAST;
}

std::vector<HWND> BroadcastTargets()
{
    return ChildHandles(Desktop());
}

// Carries RunOnThreadOf from thread to thread; beyond all messages that programs use.
constexpr UINT kRun = 0xffff0001;

struct Call {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

// Whether it was delivered; else the last error tells why not.
bool SendAcross(const Call& call, const std::shared_ptr<MessageQueue>& target, DWORD milliseconds,
                LRESULT& result)
{
    const auto& own = ThisQueue();
    const auto sent =
        std::make_shared<SentMessage>(SentMessage{call.window, call.message, call.wParam, call.lParam, own});
    if (!target || !target->AddSent(sent))
        return Fail(ERROR_INVALID_WINDOW_HANDLE);
    if (!own->AwaitAnswer(*sent, milliseconds))
        return Fail(ERROR_TIMEOUT);
    if (!sent->delivered)
        return Fail(ERROR_INVALID_WINDOW_HANDLE);
    result = sent->result;
    return true;
}

bool Send(const Call& call, DWORD milliseconds, LRESULT& result)
{
    const WindowRef window = WindowOf(call.window);
    if (!window)
        return false;
    if (window->thread != GetCurrentThreadId())
        return SendAcross(call, QueueOf(window->thread), milliseconds, result);
    result = CallWindow(call.window, call.message, call.wParam, call.lParam);
    return true;
}

bool Broadcast(const Call& call, DWORD milliseconds)
{
    for (const HWND window : BroadcastTargets()) {
        LRESULT ignored = 0;
        Send({window, call.message, call.wParam, call.lParam}, milliseconds, ignored);
    }
    return true;
}

} // namespace

bool RunOnThread(DWORD thread, const std::function<void()>& work, DWORD milliseconds)
{
    if (thread == GetCurrentThreadId())
        return work(), true;
    LRESULT ignored = 0;
    // The desktop is a window that is always there.
    return SendAcross({Desktop()->handle, kRun, 0, reinterpret_cast<LPARAM>(&work)}, QueueOf(thread),
                      milliseconds, ignored);
}

void RunOnThreadOf(const WindowRef& window, const std::function<void()>& work)
{
    if (window->thread == GetCurrentThreadId())
        return work();
    LRESULT ignored = 0;
    SendAcross({window->handle, kRun, 0, reinterpret_cast<LPARAM>(&work)}, QueueOf(window->thread), INFINITE,
               ignored);
}

LRESULT CallWindow(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return 0;
    if (message == kRun) {
        (*reinterpret_cast<const std::function<void()>*>(lParam))();
        return 0;
    }
    WNDPROC procedure = nullptr;
    {
        const WindowGuard guard;
        procedure = window->procedure;
    }
    return procedure ? procedure(handle, message, wParam, lParam) : 0;
}

bool MessageQueue::AddSent(const std::shared_ptr<SentMessage>& message)
{
    const Lock lock(m_mutex);
    if (m_closed)
        return false;
    m_sent.push_back(message);
    Arrived(QS_SENDMESSAGE);
    return true;
}

std::shared_ptr<SentMessage> MessageQueue::NextSent()
{
    const Lock lock(m_mutex);
    if (m_sent.empty())
        return nullptr;
    auto next = m_sent.front();
    m_sent.pop_front();
    return next;
}

void MessageQueue::DeliverSent()
{
    while (const auto sent = NextSent()) {
        ++m_delivering;
        const bool alive = WindowOf(sent->window) != nullptr;
        const LRESULT result =
            alive ? CallWindow(sent->window, sent->message, sent->wParam, sent->lParam) : 0;
        --m_delivering;
        sent->sender->Answer(*sent, result, alive);
    }
}

void MessageQueue::Answer(SentMessage& message, LRESULT result, bool delivered)
{
    const Lock lock(m_mutex);
    message.result = result;
    message.delivered = delivered;
    message.done = true;
    m_changed.notify_all();
}

bool MessageQueue::AwaitAnswer(const SentMessage& message, DWORD milliseconds)
{
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    for (;;) {
        DeliverSent();
        Lock lock(m_mutex);
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        const DWORD rest =
            milliseconds == INFINITE ? INFINITE : static_cast<DWORD>(std::max<long long>(left, 0));
        if (!WaitFor(m_changed, lock, rest, [&] { return message.done || !m_sent.empty(); }))
            return false;
        if (message.done)
            return true;
    }
}

LRESULT WINAPI SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    const Call call{window, message, wParam, lParam};
    if (IsBroadcast(window))
        return Broadcast(call, INFINITE);
    Send(call, INFINITE, result);
    return result;
}

LRESULT WINAPI SendMessageTimeoutA(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT,
                                   UINT milliseconds, DWORD_PTR* answer)
{
    LRESULT result = 0;
    const Call call{window, message, wParam, lParam};
    if (IsBroadcast(window))
        return Broadcast(call, milliseconds);
    const bool sent = Send(call, milliseconds, result);
    if (answer)
        *answer = static_cast<DWORD_PTR>(result);
    return sent;
}

BOOL WINAPI InSendMessage()
{
    return ThisQueue()->IsDelivering();
}

LRESULT WINAPI CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure ? procedure(window, message, wParam, lParam) : 0;
}

BOOL WINAPI PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (IsBroadcast(window)) {
        for (const HWND target : BroadcastTargets())
            PostMessageA(target, message, wParam, lParam);
        return TRUE;
    }
    std::shared_ptr<MessageQueue> queue = ThisQueue();
    if (window) {
        const WindowRef target = WindowOf(window);
        if (!target)
            return FALSE;
        queue = QueueOf(target->thread);
    }
    if (!queue)
        return Fail(ERROR_INVALID_WINDOW_HANDLE);
    return queue->Post({{window, message, wParam, lParam, GetTickCount(), {}}, {}, false});
}

BOOL WINAPI PostThreadMessageA(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto queue = thread == GetCurrentThreadId() ? ThisQueue() : QueueOf(thread);
    if (!queue)
        return Fail(ERROR_INVALID_THREAD_ID);
    return queue->Post({{nullptr, message, wParam, lParam, GetTickCount(), {}}, {}, false});
}

void WINAPI PostQuitMessage(int code)
{
    ThisQueue()->PostQuit(code);
}
