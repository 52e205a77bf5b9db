#include "../Error.h"
#include "BackendLoader.h"
#include "Focus.h"
#include "Frame.h"
#include "Metrics.h"
#include "Position.h"
#include "Queue.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr LONG kIconPlace = -32000; // where minimized windows lie

enum class Shape { AsIs, Normal, Minimized, Maximized };

struct Command {
    Shape shape;
    bool activates;
};

// By SW_... from SW_SHOWNORMAL on.
constexpr Command kCommands[] = {
    {Shape::Normal, true}, {Shape::Minimized, true},  {Shape::Maximized, true},  {Shape::Normal, false},
    {Shape::AsIs, true},   {Shape::Minimized, false}, {Shape::Minimized, false}, {Shape::AsIs, false},
    {Shape::Normal, true}, {Shape::Normal, true},     {Shape::Minimized, false},
};

constexpr DWORD kShapeBits = WS_MINIMIZE | WS_MAXIMIZE;

DWORD BitsOf(Shape shape)
{
    return shape == Shape::Minimized ? WS_MINIMIZE : shape == Shape::Maximized ? WS_MAXIMIZE : 0;
}

// The toolkit keeps its own account of the restored rectangle; the request is for it, the rest for us.
RECT RectFor(const Window& window, Shape shape)
{
    if (shape == Shape::Minimized)
        return {kIconPlace, kIconPlace, kIconPlace + kMinimizedWidth, kIconPlace + kMinimizedHeight};
    if (shape != Shape::Maximized)
        return window.normal;
    RECT rect = {};
    if (window.parent == Desktop().get())
        rect = Backend()->WorkArea();
    else {
        const RECT area = ClientArea(*window.parent);
        rect = {0, 0, area.right - area.left, area.bottom - area.top};
    }
    RECT frame = {};
    AddFrame(frame, window.style, window.exStyle);
    const LONG side = -frame.left;
    return {rect.left - side, rect.top - side, rect.right + side, rect.bottom + side};
}

int ToolkitCommand(Shape shape)
{
    return shape == Shape::Minimized ? SW_MINIMIZE : shape == Shape::Maximized ? SW_MAXIMIZE : SW_RESTORE;
}

void Reshape(const WindowRef& window, Shape shape, bool activates)
{
    if (HasBits(window, WS_MINIMIZE) && !SendMessageA(window->handle, WM_QUERYOPEN, 0, 0))
        return;
    if (shape == Shape::Minimized)
        GiveFocus(nullptr, Origin::Program);
    RECT rect = {};
    {
        const WindowGuard guard;
        rect = RectFor(*window, shape);
        window->style = (window->style & ~kShapeBits) | BitsOf(shape);
        window->tellsSizeWhenShown = false;
    }
    const UINT flags = SWP_SHOWWINDOW | SWP_FRAMECHANGED | (activates ? 0u : SWP_NOACTIVATE | SWP_NOZORDER);
    PlaceWindow(
        window,
        {window->handle, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, flags},
        ToolkitCommand(shape));
    if (IsAlive(window) && shape != Shape::Minimized && activates && IsTopLevel(*window) && !GetFocus())
        SetFocus(window->handle);
}

bool Announce(const WindowRef& window, BOOL shown)
{
    SendMessageA(window->handle, WM_SHOWWINDOW, static_cast<WPARAM>(shown), 0);
    return IsAlive(window);
}

// Nobody sees it, so nothing else changes.
void RecordVisible(const WindowRef& window, bool visible)
{
    ChangeBits(window, visible ? WS_VISIBLE : 0, visible ? 0 : WS_VISIBLE);
    ShowPeer(window, visible ? SW_SHOWNA : SW_HIDE);
}

UINT FlagsToShow(const WindowRef& window, bool activates)
{
    const UINT same = SWP_NOSIZE | SWP_NOMOVE;
    if (!IsTopLevel(*window))
        return same | SWP_NOACTIVATE | SWP_NOZORDER;
    return activates ? same : same | SWP_NOACTIVATE;
}

