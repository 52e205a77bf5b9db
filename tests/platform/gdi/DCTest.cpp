// CDC, CFont and their handles.
#include "MemoryContext.h"

#include <afxwin.h>
#include <gtest/gtest.h>

#include <thread>

namespace {

class MemoryDC : public CDC
{
public:
    MemoryDC() { CreateCompatibleDC(nullptr); }

    void Scale(CSize window, CSize viewport)
    {
        SetMapMode(MM_ANISOTROPIC);
        SetWindowExt(window);
        SetViewportExt(viewport);
    }
};

TEST(DC, OwnsItsHandle)
{
    HDC handle = nullptr;
    {
        CDC dc;
        EXPECT_EQ(dc.GetSafeHdc(), nullptr);
        EXPECT_FALSE(dc.DeleteDC());
        EXPECT_FALSE(dc.Attach(nullptr));
        ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
        EXPECT_FALSE(dc.CreateCompatibleDC(nullptr));
        handle = dc;
        EXPECT_TRUE(dc.m_hDC == handle && dc.m_hAttribDC == handle);
        EXPECT_EQ(CDC::FromHandle(handle), &dc);
    }
    EXPECT_EQ(GetMapMode(handle), 0);
}

TEST(DC, GivesItsHandleAway)
{
    const MemoryContext handle;
    {
        CDC dc;
        ASSERT_TRUE(dc.Attach(handle));
        EXPECT_FALSE(dc.Attach(handle));
        EXPECT_EQ(dc.Detach(), static_cast<HDC>(handle));
        EXPECT_TRUE(!dc.m_hDC && !dc.m_hAttribDC);
        EXPECT_NE(CDC::FromHandle(handle), &dc);
    }
    EXPECT_EQ(GetMapMode(handle), MM_TEXT);
}

TEST(DC, OfAHandleIsTheSameUntilTemporaryOnesGo)
{
    EXPECT_EQ(CDC::FromHandle(nullptr), nullptr);
    const MemoryContext handle;
    CDC* const temporary = CDC::FromHandle(handle);
    ASSERT_NE(temporary, nullptr);
    EXPECT_TRUE(temporary->m_hDC == handle && temporary->m_hAttribDC == handle);
    EXPECT_EQ(CDC::FromHandle(handle), temporary);
    std::thread([&handle, temporary] { EXPECT_NE(CDC::FromHandle(handle), temporary); }).join();
    temporary->m_bPrinting = TRUE;
    CDC::DeleteTempMap();
    EXPECT_FALSE(CDC::FromHandle(handle)->IsPrinting()) << "another object";
    EXPECT_EQ(GetMapMode(handle), MM_TEXT);
}

TEST(DC, TemporaryOnesGoWithTheirThread)
{
    const MemoryContext handle;
    for (int i = 0; i < 20; ++i)
        std::thread([&handle] {
            EXPECT_NE(CDC::FromHandle(handle)->GetCurrentFont(), nullptr);
            EXPECT_NE(CWnd::FromHandle(HWND_MESSAGE), nullptr);
        }).join();
    EXPECT_EQ(GetMapMode(handle), MM_TEXT);
}

TEST(DC, FontsComeBackAsTheirOwnObjects)
{
    MemoryDC dc;
    CFont first, second;
    ASSERT_TRUE(first.CreatePointFont(100, "Arial") && second.CreatePointFont(200, "Arial"));
    CFont* const before = dc.SelectObject(&first);
    ASSERT_NE(before, nullptr);
    EXPECT_EQ(static_cast<HGDIOBJ>(*before), GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(dc.SelectObject(&second), &first);
    EXPECT_EQ(dc.GetCurrentFont(), &second);
    EXPECT_EQ(dc.SelectStockObject(DEFAULT_GUI_FONT), &second);
    EXPECT_EQ(dc.SelectObject(nullptr), nullptr);
    EXPECT_EQ(static_cast<HGDIOBJ>(*dc.SelectObject(before)), GetStockObject(DEFAULT_GUI_FONT));
    CGdiObject::DeleteTempMap();
    EXPECT_EQ(dc.GetCurrentFont()->GetSafeHandle(), GetStockObject(SYSTEM_FONT));
}

TEST(Font, DeletesItsHandle)
{
    HFONT handle = nullptr;
    {
        CFont font;
        EXPECT_FALSE(font.DeleteObject());
        LOGFONT description{};
        description.lfHeight = -17;
        ASSERT_TRUE(font.CreateFontIndirect(&description));
        EXPECT_FALSE(font.CreateFontIndirect(&description));
        handle = font;
        EXPECT_EQ(CFont::FromHandle(handle), &font);
        LOGFONT told{};
        EXPECT_EQ(font.GetLogFont(&told), static_cast<int>(sizeof told));
        EXPECT_EQ(told.lfHeight, -17);
    }
    EXPECT_EQ(GetObjectA(handle, 0, nullptr), 0);
    CFont kept;
    ASSERT_TRUE(kept.CreateStockObject(SYSTEM_FONT));
    EXPECT_EQ(kept.Detach(), GetStockObject(SYSTEM_FONT));
}

LONG HeightOf(const CFont& font)
{
    LOGFONT told{};
    font.GetLogFont(&told);
    return told.lfHeight;
}

TEST(Font, HeightsInPointsFollowTheContext)
{
    struct Row {
        const char* label;
        int tenths;
        CSize window, viewport;
        LONG height;
    };
    static const Row kRows[] = {
        {"72 points are an inch", 720, {1, 1}, {1, 1}, -96},
        {"8 points", 80, {1, 1}, {1, 1}, -11},
        {"10.5 points", 105, {1, 1}, {1, 1}, -14},
        {"twice as large units", 720, {1, 1}, {2, 2}, -48},
        {"three units a pixel", 720, {3, 3}, {1, 1}, -288},
        {"upwards", 720, {1, 1}, {1, -1}, -96},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.label);
        MemoryDC dc;
        dc.Scale(row.window, row.viewport);
        dc.SetViewportOrg(500, 700);
        CFont font;
        ASSERT_TRUE(font.CreatePointFont(row.tenths, "Arial", &dc));
        EXPECT_EQ(HeightOf(font), row.height);
    }
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(720, "Arial"));
    EXPECT_EQ(HeightOf(font), -96);
}

