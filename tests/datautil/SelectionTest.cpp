#include "NumericOptimizer.h"
#include "Numbers.h"

#include <algorithm>
#include <cstring>
#include <gmock/gmock.h>
#include <optional>
#include <set>
#include <string>

using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

constexpr LONG kSmallest = -2147483647 - 1;
constexpr LONG kLargest = 2147483647;

struct Item {
    std::int64_t from, to, step;
};

// Reads a selection as its users would describe it: items of a number, maybe "to" a number, then maybe "by" a
// number, blanks anywhere between.
class Reader
{
public:
    explicit Reader(std::string text) : m_text(std::move(text)) {}

    // Nothing for a text that is not well formed.
    std::optional<std::vector<Item>> Items()
    {
        std::vector<Item> items;
        for (SkipBlanks(); m_at < m_text.size(); SkipBlanks()) {
            Item item = {0, 0, 1};
            if (!Number(item.from))
                return {};
            item.to = item.from;
            if (Word("to") && (!Number(item.to) || (Word("by") && !Number(item.step))))
                return {};
            items.push_back(item);
        }
        return items;
    }

private:
    void SkipBlanks() { m_at = std::min(m_text.find_first_not_of(" ,\t\r\n", m_at), m_text.size()); }

    bool Word(const char* word)
    {
        SkipBlanks();
        const auto is = [&](char letter) { return m_at < m_text.size() && (m_text[m_at] | 0x20) == letter; };
        if (!is(word[0]))
            return false;
        ++m_at;
        m_at += is(word[1]);
        return true;
    }

    bool Number(std::int64_t& value)
    {
        SkipBlanks();
        const bool negative = m_text[m_at] == '-';
        if (negative) {
            ++m_at;
            SkipBlanks();
        }
        const std::size_t end = std::min(m_text.find_first_not_of("0123456789", m_at), m_text.size());
        std::uint32_t wrapped = 0;
        for (std::size_t i = m_at; i < end; ++i)
            wrapped = wrapped * 10 + static_cast<std::uint32_t>(m_text[i] - '0');
        const bool good = end > m_at && m_text[end] != '-';
        m_at = end;
        value = static_cast<std::int32_t>(negative ? 0 - wrapped : wrapped);
        return good;
    }

    std::string m_text;
    std::size_t m_at = 0;
};

// Steps through each range and looks every number up.
NumberList Walk(const std::set<LONG>& base, const std::vector<Item>& items)
{
    NumberList selected;
    for (const Item& item : items) {
        for (std::int64_t v = item.from; item.step > 0 ? v <= item.to : item.step < 0 && v >= item.to;
             v += item.step) {
            if (v >= kSmallest && v <= kLargest && base.count(static_cast<LONG>(v)))
                selected.push_back(static_cast<LONG>(v));
        }
    }
    return selected;
}

NumberList Numbers(LONG from, LONG to)
{
    NumberList numbers;
    for (LONG number = from; number <= to; ++number)
        numbers.push_back(number);
    return numbers;
}

// The selection in the order of the text; nothing for a refusal, which must leave the output alone.
std::optional<NumberList> InOrder(NumberList base, const char* text)
{
    CArray<LONG, LONG> out;
    out.Add(-77);
    const int result =
        CNumericOptimizer().SelectNumByStrBase(base.data(), static_cast<LONG>(base.size()), text, out);
    EXPECT_EQ(out[0], -77);
    NumberList selected(out.GetData() + 1, out.GetData() + out.GetSize());
    if (result == 1)
        return selected;
    EXPECT_TRUE(selected.empty());
    return {};
}

// The selection of a text that is well formed, ascending and free of repeats.
NumberList Sorted(const NumberList& numbers, const char* text)
{
    CArray<UINT, UINT> base, out;
    EXPECT_EQ(CNumericOptimizer().SelectNumByStr(Fill(base, numbers), text, out), 1);
    return ListOf(out);
}

} // namespace

