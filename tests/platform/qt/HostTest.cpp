// A host with an application object and a loop of the toolkit's: messages and timers arrive all the same.
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <gmock/gmock.h>
#include <windows.h>

#include <functional>
#include <thread>
#include <vector>

namespace {

class HostTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        static int argc = 1;
        static char name[] = "host";
        static char* argv[] = {name, nullptr};
        static QApplication application(argc, argv);
        s_application = &application;
    }

    void SetUp() override
    {
        s_test = this;
        WNDCLASSA shape = {};
        shape.lpfnWndProc = Procedure;
        shape.hInstance = GetModuleHandleA(nullptr);
        shape.lpszClassName = "HostTest";
        RegisterClassA(&shape);
        m_window = CreateWindowExA(0, shape.lpszClassName, "Window", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50,
                                   400, 400, nullptr, nullptr, shape.hInstance, nullptr);
        ASSERT_NE(m_window, nullptr);
    }

    void TearDown() override
    {
        m_onClose = nullptr;
        DestroyWindow(m_window);
        s_test = nullptr;
    }

    static inline QApplication* s_application = nullptr;
    HWND m_window = nullptr;
    std::vector<UINT> m_met;
    std::function<void()> m_onTimer;
    std::function<void()> m_onClose; // instead of closing

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (!s_test)
            return DefWindowProcA(window, message, wParam, lParam);
        if (message >= WM_APP || message == WM_TIMER)
            s_test->m_met.push_back(message);
        if (message == WM_TIMER) {
            KillTimer(window, wParam);
            const auto handler = s_test->m_onTimer; // it may set another while it runs
            handler();
        }
        if (message == WM_CLOSE && s_test->m_onClose)
            return s_test->m_onClose(), 0;
        return DefWindowProcA(window, message, wParam, lParam);
    }

    static inline HostTest* s_test = nullptr;
};

TEST_F(HostTest, MessagesAndTimersArriveInTheHostsLoop)
{
    EXPECT_EQ(QCoreApplication::instance(), s_application) << "the host's own is used";
    m_onTimer = [] { QCoreApplication::exit(); };
    PostMessageA(m_window, WM_APP, 0, 0);
    std::thread poster([this] { PostMessageA(m_window, WM_APP + 1, 0, 0); });
    poster.join();
    SetTimer(m_window, 1, 10, nullptr);
    QApplication::exec();
    EXPECT_THAT(m_met, testing::ElementsAre(WM_APP, WM_APP + 1, WM_TIMER));
}

TEST_F(HostTest, TheLastWindowsEndIsNoReasonToQuit)
{
    bool ended = false;
    const auto connection =
        QObject::connect(s_application, &QGuiApplication::lastWindowClosed, [&ended] { ended = true; });
    DestroyWindow(m_window);
    QCoreApplication::processEvents();
    QObject::disconnect(connection);
    EXPECT_FALSE(ended);
}

TEST_F(HostTest, QuittingClosesTheWindows)
{
    m_onTimer = [] { QCoreApplication::quit(); };
    SetTimer(m_window, 1, 10, nullptr);
    QApplication::exec();
    EXPECT_FALSE(IsWindow(m_window));
}

TEST_F(HostTest, AWindowThatStaysKeepsTheHostFromQuitting)
{
    bool refused = false;
    m_onClose = [&refused] { refused = true; };
    m_onTimer = [this] {
        QCoreApplication::quit();
        m_onTimer = [] { QCoreApplication::exit(7); };
        SetTimer(m_window, 2, 10, nullptr);
    };
    SetTimer(m_window, 1, 10, nullptr);
    EXPECT_EQ(QApplication::exec(), 7);
    EXPECT_TRUE(refused);
    EXPECT_TRUE(IsWindow(m_window));
}

} // namespace
