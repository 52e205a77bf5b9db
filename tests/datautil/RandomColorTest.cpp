#include "RandomColor.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <iterator>
#include <vector>

namespace {

// Dark colours, the four shades that are not of the first sixteen, then the bright ones; red in the low byte.
constexpr int kPalette[] = {0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000,
                            0xC0C0C0, 0xC0DCC0, 0xF0CAA6, 0xF0FBFF, 0xA4A0A0, 0x808080, 0x0000FF,
                            0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};
constexpr int kSize = static_cast<int>(std::size(kPalette));

std::vector<int> Stretch(int first, int count)
{
    std::vector<int> run;
    for (int i = 0; i < count; ++i)
        run.push_back(kPalette[(first + i) % kSize]);
    return run;
}

std::vector<int> Values(const CArray<int, int>& array)
{
    return {array.GetData(), array.GetData() + array.GetSize()};
}

// The next colour by number that std::rand() will choose.
int Expected(unsigned seed)
{
    std::srand(seed);
    const int first = std::rand() % kSize;
    std::srand(seed);
    return first;
}

TEST(RandomColor, TheNextColourGoesRoundThePalette)
{
    CRandomColor colors;
    for (int i = 0; i < kSize; ++i)
        EXPECT_EQ(colors.GetNextRandomColor(kPalette[i]), kPalette[(i + 1) % kSize]) << i;
    for (const int other : {0x123456, -1, 0x01000000, 0x0A0A0A})
        EXPECT_EQ(colors.GetNextRandomColor(other), 0x000000) << other;
}

TEST(RandomColor, RandomColoursFollowRand)
{
    CRandomColor colors;
    for (unsigned seed = 1; seed < 40; ++seed) {
        const int first = Expected(seed);
        EXPECT_EQ(colors.GetRandomColor(), kPalette[first]) << seed;
    }
}

TEST(RandomColor, ListsAreRunsOfThePalette)
{
    CRandomColor colors;
    for (const int count : {-5, 0, 1, 2, 19, 20, 25, 60}) {
        SCOPED_TRACE(count);
        const std::size_t entries = count > 0 ? static_cast<std::size_t>(count) : 0;
        CArray<int, int> list;
        list.SetSize(7);
        const int first = Expected(7);
        colors.GetRandomColorList(list, count);
        EXPECT_EQ(Values(list), Stretch(first, count));
        colors.GetNextRandomColorList(list, count, 0xFFFF00);
        EXPECT_EQ(Values(list), Stretch(kSize - 1, count));
        colors.GetNextRandomColorList(list, count, 0xFFFFFF);
        EXPECT_EQ(Values(list), Stretch(0, count));
        colors.GetNextRandomColorList(list, count, 0x123456);
        EXPECT_EQ(Values(list).size(), entries);
        EXPECT_EQ(Values(list), Stretch(0, count));
    }
}

TEST(RandomColor, AtAPointerOneEntryIsWrittenAtMost)
{
    CRandomColor colors;
    for (const int count : {-1, 0, 1, 2, 25}) {
        SCOPED_TRACE(count);
        const bool writes = count > 0;
        int list[3] = {-7, -7, -7};
        const int first = Expected(11);
        colors.GetRandomColorList(list + 1, count);
        EXPECT_THAT(list, testing::ElementsAre(-7, writes ? kPalette[first] : -7, -7));
        list[1] = -7;
        colors.GetNextRandomColorList(list + 1, count, 0x0000FF);
        EXPECT_THAT(list, testing::ElementsAre(-7, writes ? 0x00FF00 : -7, -7));
    }
}

TEST(RandomColor, CopiesHaveTheSamePalette)
{
    CRandomColor first, second;
    second = first;
    const CRandomColor third(second);
    CRandomColor fourth = third;
    EXPECT_EQ(fourth.GetNextRandomColor(0x0000FF), 0x00FF00);
}

} // namespace