void Hide(const WindowRef& window)
{
    if (!Announce(window, FALSE))
        return;
    if (!IsParentVisible(*window))
        return RecordVisible(window, false);
    const UINT flags =
        GetActiveWindow() == window->handle ? SWP_NOSIZE | SWP_NOMOVE : FlagsToShow(window, false);
    PlaceWindow(window, {window->handle, nullptr, 0, 0, 0, 0, flags | SWP_HIDEWINDOW});
}

bool ChangesShape(const WindowRef& window, Shape shape)
{
    const WindowGuard guard;
    return shape != Shape::AsIs && window->peer && BitsOf(shape) != (window->style & kShapeBits);
}

void Show(const WindowRef& window, const Command& command, bool wasVisible)
{
    if (!wasVisible && !Announce(window, TRUE))
        return;
    if (ChangesShape(window, command.shape))
        return Reshape(window, command.shape, command.activates);
    if (!IsParentVisible(*window))
        RecordVisible(window, true);
    else if (!wasVisible)
        PlaceWindow(window, {window->handle, nullptr, 0, 0, 0, 0,
                             FlagsToShow(window, command.activates) | SWP_SHOWWINDOW});
    else if (command.activates && IsTopLevel(*window))
        SetActiveWindow(window->handle);
    if (IsAlive(window) && window->tellsSizeWhenShown)
        TellSizeAndPlace(window);
}

void SetEnabled(const WindowRef& window, bool enable, bool wasEnabled)
{
    if (!enable)
        SendMessageA(window->handle, WM_CANCELMODE, 0, 0);
    if (!IsAlive(window) || enable == wasEnabled)
        return;
    ChangeBits(window, enable ? 0 : WS_DISABLED, enable ? WS_DISABLED : 0);
    if (WindowPeer* peer = PeerOf(window))
        Backend()->Enable(peer, enable);
    const HWND focus = GetFocus();
    if (!enable && focus && (focus == window->handle || IsChild(window->handle, focus)))
        GiveFocus(nullptr, Origin::Program);
    SendMessageA(window->handle, WM_ENABLE, enable, 0);
}

} // namespace

BOOL WINAPI ShowWindow(HWND handle, int command)
{
    const WindowRef window = WindowOf(handle);
    if (!window || command < SW_HIDE || command > SW_FORCEMINIMIZE)
        return FALSE;
    const bool wasVisible = HasBits(window, WS_VISIBLE);
    RunOnThreadOf(window, [&] {
        if (command != SW_HIDE)
            Show(window, kCommands[command - SW_SHOWNORMAL], wasVisible);
        else if (wasVisible)
            Hide(window);
    });
    return wasVisible;
}

BOOL WINAPI EnableWindow(HWND handle, BOOL enable)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return FALSE;
    const bool wasEnabled = !HasBits(window, WS_DISABLED);
    RunOnThreadOf(window, [&] { SetEnabled(window, enable != FALSE, wasEnabled); });
    return !wasEnabled;
}

BOOL WINAPI IsWindowEnabled(HWND handle)
{
    const WindowRef window = WindowOf(handle);
    return window && !HasBits(window, WS_DISABLED);
}

BOOL WINAPI IsWindowVisible(HWND handle)
{
    const WindowRef window = WindowOf(handle);
    return window && HasBits(window, WS_VISIBLE) && (window == Desktop() || IsParentVisible(*window));
}

BOOL WINAPI IsIconic(HWND handle)
{
    const WindowRef window = WindowOf(handle);
    return window && HasBits(window, WS_MINIMIZE);
}

BOOL WINAPI IsZoomed(HWND handle)
{
    const WindowRef window = WindowOf(handle);
    return window && HasBits(window, WS_MAXIMIZE);
}