TEST(DC, SettingsAnswerWhatWasThere)
{
    MemoryDC dc;
    EXPECT_EQ(dc.SetMapMode(MM_ANISOTROPIC), MM_TEXT);
    EXPECT_EQ(dc.GetMapMode(), MM_ANISOTROPIC);
    EXPECT_TRUE(dc.SetWindowExt(3, 4) == CSize(1, 1) && dc.SetWindowExt(CSize(5, 6)) == CSize(3, 4));
    EXPECT_TRUE(dc.SetViewportExt(7, 8) == CSize(1, 1) && dc.SetViewportExt(CSize(9, 10)) == CSize(7, 8));
    EXPECT_TRUE(dc.SetWindowOrg(1, 2) == CPoint(0, 0) && dc.OffsetWindowOrg(10, 10) == CPoint(1, 2));
    EXPECT_TRUE(dc.SetViewportOrg(CPoint(3, 4)) == CPoint(0, 0) &&
                dc.OffsetViewportOrg(1, 1) == CPoint(3, 4));
    EXPECT_TRUE(dc.GetWindowExt() == CSize(5, 6) && dc.GetViewportExt() == CSize(9, 10));
    EXPECT_TRUE(dc.GetWindowOrg() == CPoint(11, 12) && dc.GetViewportOrg() == CPoint(4, 5));
    EXPECT_EQ(dc.GetDeviceCaps(LOGPIXELSX), 96);
}

