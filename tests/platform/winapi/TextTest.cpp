// Code pages and multibyte texts. The pages are named, so that the machine's own does not matter.
#include <gtest/gtest.h>
#include <mbctype.h>
#include <mbstring.h>
#include <windows.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

using Wide = std::basic_string<WCHAR>;
using Units = std::vector<unsigned>;

Units UnitsOf(UINT page, DWORD flags, const std::string& text)
{
    WCHAR wide[64];
    const int count = MultiByteToWideChar(page, flags, text.data(), static_cast<int>(text.size()), wide, 64);
    return Units(wide, wide + count);
}

std::string BytesOf(UINT page, DWORD flags, const Units& units)
{
    const Wide wide(units.begin(), units.end());
    char text[64];
    const int count = WideCharToMultiByte(page, flags, wide.data(), static_cast<int>(wide.size()), text, 64,
                                          nullptr, nullptr);
    return std::string(text, static_cast<size_t>(count));
}

TEST(WinapiText, CodePagesBothWays)
{
    const struct {
        UINT page;
        std::string text;
        Units units;
    } rows[] = {
        {949, "a\xb0\xa1z", {'a', 0xac00, 'z'}},
        {949, "\x81\x41", {0xac02}},
        {949, "\xc9\xa1", {0xe000}},
        {932, "\x83\x5c\\", {0x30bd, '\\'}},
        {932, "\x81\x60", {0xff5e}},
        {932, "\xb1", {0xff71}},
        {936, "\xc4\xe3", {0x4f60}},
        {1252, "\x80\xe9\x81", {0x20ac, 0xe9, 0x81}},
        {65001, "\x7f\xc2\x80\xed\x9f\xbf\xee\x80\x80", {0x7f, 0x80, 0xd7ff, 0xe000}},
        {65001, "\xf0\x9f\x98\x80!", {0xd83d, 0xde00, '!'}},
        {65001, std::string("a\0b", 3), {'a', 0, 'b'}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.page << " " << testing::PrintToString(row.text));
        EXPECT_EQ(UnitsOf(row.page, MB_ERR_INVALID_CHARS, row.text), row.units);
        EXPECT_EQ(BytesOf(row.page, 0, row.units), row.text);
    }
}

TEST(WinapiText, InvalidInput)
{
    const struct {
        UINT page;
        const char* text;
        Units units;
    } rows[] = {
        {65001, "\xff", {0xfffd}},
        {65001, "\xc0\x80", {0xfffd, 0xfffd}},
        {65001, "\xe2\x82z", {0xfffd, 'z'}},
        {65001, "a\x80z", {'a', 0xfffd, 'z'}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.text));
        EXPECT_EQ(UnitsOf(row.page, 0, row.text), row.units);
        SetLastError(0);
        EXPECT_EQ(UnitsOf(row.page, MB_ERR_INVALID_CHARS, row.text), Units());
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_UNICODE_TRANSLATION));
    }
    EXPECT_EQ(BytesOf(65001, 0, {0xd800, 'x'}), "\xef\xbf\xbdx") << "half a pair of surrogates";
    EXPECT_EQ(BytesOf(65001, WC_ERR_INVALID_CHARS, {'x', 0xdc00}), "");
}

TEST(WinapiText, WhatACodePageLacks)
{
    const struct {
        const char* label;
        UINT page;
        DWORD flags;
        Units units;
        const char* fallback;
        const char* text;
        BOOL used;
    } rows[] = {
        {"no counterpart", 1252, 0, {'a', 0x4e00}, nullptr, "a?", TRUE},
        {"fallback given", 1252, 0, {'a', 0x4e00}, "#", "a#", TRUE},
        {"all there", 1252, 0, {0xe9}, nullptr, "\xe9", FALSE},
        {"full width, best fit", 1252, 0, {0xff21}, nullptr, "A", FALSE},
        {"full width, no best fit", 1252, WC_NO_BEST_FIT_CHARS, {0xff21}, nullptr, "?", TRUE},
        {"accent, best fit", 1252, 0, {0x100}, nullptr, "A", FALSE},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const Wide wide(row.units.begin(), row.units.end());
        char text[8] = "";
        BOOL used = 7;
        const int count = WideCharToMultiByte(row.page, row.flags, wide.data(), static_cast<int>(wide.size()),
                                              text, 8, row.fallback, &used);
        EXPECT_EQ(std::string(text, static_cast<size_t>(count)), row.text);
        EXPECT_EQ(used, row.used);
    }
}

