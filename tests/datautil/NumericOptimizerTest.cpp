#include "NumericOptimizer.h"

#include "Literal.h"
#include "Numbers.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <numeric>
#include <string>

using testing::ElementsAre;

namespace {

std::string Optimized(NumberList numbers)
{
    return CNumericOptimizer().Optimize(numbers.data(), static_cast<LONG>(numbers.size())).GetString();
}

NumberList Selected(NumberList base, const char* text)
{
    NumberList out(base.size() + 1, 77);
    LONG count = -1;
    EXPECT_EQ(CNumericOptimizer().SelectNumByStr(base.data(), static_cast<LONG>(base.size()), text,
                                                 out.data(), count),
              1);
    EXPECT_EQ(out[static_cast<std::size_t>(count)], 77); // nothing beyond the selection is written
    out.resize(static_cast<std::size_t>(count));
    return out;
}

void ExpectLiteral(const NumberList& numbers)
{
    const std::string text = Optimized(numbers);
    ASSERT_EQ(text, Literal(numbers).Text()) << testing::PrintToString(numbers);
    if (!numbers.empty()) {
        ASSERT_EQ(Selected(numbers, text.c_str()), numbers) << text;
    }
}

} // namespace

TEST(NumericOptimizer, KnownTexts)
{
    const struct {
        NumberList numbers;
        const char* text;
    } rows[] = {{{}, ""},
                {{7}, "7"},
                {{3, 4}, "3 4"},
                {{3, 4, 5}, "3to5"},
                {{3, 5, 7}, "3 5 7"},
                {{3, 5, 7, 9}, "3to9by2"},
                {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, "1to10"},
                {{1, 3, 5, 7, 9, 15, 17, 18, 19, 20}, "1to9by2 15 17to20"},
                {{1, 2, 4, 5, 7, 8, 10, 11}, "1to10by3 2to11by3"},
                {{1, 2, 4, 6, 8}, "1 2to8by2"},
                {{-5, -4, -3, 0, 4, 8, 12}, "-5to-3 0to12by4"},
                {{-2147483647 - 1, -1, 0, 1, 2147483647}, "-2147483648 -1to1 2147483647"},
                {{-2147483647 - 1, -1431655766, -715827884, -2, 715827880, 1431655762, 2147483644},
                 "-2147483648to2147483644by715827882"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(Optimized(row.numbers), row.text);
        ExpectLiteral(row.numbers);
    }
}

TEST(NumericOptimizer, RunsAreWrittenAcrossOnlyForAGain)
{
    NumberList stepped, four, five; // {0 2 4 6} five times; {0 1 2} four and five times
    for (LONG block = 0; block < 5; ++block) {
        for (LONG i = 0; i < 4; ++i)
            stepped.push_back(block * 100 + 2 * i);
        for (LONG i = 0; i < 3; ++i) {
            five.push_back(block * 100 + i);
            if (block < 4)
                four.push_back(block * 100 + i);
        }
    }
    EXPECT_EQ(Optimized(stepped), "0to400by100 2to402by100 4to404by100 6to406by100");
    EXPECT_EQ(Optimized(four), "0to2 100to102 200to202 300to302");
    EXPECT_EQ(Optimized(five), "0to400by100 1to401by100 2to402by100");
}

TEST(NumericOptimizer, EverySmallSetIsAsDescribed)
{
    for (unsigned set = 0; set < (1U << 15); ++set) {
        NumberList numbers;
        for (LONG i = 0; i < 15; ++i) {
            if (set >> i & 1)
                numbers.push_back(i);
        }
        ASSERT_NO_FATAL_FAILURE(ExpectLiteral(numbers));
    }
}

TEST(NumericOptimizer, RandomListsAreAsDescribed)
{
    std::mt19937 random(24);
    for (int i = 0; i < 170000; ++i) {
        const LONG first = static_cast<LONG>(Below(random, 40)) - 20;
        ASSERT_NO_FATAL_FAILURE(
            ExpectLiteral(Sieve(random, first, 10 + Below(random, 90), Below(random, i % 4 ? 40 : 120))));
    }
    for (int i = 0; i < 500; ++i) { // sets of runs, which the grouping finds
        NumberList numbers;
        const LONG blocks = static_cast<LONG>(4 + Below(random, 9)),
                   step = static_cast<LONG>(1 + Below(random, 3));
        for (LONG block = 0; block < blocks; ++block) {
            for (LONG k = 0; k < 5; ++k) {
                if (Below(random, 25) != 0)
                    numbers.push_back(block * 50 + k * step);
            }
        }
        ASSERT_NO_FATAL_FAILURE(ExpectLiteral(numbers));
    }
    for (int i = 0; i < 2000; ++i) { // the whole width of the numbers
        NumberList numbers(Below(random, 60));
        for (LONG& number : numbers)
            number = static_cast<LONG>(random() & ~(Below(random, 2) ? 0x0FFFFFFFU : 0U));
        std::sort(numbers.begin(), numbers.end());
        numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
        ASSERT_NO_FATAL_FAILURE(ExpectLiteral(numbers));
    }
}

// Lists that are longer and thinner than those above, also in units of more than 1: close enough to be
// searched by their range, and too far apart for that.
TEST(NumericOptimizer, ThinListsAreAsDescribed)
{
    std::mt19937 random(27);
    for (int round = 0; round < 240; ++round) {
        const unsigned percent = std::array{1U, 3U, 8U, 25U, 50U}[static_cast<std::size_t>(round) % 5];
        for (const LONG unit : {1, 12, 50000}) {
            NumberList numbers = Sieve(random, 1, percent, 40 + Below(random, 260));
            for (LONG& number : numbers)
                number = number * unit + (unit == 50000 ? static_cast<LONG>(Below(random, 2)) : 0);
            if (unit == 12)
                numbers.push_back(numbers.back() + 40000000);
            SCOPED_TRACE(testing::Message() << percent << " per cent in units of " << unit);
            ASSERT_NO_FATAL_FAILURE(ExpectLiteral(numbers));
        }
    }
}

// Storeys of equal runs at irregular distances, many and few.
TEST(NumericOptimizer, ManyEqualRunsAreAsDescribed)
{
    std::mt19937 random(28);
    for (int round = 0; round < 60; ++round) {
        NumberList numbers;
        LONG start = 0;
        const LONG length = static_cast<LONG>(3 + Below(random, 3));
        for (unsigned run = Below(random, 150); run > 0; --run) {
            start += static_cast<LONG>((1 + Below(random, round % 2 ? 3 : 30)) * 10);
            for (LONG k = 0; k < length; ++k)
                numbers.push_back(start + k);
        }
        ASSERT_NO_FATAL_FAILURE(ExpectLiteral(numbers));
    }
}

// So many runs that they are sorted in another way, of several shapes.
TEST(NumericOptimizer, HundredsOfRunsOfSeveralShapesAreAsDescribed)
{
    std::mt19937 random(29);
    for (int round = 0; round < 6; ++round) {
        NumberList numbers;
        LONG start = -20000;
        for (unsigned run = 300 + Below(random, 200); run > 0; --run) {
            const LONG step = static_cast<LONG>(1 + Below(random, 3));
            const LONG length = static_cast<LONG>(4 + Below(random, 2));
            start += static_cast<LONG>((2 + Below(random, 5)) * 20);
            for (LONG k = 0; k < length; ++k)
                numbers.push_back(start + k * step);
        }
        ASSERT_NO_FATAL_FAILURE(ExpectLiteral(numbers));
    }
}

TEST(NumericOptimizer, LongListsRoundTrip)
{
    std::mt19937 random(25);
    for (const unsigned percent : {95U, 60U, 12U}) {
        const NumberList numbers = Sieve(random, -50000, percent, 1000000);
        EXPECT_EQ(Selected(numbers, Optimized(numbers).c_str()), numbers) << percent;
    }
}

TEST(NumericOptimizer, RepeatsEndInAnExceptionOrAsDescribed)
{
    std::mt19937 random(26);
    int endless = 0;
    for (int i = 0; i < 5000; ++i) {
        NumberList numbers(Below(random, 20));
        for (LONG& number : numbers)
            number = static_cast<LONG>(Below(random, 12));
        std::sort(numbers.begin(), numbers.end());
        const std::string expected = Literal(numbers).Text();
        std::string text;
        try {
            text = Optimized(numbers);
        } catch (CMemoryException* exception) {
            exception->Delete();
            text = "endless";
            ++endless;
        }
        ASSERT_EQ(text, expected) << testing::PrintToString(numbers);
    }
    EXPECT_GT(endless, 0);
}

TEST(NumericOptimizer, ArraysAreTakenAsSortedOrSorted)
{
    CNumericOptimizer optimizer;
    CArray<UINT, UINT> a;
    EXPECT_EQ(optimizer.OptimizeUnsortedArray(a), "");
    EXPECT_EQ(optimizer.Optimize(Fill(a, {1, 2, 3, 7})), "1to3 7");
    EXPECT_EQ(optimizer.OptimizeSortedArray(a), "1to3 7");
    EXPECT_EQ(optimizer.OptimizeUnsortedArray(Fill(a, {9, 3, 2, 7, 1, -1})), "-1 1to3 7 9");
    EXPECT_THAT(ListOf(a), ElementsAre(-1, 1, 2, 3, 7, 9));
}

TEST(NumericOptimizer, NodesAreRunsThenSingles)
{
    CNumericOptimizer optimizer;
    CArray<UINT, UINT> a;
    CArray<STB_OPT_NODE, STB_OPT_NODE&> nodes;
    EXPECT_EQ(optimizer.OptimizeUnsortedArray(Fill(a, {20, 7, 3, 30, 2, 1, 40, 50, 0x7FFFFFFF}), nodes), 1);
    std::vector<std::array<LONG, 3>> got;
    for (int i = 0; i < nodes.GetSize(); ++i)
        got.push_back({nodes[i].start, nodes[i].end, nodes[i].step});
    using Node = std::array<LONG, 3>;
    EXPECT_THAT(got,
                ElementsAre(Node{1, 3, 1}, Node{20, 50, 10}, Node{7, 7, 1}, Node{0x7FFFFFFF, 0x7FFFFFFF, 1}));
    EXPECT_EQ(optimizer.OptimizeSortedArray(Fill(a, {}), nodes), 1);
    EXPECT_EQ(nodes.GetSize(), 0);
}

TEST(NumericOptimizer, ComparisonWraps)
{
    const struct {
        LONG a, b;
        int result;
    } rows[] = {{3, 5, -2}, {5, 3, 2}, {4, 4, 0}, {2147483647, -1, -2147483647 - 1}};
    for (const auto& row : rows)
        EXPECT_EQ(CNumericOptimizer::comparei(&row.a, &row.b), row.result) << row.a;
}
