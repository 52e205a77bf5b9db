// The system's own boxes: read and closed when they have been filled.
#include "Boxes.h"

#include <cstring>
#include <initializer_list>

namespace {

struct {
    int answer = 0;
    std::vector<CaughtBox> caught;
    HHOOK hook = nullptr;
} g_state;

std::string WindowText(HWND window)
{
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

bool HasClass(HWND window, const char* name)
{
    char buffer[32];
    return GetClassNameA(window, buffer, sizeof buffer) > 0 && _stricmp(buffer, name) == 0;
}

UINT IconStyle(HWND box)
{
    static const struct {
        LPCSTR icon;
        UINT style;
    } kIcons[] = {{IDI_HAND, MB_ICONHAND},
                  {IDI_QUESTION, MB_ICONQUESTION},
                  {IDI_EXCLAMATION, MB_ICONEXCLAMATION},
                  {IDI_ASTERISK, MB_ICONASTERISK}};
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const LRESULT shown = HasClass(child, "Static") ? SendMessageA(child, STM_GETICON, 0, 0) : 0;
        for (const auto& row : kIcons)
            if (shown && shown == reinterpret_cast<LRESULT>(LoadIconA(nullptr, row.icon)))
                return row.style;
    }
    return 0;
}

bool HasButtons(HWND box, std::initializer_list<int> ids)
{
    for (const int id : ids)
        if (!GetDlgItem(box, id) || !(GetWindowLongA(GetDlgItem(box, id), GWL_STYLE) & WS_VISIBLE))
            return false;
    return true;
}

// The fuller sets first: each contains what follows.
UINT ButtonStyle(HWND box)
{
    if (HasButtons(box, {IDYES, IDNO, IDCANCEL}))
        return MB_YESNOCANCEL;
    if (HasButtons(box, {IDABORT, IDRETRY, IDIGNORE}))
        return MB_ABORTRETRYIGNORE;
    if (HasButtons(box, {IDYES, IDNO}))
        return MB_YESNO;
    if (HasButtons(box, {IDRETRY, IDCANCEL}))
        return MB_RETRYCANCEL;
    return HasButtons(box, {IDOK, IDCANCEL}) ? MB_OKCANCEL : MB_OK;
}

// The longest text among the labels: the icon's label has none.
std::string BoxText(HWND box)
{
    std::string longest;
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const std::string text = HasClass(child, "Static") ? WindowText(child) : std::string();
        if (text.size() > longest.size())
            longest = text;
    }
    return longest;
}

// Dialogs are of the same class, but have no label of this number.
bool IsBox(HWND window)
{
    constexpr int kText = 0xFFFF;
    return HasClass(window, "#32770") && GetDlgItem(window, kText);
}

void Catch(HWND box)
{
    g_state.caught.push_back({BoxText(box), WindowText(box), ButtonStyle(box) | IconStyle(box)});
    const int standard = LOWORD(SendMessageA(box, DM_GETDEFID, 0, 0));
    EndDialog(box, g_state.answer ? g_state.answer : standard);
}

LRESULT CALLBACK OnAnswered(int code, WPARAM wParam, LPARAM lParam)
{
    const auto& answered = *reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    if (code == HC_ACTION && answered.message == WM_INITDIALOG && IsBox(answered.hwnd))
        Catch(answered.hwnd);
    return CallNextHookEx(g_state.hook, code, wParam, lParam);
}

} // namespace

BoxCatcher::BoxCatcher(int answer)
{
    g_state.answer = answer;
    g_state.caught.clear();
    g_state.hook = SetWindowsHookExA(WH_CALLWNDPROCRET, &OnAnswered, nullptr, GetCurrentThreadId());
}

BoxCatcher::~BoxCatcher()
{
    UnhookWindowsHookEx(g_state.hook);
}

const std::vector<CaughtBox>& BoxCatcher::Caught() const
{
    return g_state.caught;
}