TEST(WinapiText, ConversionBuffersAndArguments)
{
    WCHAR wide[8];
    for (WCHAR& unit : wide)
        unit = '#';
    EXPECT_EQ(MultiByteToWideChar(949, 0, "a\xb0\xa1", -1, nullptr, 0), 3) << "the terminator counts";
    EXPECT_EQ(MultiByteToWideChar(949, 0, "a\xb0\xa1", 3, wide, 2), 2);
    EXPECT_EQ(wide[2], '#');
    EXPECT_EQ(MultiByteToWideChar(949, 0, "abc", -1, wide, 3), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(wide[3], '#');
    const WCHAR text[] = {'a', 0xac00, 0};
    char bytes[8] = "#######";
    EXPECT_EQ(WideCharToMultiByte(949, 0, text, -1, nullptr, 0, nullptr, nullptr), 4);
    EXPECT_EQ(WideCharToMultiByte(949, 0, text, 2, bytes, 3, nullptr, nullptr), 3);
    EXPECT_EQ(bytes[3], '#');
    EXPECT_EQ(WideCharToMultiByte(949, 0, text, -1, bytes, 3, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));

    EXPECT_EQ(MultiByteToWideChar(949, 0, "a", 0, wide, 8), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(MultiByteToWideChar(54321, 0, "a", 1, wide, 8), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST(WinapiText, EveryCharacterOfAPageComesBack)
{
    for (const UINT page : {949u, 932u, 936u, 1252u}) {
        SCOPED_TRACE(page);
        size_t characters = 0;
        for (unsigned code = 1; code < 0x10000; ++code) {
            const auto lead = static_cast<BYTE>(code >> 8);
            if (code > 0xff ? !IsDBCSLeadByteEx(page, lead)
                            : IsDBCSLeadByteEx(page, static_cast<BYTE>(code)) != 0)
                continue;
            std::string text(code > 0xff ? 1 : 0, static_cast<char>(lead));
            text += static_cast<char>(code);
            const Units units = UnitsOf(page, MB_ERR_INVALID_CHARS, text);
            if (units.size() != 1)
                continue;
            ++characters;
            // Some characters stand at two places; then the other place is the way back.
            EXPECT_EQ(UnitsOf(page, MB_ERR_INVALID_CHARS, BytesOf(page, 0, units)), units)
                << std::hex << code;
        }
        EXPECT_GT(characters, page == 1252 ? 250u : 7000u);
    }
}

TEST(WinapiText, LeadBytes)
{
    const struct {
        UINT page;
        int first, last, count;
    } rows[] = {{949, 0x81, 0xfe, 126},
                {936, 0x81, 0xfe, 126},
                {932, 0x81, 0xfc, 60},
                {1252, 0, 0, 0},
                {65001, 0, 0, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.page);
        int count = 0;
        for (int byte = 0; byte < 256; ++byte)
            count += IsDBCSLeadByteEx(row.page, static_cast<BYTE>(byte)) != 0;
        EXPECT_EQ(count, row.count);
        if (count) {
            EXPECT_TRUE(IsDBCSLeadByteEx(row.page, static_cast<BYTE>(row.first)));
            EXPECT_TRUE(IsDBCSLeadByteEx(row.page, static_cast<BYTE>(row.last)));
        }
        CPINFO info;
        EXPECT_TRUE(GetCPInfo(row.page, &info));
        EXPECT_EQ(info.LeadByte[0], row.first);
        EXPECT_EQ(info.MaxCharSize, row.count ? 2u : row.page == 65001 ? 4u : 1u);
    }
}

const unsigned char* U(const char* text)
{
    return reinterpret_cast<const unsigned char*>(text);
}

class WinapiMultibyte : public testing::Test
{
protected:
    WinapiMultibyte() : m_before(_getmbcp()) {}
    ~WinapiMultibyte() override { _setmbcp(m_before); }

private:
    int m_before;
};

int Sign(int value)
{
    return (value > 0) - (value < 0);
}

TEST_F(WinapiMultibyte, Comparisons)
{
    const struct {
        int page;
        const char *a, *b;
        int exact, folded;
    } rows[] = {
        {0, "", "", 0, 0},
        {0, "a", "", 1, 1},
        {0, "abc", "ABC", 1, 0},
        {0, "_", "a", -1, -1},
        {949, "\xb0\xa1", "\xb0\xa2", -1, -1},
        {949, "\xa3\xc1", "\xa3\xe1", -1, 0},
        {949, "\xb0\xa1x", "\xb0\xa1X", 1, 0},
        {932, "\x83\x61", "\x83\x41", 1, 1},
        {932, "\xb1", "\x83\x41", -1, -1},
        {932, "\x82\x60", "\x82\x81", -1, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.page << " " << testing::PrintToString(row.a) << " "
                                        << testing::PrintToString(row.b));
        ASSERT_EQ(_setmbcp(row.page), 0);
        EXPECT_EQ(Sign(_mbscmp(U(row.a), U(row.b))), row.exact);
        EXPECT_EQ(Sign(_mbscmp(U(row.b), U(row.a))), -row.exact);
        EXPECT_EQ(Sign(_mbsicmp(U(row.a), U(row.b))), row.folded);
    }
    _setmbcp(932);
    EXPECT_EQ(_mbsncmp(U("\x83\x41\x42x"), U("\x83\x41\x42y"), 2), 0);
    EXPECT_EQ(Sign(_mbsncmp(U("\x83\x41\x42x"), U("\x83\x41\x42y"), 3)), -1);
    EXPECT_EQ(_mbsnicmp(U("\x83\x41"
                          "ABX"),
                        U("\x83\x41"
                          "aby"),
                        3),
              0);
}

// 83 5C ends in a backslash, 95 7C in a bar.
TEST_F(WinapiMultibyte, SecondBytesAreNeverFound)
{
    ASSERT_EQ(_setmbcp(932), 0);
    const auto* path = U("x\x83\x5c\\y\x95\x7cz");
    EXPECT_EQ(_mbschr(path, '\\'), path + 3);
    EXPECT_EQ(_mbsrchr(path, '\\'), path + 3);
    EXPECT_EQ(_mbschr(path, '|'), nullptr);
    EXPECT_EQ(_mbschr(path, 0x957c), path + 5);
    EXPECT_EQ(_mbschr(path, 0), path + 8);
    EXPECT_EQ(_mbspbrk(path, U("|y")), path + 4);
    EXPECT_EQ(_mbsstr(path, U("")), path);
    EXPECT_EQ(_mbsstr(path, U("q")), nullptr);
    EXPECT_EQ(_mbsspn(path, U("x\x83\x5c")), 3u);
    EXPECT_EQ(_mbslen(path), 6u);
    EXPECT_EQ(_mbsinc(path + 1), path + 3);
    EXPECT_EQ(_mbsdec(path, path + 3), path + 1);
    EXPECT_EQ(_mbsdec(path, path), nullptr);
    EXPECT_EQ(_mbsnextc(path + 1), 0x835cu);
    EXPECT_NE(_ismbslead(path, path + 1), 0);
    EXPECT_EQ(_ismbslead(path, path + 2), 0);
    EXPECT_NE(_ismbstrail(path, path + 2), 0);
    EXPECT_EQ(_ismbstrail(path, path + 3), 0);
    EXPECT_NE(_ismbblead(0x83), 0);
    EXPECT_EQ(_ismbblead(0x20), 0);
    EXPECT_NE(_ismbbtrail(0x5c), 0);
    EXPECT_EQ(_ismbbtrail(0x20), 0);
}

TEST_F(WinapiMultibyte, Tokens)
{
    ASSERT_EQ(_setmbcp(932), 0);
    unsigned char text[] = "|\x83\x5c|b\x95\x7c||c\\d|";
    const auto* bars = U("|");
    EXPECT_STREQ(reinterpret_cast<const char*>(_mbstok(text, bars)), "\x83\x5c");
    EXPECT_STREQ(reinterpret_cast<const char*>(_mbstok(nullptr, bars)), "b\x95\x7c");
    EXPECT_STREQ(reinterpret_cast<const char*>(_mbstok(nullptr, bars)), "c\\d");
    EXPECT_EQ(_mbstok(nullptr, bars), nullptr);
    EXPECT_EQ(_mbstok(nullptr, bars), nullptr);
}

TEST_F(WinapiMultibyte, ChangesInPlace)
{
    const struct {
        int page;
        unsigned char* (*change)(unsigned char*);
        const char *before, *after;
    } rows[] = {
        {932, _mbsupr, "a\x83\x61z", "A\x83\x61Z"},
        {932, _mbslwr, "A\x83\x41Z", "a\x83\x41z"},
        {932, _mbsrev,
         "a\x83\x5c"
         "bc",
         "cb\x83\x5c"
         "a"},
        {949, _mbslwr, "\xa3\xc1", "\xa3\xe1"},
        {949, _mbsrev, "\xb0\xa1\xb0\xa2", "\xb0\xa2\xb0\xa1"},
        {0, _mbsrev, "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.before));
        ASSERT_EQ(_setmbcp(row.page), 0);
        char text[16];
        std::strcpy(text, row.before);
        EXPECT_STREQ(reinterpret_cast<char*>(row.change(reinterpret_cast<unsigned char*>(text))), row.after);
    }
}

TEST(WinapiText, NumbersToText)
{
    char buffer[72];
    EXPECT_STREQ(_itoa(-2147483647 - 1, buffer, 10), "-2147483648");
    EXPECT_STREQ(_itoa(-1, buffer, 16), "ffffffff");
    EXPECT_STREQ(_itoa(35, buffer, 36), "z");
    EXPECT_STREQ(_itoa(-1, buffer, 2), "11111111111111111111111111111111");
    EXPECT_EQ(_atoi64(" -9223372036854775808x"), (-9223372036854775807LL - 1));
    EXPECT_EQ(_stricmp("abc", "ABD"), -1);
    EXPECT_EQ(_strnicmp("abc", "ABD", 2), 0);
}

TEST(WinapiText, SystemLanguageIsFourHexadecimalDigits)
{
    char text[32] = "";
    EXPECT_EQ(GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, LOCALE_ILANGUAGE, text, sizeof text), 5);
    EXPECT_EQ(std::strspn(text, "0123456789abcdefABCDEF"), 4u);
    EXPECT_EQ(GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, LOCALE_ILANGUAGE, nullptr, 0), 5);
    EXPECT_EQ(GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, LOCALE_ILANGUAGE, text, 4), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(GetLocaleInfoA(0x0412, LOCALE_ILANGUAGE, text, sizeof text), 5);
    EXPECT_STREQ(text, "0412");
}

} // namespace
