// The hourglass of objects and command targets.
#include <afxwin.h>
#include <gtest/gtest.h>

namespace {

class WaitCursor : public testing::Test
{
protected:
    void SetUp() override { m_before = SetCursor(m_arrow); }
    void TearDown() override { SetCursor(m_before); }

    const HCURSOR m_arrow = LoadCursorA(nullptr, IDC_ARROW);
    const HCURSOR m_wait = LoadCursorA(nullptr, IDC_WAIT);
    HCURSOR m_before = nullptr;
};

TEST_F(WaitCursor, LastsAsLongAsTheObject)
{
    const CWinApp app;
    {
        CWaitCursor outer;
        EXPECT_EQ(GetCursor(), m_wait);
        {
            const CWaitCursor inner;
            EXPECT_EQ(GetCursor(), m_wait);
        }
        EXPECT_EQ(GetCursor(), m_wait);
        SetCursor(m_arrow);
        outer.Restore();
        EXPECT_EQ(GetCursor(), m_wait);
    }
    EXPECT_EQ(GetCursor(), m_arrow);
}

TEST_F(WaitCursor, OfACommandTargetCountsWithTheOthers)
{
    CWinApp app;
    app.RestoreWaitCursor();
    EXPECT_EQ(GetCursor(), m_arrow) << "not begun";
    app.BeginWaitCursor();
    {
        const CWaitCursor other;
        SetCursor(m_arrow);
        app.RestoreWaitCursor();
        EXPECT_EQ(GetCursor(), m_wait);
    }
    EXPECT_EQ(GetCursor(), m_wait);
    app.EndWaitCursor();
    EXPECT_EQ(GetCursor(), m_arrow);
}

TEST_F(WaitCursor, NeedsAnApplication)
{
    CWaitCursor none;
    none.Restore();
    EXPECT_EQ(GetCursor(), m_arrow);
}

} // namespace
