#include "../Error.h"
#include "BackendLoader.h"
#include "Focus.h"
#include "Position.h"
#include "Queue.h"

namespace {

// No more than was there, so that a handler that posts to itself does not keep the toolkit waiting.
constexpr int kMostAtOnce = 100;

class Events final : public PeerEvents
{
public:
    void Moved(HWND handle, const RECT& client) override
    {
        if (const WindowRef window = WindowOf(handle))
            TakeUserRect(window, client);
    }

    void SystemCommand(HWND window, UINT command) override
    {
        PostMessageA(window, WM_SYSCOMMAND, command, 0);
    }

    void Activated(HWND handle, bool active) override
    {
        const WindowRef window = WindowOf(handle);
        if (window && active)
            Activate(window, Origin::User);
        else if (!active && GetActiveWindow() == handle)
            Activate(nullptr, Origin::User);
    }

    void FocusMoved(HWND handle) override
    {
        const WindowRef window = handle ? WindowOf(handle) : nullptr;
        if (window || !handle)
            GiveFocus(window, Origin::User);
    }

    void Key(HWND window, UINT message, WPARAM key, LPARAM data, std::u16string_view typed) override
    {
        if (WindowOf(window))
            ThisQueue()->Post(
                {{window, message, key, data, GetTickCount(), {}}, std::u16string(typed), true});
    }

    void Notify(HWND control, WORD code) override
    {
        const HWND parent = GetParent(control);
        if (parent)
            SendMessageA(parent, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                         reinterpret_cast<LPARAM>(control));
    }

    // WM_QUIT stays for a loop of the adapter's own.
    void DispatchQueued() override
    {
        MessageQueue& queue = *ThisQueue();
        int count = 0;
        while (count < kMostAtOnce && DispatchOne(queue))
            ++count;
        if (count == kMostAtOnce)
            Backend()->Wake();
        else
            queue.ArmToolkit();
    }

private:
    static bool DispatchOne(MessageQueue& queue)
    {
        MSG message;
        queue.DeliverSent();
        if (!queue.Take({}, false, message) || message.message == WM_QUIT)
            return false;
        queue.Take({}, true, message);
        TranslateMessage(&message);
        DispatchMessageA(&message);
        return true;
    }
};

} // namespace

PeerEvents& TheEvents()
{
    static Events& events = *new Events;
    return events;
}
