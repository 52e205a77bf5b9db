// A process whose first window is the message box of a thread that ends.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>

namespace {

HWND AwaitBox(const char* caption)
{
    HWND box = nullptr;
    while (!IsWindowVisible(box))
        box = FindWindowA("#32770", caption);
    return box;
}

void Abandon()
{
    std::thread first([] { MessageBoxA(nullptr, "text", "First", MB_OK); });
    const HWND box = AwaitBox("First");
    int answer = 0;
    std::thread second(
        [&] { answer = MessageBoxA(nullptr, "nobody is left", "Second", MB_YESNO | MB_DEFBUTTON2); });
    AwaitBox("Second");
    EndDialog(box, IDOK);
    first.join();
    second.join();
    std::_Exit(answer);
}

} // namespace

TEST(AbandonedBoxes, ArePrintedAndAnswered)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe"; // in a process of its own
    EXPECT_EXIT(Abandon(), testing::ExitedWithCode(IDNO), "Second: nobody is left\n");
}
