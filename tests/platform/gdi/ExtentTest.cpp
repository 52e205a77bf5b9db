// How wide texts are: relations that hold with any font, since machines differ in those.
#include "MemoryContext.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

namespace {

SIZE ExtentOf(HDC dc, const std::string& text)
{
    SIZE size = {-1, -1};
    EXPECT_TRUE(GetTextExtentPoint32A(dc, text.data(), static_cast<int>(text.size()), &size));
    return size;
}

LONG WidthOf(HDC dc, const std::string& text)
{
    return ExtentOf(dc, text).cx;
}

HFONT MakeFont(LONG height, const char* face = "Arial")
{
    LOGFONTA font{};
    font.lfHeight = height;
    std::strcpy(font.lfFaceName, face);
    return CreateFontIndirectA(&font);
}

TEST(Extent, OfNothingIsNothing)
{
    const MemoryContext dc;
    SIZE size = {7, 7};
    EXPECT_TRUE(GetTextExtentPoint32A(dc, "text", 0, &size));
    EXPECT_TRUE(size.cx == 0 && size.cy == 0);
    size = {7, 7};
    EXPECT_FALSE(GetTextExtentPoint32A(dc, "text", -1, &size));
    EXPECT_TRUE(size.cx == 7 && size.cy == 7);
}

TEST(Extent, CountsTheBytesThatAreGiven)
{
    const MemoryContext dc;
    SIZE part{};
    ASSERT_TRUE(GetTextExtentPoint32A(dc, "abcdef", 3, &part));
    EXPECT_EQ(part.cx, WidthOf(dc, "abc"));
    EXPECT_GT(WidthOf(dc, std::string("a\0b", 3)), 0);
}

TEST(Extent, GrowsWithEveryCharacterAndAddsUp)
{
    const MemoryContext dc;
    for (const int stock : {SYSTEM_FONT, DEFAULT_GUI_FONT}) {
        SelectObject(dc, GetStockObject(stock));
        const std::string text = "C:\\Program Files\\...\\Model (1).inp";
        LONG before = 0;
        for (size_t length = 1; length <= text.size(); ++length) {
            SCOPED_TRACE(text.substr(0, length));
            const LONG width = WidthOf(dc, text.substr(0, length));
            EXPECT_GT(width, before);
            EXPECT_EQ(width, before + WidthOf(dc, text.substr(length - 1, 1)));
            before = width;
        }
    }
}

TEST(Extent, IsAsHighAsTheLine)
{
    const MemoryContext dc;
    for (const LONG height : {-10, -16, -40, 12, 16, 40}) {
        SCOPED_TRACE(height);
        const HFONT font = MakeFont(height);
        SelectObject(dc, font);
        TEXTMETRICA metrics{};
        ASSERT_TRUE(GetTextMetricsA(dc, &metrics));
        EXPECT_EQ(ExtentOf(dc, "Ag").cy, metrics.tmHeight);
        EXPECT_EQ(metrics.tmHeight, metrics.tmAscent + metrics.tmDescent);
        EXPECT_TRUE(metrics.tmAscent > 0 && metrics.tmDescent > 0 && metrics.tmAveCharWidth > 0);
        EXPECT_GE(metrics.tmMaxCharWidth, metrics.tmAveCharWidth);
        EXPECT_EQ(metrics.tmDigitizedAspectX, 96);
        // A negative height is that of the characters, a positive one that of the line.
        EXPECT_TRUE(height < 0 ? metrics.tmHeight >= -height : metrics.tmHeight <= height + 1);
        SelectObject(dc, GetStockObject(SYSTEM_FONT));
        EXPECT_TRUE(DeleteObject(font));
    }
}

TEST(Extent, FollowsTheFontsSize)
{
    const MemoryContext dc;
    const HFONT small = MakeFont(-12), large = MakeFont(-48);
    SelectObject(dc, small);
    const LONG smallWidth = WidthOf(dc, "Hello world");
    SelectObject(dc, large);
    const LONG largeWidth = WidthOf(dc, "Hello world");
    EXPECT_NEAR(static_cast<double>(largeWidth), 4.0 * smallWidth, 0.6 * smallWidth);
    SelectObject(dc, GetStockObject(SYSTEM_FONT));
    DeleteObject(small);
    DeleteObject(large);
}

TEST(Extent, OfADeletedFontThatIsStillSelected)
{
    const MemoryContext dc;
    const HFONT font = MakeFont(-40);
    SelectObject(dc, font);
    const LONG width = WidthOf(dc, "text");
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_EQ(WidthOf(dc, "text"), width);
}

TEST(Extent, ItalicsUnderlinesAndWeightsAreTold)
{
    const MemoryContext dc;
    LOGFONTA description{};
    description.lfHeight = -20;
    description.lfWeight = FW_BOLD;
    description.lfItalic = description.lfUnderline = description.lfStrikeOut = TRUE;
    std::strcpy(description.lfFaceName, "Arial");
    const HFONT font = CreateFontIndirectA(&description);
    SelectObject(dc, font);
    TEXTMETRICA metrics{};
    ASSERT_TRUE(GetTextMetricsA(dc, &metrics));
    EXPECT_EQ(metrics.tmWeight, FW_BOLD);
    EXPECT_TRUE(metrics.tmItalic && metrics.tmUnderlined && metrics.tmStruckOut);
    SelectObject(dc, GetStockObject(SYSTEM_FONT));
    DeleteObject(font);
}

// Run with the code page of Korean, in a process of its own. Syllables are as wide as one another.
TEST(Extent, OfDoubleByteCharactersIsThatOfCharacters)
{
    if (GetACP() != 949)
        GTEST_SKIP() << "another code page";
    const MemoryContext dc;
    const HFONT font = MakeFont(-40);
    SelectObject(dc, font);
    const LONG width = WidthOf(dc, "\xB0\xA1");
    EXPECT_GT(width, 0);
    std::string text;
    for (int second = 0xA1; second <= 0xFE; ++second) {
        const std::string syllable = {'\xB0', static_cast<char>(second)};
        EXPECT_EQ(WidthOf(dc, syllable), width) << second;
        text += syllable;
    }
    EXPECT_EQ(WidthOf(dc, text), width * static_cast<LONG>(text.size() / 2));
    EXPECT_EQ(WidthOf(dc, "m\xB0\xA1m"), width + 2 * WidthOf(dc, "m"));
    SelectObject(dc, GetStockObject(SYSTEM_FONT));
    DeleteObject(font);
}

// Heights and extents are logical units: the pixels grow with the scale, the units stay about the same.
TEST(Extent, IsInLogicalUnits)
{
    const MemoryContext dc;
    const std::string text = "The quick brown fox jumps over the lazy dog";
    const HFONT font = MakeFont(-100);
    SelectObject(dc, font);
    const SIZE plain = ExtentOf(dc, text);
    struct Row {
        const char* label;
        SIZE window, viewport;
    };
    static const Row kRows[] = {{"twice as large", {1, 1}, {2, 2}},
                                {"to the left and upwards", {1, 1}, {-2, -2}},
                                {"three times smaller", {3, 3}, {1, 1}}};
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.label);
        dc.Scale(row.window, row.viewport);
        SetViewportOrgEx(dc, 1000, 1000, nullptr);
        const SIZE scaled = ExtentOf(dc, text);
        EXPECT_NEAR(static_cast<double>(scaled.cx), static_cast<double>(plain.cx), 0.05 * plain.cx);
        EXPECT_NEAR(static_cast<double>(scaled.cy), static_cast<double>(plain.cy), 0.05 * plain.cy);
    }
    SelectObject(dc, GetStockObject(SYSTEM_FONT));
    DeleteObject(font);
}

} // namespace
