#include "../Error.h"
#include "Create.h"
#include "Queue.h"
#include "SystemClasses.h"
#include "Window.h"
#include "WindowClass.h"

#include <algorithm>

namespace {

// What the client keeps in its extra bytes.
constexpr int kActiveChild = 0, kFirstId = sizeof(void*);
constexpr DWORD kUsualStyle =
    WS_VISIBLE | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
// What a child may choose itself.
constexpr DWORD kOwnStyle = WS_DISABLED | WS_MINIMIZE | WS_MAXIMIZE | WS_HSCROLL | WS_VSCROLL | 0xffff;
// A client's style: its children choose everything.
constexpr DWORD kAllChildStyles = 0x0001;
// How far a window of default place lies from the one before.
constexpr int kStep = 22;

HWND ActiveOf(HWND client)
{
    const auto child = reinterpret_cast<HWND>(GetWindowLongPtrA(client, kActiveChild));
    return IsWindow(child) ? child : nullptr;
}

void TellActivation(HWND child, BOOL active, HWND before, HWND after)
{
    if (!child || !IsWindow(child))
        return;
    SendMessageA(child, WM_NCACTIVATE, static_cast<WPARAM>(active), 0);
    SendMessageA(child, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(before), reinterpret_cast<LPARAM>(after));
}

void ActivateChild(HWND client, HWND child)
{
    const HWND before = ActiveOf(client);
    if (before == child)
        return;
    SetWindowLongPtrA(client, kActiveChild, reinterpret_cast<LONG_PTR>(child));
    TellActivation(before, FALSE, before, child);
    if (ActiveOf(client) != child || !child)
        return;
    SetWindowPos(child, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    TellActivation(child, TRUE, before, child);
    if (GetFocus() != child && !IsChild(child, GetFocus()))
        SetFocus(child);
}

bool MayBeActive(HWND child)
{
    return IsWindowEnabled(child) && GetWindowLongA(child, GWL_STYLE) & WS_VISIBLE;
}

// The next in the order of the windows, round and round; null when there is no other.
HWND Neighbour(HWND client, HWND child, bool previous)
{
    std::vector<HWND> order;
    for (HWND at = GetWindow(client, GW_CHILD); at; at = GetWindow(at, GW_HWNDNEXT))
        if (at == child || MayBeActive(at))
            order.push_back(at);
    if (previous)
        std::reverse(order.begin(), order.end());
    const auto found = std::find(order.begin(), order.end(), child);
    if (order.size() < 2 || found == order.end())
        return nullptr;
    return std::next(found) == order.end() ? order.front() : *std::next(found);
}

int CountChildren(HWND client)
{
    int count = 0;
    for (HWND at = GetWindow(client, GW_CHILD); at; at = GetWindow(at, GW_HWNDNEXT))
        ++count;
    return count;
}

bool IsClient(HWND window)
{
    const WindowRef client = window ? WindowOf(window) : nullptr;
    return client && client->kind && client->kind->description.lpfnWndProc == MdiClientProc;
}

DWORD StyleOf(DWORD asked, HWND client)
{
    const bool all = static_cast<DWORD>(GetWindowLongA(client, GWL_STYLE)) & kAllChildStyles;
    return WS_CHILD | WS_CLIPSIBLINGS | (all ? asked : (asked & kOwnStyle) | kUsualStyle);
}

// What stands for CW_USEDEFAULT.
void Place(CREATESTRUCTA& create, int count)
{
    RECT area = {};
    GetClientRect(create.hwndParent, &area);
    if (create.x == CW_USEDEFAULT)
        create.x = create.y = count * kStep;
    if (create.cx == CW_USEDEFAULT || create.cx == 0)
        create.cx = area.right * 3 / 4;
    if (create.cy == CW_USEDEFAULT || create.cy == 0)
        create.cy = area.bottom * 3 / 4;
}

LRESULT OnCreateChild(HWND client, WPARAM, LPARAM lParam)
{
    const auto& asked = *reinterpret_cast<const MDICREATESTRUCTA*>(lParam);
    return reinterpret_cast<LRESULT>(CreateWindowExA(
        WS_EX_MDICHILD, asked.szClass, asked.szTitle, asked.style, asked.x, asked.y, asked.cx, asked.cy,
        client, nullptr, static_cast<HINSTANCE>(asked.hOwner), reinterpret_cast<LPVOID>(asked.lParam)));
}

LRESULT OnDestroyChild(HWND client, WPARAM wParam, LPARAM)
{
    const auto child = reinterpret_cast<HWND>(wParam);
    if (GetAncestor(child, GA_PARENT) != client)
        return 0;
    if (child == ActiveOf(client))
        ActivateChild(client, Neighbour(client, child, false));
    DestroyWindow(child);
    return 0;
}

LRESULT OnActivateChild(HWND client, WPARAM wParam, LPARAM)
{
    const auto child = reinterpret_cast<HWND>(wParam);
    if (GetAncestor(child, GA_PARENT) == client)
        ActivateChild(client, child);
    return 0;
}

LRESULT OnNext(HWND client, WPARAM wParam, LPARAM lParam)
{
    const HWND from = wParam ? reinterpret_cast<HWND>(wParam) : ActiveOf(client);
    const HWND next = Neighbour(client, from, lParam != 0);
    if (!next)
        return 0;
    if (!lParam)
        SetWindowPos(from, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ActivateChild(client, next);
    return 0;
}

LRESULT OnGetActive(HWND client, WPARAM, LPARAM lParam)
{
    const HWND child = ActiveOf(client);
    if (lParam)
        *reinterpret_cast<BOOL*>(lParam) = child && IsZoomed(child);
    return reinterpret_cast<LRESULT>(child);
}

LRESULT OnMaximize(HWND, WPARAM wParam, LPARAM)
{
    return ShowWindow(reinterpret_cast<HWND>(wParam), SW_MAXIMIZE), 0;
}

LRESULT OnRestore(HWND, WPARAM wParam, LPARAM)
{
    return ShowWindow(reinterpret_cast<HWND>(wParam), SW_SHOWNORMAL), 0;
}

LRESULT OnFocus(HWND client, WPARAM, LPARAM)
{
    if (const HWND child = ActiveOf(client))
        SetFocus(child);
    return 0;
}

LRESULT OnCreate(HWND client, WPARAM, LPARAM lParam)
{
    const auto* create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
    if (const auto* settings = static_cast<const CLIENTCREATESTRUCT*>(create->lpCreateParams))
        SetWindowLongPtrA(client, kFirstId, static_cast<LONG_PTR>(settings->idFirstChild));
    return 0;
}

LRESULT OnChildGoes(HWND client, WPARAM wParam, LPARAM lParam)
{
    const auto child = reinterpret_cast<HWND>(lParam);
    if (LOWORD(wParam) == WM_DESTROY && child == ActiveOf(client))
        ActivateChild(client, Neighbour(client, child, false));
    return 0;
}

constexpr struct {
    UINT message;
    LRESULT (*answer)(HWND client, WPARAM wParam, LPARAM lParam);
} kAnswers[] = {
    {WM_CREATE, OnCreate},
    {WM_MDICREATE, OnCreateChild},
    {WM_MDIDESTROY, OnDestroyChild},
    {WM_MDIACTIVATE, OnActivateChild},
    {WM_MDINEXT, OnNext},
    {WM_MDIGETACTIVE, OnGetActive},
    {WM_MDIMAXIMIZE, OnMaximize},
    {WM_MDIRESTORE, OnRestore},
    {WM_SETFOCUS, OnFocus},
    {WM_PARENTNOTIFY, OnChildGoes},
};

} // namespace

HWND MakeMdiChild(const CREATESTRUCTA& asked)
{
    const HWND client = asked.hwndParent;
    if (!IsClient(client))
        return Fail(ERROR_NON_MDICHILD_WINDOW), nullptr;
    CREATESTRUCTA create = asked;
    const int count = CountChildren(client);
    create.style = static_cast<LONG>(StyleOf(static_cast<DWORD>(asked.style), client));
    create.hMenu = reinterpret_cast<HMENU>(GetWindowLongPtrA(client, kFirstId) + count);
    Place(create, count);
    // The child learns what was asked for; what its maker hands over stands in there.
    MDICREATESTRUCTA told = {asked.lpszClass,
                             asked.lpszName,
                             asked.hInstance,
                             create.x,
                             create.y,
                             create.cx,
                             create.cy,
                             static_cast<DWORD>(create.style),
                             reinterpret_cast<LPARAM>(asked.lpCreateParams)};
    create.lpCreateParams = &told;
    const HWND child = MakeAsAsked(create);
    if (child && MayBeActive(child))
        ActivateChild(client, child);
    return IsWindow(child) ? child : nullptr;
}

LRESULT CALLBACK MdiClientProc(HWND client, UINT message, WPARAM wParam, LPARAM lParam)
{
    for (const auto& row : kAnswers)
        if (row.message == message)
            return row.answer(client, wParam, lParam);
    return DefWindowProcA(client, message, wParam, lParam);
}

LRESULT WINAPI DefFrameProcA(HWND window, HWND client, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (client && message == WM_SIZE && wParam != SIZE_MINIMIZED)
        MoveWindow(client, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
    if (client && message == WM_SETFOCUS)
        return SetFocus(client), 0;
    if (client && message == WM_NCACTIVATE)
        if (const HWND child = ActiveOf(client))
            SendMessageA(child, WM_NCACTIVATE, wParam, lParam);
    return DefWindowProcA(window, message, wParam, lParam);
}

LRESULT WINAPI DefMDIChildProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND client = GetAncestor(window, GA_PARENT);
    if (message == WM_CLOSE)
        return SendMessageA(client, WM_MDIDESTROY, reinterpret_cast<WPARAM>(window), 0), 0;
    if (message == WM_SETFOCUS || message == WM_CHILDACTIVATE)
        ActivateChild(client, window);
    if (message == WM_SYSCOMMAND &&
        ((wParam & 0xfff0) == SC_NEXTWINDOW || (wParam & 0xfff0) == SC_PREVWINDOW))
        return SendMessageA(client, WM_MDINEXT, reinterpret_cast<WPARAM>(window),
                            (wParam & 0xfff0) == SC_PREVWINDOW);
    return DefWindowProcA(window, message, wParam, lParam);
}
