// Says how windows start in the environment given: whether one can be made, whether a text can be measured,
// and whether the locale is what it was.
#include <windows.h>

#include <clocale>
#include <cstdio>
#include <string>

namespace {

bool CanMeasure()
{
    const HDC screen = CreateCompatibleDC(nullptr);
    SIZE size = {};
    const bool done = GetTextExtentPoint32A(screen, "Text", 4, &size) && size.cx > 0 && size.cy > 0;
    DeleteDC(screen);
    return done;
}

} // namespace

int main()
{
    std::setlocale(LC_ALL, "");
    std::setlocale(LC_NUMERIC, "C");
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    const HWND window = CreateWindowExA(0, "STATIC", "Probe", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, nullptr,
                                        nullptr, nullptr, nullptr);
    std::printf("%s %s %s\n", window ? "window" : "none", CanMeasure() ? "extent" : "none",
                locale == std::setlocale(LC_ALL, nullptr) ? "kept" : "changed");
    return 0;
}
