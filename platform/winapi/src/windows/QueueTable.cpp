#include "BackendLoader.h"
#include "Queue.h"
#include "Window.h"

#include <unordered_map>

namespace {

struct Queues {
    std::mutex mutex;
    std::unordered_map<DWORD, std::shared_ptr<MessageQueue>> byThread;
};

Queues& TheQueues()
{
    static Queues& queues = *new Queues;
    return queues;
}

// The windows of a thread that ends go without messages. Those that are seen stay for the toolkit, which
// lives as long as the process.
void DropWindows(DWORD thread, Window& below)
{
    const auto children = below.children;
    for (Window* child : children) {
        DropWindows(thread, *child);
        if (child->thread == thread && !child->peer)
            RemoveWindow(*child);
    }
}

class ThisThread
{
public:
    ThisThread() : m_queue(std::make_shared<MessageQueue>(GetCurrentThreadId()))
    {
        const std::lock_guard lock(TheQueues().mutex);
        TheQueues().byThread[m_queue->Thread()] = m_queue;
    }

    ~ThisThread()
    {
        {
            const WindowGuard guard;
            DropWindows(m_queue->Thread(), *Desktop());
            DropWindows(m_queue->Thread(), *MessageRoot());
        }
        {
            const std::lock_guard lock(TheQueues().mutex);
            TheQueues().byThread.erase(m_queue->Thread());
        }
        m_queue->Close();
    }

    ThisThread(const ThisThread&) = delete;
    ThisThread& operator=(const ThisThread&) = delete;

    const std::shared_ptr<MessageQueue>& Queue() const { return m_queue; }

private:
    std::shared_ptr<MessageQueue> m_queue;
};

} // namespace

const std::shared_ptr<MessageQueue>& ThisQueue()
{
    thread_local ThisThread thread;
    return thread.Queue();
}

std::shared_ptr<MessageQueue> QueueOf(DWORD thread)
{
    const std::lock_guard lock(TheQueues().mutex);
    const auto found = TheQueues().byThread.find(thread);
    return found == TheQueues().byThread.end() ? nullptr : found->second;
}
