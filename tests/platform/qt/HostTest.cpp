// A host with an application object and a loop of the toolkit's: messages and timers arrive all the same.
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <gmock/gmock.h>
#include <windows.h>

#include <thread>
#include <vector>

namespace {

std::vector<UINT> g_met;

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message >= WM_APP || message == WM_TIMER)
        g_met.push_back(message);
    if (message == WM_TIMER) {
        KillTimer(window, wParam);
        QApplication::quit();
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND MakeWindow()
{
    WNDCLASSA shape = {};
    shape.lpfnWndProc = Procedure;
    shape.hInstance = GetModuleHandleA(nullptr);
    shape.lpszClassName = "HostTest";
    RegisterClassA(&shape);
    return CreateWindowExA(0, shape.lpszClassName, "Window", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 400,
                           400, nullptr, nullptr, shape.hInstance, nullptr);
}

TEST(HostTest, MessagesAndTimersArriveInTheHostsLoop)
{
    static int argc = 1;
    static char name[] = "host";
    static char* argv[] = {name, nullptr};
    QApplication application(argc, argv);
    const HWND window = MakeWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(QCoreApplication::instance(), &application) << "the host's own is used";

    PostMessageA(window, WM_APP, 0, 0);
    std::thread poster([window] { PostMessageA(window, WM_APP + 1, 0, 0); });
    poster.join();
    SetTimer(window, 1, 10, nullptr);
    QApplication::exec();
    EXPECT_THAT(g_met, testing::ElementsAre(WM_APP, WM_APP + 1, WM_TIMER));

    // Closing the last of our windows is no reason to end the host's loop.
    bool ended = false;
    QObject::connect(&application, &QGuiApplication::lastWindowClosed, [&ended] { ended = true; });
    DestroyWindow(window);
    QCoreApplication::processEvents();
    EXPECT_FALSE(ended);
}

} // namespace
