#include "../Error.h"
#include "../windows/Backend.h"
#include "../windows/TextPage.h"
#include "BoxLayout.h"
#include "BoxThread.h"
#include "Create.h"
#include "Modal.h"

#include <winnls.h>
#include <zekhooks.h>

#include <atomic>
#include <cstdio>
#include <vector>

namespace {

struct Box {
    HWND owner;
    LPCSTR text;
    LPCSTR caption;
    UINT style;
};

LPCSTR IconOf(UINT style)
{
    switch (style & MB_ICONMASK) {
    case MB_ICONHAND:
        return IDI_HAND;
    case MB_ICONQUESTION:
        return IDI_QUESTION;
    case MB_ICONEXCLAMATION:
        return IDI_EXCLAMATION;
    case MB_ICONASTERISK:
        return IDI_ASTERISK;
    default:
        return IDI_APPLICATION;
    }
}

void Open(HWND dialog, const Box& box)
{
    SetWindowLongPtrA(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&box));
    const HICON icon = LoadIconA(nullptr, IconOf(box.style));
    SendDlgItemMessageA(dialog, kBoxIconId, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
    SetFocus(GetDlgItem(dialog, BoxButtons(box.style).Default()));
    if (box.style & MB_SETFOREGROUND)
        SetForegroundWindow(dialog);
    MessageBeep(box.style & MB_ICONMASK);
}

// The owner may explain; the box stays.
void AskForHelp(HWND dialog, const Box& box)
{
    HELPINFO help = {sizeof help, HELPINFO_WINDOW, 0, dialog, 0, {0, 0}};
    if (box.owner)
        SendMessageA(box.owner, WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
}

void Choose(HWND dialog, const Box& box, int id)
{
    const BoxButtons buttons(box.style);
    if (id == IDHELP && buttons.Has(IDHELP))
        return AskForHelp(dialog, box);
    const int answer = id == IDCANCEL ? buttons.Cancel() : id;
    if (buttons.Has(answer))
        EndDialog(dialog, answer);
}

INT_PTR CALLBACK BoxProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        Open(dialog, *reinterpret_cast<const Box*>(lParam));
        return FALSE; // the focus is set
    case WM_COMMAND:
        Choose(dialog, *reinterpret_cast<const Box*>(GetWindowLongPtrA(dialog, DWLP_USER)), LOWORD(wParam));
        return TRUE;
    default:
        return FALSE;
    }
}

// With MB_TASKMODAL and no owner all windows of the thread wait.
class ThreadDisabled
{
public:
    explicit ThreadDisabled(bool wanted)
    {
        if (wanted)
            EnumThreadWindows(GetCurrentThreadId(), &Disable, reinterpret_cast<LPARAM>(this));
    }
    ~ThreadDisabled()
    {
        for (const HWND window : m_windows)
            EnableWindow(window, TRUE);
    }
    ThreadDisabled(const ThreadDisabled&) = delete;
    ThreadDisabled& operator=(const ThreadDisabled&) = delete;

private:
    static BOOL CALLBACK Disable(HWND window, LPARAM self)
    {
        if (IsWindowVisible(window) && !EnableWindow(window, FALSE))
            reinterpret_cast<ThreadDisabled*>(self)->m_windows.push_back(window);
        return TRUE;
    }

    std::vector<HWND> m_windows;
};

// -1 when it cannot be shown.
INT_PTR ShowBox(const Box& box)
{
    Template shape;
    const bool measured = RunOnUiThread(
        [&] { shape = BoxTemplate(ShownText(box.text ? box.text : ""), ShownText(box.caption), box.style); });
    if (!measured)
        return -1;
    const ThreadDisabled disabled((box.style & MB_TASKMODAL) && !box.owner);
    return RunDialogAnywhere(shape,
                             {nullptr, box.owner, &BoxProcedure, reinterpret_cast<LPARAM>(&box), nullptr});
}

// One write, so that the boxes of two threads do not mix.
int PrintBox(const Box& box)
{
    const std::string line = std::string(box.caption) + ": " + (box.text ? box.text : "") + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    const BoxButtons buttons(box.style);
    return buttons.Default() == IDHELP ? buttons.Ids().front() : buttons.Default(); // help is no answer
}

int ShowOrPrint(HWND owner, LPCSTR text, LPCSTR caption, UINT style)
{
    const Box box = {owner, text, caption, style};
    ChooseUiThread();
    const INT_PTR answer = CanShowWindows() ? ShowBox(box) : -1;
    return answer < 0 ? PrintBox(box) : static_cast<int>(answer);
}

std::atomic<ZEK_BOX_HOOK> boxHook{ShowOrPrint};

} // namespace

ZEK_BOX_HOOK ZekSetBoxHook(ZEK_BOX_HOOK hook)
{
    return boxHook.exchange(hook ? hook : ShowOrPrint);
}

int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT style)
{
    if (!IsButtonSet(style))
        return Fail(ERROR_INVALID_MSGBOX_STYLE);
    if (owner && !IsWindow(owner))
        return Fail(ERROR_INVALID_WINDOW_HANDLE);
    return boxHook.load()(owner, text, caption ? caption : "Error", style);
}
