// Message boxes of the Win32 adapter go through its hook.
#include "Boxes.h"

#include <zekhooks.h>

namespace {

struct {
    int answer = 0;
    std::vector<CaughtBox> caught;
    ZEK_BOX_HOOK previous = nullptr;
} g_state;

int DefaultButton(UINT style)
{
    static const int kButtons[][3] = {{IDOK, IDOK, IDOK},           {IDOK, IDCANCEL, IDOK},
                                      {IDABORT, IDRETRY, IDIGNORE}, {IDYES, IDNO, IDCANCEL},
                                      {IDYES, IDNO, IDYES},         {IDRETRY, IDCANCEL, IDRETRY}};
    return kButtons[style & MB_TYPEMASK][((style & MB_DEFMASK) >> 8) % 3];
}

int Catch(HWND, LPCSTR text, LPCSTR caption, UINT style)
{
    g_state.caught.push_back({text ? text : "", caption ? caption : "", style & (MB_TYPEMASK | MB_ICONMASK)});
    return g_state.answer ? g_state.answer : DefaultButton(style);
}

} // namespace

BoxCatcher::BoxCatcher(int answer)
{
    g_state.answer = answer;
    g_state.caught.clear();
    g_state.previous = ZekSetBoxHook(&Catch);
}

BoxCatcher::~BoxCatcher()
{
    ZekSetBoxHook(g_state.previous);
}

const std::vector<CaughtBox>& BoxCatcher::Caught() const
{
    return g_state.caught;
}
