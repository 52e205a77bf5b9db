// Contexts and fonts of windows.
#include <afxwin.h>
#include <gtest/gtest.h>

namespace {

class WindowDC : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_label.CreateEx(0, "STATIC", "text", WS_POPUP, 0, 0, 100, 20, nullptr, nullptr));
    }
    void TearDown() override { m_label.DestroyWindow(); }

    CWnd m_label;
};

template <class Context>
void LivesAsLongAsItsObject(CWnd* window)
{
    HDC handle = nullptr;
    {
        Context dc(window);
        handle = dc;
        EXPECT_TRUE(handle && dc.m_hAttribDC == handle);
        EXPECT_EQ(CDC::FromHandle(handle), &dc);
        EXPECT_EQ(dc.GetMapMode(), MM_TEXT);
        EXPECT_GT(dc.GetTextExtent("text").cx, 0);
    }
    EXPECT_EQ(GetMapMode(handle), 0);
}

TEST_F(WindowDC, LivesAsLongAsItsObject)
{
    for (CWnd* window : {&m_label, static_cast<CWnd*>(nullptr)}) {
        LivesAsLongAsItsObject<CClientDC>(window);
        LivesAsLongAsItsObject<CWindowDC>(window);
    }
}

template <class Context>
void CannotBeHad(CWnd* window)
{
    try {
        const Context dc(window);
        ADD_FAILURE() << "a context of a window that is gone";
    } catch (CResourceException* e) {
        e->Delete();
    }
}

TEST_F(WindowDC, OfAWindowThatIsGoneCannotBeHad)
{
    CWnd gone;
    gone.m_hWnd = m_label.m_hWnd;
    m_label.DestroyWindow();
    CannotBeHad<CClientDC>(&gone);
    CannotBeHad<CWindowDC>(&gone);
    gone.m_hWnd = nullptr;
}

TEST_F(WindowDC, OfGetDCEndsWithReleaseDC)
{
    CDC* const dc = m_label.GetDC();
    ASSERT_NE(dc, nullptr);
    const HDC handle = *dc;
    dc->m_bPrinting = TRUE;
    EXPECT_EQ(m_label.ReleaseDC(dc), 1);
    EXPECT_EQ(GetMapMode(handle), 0);
    EXPECT_FALSE(CDC::FromHandle(handle)->IsPrinting()) << "another object";
}

TEST_F(WindowDC, MeasuresWithTheWindowsFont)
{
    CFont large;
    ASSERT_TRUE(large.CreatePointFont(360, "Arial"));
    m_label.SetFont(&large);
    EXPECT_EQ(m_label.GetFont(), &large);
    CClientDC dc(&m_label);
    const CSize plain = dc.GetTextExtent("text", 4);
    CFont* const before = dc.SelectObject(m_label.GetFont());
    const CSize size = dc.GetTextExtent("text", 4);
    EXPECT_TRUE(size.cx > 2 * plain.cx && size.cy > 2 * plain.cy);
    EXPECT_TRUE(dc.GetTextExtent(CString("text")) == size && dc.GetOutputTextExtent("text", 4) == size);
    TEXTMETRIC metrics{};
    EXPECT_TRUE(dc.GetTextMetrics(&metrics) && metrics.tmHeight == size.cy);
    EXPECT_EQ(dc.SelectObject(before), &large);
    m_label.SetFont(nullptr);
    EXPECT_NE(m_label.GetFont(), &large);
}

TEST_F(WindowDC, TemporaryObjectsGoWhenTheProgramIdles)
{
    CWinApp app;
    CClientDC screen(nullptr);
    const HDC handle = screen.Detach();
    CDC::FromHandle(handle)->m_bPrinting = TRUE;
    app.OnIdle(1);
    EXPECT_TRUE(CDC::FromHandle(handle)->IsPrinting());
    app.OnIdle(0);
    EXPECT_FALSE(CDC::FromHandle(handle)->IsPrinting());
    ReleaseDC(nullptr, handle);
}

} // namespace
