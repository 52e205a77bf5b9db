#include "Recorder.h"

#include <cstdio>

namespace {

constexpr const char* kClass = "zek_recorder";

enum class Detail { None, Number, Other, Size, Place };

struct Row {
    UINT message;
    const char* name;
    Detail detail;
};

constexpr Row kRows[] = {
    {WM_NCCREATE, "WM_NCCREATE", Detail::None},
    {WM_CREATE, "WM_CREATE", Detail::None},
    {WM_SIZE, "WM_SIZE", Detail::Size},
    {WM_MOVE, "WM_MOVE", Detail::Place},
    {WM_PARENTNOTIFY, "WM_PARENTNOTIFY", Detail::Number},
    {WM_SHOWWINDOW, "WM_SHOWWINDOW", Detail::Number},
    {WM_WINDOWPOSCHANGING, "WM_WINDOWPOSCHANGING", Detail::None},
    {WM_WINDOWPOSCHANGED, "WM_WINDOWPOSCHANGED", Detail::None},
    {WM_NCACTIVATE, "WM_NCACTIVATE", Detail::Number},
    {WM_ACTIVATE, "WM_ACTIVATE", Detail::Number},
    {WM_ACTIVATEAPP, "WM_ACTIVATEAPP", Detail::Number},
    {WM_SETFOCUS, "WM_SETFOCUS", Detail::Other},
    {WM_KILLFOCUS, "WM_KILLFOCUS", Detail::Other},
    {WM_CANCELMODE, "WM_CANCELMODE", Detail::None},
    {WM_ENABLE, "WM_ENABLE", Detail::Number},
    {WM_STYLECHANGING, "WM_STYLECHANGING", Detail::None},
    {WM_STYLECHANGED, "WM_STYLECHANGED", Detail::None},
    {WM_SYSCOMMAND, "WM_SYSCOMMAND", Detail::Number},
    {WM_CLOSE, "WM_CLOSE", Detail::None},
    {WM_DESTROY, "WM_DESTROY", Detail::None},
    {WM_NCDESTROY, "WM_NCDESTROY", Detail::None},
    {WM_MDIACTIVATE, "WM_MDIACTIVATE", Detail::None},
};

thread_local Recorder* current = nullptr;

std::string Pair(LPARAM value, const char* form)
{
    char text[32];
    std::snprintf(text, sizeof text, form, static_cast<short>(LOWORD(value)),
                  static_cast<short>(HIWORD(value)));
    return text;
}

std::string DetailOf(const Recorder& recorder, Detail detail, WPARAM wParam, LPARAM lParam)
{
    switch (detail) {
    case Detail::Number:
        return " " + std::to_string(LOWORD(wParam));
    case Detail::Other:
        return " " + recorder.NameOf(reinterpret_cast<HWND>(wParam));
    case Detail::Size:
        return " " + std::to_string(wParam) + Pair(lParam, " %dx%d");
    case Detail::Place:
        return Pair(lParam, " %d,%d");
    default:
        return "";
    }
}

} // namespace

Recorder::Recorder()
{
    WNDCLASSA description = {};
    description.lpfnWndProc = Procedure;
    description.lpszClassName = kClass;
    RegisterClassA(&description);
    current = this;
}

Recorder::~Recorder()
{
    m_handlers.clear();
    for (const HWND window : m_made)
        if (IsWindow(window))
            DestroyWindow(window);
    current = nullptr;
    UnregisterClassA(kClass, GetModuleHandleA(nullptr));
}

HWND Recorder::Make(const std::string& name, DWORD style, HWND parent, DWORD exStyle)
{
    m_making = name;
    const HWND window = CreateWindowExA(exStyle, kClass, name.c_str(), style, 10, 20, 200, 100, parent,
                                        nullptr, nullptr, nullptr);
    if (window)
        m_made.push_back(window);
    return window;
}

std::string Recorder::NameOf(HWND window) const
{
    const auto found = m_names.find(window);
    return !window ? "null" : found == m_names.end() ? "?" : found->second;
}

std::vector<std::string> Recorder::LinesOf(const std::string& name) const
{
    std::vector<std::string> own;
    for (const auto& line : m_lines)
        if (line.rfind(name + " ", 0) == 0)
            own.push_back(line.substr(name.size() + 1));
    return own;
}

LRESULT CALLBACK Recorder::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!current)
        return DefWindowProcA(window, message, wParam, lParam);
    Recorder& recorder = *current;
    recorder.m_names.try_emplace(window, recorder.m_making);
    for (const Row& row : kRows)
        if (row.message == message)
            recorder.Note(recorder.NameOf(window) + " " + row.name +
                          DetailOf(recorder, row.detail, wParam, lParam));
    const auto handler = recorder.m_handlers.find(message);
    if (handler != recorder.m_handlers.end()) {
        const Handler copy = handler->second;
        return copy(window, message, wParam, lParam);
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

int RunLoop()
{
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}
