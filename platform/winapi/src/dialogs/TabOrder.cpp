#include "TabOrder.h"

#include "../Error.h"

#include <algorithm>

namespace {

DWORD StyleOf(HWND window)
{
    return static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
}

bool HoldsControls(HWND window)
{
    return (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) && CanTakeKeys(window);
}

void Collect(HWND parent, std::vector<HWND>& controls)
{
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (HoldsControls(child))
            Collect(child, controls);
        else
            controls.push_back(child);
    }
}

std::vector<HWND> Siblings(HWND parent)
{
    std::vector<HWND> siblings;
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        siblings.push_back(child);
    return siblings;
}

// The first one behind (`backwards`: before) `place` that `wanted` takes, all the way round; else itself.
template <class Wanted>
size_t Around(const std::vector<HWND>& windows, size_t place, bool backwards, Wanted wanted)
{
    const size_t count = windows.size();
    for (size_t step = 1; step < count; ++step) {
        const size_t next = (place + (backwards ? count - step : step)) % count;
        if (wanted(windows[next]))
            return next;
    }
    return place;
}

// A group begins at a control with WS_GROUP and reaches to the next one; what stands before the first such
// control belongs to the last group.
std::vector<HWND> GroupOf(const std::vector<HWND>& siblings, size_t place)
{
    const auto begins = [](HWND window) { return (StyleOf(window) & WS_GROUP) != 0; };
    size_t first = place;
    if (!begins(siblings[place]))
        first = Around(siblings, place, true, begins);
    const bool none = !begins(siblings[first]);
    std::vector<HWND> group = {siblings[none ? 0 : first]};
    for (size_t step = 1; step < siblings.size(); ++step) {
        const HWND next = siblings[((none ? 0 : first) + step) % siblings.size()];
        if (begins(next))
            break;
        group.push_back(next);
    }
    return group;
}

size_t PlaceOf(const std::vector<HWND>& windows, HWND window)
{
    return static_cast<size_t>(std::find(windows.begin(), windows.end(), window) - windows.begin());
}

bool IsTabStop(HWND control)
{
    return (StyleOf(control) & WS_TABSTOP) && CanTakeKeys(control);
}

HWND FirstThat(const std::vector<HWND>& windows, bool (*wanted)(HWND))
{
    const auto found = std::find_if(windows.begin(), windows.end(), wanted);
    return found == windows.end() ? nullptr : *found;
}

} // namespace

std::vector<HWND> ControlsOf(HWND dialog)
{
    std::vector<HWND> controls;
    Collect(dialog, controls);
    return controls;
}

bool CanTakeKeys(HWND control)
{
    return (StyleOf(control) & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE;
}

HWND ChildHolding(HWND dialog, HWND window)
{
    while (window && window != dialog && GetAncestor(window, GA_PARENT) != dialog)
        window = GetAncestor(window, GA_PARENT);
    return window == dialog ? nullptr : window;
}

HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous)
{
    if (!IsWindow(dialog) || (control && !IsChild(dialog, control)))
        return Fail(ERROR_INVALID_WINDOW_HANDLE), nullptr;
    const std::vector<HWND> controls = ControlsOf(dialog);
    if (!control)
        return previous ? nullptr : FirstThat(controls, IsTabStop);
    // The keyboard may be in a part of a control.
    size_t place = PlaceOf(controls, control);
    for (HWND part = control; place == controls.size() && part != dialog;) {
        part = GetAncestor(part, GA_PARENT);
        place = PlaceOf(controls, part);
    }
    if (place == controls.size())
        return FirstThat(controls, IsTabStop);
    const HWND next = controls[Around(controls, place, previous != FALSE, IsTabStop)];
    return next == controls[place] ? control : next;
}

HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous)
{
    if (!IsWindow(dialog) || (control && !IsChild(dialog, control)))
        return Fail(ERROR_INVALID_WINDOW_HANDLE), nullptr;
    if (!control)
        return previous ? nullptr : FirstThat(ControlsOf(dialog), CanTakeKeys);
    const std::vector<HWND> siblings = Siblings(GetAncestor(control, GA_PARENT));
    const std::vector<HWND> group = GroupOf(siblings, PlaceOf(siblings, control));
    return group[Around(group, PlaceOf(group, control), previous != FALSE, CanTakeKeys)];
}
