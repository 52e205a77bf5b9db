#include "BoxAnswerer.h"

#include <utility>

namespace {

constexpr UINT kTick = 10;

Answerer* g_current = nullptr;

std::string ClassOf(HWND window)
{
    char name[16] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

BOOL CALLBACK TakeBox(HWND window, LPARAM found)
{
    if (ClassOf(window) != "#32770" || !IsWindowVisible(window))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// The topmost box of this thread that is shown; null: none yet.
HWND Box()
{
    HWND box = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &TakeBox, reinterpret_cast<LPARAM>(&box));
    return box;
}

} // namespace

Answerer::Answerer(std::function<void(HWND)> act)
    : m_act(std::move(act)), m_before(std::exchange(g_current, this)),
      m_timer(SetTimer(nullptr, 0, kTick, &OnTimer))
{
}

Answerer::~Answerer()
{
    KillTimer(nullptr, m_timer);
    g_current = m_before;
}

void CALLBACK Answerer::OnTimer(HWND, UINT, UINT_PTR id, DWORD)
{
    const HWND box = Box();
    if (!g_current || id != g_current->m_timer || !box || box == g_current->m_met)
        return;
    g_current->m_met = box;
    g_current->m_act(box);
}

void PressButton(HWND box, int id)
{
    PostMessageA(box, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(GetDlgItem(box, id)));
}

std::string TextOf(HWND window)
{
    std::string text(static_cast<size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<size_t>(GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

HWND LabelOf(HWND box)
{
    HWND label = nullptr;
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ClassOf(child) == "Static" && (!label || TextOf(child).size() > TextOf(label).size()))
            label = child;
    return label;
}

std::vector<int> ButtonsOf(HWND box)
{
    std::vector<int> ids;
    for (const int id :
         {IDOK, IDCANCEL, IDABORT, IDRETRY, IDIGNORE, IDYES, IDNO, IDHELP, IDTRYAGAIN, IDCONTINUE})
        if (GetDlgItem(box, id) && IsWindowVisible(GetDlgItem(box, id)))
            ids.push_back(id);
    return ids;
}
