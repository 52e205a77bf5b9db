#include "ControlHost.h"

#include <array>
#include <cstdio>

namespace {

std::vector<std::string> g_told;

} // namespace

LRESULT CALLBACK ControlHost::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMMAND) {
        std::array<char, 32> code;
        if (LOWORD(wParam) == kId)
            std::snprintf(code.data(), code.size(), "%x", HIWORD(wParam));
        else
            std::snprintf(code.data(), code.size(), "%d:%x", LOWORD(wParam), HIWORD(wParam));
        g_told.push_back(code.data());
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

void ControlHost::SetUp()
{
    WNDCLASSA shape = {};
    shape.lpfnWndProc = Procedure;
    shape.hInstance = GetModuleHandleA(nullptr);
    shape.lpszClassName = "ControlHost";
    RegisterClassA(&shape);
    m_host = CreateWindowExA(0, shape.lpszClassName, "Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 400,
                             400, nullptr, nullptr, shape.hInstance, nullptr);
    ASSERT_NE(m_host, nullptr);
    SetForegroundWindow(m_host);
    SetFocus(m_host);
    g_told.clear();
}

void ControlHost::TearDown()
{
    DestroyWindow(m_host);
}

HWND ControlHost::Make(const char* className, DWORD style, const char* text, int height, int id)
{
    const HWND control = CreateWindowExA(0, className, text, WS_CHILD | WS_VISIBLE | style, 10, 10, 120,
                                         height, m_host, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                         GetModuleHandleA(nullptr), nullptr);
    EXPECT_NE(control, nullptr);
    g_told.clear();
    return control;
}

std::string ControlHost::Told()
{
    std::string all;
    for (const auto& code : g_told)
        all += (all.empty() ? "" : " ") + code;
    g_told.clear();
    return all;
}

std::string TextOf(HWND window)
{
    std::string text(1000, '#');
    text.resize(static_cast<size_t>(GetWindowTextA(window, text.data(), 1000)));
    EXPECT_EQ(GetWindowTextLengthA(window), static_cast<int>(text.size()));
    return text;
}
