// Posting, filtering, quitting.
#include "Recorder.h"

using testing::ElementsAre;

namespace {

std::vector<UINT> Drain(HWND window = nullptr, UINT first = 0, UINT last = 0)
{
    std::vector<UINT> messages;
    MSG message;
    while (PeekMessageA(&message, window, first, last, PM_REMOVE))
        messages.push_back(message.message);
    return messages;
}

class Queue : public testing::Test
{
protected:
    void SetUp() override { Drain(); }

    Recorder m_recorder;
    HWND m_window = m_recorder.MakeMessageOnly("A");
    HWND m_child = m_recorder.Make("B", WS_CHILD, m_window);
};

} // namespace

TEST_F(Queue, KeepsTheOrderAndTheContent)
{
    PostMessageA(m_window, WM_USER + 1, 11, -12);
    PostMessageA(nullptr, WM_USER + 2, 0, 0);
    PostMessageA(m_child, WM_USER + 3, 0, 0);
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE));
    ASSERT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.hwnd, m_window);
    EXPECT_EQ(message.message, WM_USER + 1u);
    EXPECT_EQ(message.wParam, 11u);
    EXPECT_EQ(message.lParam, -12);
    EXPECT_THAT(Drain(), ElementsAre(WM_USER + 2u, WM_USER + 3u));
}

TEST_F(Queue, IsFiltered)
{
    const HWND none = reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1));
    const struct {
        const char* label;
        HWND window;
        UINT first, last;
        std::vector<UINT> taken;
    } rows[] = {
        {"a window with its children", m_window, 0, 0, {1, 3, 4}},
        {"the child", m_child, 0, 0, {3, 4}},
        {"none", none, 0, 0, {2}},
        {"a range", nullptr, WM_USER + 2, WM_USER + 3, {2, 3}},
        {"both", m_window, WM_USER + 2, WM_USER + 3, {3}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        PostMessageA(m_window, WM_USER + 1, 0, 0);
        PostMessageA(nullptr, WM_USER + 2, 0, 0);
        PostMessageA(m_child, WM_USER + 3, 0, 0);
        PostMessageA(m_child, WM_USER + 4, 0, 0);
        std::vector<UINT> expected;
        for (const UINT number : row.taken)
            expected.push_back(WM_USER + number);
        EXPECT_EQ(Drain(row.window, row.first, row.last), expected);
        EXPECT_EQ(Drain().size(), 4 - expected.size());
    }
    MSG message;
    EXPECT_EQ(GetMessageA(&message, reinterpret_cast<HWND>(0x1234567), 0, 0), -1);
    EXPECT_FALSE(PeekMessageA(&message, reinterpret_cast<HWND>(0x1234567), 0, 0, PM_REMOVE));
}

TEST_F(Queue, EndsWithWhatWasPostedBefore)
{
    PostQuitMessage(3);
    PostMessageA(m_window, WM_USER + 1, 0, 0);
    MSG message;
    EXPECT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, WM_USER + 1u);
    EXPECT_FALSE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 3u);
    EXPECT_FALSE(message.hwnd);
    EXPECT_THAT(Drain(), ElementsAre()); // taken once
}

TEST_F(Queue, IsDispatchedToTheProcedure)
{
    m_recorder.On(WM_USER + 1, [](HWND, UINT, WPARAM wParam, LPARAM lParam) -> LRESULT {
        return static_cast<LRESULT>(wParam) + lParam;
    });
    const MSG message = {m_window, WM_USER + 1, 40, 2, 0, {}};
    EXPECT_EQ(DispatchMessageA(&message), 42);
    const MSG nobody = {nullptr, WM_USER + 1, 40, 2, 0, {}};
    EXPECT_EQ(DispatchMessageA(&nobody), 0);
}

TEST_F(Queue, TellsWhatWaits)
{
    GetQueueStatus(QS_ALLINPUT);
    EXPECT_EQ(GetQueueStatus(QS_POSTMESSAGE), 0u);
    PostMessageA(m_window, WM_USER, 0, 0);
    EXPECT_EQ(GetQueueStatus(QS_POSTMESSAGE), static_cast<DWORD>(MAKELONG(QS_POSTMESSAGE, QS_POSTMESSAGE)));
    EXPECT_EQ(GetQueueStatus(QS_POSTMESSAGE), static_cast<DWORD>(MAKELONG(0, QS_POSTMESSAGE)));
    Drain();
    EXPECT_EQ(GetQueueStatus(QS_POSTMESSAGE), 0u);
}

TEST_F(Queue, HoldsTenThousandAtMost)
{
    int posted = 0;
    while (posted < 20000 && PostMessageA(m_window, WM_USER, 0, 0))
        ++posted;
    EXPECT_GE(posted, 9990);
    DestroyWindow(m_window);
    EXPECT_THAT(Drain(), ElementsAre());
}

TEST(RegisteredMessages, HaveOneNumberForAName)
{
    const UINT first = RegisterWindowMessageA("zek_test_message");
    EXPECT_GE(first, 0xc000u);
    EXPECT_EQ(RegisterWindowMessageA("ZEK_Test_Message"), first);
    EXPECT_NE(RegisterWindowMessageA("zek_test_message2"), first);
    EXPECT_EQ(RegisterWindowMessageA(""), 0u);
}
