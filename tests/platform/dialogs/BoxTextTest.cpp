// Message boxes with texts of several lines.
#include "BoxLook.h"

#include <gtest/gtest.h>

TEST(BoxTexts, AreSeen)
{
    for (const std::string& text : {std::string(), std::string("&text"), Repeated("some words ", 100),
                                    Repeated("some words ", 10) + Repeated("\nline", 20)}) {
        SCOPED_TRACE(text);
        ExpectAllIsSeen(LookOf(text));
    }
}

TEST(BoxTexts, AreWrapped)
{
    const BoxLook line = LookOf("m");
    for (const std::string& text : {Repeated("mmm mmm ", 200), Repeated("mmm\tmmm\t", 100)}) {
        SCOPED_TRACE(text);
        const BoxLook look = LookOf(text);
        EXPECT_GE(Height(look.label), 3 * Height(line.label));
        EXPECT_LT(Width(look.label), 100 * Width(line.label));
    }
}

TEST(BoxTexts, HaveRoomForTheirTabs)
{
    const auto widthOf = [](const std::string& text) { return Width(LookOf(text).label); };
    const LONG plain = widthOf("12345678901234567890123456789012345678901234567890");
    EXPECT_LT(plain, widthOf("1\t2\t3\t4\t5\t6\t7\t8\t9"));
    EXPECT_EQ(Height(LookOf("1").label), Height(LookOf("1\t2\t3").label));
}

TEST(BoxTexts, LineEndsCountOnce)
{
    const LONG three = Height(LookOf("a\nb\nc").label);
    EXPECT_EQ(three, Height(LookOf("a\r\nb\r\nc").label));
    EXPECT_LT(Height(LookOf("abc").label), three);
}
