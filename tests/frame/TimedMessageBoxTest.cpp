// Boxes that close themselves, as real windows.
#include "Boxes.h"

#include <GlobalFunc.h>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

namespace {

constexpr UINT kDuring = WM_APP + 1;
constexpr DWORD kSoon = 20;                // milliseconds
constexpr DWORD kNever = 24 * 3600 * 1000; // not while this test runs

// A main window, which does things while a box is open: its loop hands out what was posted before.
class MainWindow : public CWnd
{
public:
    explicit MainWindow(DWORD style = WS_VISIBLE)
    {
        CreateEx(0, AfxRegisterWndClass(0), "main", WS_POPUP | style, 0, 0, 200, 100, nullptr, nullptr);
    }
    ~MainWindow() override { DestroyWindow(); }

    void During(std::function<void()> action)
    {
        m_action = std::move(action);
        PostMessage(kDuring);
    }

    // Again and again until the action answers true.
    void Until(std::function<bool()> action)
    {
        m_action = [this, action] {
            if (action())
                KillTimer(1);
        };
        SetTimer(1, kSoon);
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != kDuring && message != WM_TIMER)
            return CWnd::WindowProc(message, wParam, lParam);
        m_action();
        return 0;
    }

private:
    std::function<void()> m_action;
};

BOOL CALLBACK TakeDialog(HWND window, LPARAM found)
{
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    const bool isBox = std::strcmp(name, "#32770") == 0;
    if (isBox)
        *reinterpret_cast<HWND*>(found) = window;
    return !isBox;
}

// The box that is open in this thread; null if there is none. It is shown when nothing else is left to do.
HWND Box()
{
    HWND box = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &TakeDialog, reinterpret_cast<LPARAM>(&box));
    return box;
}

CString TextOf(HWND window)
{
    char text[64] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

class TimedMessageBoxTest : public testing::Test
{
protected:
    TimedMessageBoxTest() { m_app.m_pMainWnd = &m_main; }
    ~TimedMessageBoxTest() override { m_app.m_pMainWnd = nullptr; }

    CWinApp m_app{"Example"};
    MainWindow m_main;
};

} // namespace

TEST(TimedMessageBox, ShowsNothingWithoutAVisibleMainWindow)
{
    const BoxCatcher boxes;
    EXPECT_EQ(TimedMessageBox(nullptr, nullptr, MB_OK, 0, "text"), 0U) << "no application object";
    CWinApp app("Example");
    EXPECT_EQ(TimedMessageBox(nullptr, nullptr, MB_OK, 0, "text"), 0U) << "no main window";
    CWnd none;
    app.m_pMainWnd = &none;
    EXPECT_EQ(TimedMessageBox(nullptr, nullptr, MB_OK, 0, "text"), 0U) << "no window yet";
    MainWindow main(0);
    app.m_pMainWnd = &main;
    EXPECT_EQ(TimedMessageBox(nullptr, nullptr, MB_OK, 0, "text"), 0U) << "invisible";
    EXPECT_EQ(TimedMessageBox(main, nullptr, MB_OK, kSoon, "text"), 0U) << "whatever the owner";
    app.m_pMainWnd = nullptr;
    EXPECT_TRUE(boxes.Caught().empty());
}

TEST_F(TimedMessageBoxTest, TheCaptionOnlyChoosesTheTitle)
{
    const struct {
        const char* caption;
        const char* title;
    } rows[] = {{"Caption", ""}, {"", ""}, {nullptr, "Example"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.title);
        const BoxCatcher boxes(IDNO);
        EXPECT_EQ(TimedMessageBox(nullptr, row.caption, MB_YESNO, 0, "%d of %s", 2, CString("x")),
                  unsigned{IDNO});
        ASSERT_EQ(boxes.Caught().size(), 1U);
        EXPECT_EQ(boxes.Caught()[0].text, "2 of x");
        EXPECT_EQ(boxes.Caught()[0].caption, row.title);
        EXPECT_EQ(boxes.Caught()[0].style, unsigned{MB_YESNO});
    }
}

TEST_F(TimedMessageBoxTest, ClosesItselfWithZero)
{
    for (const unsigned int type : {MB_OK, MB_YESNO, MB_RETRYCANCEL}) {
        SCOPED_TRACE(type);
        HWND box = nullptr;
        m_main.During([&box] { box = Box(); });
        EXPECT_EQ(TimedMessageBox(nullptr, nullptr, type, kSoon, "text"), 0U);
        EXPECT_NE(box, nullptr) << "it was shown";
        EXPECT_FALSE(IsWindow(box));
    }
}

TEST_F(TimedMessageBoxTest, WaitsForTheUser)
{
    for (const DWORD timeout : {DWORD{0}, kNever}) {
        SCOPED_TRACE(timeout);
        m_main.Until([] { return IsWindowVisible(Box()) && PostMessageA(Box(), WM_COMMAND, IDNO, 0); });
        EXPECT_EQ(TimedMessageBox(nullptr, nullptr, MB_YESNO, timeout, "text"), unsigned{IDNO});
    }
}

TEST_F(TimedMessageBoxTest, BelongsToTheWindowGivenOrElseToTheMainWindow)
{
    MainWindow other;
    for (const HWND given : {HWND{}, other.m_hWnd}) {
        HWND owner = nullptr;
        CString title;
        m_main.During([&] {
            owner = GetWindow(Box(), GW_OWNER);
            title = TextOf(Box());
            EndDialog(Box(), IDOK);
        });
        EXPECT_EQ(TimedMessageBox(given, nullptr, MB_OK, 0, "text"), unsigned{IDOK});
        EXPECT_EQ(owner, given ? given : m_main.m_hWnd);
        EXPECT_EQ(title, "Example");
        EXPECT_TRUE(IsWindowEnabled(owner));
    }
}

TEST_F(TimedMessageBoxTest, MayBeOpenedFromWithin)
{
    unsigned int inner = IDABORT;
    m_main.During([&] { inner = TimedMessageBox(nullptr, nullptr, MB_OK, kSoon, "inner"); });
    EXPECT_EQ(TimedMessageBox(nullptr, nullptr, MB_OK, kSoon, "outer"), 0U);
    EXPECT_EQ(inner, 0U);
    EXPECT_EQ(Box(), nullptr);
}

TEST_F(TimedMessageBoxTest, StopsItsTimer)
{
    m_main.During([] { EndDialog(Box(), IDOK); });
    EXPECT_EQ(TimedMessageBox(nullptr, nullptr, MB_OK, kSoon, "text"), unsigned{IDOK});
    m_main.Until([] { return true; });
    m_main.SetTimer(1, 5 * kSoon);
    int ticks = 0;
    MSG message{};
    while (message.hwnd != m_main.m_hWnd || message.message != WM_TIMER) {
        ASSERT_GT(GetMessageA(&message, nullptr, 0, 0), 0);
        ticks += message.hwnd == nullptr && message.message == WM_TIMER;
        DispatchMessageA(&message);
    }
    EXPECT_EQ(ticks, 0);
}
