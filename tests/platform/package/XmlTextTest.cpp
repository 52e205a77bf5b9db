#include "package/XmlText.h"

#include <gtest/gtest.h>

#include <charconv>
#include <clocale>
#include <cmath>
#include <cstring>
#include <random>
#include <regex>

using namespace zek::office;

namespace {

// What a reader makes of stored text: _xHHHH_ becomes the unit, in one pass from the left.
std::string ReadStored(const std::string& text)
{
    static const std::regex code("_x([0-9A-Fa-f]{4})_");
    std::string out;
    std::sregex_iterator at(text.begin(), text.end(), code), end;
    std::size_t last = 0;
    for (; at != end; ++at) {
        out += text.substr(last, static_cast<std::size_t>(at->position()) - last);
        const auto unit = static_cast<unsigned>(std::stoul((*at)[1], nullptr, 16));
        if (unit < 0x80)
            out += static_cast<char>(unit);
        else
            out += {static_cast<char>(0xE0 | unit >> 12), static_cast<char>(0x80 | (unit >> 6 & 0x3F)),
                    static_cast<char>(0x80 | (unit & 0x3F))};
        last = static_cast<std::size_t>(at->position() + at->length());
    }
    return out + text.substr(last);
}

TEST(XmlText, StoresWhatXmlCannotHold)
{
    const struct {
        const char* label;
        std::string text, stored;
    } rows[] = {
        {"empty", "", ""},
        {"plain", "Beam 12", "Beam 12"},
        {"tab and line feed stay", "a\tb\nc", "a\tb\nc"},
        {"carriage return", "a\r\nb", "a_x000D_\nb"},
        {"controls", std::string("\0\x01\x1f", 3), "_x0000__x0001__x001F_"},
        {"delete is a character", "\x7f", "\x7f"},
        {"a code by itself", "_x0041_", "_x005F_x0041_"},
        {"small letters are a code", "_x00aF_", "_x005F_x00aF_"},
        {"two codes share an underscore", "_x0041_x0042_", "_x005F_x0041_x005F_x0042_"},
        {"a control completes a code", "_x0041\x01", "_x005F_x0041_x0001_"},
        {"no code: capital X", "_X0041_", "_X0041_"},
        {"no code: short", "_x041_", "_x041_"},
        {"no code: not hex", "_x00G1_", "_x00G1_"},
        {"no code: open", "_x0041", "_x0041"},
        {"underscores", "__x_", "__x_"},
        {"Korean", "\xEB\xB3\xB4", "\xEB\xB3\xB4"},
        {"beyond the first plane", "\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
        {"no characters", "\xEF\xBF\xBE\xEF\xBF\xBF", "_xFFFE__xFFFF_"},
        {"lone surrogate", "\xED\xA0\x80", "_xD800_"},
        {"not UTF-8", "a\xFF\xC0\x80z", "a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBDz"},
        {"cut sequence", "a\xE3\x81", "a\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"overlong", "\xE0\x80\xAF", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"beyond Unicode", "\xF4\x90\x80\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(StoredText(row.text), row.stored);
    }
}

TEST(XmlText, EscapesMarkup)
{
    std::string out = "x";
    AppendStoredText(out, "a<b>&\"c'_x0041_\r");
    EXPECT_EQ(out, "xa&lt;b&gt;&amp;&quot;c'_x005F_x0041__x000D_");
    EXPECT_EQ(StoredText("a<b>&\""), "a<b>&\"");
}

TEST(XmlText, EveryTextReadsBack)
{
    const unsigned seed = 7;
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const std::string pieces[] = {
        "_", "x", "0", "A", "f", "_x0041_", "\x01", "\r", "z", "\xED\xB0\x80", "\xEF\xBF\xBF"};
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (auto n = random() % 12; n > 0; --n)
            text += pieces[random() % std::size(pieces)];
        ASSERT_EQ(ReadStored(StoredText(text)), text);
    }
}

TEST(XmlText, PreservesOuterSpaceOnly)
{
    const struct {
        const char* text;
        bool needed;
    } rows[] = {{"", false},   {"a b", false}, {" a", true}, {"a ", true},
                {"\na", true}, {"a\t", true},  {" ", true}};
    for (const auto& row : rows)
        EXPECT_EQ(NeedsPreservedSpace(row.text), row.needed) << '[' << row.text << ']';
}

TEST(XmlText, WritesNumbers)
{
    const struct {
        double value;
        const char* text;
    } rows[] = {{0, "0"},
                {-0.0, "0"},
                {1, "1"},
                {-12, "-12"},
                {100000, "100000"},
                {1.5, "1.5"},
                {0.1, "0.1"},
                {1e15, "1000000000000000"},
                {1e22, "1e+22"},
                {-2.5e-9, "-2.5e-09"},
                {9007199254740992.0, "9007199254740992"}};
    for (const auto& row : rows)
        EXPECT_EQ(NumberText(row.value), row.text);
}

TEST(XmlText, EveryNumberReadsBackInEveryLocale)
{
    const char* locale = std::setlocale(LC_NUMERIC, "de_DE.UTF-8"); // null where it is not installed
    std::mt19937_64 random(3);
    for (int i = 0; i < 100000; ++i) {
        const std::uint64_t bits = random();
        double value = 0, back = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value))
            continue;
        const std::string text = NumberText(value);
        const auto end = std::from_chars(text.data(), text.data() + text.size(), back).ptr;
        ASSERT_EQ(end, text.data() + text.size()) << text;
        ASSERT_EQ(back, value);
    }
    std::setlocale(LC_NUMERIC, "C");
    RecordProperty("locale", locale ? locale : "C");
}

} // namespace
