// A machine without a display: nothing is shown, nothing waits, and what is not seen works.
#include "Recorder.h"

#include <cstdlib>
#include <fstream>

namespace {

void ForgetDisplay()
{
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        unsetenv(name);
}

bool IsToolkitMapped()
{
    std::ifstream maps("/proc/self/maps");
    const std::string text((std::istreambuf_iterator<char>(maps)), {});
    return text.find("libQt") != std::string::npos;
}

// 0 when all is as it should be, else the number of the first check that failed.
int WithoutDisplay()
{
    ForgetDisplay();
    Recorder recorder;
    SetLastError(0);
    if (recorder.Make("A", WS_OVERLAPPEDWINDOW) || GetLastError() != ERROR_NOT_SUPPORTED)
        return 1;
    const HWND unseen = recorder.MakeMessageOnly("M");
    if (!unseen || !recorder.Make("B", WS_CHILD, unseen) || !PostMessageA(unseen, WM_USER, 0, 0))
        return 2;
    recorder.On(WM_USER, [](HWND, UINT, WPARAM, LPARAM) -> LRESULT { return PostQuitMessage(7), 0; });
    if (RunLoop() != 7 || GetSystemMetrics(SM_CXSCREEN) != 0)
        return 3;
    return IsToolkitMapped() ? 4 : 0;
}

} // namespace

TEST(NoDisplayDeathTest, ShowsNothingAndWaitsForNothing)
{
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(std::_Exit(WithoutDisplay()), testing::ExitedWithCode(0), "");
}
