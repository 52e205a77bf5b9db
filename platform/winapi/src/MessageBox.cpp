#include "Error.h"

#include <winuser.h>
#include <zekhooks.h>

#include <atomic>
#include <cstdio>
#include <iterator>
#include <string>

namespace {

struct ButtonSet {
    int buttons[3]; // 0: none
};

constexpr ButtonSet kSets[] = {{{IDOK, 0, 0}},
                               {{IDOK, IDCANCEL, 0}},
                               {{IDABORT, IDRETRY, IDIGNORE}},
                               {{IDYES, IDNO, IDCANCEL}},
                               {{IDYES, IDNO, 0}},
                               {{IDRETRY, IDCANCEL, 0}},
                               {{IDCANCEL, IDTRYAGAIN, IDCONTINUE}}};

// A default button beyond the set's last is its first.
int DefaultButton(UINT style)
{
    const ButtonSet& set = kSets[style & MB_TYPEMASK];
    const UINT index = (style & MB_DEFMASK) >> 8;
    const int button = index < 3 ? set.buttons[index] : 0;
    return button ? button : set.buttons[0];
}

// One write, so that the boxes of two threads do not mix.
int PrintBox(HWND, LPCSTR text, LPCSTR caption, UINT style)
{
    const std::string line = std::string(caption) + ": " + (text ? text : "") + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    return DefaultButton(style);
}

std::atomic<ZEK_BOX_HOOK> boxHook{PrintBox};

} // namespace

ZEK_BOX_HOOK ZekSetBoxHook(ZEK_BOX_HOOK hook)
{
    return boxHook.exchange(hook ? hook : PrintBox);
}

int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT style)
{
    if ((style & MB_TYPEMASK) >= std::size(kSets))
        return Fail(ERROR_INVALID_MSGBOX_STYLE);
    return boxHook.load()(owner, text, caption ? caption : "Error", style);
}
