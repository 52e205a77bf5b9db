// The mouse's cursor, and sounds.
#include <gtest/gtest.h>
#include <windows.h>

namespace {

TEST(Cursor, ShapesHaveOneHandleEach)
{
    const HCURSOR arrow = LoadCursorA(nullptr, IDC_ARROW), wait = LoadCursorA(nullptr, IDC_WAIT);
    ASSERT_TRUE(arrow && wait);
    EXPECT_NE(arrow, wait);
    EXPECT_EQ(LoadCursorA(nullptr, IDC_ARROW), arrow);
    for (LPCSTR shape : {IDC_IBEAM, IDC_CROSS, IDC_SIZEALL, IDC_NO, IDC_HAND, IDC_APPSTARTING})
        EXPECT_NE(LoadCursorA(nullptr, shape), nullptr);
    EXPECT_EQ(LoadCursorA(nullptr, MAKEINTRESOURCEA(1)), nullptr);
}

TEST(Cursor, SettingAnswersTheOneBefore)
{
    const HCURSOR arrow = LoadCursorA(nullptr, IDC_ARROW), wait = LoadCursorA(nullptr, IDC_WAIT);
    const HCURSOR before = SetCursor(arrow);
    EXPECT_EQ(SetCursor(wait), arrow);
    EXPECT_EQ(GetCursor(), wait);
    EXPECT_EQ(SetCursor(nullptr), wait);
    EXPECT_EQ(GetCursor(), nullptr);
    EXPECT_EQ(SetCursor(before), nullptr);
}

TEST(Cursor, IsHiddenByACount)
{
    const int count = ShowCursor(TRUE);
    EXPECT_EQ(ShowCursor(FALSE), count - 1);
    EXPECT_EQ(ShowCursor(FALSE), count - 2);
    EXPECT_EQ(ShowCursor(TRUE), count - 1);
}

TEST(Sound, Succeeds)
{
    EXPECT_TRUE(Beep(1200, 1));
    EXPECT_TRUE(MessageBeep(0));
    EXPECT_TRUE(MessageBeep(MB_ICONHAND));
}

} // namespace
