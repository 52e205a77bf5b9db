// Mapping modes, extents and origins, and what they do to coordinates.
#include "RandomMappings.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>

namespace {

using Extents = std::array<LONG, 4>; // window x, y, viewport x, y

Extents ExtentsOf(HDC dc)
{
    SIZE window{}, viewport{};
    EXPECT_TRUE(GetWindowExtEx(dc, &window) && GetViewportExtEx(dc, &viewport));
    return {window.cx, window.cy, viewport.cx, viewport.cy};
}

TEST(Mapping, StartsWithOneUnitForAPixel)
{
    const MemoryContext dc;
    EXPECT_EQ(GetMapMode(dc), MM_TEXT);
    EXPECT_EQ(ExtentsOf(dc), (Extents{1, 1, 1, 1}));
    POINT window = {7, 7}, viewport = {7, 7};
    ASSERT_TRUE(GetWindowOrgEx(dc, &window) && GetViewportOrgEx(dc, &viewport));
    EXPECT_TRUE(!window.x && !window.y && !viewport.x && !viewport.y);
}

struct Screen {
    explicit Screen(HDC dc)
        : pixelsX(GetDeviceCaps(dc, HORZRES)), pixelsY(GetDeviceCaps(dc, VERTRES)),
          millimetresX(GetDeviceCaps(dc, HORZSIZE)), millimetresY(GetDeviceCaps(dc, VERTSIZE))
    {
    }
    int pixelsX, pixelsY, millimetresX, millimetresY;
};

TEST(Mapping, FixedModesFollowTheScreensSize)
{
    struct Row {
        int mode, units, perMillimetres;
    };
    static const Row kRows[] = {{MM_LOMETRIC, 10, 1},       {MM_HIMETRIC, 100, 1},  {MM_LOENGLISH, 1000, 254},
                                {MM_HIENGLISH, 10000, 254}, {MM_TWIPS, 14400, 254}, {MM_ISOTROPIC, 10, 1}};
    const MemoryContext dc;
    const Screen screen(dc);
    ASSERT_TRUE(screen.pixelsX > 0 && screen.millimetresY > 0);
    int before = MM_TEXT;
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.mode);
        EXPECT_EQ(SetMapMode(dc, row.mode), before);
        EXPECT_EQ(GetMapMode(dc), before = row.mode);
        EXPECT_EQ(ExtentsOf(dc), (Extents{MulDiv(row.units, screen.millimetresX, row.perMillimetres),
                                          MulDiv(row.units, screen.millimetresY, row.perMillimetres),
                                          screen.pixelsX, -screen.pixelsY}));
    }
    const Extents isotropic = ExtentsOf(dc);
    EXPECT_EQ(SetMapMode(dc, MM_ANISOTROPIC), MM_ISOTROPIC);
    EXPECT_EQ(ExtentsOf(dc), isotropic);
    EXPECT_EQ(SetMapMode(dc, MM_TEXT), MM_ANISOTROPIC);
    EXPECT_EQ(ExtentsOf(dc), (Extents{1, 1, 1, 1}));
}

TEST(Mapping, AModeThatIsNoneChangesNothing)
{
    const MemoryContext dc;
    SetMapMode(dc, MM_TWIPS);
    for (const int mode : {-1, 0, 9}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(SetMapMode(dc, mode), 0);
        EXPECT_EQ(GetMapMode(dc), MM_TWIPS);
    }
}

TEST(Mapping, ExtentsAreSetInTheTwoLastModesOnly)
{
    const MemoryContext dc;
    SIZE old = {7, 7};
    EXPECT_TRUE(SetWindowExtEx(dc, 3, 4, &old));
    EXPECT_TRUE(old.cx == 1 && old.cy == 1);
    EXPECT_EQ(ExtentsOf(dc), (Extents{1, 1, 1, 1}));

    SetMapMode(dc, MM_ANISOTROPIC);
    EXPECT_TRUE(SetWindowExtEx(dc, 3, -4, &old) && SetViewportExtEx(dc, 5, 6, nullptr));
    EXPECT_EQ(ExtentsOf(dc), (Extents{3, -4, 5, 6}));
    EXPECT_TRUE(SetViewportExtEx(dc, 8, 9, &old));
    EXPECT_TRUE(old.cx == 5 && old.cy == 6);
    for (const SIZE zero : {SIZE{0, 1}, SIZE{1, 0}, SIZE{0, 0}}) {
        EXPECT_FALSE(SetWindowExtEx(dc, zero.cx, zero.cy, nullptr));
        EXPECT_FALSE(SetViewportExtEx(dc, zero.cx, zero.cy, nullptr));
    }
    EXPECT_EQ(ExtentsOf(dc), (Extents{3, -4, 8, 9}));
}

double UnitLength(int millimetres, int pixels, LONG window, LONG viewport)
{
    return std::abs(static_cast<double>(millimetres) / pixels * static_cast<double>(viewport) /
                    static_cast<double>(window));
}

