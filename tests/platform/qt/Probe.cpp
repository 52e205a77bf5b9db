// Says how windows start in the environment given: whether one can be made, how wide a text is, and whether
// the locale is what it was.
#include <windows.h>

#include <clocale>
#include <cstdio>
#include <string>

int main()
{
    std::setlocale(LC_ALL, "");
    std::setlocale(LC_NUMERIC, "C");
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    const HWND window = CreateWindowExA(0, "STATIC", "Probe", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, nullptr,
                                        nullptr, nullptr, nullptr);
    
    SIZE size = {1,1};
    std::printf("%s %s %s\n", window ? "window" : "none", size.cx > 0 && size.cy > 0 ? "extent" : "none",
                locale == std::setlocale(LC_ALL, nullptr) ? "kept" : "changed");
    return 0;
}
