#include "StringTokenizer.h"

#include "MultibytePage.h"

#include <mbstring.h>

#include <gmock/gmock.h>
#include <random>
#include <string>
#include <vector>

namespace {

using Tokens = std::vector<std::string>;
using testing::ElementsAre;

Tokens All(StringTokenizer& tokenizer)
{
    Tokens tokens;
    for (int i = 0; i < tokenizer.GetTokenCount(); ++i)
        tokens.push_back(tokenizer.GetToken(i));
    return tokens;
}

Tokens Cut(std::string text, const char* delimiters)
{
    StringTokenizer tokenizer(text.data(), delimiters);
    return All(tokenizer);
}

Tokens CutByMbstok(std::string text, const std::string& delimiters)
{
    const auto* set = reinterpret_cast<const unsigned char*>(delimiters.c_str());
    Tokens tokens;
    auto* token = _mbstok(reinterpret_cast<unsigned char*>(text.data()), set);
    for (; token; token = _mbstok(nullptr, set))
        tokens.push_back(reinterpret_cast<const char*>(token));
    return tokens;
}

TEST(StringTokenizer, CutsAtRunsOfDelimiters)
{
    const struct {
        const char *label, *text, *delimiters;
        Tokens tokens;
    } rows[] = {{"runs and the end", "a,,b,", ",", {"a", "b"}},
                {"beginning", ",,a", ",", {"a"}},
                {"several delimiters", "1, 2;3", ",; ", {"1", "2", "3"}},
                {"no delimiter in it", "abc", ",", {"abc"}},
                {"no delimiters", "a,b", "", {"a,b"}},
                {"delimiters only", ";,;", ",;", {}},
                {"nothing", "", ",", {}},
                {"bytes above 127", "\xE9|\xE8", "|", {"\xE9", "\xE8"}}};
    const MultibytePage page(1252);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(Cut(row.text, row.delimiters), row.tokens);
    }
}

TEST(StringTokenizer, TakesNullForNothing)
{
    char text[] = "a b";
    StringTokenizer whole(text, nullptr), nothing(nullptr, " "), neither(nullptr, nullptr);
    EXPECT_THAT(All(whole), ElementsAre("a b"));
    EXPECT_EQ(nothing.GetTokenCount(), 0);
    EXPECT_EQ(neither.GetTokenCount(), 0);
}

TEST(StringTokenizer, KeepsDoubleByteCharactersWhole)
{
    const struct {
        int page;
        const char *text, *delimiters;
        Tokens tokens;
    } rows[] = {
        {932, "\x83\x5C|b\x95\x7C|c\\d", "|\\", {"\x83\x5C", "b\x95\x7C", "c", "d"}},
        {932,
         "a\x81\x41"
         "b\x81\x42"
         "c",
         "\x81\x41",
         {"a", "b\x81\x42"
               "c"}},
        {932, "a\x83|b", "|", {"a\x83|b"}},
        {949, "\xB0\xA1/\xB3\xAA/", "/", {"\xB0\xA1", "\xB3\xAA"}},
        {949, "\xB0\xA1\xA1\xB0", "\xA1\xA1", {"\xB0\xA1\xA1\xB0"}},
        {1252, "a\x83|b", "|", {"a\x83", "b"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.page << ' ' << row.text);
        const MultibytePage page(row.page);
        EXPECT_EQ(Cut(row.text, row.delimiters), row.tokens);
    }
}

TEST(StringTokenizer, CutsWhereMbstokCuts)
{
    static constexpr char kBytes[] = "ab,;|\\ \x81\x41\x83\x5C\xB0\xA1\xFE\xFF";
    std::mt19937 random(20261121);
    const auto some = [&random](unsigned most) {
        std::string text(random() % most, ' ');
        for (char& byte : text)
            byte = kBytes[random() % (sizeof kBytes - 1)];
        return text;
    };
    for (int i = 0; i < 4000; ++i) {
        const MultibytePage page(i % 2 ? 932 : 949);
        // A lead byte in front of the terminator is half a character, which run-time libraries read
        // variously.
        const std::string text = some(30) + 'z', delimiters = some(4) + ',';
        ASSERT_EQ(Cut(text, delimiters.c_str()), CutByMbstok(text, delimiters))
            << testing::PrintToString(text) << testing::PrintToString(delimiters);
    }
}

TEST(StringTokenizer, LeavesTheTextAndTheThreadsTokensAlone)
{
    unsigned char outer[] = "1 2:3 4";
    const auto* first = _mbstok(outer, reinterpret_cast<const unsigned char*>(":"));
    std::string text(reinterpret_cast<const char*>(first));
    StringTokenizer inner(text.data(), " ");
    EXPECT_EQ(text, "1 2");
    text = "xxx";
    EXPECT_THAT(All(inner), ElementsAre("1", "2"));
    const auto* second = _mbstok(nullptr, reinterpret_cast<const unsigned char*>(":"));
    EXPECT_STREQ(reinterpret_cast<const char*>(second), "3 4");
}

TEST(StringTokenizer, CopiesHaveTokensOfTheirOwn)
{
    char text[] = "a b";
    StringTokenizer copy(text, ",");
    {
        StringTokenizer original(text, " ");
        copy = original;
        EXPECT_NE(copy.GetToken(1), original.GetToken(1));
    }
    EXPECT_THAT(All(copy), ElementsAre("a", "b"));
}

TEST(StringTokenizer, TakesManyTokens)
{
    std::string text;
    for (int i = 0; i < 100'000; ++i)
        text += std::to_string(i) + "\r\n";
    StringTokenizer tokenizer(text.data(), "\n\r");
    ASSERT_EQ(tokenizer.GetTokenCount(), 100'000);
    EXPECT_STREQ(tokenizer.GetToken(99'999), "99999");
}

} // namespace