// The rule of MM_ISOTROPIC in plain words: the longer unit's viewport extent shrinks to the shorter one's.
TEST(Mapping, IsotropicUnitsAreAsLongBothWays)
{
    struct Step {
        const char* label;
        bool isWindow;
        int x, y;
    };
    static const Step kSteps[] = {{"a square window", true, 100, 100}, {"a wide viewport", false, 300, 200},
                                  {"to the left", false, -300, 200},   {"a narrow window", true, 1, 1000},
                                  {"a flat window", true, 1000, 1},    {"a high viewport", false, 1, 1000},
                                  {"upwards", false, 640, -480}};
    const MemoryContext dc;
    const Screen screen(dc);
    SetMapMode(dc, MM_ISOTROPIC);
    for (const Step& step : kSteps) {
        SCOPED_TRACE(step.label);
        Extents set = ExtentsOf(dc);
        set[step.isWindow ? 0 : 2] = step.x;
        set[step.isWindow ? 1 : 3] = step.y;
        ASSERT_TRUE((step.isWindow ? SetWindowExtEx : SetViewportExtEx)(dc, step.x, step.y, nullptr));
        const Extents result = ExtentsOf(dc);
        EXPECT_TRUE(result[0] == set[0] && result[1] == set[1]);
        const double across = UnitLength(screen.millimetresX, screen.pixelsX, set[0], set[2]);
        const double down = UnitLength(screen.millimetresY, screen.pixelsY, set[1], set[3]);
        const bool isAcross = across > down;
        const LONG shrunk = result[isAcross ? 2 : 3], given = set[isAcross ? 2 : 3];
        const double wanted =
            std::abs(static_cast<double>(given)) * (isAcross ? down / across : across / down);
        EXPECT_EQ(result[isAcross ? 3 : 2], set[isAcross ? 3 : 2]);
        EXPECT_EQ(shrunk < 0, given < 0);
        EXPECT_NEAR(std::max(wanted, 1.0), std::abs(static_cast<double>(shrunk)), 0.5001);
    }
}

TEST(Mapping, OriginsAreSetAndShifted)
{
    const MemoryContext dc;
    POINT old = {7, 7};
    EXPECT_TRUE(SetWindowOrgEx(dc, 1, 2, &old));
    EXPECT_TRUE(old.x == 0 && old.y == 0);
    EXPECT_TRUE(OffsetWindowOrgEx(dc, 10, -20, &old));
    EXPECT_TRUE(old.x == 1 && old.y == 2);
    EXPECT_TRUE(SetViewportOrgEx(dc, 100, 200, nullptr) && OffsetViewportOrgEx(dc, -1, -2, &old));
    EXPECT_TRUE(old.x == 100 && old.y == 200);
    POINT window{}, viewport{};
    EXPECT_TRUE(GetWindowOrgEx(dc, &window) && GetViewportOrgEx(dc, &viewport));
    EXPECT_TRUE(window.x == 11 && window.y == -18 && viewport.x == 99 && viewport.y == 198);

    // MM_TEXT knows origins too, and a new mode keeps them.
    POINT point = {11, -18};
    EXPECT_TRUE(LPtoDP(dc, &point, 1));
    EXPECT_TRUE(point.x == 99 && point.y == 198);
    SetMapMode(dc, MM_HIMETRIC);
    point = {11, -18};
    EXPECT_TRUE(LPtoDP(dc, &point, 1) && point.x == 99 && point.y == 198);
    EXPECT_TRUE(DPtoLP(dc, &point, 1) && point.x == 11 && point.y == -18);
}

TEST(Mapping, HalvesAreRoundedUpwards)
{
    struct Row {
        LONG window, viewport, from, to;
    };
    static const Row kRows[] = {
        {2, 1, 1, 1},  {2, 1, -1, 0},  {2, 1, 3, 2},   {2, 1, -3, -1}, {2, 1, 5, 3},   {2, 1, -5, -2},
        {2, -1, 1, 0}, {2, -1, -1, 1}, {2, -1, 3, -1}, {-2, 1, 3, -1}, {-2, -1, 3, 2}, {4, 1, 2, 1},
        {4, 1, 1, 0},  {4, 1, 3, 1},   {4, 1, -2, 0},  {4, 1, -3, -1}, {1, 3, 7, 21},  {1, -3, 7, -21},
    };
    const MemoryContext dc;
    for (const Row& row : kRows) {
        SCOPED_TRACE(testing::Message() << row.from << " * " << row.viewport << " / " << row.window);
        dc.Scale({row.window, row.window}, {row.viewport, row.viewport});
        POINT point = {row.from, row.from};
        EXPECT_TRUE(LPtoDP(dc, &point, 1));
        EXPECT_TRUE(point.x == row.to && point.y == row.to) << point.x << ' ' << point.y;
        // The way back with the extents exchanged is the same division.
        dc.Scale({row.viewport, row.viewport}, {row.window, row.window});
        point = {row.from, row.from};
        EXPECT_TRUE(DPtoLP(dc, &point, 1));
        EXPECT_TRUE(point.x == row.to && point.y == row.to) << point.x << ' ' << point.y;
    }
}

// Windows reckons in short floating-point numbers, so near halves a hair is allowed.
TEST(Mapping, IsTheNearestWholeNumber)
{
    ForRandomMappings({.leastExtent = 100, .mostExtent = 3000, .mostCoordinate = 500},
                      [](const MappedNumber& number) {
                          EXPECT_LE(number.TwiceTheError(), 1.02 * number.Divisor()) << number.result;
                      });
}

TEST(Mapping, ConvertsAsManyPointsAsAreAsked)
{
    const MemoryContext dc;
    dc.Scale({1, 1}, {2, 2});
    POINT points[] = {{1, 2}, {3, 4}, {5, 6}};
    EXPECT_TRUE(LPtoDP(dc, points, 0));
    EXPECT_TRUE(LPtoDP(dc, points, 2));
    EXPECT_TRUE(points[0].x == 2 && points[0].y == 4 && points[1].x == 6 && points[1].y == 8);
    EXPECT_TRUE(points[2].x == 5 && points[2].y == 6);
}

} // namespace
