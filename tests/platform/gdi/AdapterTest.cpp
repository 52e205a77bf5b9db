// What only this adapter promises, or what Wine does otherwise than documented.
#include "RandomMappings.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(GdiAdapter, PointsThatDoNotFitStay)
{
    constexpr LONG kMost = std::numeric_limits<LONG>::max();
    const MemoryContext dc;
    dc.Scale({1, 1}, {1000, 1000});
    POINT points[] = {{1, 2}, {kMost, 3}};
    EXPECT_FALSE(LPtoDP(dc, points, 2));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ARITHMETIC_OVERFLOW));
    EXPECT_TRUE(points[0].x == 1 && points[1].x == kMost && points[1].y == 3);
    EXPECT_TRUE(DPtoLP(dc, points, 2));
    EXPECT_EQ(points[1].x, (kMost + 500LL) / 1000);

    EXPECT_TRUE(SetWindowOrgEx(dc, kMost, 0, nullptr));
    EXPECT_FALSE(OffsetWindowOrgEx(dc, 1, 0, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ARITHMETIC_OVERFLOW));
}

TEST(GdiAdapter, MappingIsExactAlsoForLargeNumbers)
{
    ForRandomMappings({.leastExtent = 1, .mostExtent = 3000, .mostCoordinate = 100000},
                      [](const MappedNumber& number) {
                          EXPECT_LE(number.TwiceTheError(), number.Divisor()) << number.result;
                      });
}

TEST(GdiAdapter, HalvesAreExactWithAnyScale)
{
    const MemoryContext dc;
    dc.Scale({26, 26}, {3, 3}); // 13 * 3 / 26 is one and a half; 3 / 26 is no binary fraction
    POINT points[] = {{13, -13}, {39, -39}};
    EXPECT_TRUE(LPtoDP(dc, points, 2));
    EXPECT_TRUE(points[0].x == 2 && points[0].y == -1 && points[1].x == 5 && points[1].y == -4);
}

TEST(GdiAdapter, BeepRefusesWhatNobodyHears)
{
    for (const DWORD frequency : {0u, 36u, 32768u}) {
        SCOPED_TRACE(frequency);
        EXPECT_FALSE(Beep(frequency, 1000000));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    }
    EXPECT_TRUE(Beep(37, 0) && Beep(32767, 0));
}

TEST(GdiAdapter, BeepTakesItsTime)
{
    const ULONGLONG start = GetTickCount64();
    EXPECT_TRUE(Beep(1200, 30));
    EXPECT_GE(GetTickCount64() - start, 29u);
}

TEST(GdiAdapter, CursorsOfModulesAreNotOffered)
{
    EXPECT_EQ(LoadCursorA(GetModuleHandleA(nullptr), IDC_ARROW), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_RESOURCE_NAME_NOT_FOUND));
    EXPECT_EQ(LoadCursorA(nullptr, "ARROW"), nullptr);
}

} // namespace
