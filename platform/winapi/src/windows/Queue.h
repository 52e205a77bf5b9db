// A thread's messages: those sent to it by other threads, those posted, its timers, and what has the
// keyboard.
//
// Threads: every member may be called from any thread, but for those that say otherwise. Lock order: the
// windows' lock before a queue's.
#pragma once

#include <windows.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

using Clock = std::chrono::steady_clock;

class MessageQueue;

// A message on its way from one thread to another; `done` and `result` belong to the sender's lock.
struct SentMessage {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    std::shared_ptr<MessageQueue> sender;
    bool done = false;
    bool delivered = false; // else the window or its thread went
    LRESULT result = 0;
};

struct PostedMessage {
    MSG message = {};
    std::u16string typed; // of a key: the characters
    bool isKey = false;   // from the keyboard itself
};

struct Timer {
    HWND window;
    UINT_PTR id;
    std::chrono::milliseconds period;
    TIMERPROC callback;
    Clock::time_point due;
};

// What a caller of GetMessage asks for.
struct MessageFilter {
    HWND window = nullptr; // -1: messages without a window
    UINT first = 0;
    UINT last = 0xffffffff;

    bool Accepts(UINT message) const { return message >= first && message <= last; }
    // Takes the windows' lock.
    bool Accepts(HWND target) const;
};

// Which windows of the thread have the keyboard. Belongs to the windows' lock.
struct InputState {
    HWND active = nullptr;
    HWND focus = nullptr;
};

class MessageQueue
{
public:
    explicit MessageQueue(DWORD thread) : m_thread(thread) {}

    DWORD Thread() const { return m_thread; }
    InputState& Input() { return m_input; }

    // False when 10,000 messages wait or the thread has ended.
    bool Post(PostedMessage message);
    void PostQuit(int code);
    // The first message that the filter lets through, a due timer last. Own thread.
    bool Take(const MessageFilter& filter, bool remove, MSG& message);
    // Those of a window that goes.
    void Forget(HWND window);

    // False when the thread has ended.
    bool AddSent(const std::shared_ptr<SentMessage>& message);
    // Calls the window procedures of what was sent. Own thread.
    void DeliverSent();
    // The sender's side: delivers what comes in until `message` is done or the time is over. Own thread.
    bool AwaitAnswer(const SentMessage& message, DWORD milliseconds);
    void Answer(SentMessage& message, LRESULT result, bool delivered);
    bool IsDelivering() const { return m_delivering > 0; } // own thread

    // Waits until something is there that the filter might let through, or the time is over. Own thread.
    void Wait(const MessageFilter& filter);
    DWORD Status(DWORD flags);

    UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC callback);
    bool KillTimer(HWND window, UINT_PTR id);
    // Tells the toolkit when the next timer is due. Own thread; with the lock held or nobody else about.
    void ArmToolkit();
    // Whether a running timer calls that.
    bool HasTimer(TIMERPROC callback);

    // What the key that was taken last types; and the state of the keys by then. Own thread.
    const PostedMessage& LastKey() const { return m_lastKey; }
    SHORT KeyState(int key) const { return m_keys[static_cast<BYTE>(key)]; }

    // Answers everybody who waits; nothing comes in any more.
    void Close();

private:
    using Lock = std::unique_lock<std::mutex>;

    std::shared_ptr<SentMessage> NextSent();
    bool TakePosted(const MessageFilter& filter, bool remove, MSG& message);
    bool TakeQuit(const MessageFilter& filter, bool remove, MSG& message);
    bool TakeTimer(const MessageFilter& filter, bool remove, MSG& message);
    bool IsSomethingThere(const MessageFilter& filter) const;
    std::optional<Clock::time_point> NextDue(const MessageFilter& filter) const;
    DWORD MillisecondsToWait(const MessageFilter& filter) const;
    void Arrived(DWORD kind); // with the lock held
    void RememberKey(const PostedMessage& key);
    UINT_PTR FreeTimerId() const;
    Timer* FindTimer(HWND window, UINT_PTR id);

    const DWORD m_thread;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<PostedMessage> m_posted;
    std::deque<std::shared_ptr<SentMessage>> m_sent;
    std::vector<Timer> m_timers;
    std::optional<int> m_quit;
    DWORD m_new = 0; // kinds that came since the last Status
    unsigned m_arrivals = 0;
    bool m_closed = false;
    int m_delivering = 0;
    PostedMessage m_lastKey;
    SHORT m_keys[256] = {};
    InputState m_input;
};

// Waits until it holds or the time (INFINITE: none) is over; answers whether it holds.
template <class Condition>
bool WaitFor(std::condition_variable& changed, std::unique_lock<std::mutex>& lock, DWORD milliseconds,
             Condition condition)
{
    if (milliseconds != INFINITE)
        return changed.wait_for(lock, std::chrono::milliseconds(milliseconds), condition);
    changed.wait(lock, condition);
    return true;
}

// The calling thread's, made on first use.
const std::shared_ptr<MessageQueue>& ThisQueue();
// Null for a thread that has none.
std::shared_ptr<MessageQueue> QueueOf(DWORD thread);

// Has a thread do something when it asks for messages, and waits for it. False when it could not: the thread
// has no messages, or has ended, or the time is over; `work` may then still be done and must outlive that.
bool RunOnThread(DWORD thread, const std::function<void()>& work, DWORD milliseconds = INFINITE);
// Likewise the window's own thread.
void RunOnThreadOf(const std::shared_ptr<struct Window>& window, const std::function<void()>& work);

// Calls the procedure of a window of this thread.
LRESULT CallWindow(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
