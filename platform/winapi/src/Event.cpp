#include "Waitable.h"

#include <winbase.h>

namespace {

class Event : public Waitable
{
public:
    Event(bool manual, bool set) : m_manual(manual), m_set(set) {}

    bool IsSignalled() const override { return m_set; }
    void Taken() override { m_set = m_set && m_manual; }

    void Set(bool set)
    {
        const std::lock_guard lock(WaitMutex());
        m_set = set;
        if (set)
            SignalWaiters();
    }

private:
    const bool m_manual;
    bool m_set;
};

BOOL Set(HANDLE handle, bool set)
{
    const auto event = ObjectOf<Event>(handle);
    if (event)
        event->Set(set);
    return event != nullptr;
}

} // namespace

HANDLE WINAPI CreateEventA(LPSECURITY_ATTRIBUTES, BOOL manualReset, BOOL initialState, LPCSTR name)
{
    if (name)
        return Fail(ERROR_NOT_SUPPORTED), nullptr;
    const HANDLE handle = AddHandle(std::make_shared<Event>(manualReset != FALSE, initialState != FALSE));
    return handle == INVALID_HANDLE_VALUE ? nullptr : handle;
}

BOOL WINAPI SetEvent(HANDLE event)
{
    return Set(event, true);
}

BOOL WINAPI ResetEvent(HANDLE event)
{
    return Set(event, false);
}
