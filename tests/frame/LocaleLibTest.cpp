#include <LocaleLib.h>

#include <gtest/gtest.h>

#include <string>

namespace {

class LocaleLib : public testing::Test
{
protected:
    void TearDown() override { CLocaleLib::csLocale = CLocaleLib::GetSystemLocale(); }
};

TEST_F(LocaleLib, TellsLanguagesByTheTextOfTheMoment)
{
    const struct {
        const char* text;
        int korean, english, japanese, chinese;
    } rows[] = {
        {"0412", 1, 0, 0, 0}, {"0409", 0, 1, 0, 0},  {"0411", 0, 0, 1, 0},     {"0804", 0, 0, 0, 1},
        {"0404", 0, 0, 0, 0}, {"412", 0, 0, 0, 0},   {"00000412", 0, 0, 0, 0}, {"0412 ", 0, 0, 0, 0},
        {"", 0, 0, 0, 0},     {" 0412", 0, 0, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        CLocaleLib::csLocale = row.text;
        EXPECT_EQ(CLocaleLib::IsKorean(), row.korean);
        EXPECT_EQ(CLocaleLib::IsEnglish(), row.english);
        EXPECT_EQ(CLocaleLib::IsJapanese(), row.japanese);
        EXPECT_EQ(CLocaleLib::IsChinese(), row.chinese);
    }
}

// The system's numbers, worded by another of its functions.
TEST_F(LocaleLib, FollowsTheSystem)
{
    char expected[8];
    std::snprintf(expected, sizeof expected, "%04x", GetSystemDefaultLangID());
    EXPECT_EQ(CLocaleLib::GetSystemLocale(), expected);
    EXPECT_EQ(CLocaleLib::csLocale, expected);
    EXPECT_EQ(CLocaleLib::bKorean, std::string(expected) == "0412" ? 1 : 0);
    EXPECT_EQ(CLocaleLib::GetUserDefaultUILanguage(), ::GetUserDefaultUILanguage());
}

} // namespace
