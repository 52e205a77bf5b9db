#include "Queue.h"

#include "../Error.h"
#include "BackendLoader.h"
#include "Window.h"

#include <algorithm>

namespace {

constexpr size_t kMaxPosted = 10000;

DWORD KindOf(const PostedMessage& message)
{
    const UINT number = message.message.message;
    return number >= WM_KEYFIRST && number <= WM_KEYLAST ? QS_KEY : QS_POSTMESSAGE;
}

} // namespace

bool MessageFilter::Accepts(HWND target) const
{
    if (!window)
        return true;
    if (window == reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1)))
        return !target;
    return target == window || IsChild(window, target);
}

void MessageQueue::Arrived(DWORD kind)
{
    m_new |= kind;
    ++m_arrivals;
    m_changed.notify_all();
    if (UiThread() == m_thread)
        Backend()->Wake();
}

bool MessageQueue::Post(PostedMessage message)
{
    const Lock lock(m_mutex);
    if (m_closed)
        return Fail(ERROR_INVALID_THREAD_ID);
    if (m_posted.size() >= kMaxPosted)
        return Fail(ERROR_NOT_ENOUGH_QUOTA);
    const DWORD kind = KindOf(message);
    // The keyboard's come after everything posted, so that what a key types is met before the next key.
    const auto isKey = [](const PostedMessage& posted) { return posted.isKey; };
    const auto place = message.isKey ? m_posted.end() : std::find_if(m_posted.begin(), m_posted.end(), isKey);
    m_posted.insert(place, std::move(message));
    Arrived(kind);
    return true;
}

void MessageQueue::PostQuit(int code)
{
    const Lock lock(m_mutex);
    m_quit = code;
    Arrived(QS_POSTMESSAGE);
}

bool MessageQueue::TakePosted(const MessageFilter& filter, bool remove, MSG& message)
{
    const WindowGuard guard; // the filter asks for it, and it comes first
    const Lock lock(m_mutex);
    const auto fits = [&filter](const PostedMessage& posted) {
        return filter.Accepts(posted.message.message) && filter.Accepts(posted.message.hwnd);
    };
    const auto found = std::find_if(m_posted.begin(), m_posted.end(), fits);
    if (found == m_posted.end())
        return false;
    message = found->message;
    if (found->isKey && remove)
        RememberKey(*found);
    if (remove)
        m_posted.erase(found);
    return true;
}

// The filter does not matter to it, but what was posted before comes first.
bool MessageQueue::TakeQuit(const MessageFilter&, bool remove, MSG& message)
{
    const Lock lock(m_mutex);
    if (!m_quit)
        return false;
    message = {nullptr, WM_QUIT, static_cast<WPARAM>(*m_quit), 0, GetTickCount(), {}};
    if (remove)
        m_quit.reset();
    return true;
}

void MessageQueue::RememberKey(const PostedMessage& key)
{
    constexpr auto kDown = static_cast<SHORT>(0x8000);
    constexpr SHORT kToggled = 1;
    m_lastKey = key;
    SHORT& state = m_keys[static_cast<BYTE>(key.message.wParam)];
    const bool down = key.message.message == WM_KEYDOWN || key.message.message == WM_SYSKEYDOWN;
    if (down && !(state & kDown))
        state ^= kToggled;
    state = static_cast<SHORT>(down ? state | kDown : state & kToggled);
}

bool MessageQueue::Take(const MessageFilter& filter, bool remove, MSG& message)
{
    return TakePosted(filter, remove, message) || TakeQuit(filter, remove, message) ||
           TakeTimer(filter, remove, message);
}

void MessageQueue::Forget(HWND window)
{
    const Lock lock(m_mutex);
    std::erase_if(m_posted, [window](const PostedMessage& posted) { return posted.message.hwnd == window; });
    std::erase_if(m_timers, [window](const Timer& timer) { return timer.window == window; });
}

bool MessageQueue::IsSomethingThere(const MessageFilter& filter) const
{
    if (!m_sent.empty() || m_quit)
        return true;
    const auto fits = [&filter](const PostedMessage& posted) {
        return filter.Accepts(posted.message.message) && filter.Accepts(posted.message.hwnd);
    };
    return std::any_of(m_posted.begin(), m_posted.end(), fits) || MillisecondsToWait(filter) == 0;
}

void MessageQueue::Wait(const MessageFilter& filter)
{
    DWORD milliseconds = 0;
    unsigned arrivals = 0;
    {
        const WindowGuard guard;
        const Lock lock(m_mutex);
        if (IsSomethingThere(filter))
            return;
        milliseconds = MillisecondsToWait(filter);
        arrivals = m_arrivals;
    }
    if (UiThread() == m_thread)
        return Backend()->Wait(milliseconds);
    Lock lock(m_mutex);
    WaitFor(m_changed, lock, milliseconds, [&] { return m_arrivals != arrivals; });
}

DWORD MessageQueue::Status(DWORD flags)
{
    const Lock lock(m_mutex);
    DWORD there = (m_posted.empty() && !m_quit ? 0 : QS_POSTMESSAGE) | (m_sent.empty() ? 0 : QS_SENDMESSAGE);
    if (std::any_of(m_posted.begin(), m_posted.end(),
                    [](const auto& posted) { return KindOf(posted) == QS_KEY; }))
        there |= QS_KEY;
    if (MillisecondsToWait({}) == 0)
        there |= QS_TIMER;
    const DWORD fresh = m_new & there;
    m_new &= ~flags;
    return (fresh & flags) | (there & flags) << 16;
}

void MessageQueue::Close()
{
    std::deque<std::shared_ptr<SentMessage>> orphans;
    {
        const Lock lock(m_mutex);
        m_closed = true;
        m_posted.clear();
        m_timers.clear();
        orphans.swap(m_sent);
    }
    for (const auto& sent : orphans)
        sent->sender->Answer(*sent, 0, false);
}