// The difference that callers rely on: an extent converted as a point is shifted by the origins and takes the
// direction of the axis, as a size it is not.
TEST(DC, SizesAreScaledPointsAreMapped)
{
    struct Row {
        const char* label;
        CSize window, viewport;
        CPoint windowOrg, viewportOrg;
        CPoint point;
        CSize size;
    };
    static const Row kRows[] = {
        {"plain", {1, 1}, {1, 1}, {0, 0}, {0, 0}, {30, 10}, {30, 10}},
        {"viewport's origin", {1, 1}, {1, 1}, {0, 0}, {100, 200}, {130, 210}, {30, 10}},
        {"window's origin", {1, 1}, {1, 1}, {5, 6}, {0, 0}, {25, 4}, {30, 10}},
        {"scaled", {2, 2}, {3, 3}, {0, 0}, {7, 7}, {52, 22}, {45, 15}},
        {"upwards", {1, 1}, {1, -2}, {0, 0}, {0, 0}, {30, -20}, {30, 20}},
        {"halves", {4, 4}, {1, -1}, {0, 0}, {0, 0}, {8, -2}, {8, 3}},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.label);
        MemoryDC dc;
        dc.Scale(row.window, row.viewport);
        dc.SetWindowOrg(row.windowOrg);
        dc.SetViewportOrg(row.viewportOrg);
        CSize extent(30, 10);
        CPoint point(extent);
        dc.LPtoDP(&point);
        EXPECT_TRUE(point == row.point) << point.x << ' ' << point.y;
        dc.LPtoDP(&extent);
        EXPECT_TRUE(extent == row.size) << extent.cx << ' ' << extent.cy;
    }
}

TEST(DC, RectanglesAndArraysOfPointsGoBothWays)
{
    MemoryDC dc;
    dc.Scale({1, 1}, {4, -4});
    dc.SetViewportOrg(100, 100);
    CRect rect(1, 2, 3, 4);
    dc.LPtoDP(&rect);
    EXPECT_TRUE(rect == CRect(104, 92, 112, 84));
    dc.DPtoLP(&rect);
    EXPECT_TRUE(rect == CRect(1, 2, 3, 4));
    POINT points[] = {{1, 1}, {2, 2}, {3, 3}};
    dc.LPtoDP(points, 2);
    EXPECT_TRUE(points[1].x == 108 && points[2].x == 3);
    CSize size(-40, 6);
    dc.DPtoLP(&size);
    EXPECT_TRUE(size == CSize(-10, 2));
}

TEST(DC, SetsBothContextsAndAsksTheSecond)
{
    MemoryDC dc;
    const HDC output = dc;
    const MemoryContext attributes;
    dc.SetAttribDC(attributes);
    EXPECT_EQ(SaveDC(output), 1);
    EXPECT_EQ(dc.SaveDC(), -1); // 2 there, 1 here
    SetViewportOrgEx(attributes, 5, 5, nullptr);
    EXPECT_TRUE(dc.SetViewportOrg(1, 2) == CPoint(5, 5)); // of the one that is asked
    EXPECT_EQ(dc.SetMapMode(MM_TWIPS), MM_TEXT);
    dc.SelectStockObject(DEFAULT_GUI_FONT);
    for (const HDC handle : {output, static_cast<HDC>(attributes)}) {
        POINT origin{};
        EXPECT_TRUE(GetViewportOrgEx(handle, &origin) && origin.x == 1 && origin.y == 2);
        EXPECT_EQ(GetMapMode(handle), MM_TWIPS);
        EXPECT_EQ(GetCurrentObject(handle, OBJ_FONT), GetStockObject(DEFAULT_GUI_FONT));
    }
    EXPECT_TRUE(dc.RestoreDC(-1));
    EXPECT_TRUE(GetMapMode(output) == MM_TEXT && GetMapMode(attributes) == MM_TEXT);
    EXPECT_FALSE(dc.RestoreDC(-1));

    dc.ReleaseAttribDC();
    EXPECT_EQ(CDC::FromHandle(output), &dc);
    EXPECT_EQ(dc.GetMapMode(), 0);
    EXPECT_EQ(dc.SetMapMode(MM_TWIPS), MM_TEXT); // the other's
    EXPECT_TRUE(dc.GetTextExtent("text", 4) == CSize(0, 0));
}

} // namespace
