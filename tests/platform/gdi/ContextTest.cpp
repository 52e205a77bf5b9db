// Device contexts: where they come from, how they end, what they save, what they tell of the device.
#include "MemoryContext.h"

#include <gtest/gtest.h>

namespace {

const HDC kNoContext = reinterpret_cast<HDC>(static_cast<ULONG_PTR>(0x777));

TEST(Context, OfTheScreenIsReleasedOnce)
{
    for (HDC(WINAPI * get)(HWND) : {GetDC, GetWindowDC}) {
        const HDC dc = get(nullptr);
        ASSERT_NE(dc, nullptr);
        EXPECT_EQ(GetMapMode(dc), MM_TEXT);
        EXPECT_EQ(ReleaseDC(nullptr, dc), 1);
        EXPECT_EQ(ReleaseDC(nullptr, dc), 0);
    }
}

TEST(Context, OfAWindowThatIsNotThereFails)
{
    EXPECT_EQ(GetDC(reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0x123456))), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
}

TEST(Context, InMemoryIsDeletedOnce)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    ASSERT_NE(dc, nullptr);
    EXPECT_EQ(ReleaseDC(nullptr, dc), 0);
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_FALSE(DeleteDC(dc));
    EXPECT_EQ(GetMapMode(dc), 0);
}

TEST(Context, LikeAnotherStartsAfresh)
{
    const MemoryContext original;
    SetMapMode(original, MM_TWIPS);
    SelectObject(original, GetStockObject(DEFAULT_GUI_FONT));
    const HDC dc = CreateCompatibleDC(original);
    EXPECT_EQ(GetMapMode(dc), MM_TEXT);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), GetStockObject(SYSTEM_FONT));
    EXPECT_TRUE(DeleteDC(dc));
}

TEST(Context, ThatIsNoneFailsEverywhere)
{
    POINT point = {1, 2};
    SIZE size = {3, 4};
    TEXTMETRICA metrics{};
    EXPECT_EQ(CreateCompatibleDC(kNoContext), nullptr);
    EXPECT_EQ(SetMapMode(kNoContext, MM_TEXT), 0);
    EXPECT_EQ(SaveDC(kNoContext), 0);
    EXPECT_EQ(GetDeviceCaps(kNoContext, LOGPIXELSX), 0);
    EXPECT_EQ(SelectObject(kNoContext, GetStockObject(SYSTEM_FONT)), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
    EXPECT_FALSE(RestoreDC(kNoContext, -1) || LPtoDP(kNoContext, &point, 1) || DPtoLP(kNoContext, &point, 1));
    EXPECT_FALSE(GetWindowExtEx(kNoContext, &size) || SetWindowExtEx(kNoContext, 1, 1, &size));
    EXPECT_FALSE(GetViewportOrgEx(kNoContext, &point) || SetViewportOrgEx(kNoContext, 1, 1, &point));
    EXPECT_FALSE(GetTextExtentPoint32A(kNoContext, "a", 1, &size) || GetTextMetricsA(kNoContext, &metrics));
    EXPECT_TRUE(point.x == 1 && point.y == 2 && size.cx == 3 && size.cy == 4);
}

LONG ViewportX(HDC dc)
{
    POINT origin{};
    GetViewportOrgEx(dc, &origin);
    return origin.x;
}

TEST(Context, RestoresWhatWasSaved)
{
    const MemoryContext dc;
    const HGDIOBJ font = GetStockObject(DEFAULT_GUI_FONT);
    EXPECT_EQ(SaveDC(dc), 1);
    SetMapMode(dc, MM_LOMETRIC);
    SelectObject(dc, font);
    SetViewportOrgEx(dc, 2, 0, nullptr);
    EXPECT_EQ(SaveDC(dc), 2);
    SetViewportOrgEx(dc, 3, 0, nullptr);
    EXPECT_EQ(SaveDC(dc), 3);
    for (const int level : {0, 4, -4, 100}) {
        SCOPED_TRACE(level);
        EXPECT_FALSE(RestoreDC(dc, level));
    }
    EXPECT_TRUE(RestoreDC(dc, -2)); // past the third level to the second
    EXPECT_TRUE(ViewportX(dc) == 2 && GetMapMode(dc) == MM_LOMETRIC &&
                GetCurrentObject(dc, OBJ_FONT) == font);
    EXPECT_EQ(SaveDC(dc), 2);
    EXPECT_TRUE(RestoreDC(dc, 1));
    EXPECT_TRUE(ViewportX(dc) == 0 && GetMapMode(dc) == MM_TEXT && GetCurrentObject(dc, OBJ_FONT) != font);
    EXPECT_FALSE(RestoreDC(dc, -1));
}

TEST(Context, TellsOfTheDevice)
{
    const MemoryContext dc;
    EXPECT_EQ(GetDeviceCaps(dc, LOGPIXELSX), 96);
    EXPECT_EQ(GetDeviceCaps(dc, LOGPIXELSY), 96);
    EXPECT_EQ(GetDeviceCaps(dc, TECHNOLOGY), DT_RASDISPLAY);
    EXPECT_NEAR(GetDeviceCaps(dc, HORZSIZE), GetDeviceCaps(dc, HORZRES) * 25.4 / 96, 0.5);
    EXPECT_NEAR(GetDeviceCaps(dc, VERTSIZE), GetDeviceCaps(dc, VERTRES) * 25.4 / 96, 0.5);
    EXPECT_EQ(GetDeviceCaps(dc, 100000), 0);
}

} // namespace