TEST(Selection, Tokens)
{
    const std::string longest(128, '0'), tooLong(129, '1');
    const std::string signedLongest = std::string("-").append(127, '0');
    const std::string signedTooLong = std::string("-  ").append(128, '0');
    const struct {
        const char* text;
        int pos, result, after, type, value;
    } rows[] = {{"", 0, 1, 0, 2, 99},
                {" 1", 0, 1, 1, 2, 99},
                {"\t", 0, 1, 1, 2, 99},
                {"\r", 0, 1, 1, 2, 99},
                {"\n", 0, 1, 1, 2, 99},
                {"12,", 0, 1, 2, 1, 12},
                {"x12", 1, 1, 3, 1, 12},
                {"- \t5t", 0, 1, 4, 1, -5},
                {"-", 0, 0, 0, 98, 99},
                {"--5", 0, 0, 0, 98, 99},
                {"1-5", 0, 0, 0, 98, 99},
                {",", 0, 0, 0, 98, 99},
                {"+5", 0, 0, 0, 98, 99},
                {"t", 0, 1, 1, 3, 99},
                {"To", 0, 1, 2, 3, 99},
                {"tt", 0, 1, 1, 3, 99},
                {"b", 0, 1, 1, 4, 99},
                {"BY", 0, 1, 2, 4, 99},
                {"bo", 0, 1, 1, 4, 99},
                {"o", 0, 0, 0, 98, 99},
                {"y", 0, 0, 0, 98, 99},
                {"2147483648", 0, 1, 10, 1, kSmallest},
                {"-4294967297", 0, 1, 11, 1, -1},
                {"99999999999999999999999", 0, 1, 23, 1, -159383553}, // wrapped digit by digit
                {longest.c_str(), 0, 1, 128, 1, 0},
                {tooLong.c_str(), 0, 0, 0, 98, 99},
                {signedLongest.c_str(), 0, 1, 128, 1, 0},
                {signedTooLong.c_str(), 0, 0, 0, 98, 99}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        int pos = row.pos, type = 98, value = 99;
        EXPECT_EQ(CNumericOptimizer().GetToken(row.text, pos, type, value), row.result);
        EXPECT_EQ(pos, row.after);
        EXPECT_EQ(type, row.type);
        EXPECT_EQ(value, row.value);
    }
}

TEST(Selection, NormalForm)
{
    const struct {
        const char *text, *normal;
        int result;
    } rows[] = {{"1 to 10 by 2, 15", "1t10b2 15", 1},
                {"", "", 1},
                {" ,\t,\r\n", "", 1},
                {"  007TO- 5B -1,,3", "7t-5b-1 3", 1},
                {"1t2 3b4", "1t2 3", 0}, // "by" without a range
                {"5to", "5t", 0},
                {"1to5by", "1t5b", 0},
                {"1to5by2to9", "1t5b2", 0},
                {"to5", "", 0},
                {"4294967295", "-1", 1},
                {"3000000000t3000000000", "-1294967296t-1294967296", 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const std::size_t room = std::strlen(row.text) + 3; // NUL, and a sign for each number beyond 31 bits
        std::string dst(room + 8, '#');
        EXPECT_EQ(CNumericOptimizer().StrCpyRemoveSpace(dst.data(), row.text), row.result);
        EXPECT_STREQ(dst.c_str(), row.normal);
        EXPECT_EQ(dst.substr(room), "########");
        std::string same = std::string(row.text) + "##";
        same[std::strlen(row.text)] = '\0';
        EXPECT_EQ(CNumericOptimizer().StrCpyRemoveSpace(same.data(), same.data()), row.result);
        EXPECT_STREQ(same.c_str(), row.normal);
    }
}

TEST(Selection, OrderedSortedAndUnique)
{
    const NumberList base = Numbers(1, 30);
    const char* const text = "1to10by3, 20 25to21by-2 7";
    EXPECT_THAT(*InOrder(base, text), ElementsAre(1, 4, 7, 10, 20, 25, 23, 21, 7));

    CNumericOptimizer optimizer;
    CArray<UINT, UINT> numbers, out;
    Fill(numbers, base);
    out.Add(99);
    EXPECT_EQ(optimizer.SelectNumByStr(numbers, text, out), 1);
    EXPECT_THAT(ListOf(out), ElementsAre(1, 4, 7, 10, 20, 21, 23, 25));
    EXPECT_EQ(optimizer.SelectNumByStrKeepSeq(numbers, text, out, 0), 1);
    EXPECT_THAT(ListOf(out), ElementsAre(1, 4, 7, 10, 20, 25, 23, 21, 7));
    EXPECT_EQ(optimizer.SelectNumByStrKeepSeq(numbers, text, out, 1), 1);
    EXPECT_THAT(ListOf(out), ElementsAre(1, 4, 7, 10, 20, 25, 23, 21));
    EXPECT_EQ(optimizer.SelectNumByStr(numbers, "29 3", numbers), 1); // the output may be the base
    EXPECT_THAT(ListOf(numbers), ElementsAre(3, 29));
}

TEST(Selection, RefusalsAndEmptyBases)
{
    CNumericOptimizer optimizer;
    LONG base[] = {1, 2, 3}, picked[4] = {7, 7, 7, 7}, count = 5;
    CArray<UINT, UINT> numbers, none, out;
    Fill(numbers, {1, 2, 3});
    for (const char* const text : {"1-3", "1to", "1to3by", "1to3by1to2", "2 x", "1 to 3 by 1 by 1"}) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(InOrder(Numbers(1, 3), text));
        count = 5;
        EXPECT_EQ(optimizer.SelectNumByStr(base, 3, text, picked, count), 0);
        EXPECT_EQ(count, 0);
        EXPECT_THAT(picked, ElementsAre(7, 7, 7, 7));
        Fill(out, {9});
        EXPECT_EQ(optimizer.SelectNumByStr(numbers, text, out), 0);
        EXPECT_EQ(out.GetSize(), 0);
        Fill(out, {9});
        EXPECT_EQ(optimizer.SelectNumByStrKeepSeq(numbers, text, out, 1), 0);
        EXPECT_EQ(out.GetSize(), 0);

        EXPECT_THAT(*InOrder({}, text), ElementsAre()); // an empty base is told before the text is read
        EXPECT_EQ(optimizer.SelectNumByStr(base, 0, text, picked, count), 1);
        EXPECT_EQ(count, 0);
        Fill(out, {9});
        EXPECT_EQ(optimizer.SelectNumByStr(none, text, out), 1);
        EXPECT_EQ(out.GetSize(), 0);
        Fill(out, {9});
        EXPECT_EQ(optimizer.SelectNumByStrKeepSeq(none, text, out, 0), 1);
        EXPECT_EQ(out.GetSize(), 0);
    }
}

