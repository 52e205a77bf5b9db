// Fonts as objects: made, described, selected, deleted.
#include "MemoryContext.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

LOGFONTA Description(LONG height, const char* face)
{
    LOGFONTA font{};
    font.lfHeight = height;
    font.lfWeight = FW_BOLD;
    font.lfItalic = TRUE;
    std::strcpy(font.lfFaceName, face);
    return font;
}

TEST(Font, TellsHowItWasMade)
{
    const LOGFONTA asked = Description(-13, "Arial");
    const HFONT font = CreateFontIndirectA(&asked);
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(GetObjectA(font, 0, nullptr), static_cast<int>(sizeof(LOGFONTA)));
    LOGFONTA told{};
    EXPECT_EQ(GetObjectA(font, sizeof told, &told), static_cast<int>(sizeof told));
    EXPECT_TRUE(told.lfHeight == -13 && told.lfWeight == FW_BOLD && told.lfItalic == TRUE);
    EXPECT_STREQ(told.lfFaceName, "Arial");
    EXPECT_TRUE(DeleteObject(font));
}

TEST(Font, IsDescribedAsFarAsTheBufferReaches)
{
    const LOGFONTA asked = Description(-13, "Arial");
    const HFONT font = CreateFontIndirectA(&asked);
    char buffer[100];
    std::memset(buffer, '#', sizeof buffer);
    EXPECT_EQ(GetObjectA(font, 20, buffer), 20);
    LONG height = 0;
    std::memcpy(&height, buffer, sizeof height);
    EXPECT_EQ(height, -13);
    EXPECT_EQ(buffer[20], '#');
    EXPECT_EQ(GetObjectA(font, 100, buffer), static_cast<int>(sizeof(LOGFONTA)));
    EXPECT_EQ(buffer[sizeof(LOGFONTA)], '#');
    EXPECT_EQ(GetObjectA(font, 0, buffer), 0);
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_EQ(GetObjectA(font, 60, buffer), 0);
}

TEST(Font, TakesItsArgumentsOneByOne)
{
    const HFONT font =
        CreateFontA(-20, 5, 0, 0, 300, TRUE, FALSE, TRUE, HANGUL_CHARSET, OUT_DEFAULT_PRECIS,
                    CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, FIXED_PITCH | FF_MODERN, "Courier New");
    LOGFONTA told{};
    ASSERT_EQ(GetObjectA(font, sizeof told, &told), static_cast<int>(sizeof told));
    EXPECT_TRUE(told.lfHeight == -20 && told.lfWidth == 5 && told.lfWeight == 300);
    EXPECT_TRUE(told.lfItalic && !told.lfUnderline && told.lfStrikeOut);
    EXPECT_TRUE(told.lfCharSet == HANGUL_CHARSET && told.lfPitchAndFamily == (FIXED_PITCH | FF_MODERN));
    EXPECT_STREQ(told.lfFaceName, "Courier New");
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_EQ(CreateFontIndirectA(nullptr), nullptr);
}

TEST(Font, OfTheStockStays)
{
    struct Row {
        int index;
        LONG height;
        const char* face;
    };
    static const Row kRows[] = {{ANSI_VAR_FONT, 12, "MS Sans Serif"},
                                {SYSTEM_FONT, 16, "System"},
                                {SYSTEM_FIXED_FONT, 16, "Courier"},
                                {DEFAULT_GUI_FONT, -11, "MS Shell Dlg"}};
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.face);
        const HGDIOBJ font = GetStockObject(row.index);
        LOGFONTA told{};
        EXPECT_TRUE(DeleteObject(font));
        ASSERT_EQ(GetObjectA(font, sizeof told, &told), static_cast<int>(sizeof told));
        EXPECT_EQ(told.lfHeight, row.height);
        EXPECT_STREQ(told.lfFaceName, row.face);
        EXPECT_EQ(GetStockObject(row.index), font);
    }
    EXPECT_EQ(GetStockObject(-1), nullptr);
    EXPECT_EQ(GetStockObject(9), nullptr);
}

TEST(Font, IsSelectedInPlaceOfAnother)
{
    const MemoryContext dc;
    const LOGFONTA asked = Description(-30, "Arial");
    const HFONT font = CreateFontIndirectA(&asked);
    EXPECT_EQ(SelectObject(dc, font), GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), font);
    EXPECT_EQ(SelectObject(dc, nullptr), nullptr);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), font);
    EXPECT_EQ(SelectObject(dc, GetStockObject(SYSTEM_FONT)), font);
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_FALSE(DeleteObject(font));
    EXPECT_EQ(SelectObject(dc, font), nullptr);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), GetStockObject(SYSTEM_FONT));
}

} // namespace
