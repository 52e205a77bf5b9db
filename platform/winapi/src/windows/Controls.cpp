#include "BackendLoader.h"
#include "Queue.h"
#include "SystemClasses.h"
#include "TextPage.h"
#include "Window.h"

extern "C" __attribute__((weak)) int WINAPI GetObjectA(HGDIOBJ, int, LPVOID);

namespace {

const SystemClass kClasses[] = {
    {"Button", ControlProc, CS_DBLCLKS | CS_VREDRAW | CS_HREDRAW, sizeof(void*), true, false},
    {"Static", ControlProc, CS_DBLCLKS, sizeof(void*), true, false},
    {"Edit", ControlProc, CS_DBLCLKS, sizeof(void*), true, false},
    {"ListBox", ControlProc, CS_DBLCLKS, sizeof(void*), true, false},
    {"ComboBox", ControlProc, CS_DBLCLKS | CS_VREDRAW | CS_HREDRAW, sizeof(void*), true, false},
    {"MDIClient", MdiClientProc, 0, 2 * sizeof(void*), false, false},
    {"#32770", DefDlgProcA, CS_DBLCLKS | CS_SAVEBITS, DLGWINDOWEXTRA, false, true},
};

FontSpec SpecOf(HFONT font)
{
    LOGFONTA shape = {};
    if (!font || !GetObjectA || !GetObjectA(font, sizeof shape, &shape))
        return {};
    return {ShownText(shape.lfFaceName), shape.lfHeight,    shape.lfWidth,  shape.lfWeight, shape.lfItalic,
            shape.lfUnderline,           shape.lfStrikeOut, shape.lfCharSet};
}

void UseFont(const WindowRef& window, HFONT font)
{
    {
        const WindowGuard guard;
        window->font = font;
    }
    if (WindowPeer* peer = PeerOf(window))
        Backend()->SetFont(peer, SpecOf(font));
}

HFONT FontOf(const WindowRef& window)
{
    const WindowGuard guard;
    return window->font;
}

} // namespace

std::span<const SystemClass> SystemClasses()
{
    return kClasses;
}

LRESULT CALLBACK ControlProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    const WindowRef window = WindowOf(handle);
    if (!window)
        return 0;
    LRESULT result = 0;
    WindowPeer* peer = PeerOf(window);
    if (peer && Backend()->Message(peer, message, wParam, lParam, result))
        return result;
    if (message == WM_SETFONT)
        return UseFont(window, reinterpret_cast<HFONT>(wParam)), 0;
    if (message == WM_GETFONT)
        return reinterpret_cast<LRESULT>(FontOf(window));
    return DefWindowProcA(handle, message, wParam, lParam);
}