TEST(Selection, RangesAtTheBounds)
{
    const NumberList edges = {kSmallest, kSmallest + 1, -3, 0, 5, kLargest - 1, kLargest};
    const struct {
        const char* text;
        NumberList selected;
    } rows[] = {{"-2147483648to2147483647", edges},
                {"2147483647to-2147483648by-1", {edges.rbegin(), edges.rend()}},
                {"2147483646to2147483647by2147483647", {kLargest - 1}},
                {"-2147483648to2147483647by2147483647", {kSmallest, kLargest - 1}},
                {"2147483647to-2147483648by-2147483648", {kLargest}},
                {"5to1", {}},
                {"0to5by0", {}},
                {"-3 -3", {-3, -3}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_THAT(*InOrder(edges, row.text), ElementsAreArray(row.selected));
    }
    EXPECT_THAT(*InOrder(Numbers(1, 5), "5to1by-1"), ElementsAre(5, 4, 3, 2, 1));
    EXPECT_THAT(*InOrder({2, 2, 4, 4}, "1to4 4"), ElementsAre(2, 4, 4)); // a base with repeats
}

// Far wider than any base: stepping through them would take minutes.
TEST(Selection, WideRangesCostNoMoreThanTheBase)
{
    NumberList base = Numbers(1, 1000);
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += i % 2 ? "2147483647to-2147483648by-7 " : "-2147483648to2147483647by3 ";
    EXPECT_EQ(InOrder(base, text.c_str())->size(), 500U * (143 + 334));
}

TEST(Selection, EveryShortTextReadsAsTheGrammarSays)
{
    static const char kLetters[] = "01- tobyx,";
    const NumberList base = {-11, -10, -1, 0, 1, 10, 11, 100, 101, 110};
    const std::set<LONG> lookUp(base.begin(), base.end());
    std::vector<std::string> texts = {""};
    for (std::size_t begin = 0, length = 1; length <= 6; ++length) {
        const std::size_t end = texts.size();
        for (; begin < end; ++begin) {
            for (const char letter : std::string(kLetters))
                texts.push_back(texts[begin] + letter);
        }
    }
    for (const std::string& text : texts) {
        const auto items = Reader(text).Items();
        const auto selected = InOrder(base, text.c_str());
        ASSERT_EQ(selected.has_value(), items.has_value()) << '"' << text << '"';
        if (items) {
            ASSERT_EQ(*selected, Walk(lookUp, *items)) << '"' << text << '"';
        }
    }
}

TEST(Selection, RandomRangesReadAsTheGrammarSays)
{
    std::mt19937 random(27);
    for (int i = 0; i < 5000; ++i) {
        const NumberList base = Sieve(random, -60, 5 + Below(random, 95), 1 + Below(random, 100));
        std::string text;
        const auto number = [&] { return std::to_string(static_cast<int>(Below(random, 200)) - 90); };
        for (unsigned left = Below(random, 6); left > 0; --left) {
            text += number();
            text += Below(random, 2) ? "to" + number() : "";
            text += text.find('o') != std::string::npos && Below(random, 2) ? "by" + number() : "";
            text += Below(random, 2) ? " " : ", ";
        }
        const auto items = Reader(text).Items();
        const auto selected = InOrder(base, text.c_str());
        ASSERT_EQ(selected.has_value(), items.has_value()) << text;
        if (items) {
            const NumberList expected = Walk({base.begin(), base.end()}, *items);
            ASSERT_EQ(*selected, expected) << text;
            const std::set<LONG> sorted(expected.begin(), expected.end());
            ASSERT_EQ(Sorted(base, text.c_str()), NumberList(sorted.begin(), sorted.end())) << text;
        }
    }
}
