#include "QSort.h"

#include <algorithm>
#include <array>
#include <climits>
#include <gmock/gmock.h>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

std::vector<std::string> Texts(const CString* texts, std::size_t n)
{
    std::vector<std::string> list;
    for (std::size_t i = 0; i < n; ++i)
        list.push_back(texts[i].GetString());
    return list;
}

// Sorts random values with a member and checks order and content against std::sort. `guard` values round the
// array must stay.
template <class T, class Sort>
void ExpectSorts(Sort sort, std::mt19937& random, unsigned range)
{
    for (const unsigned n : {0U, 1U, 2U, 3U, 17U, 1000U}) {
        SCOPED_TRACE(n);
        std::vector<T> values(n + 2, static_cast<T>(-77));
        std::generate(values.begin() + 1, values.end() - 1, [&] { return static_cast<T>(random() % range); });
        std::vector<T> expected = values;
        std::sort(expected.begin() + 1, expected.end() - 1);
        sort(values.data() + 1, n);
        EXPECT_EQ(values, expected);
    }
}

} // namespace

TEST(QSort, PlainArrays)
{
    std::mt19937 random(22);
    for (const unsigned range : {3U, 2000000000U}) {
        SCOPED_TRACE(range);
        ExpectSorts<int>(CQSort::QSortInt, random, range);
        ExpectSorts<LONG>(CQSort::QSortLong, random, range);
        ExpectSorts<unsigned>(CQSort::QSortUInt, random, range);
        ExpectSorts<LONGLONG>(CQSort::QSortInt64, random, range);
        ExpectSorts<double>(CQSort::QSortDbl, random, range);
    }
    int numbers[] = {3, -1, 2};
    CQSort::QSortInt(numbers, 3);
    EXPECT_THAT(numbers, ElementsAre(-1, 2, 3));
    CQSort::QSortInt(nullptr, 0);
}

TEST(QSort, WrappedOrdersAreKept)
{
    unsigned numbers[] = {1, 0x90000001U, 2};
    CQSort::QSortUInt(numbers, 3);
    EXPECT_THAT(numbers, ElementsAre(0x90000001U, 1U, 2U));
    // 2^31 apart: the difference is negative both ways, so each order stays.
    unsigned halves[] = {0x80000001U, 1};
    CQSort::QSortUInt(halves, 2);
    EXPECT_THAT(halves, ElementsAre(0x80000001U, 1U));
    unsigned otherHalves[] = {1, 0x80000001U};
    CQSort::QSortUInt(otherHalves, 2);
    EXPECT_THAT(otherHalves, ElementsAre(1U, 0x80000001U));
    LONGLONG wide[] = {0x100000005LL, 0x900000003LL, 4LL};
    CQSort::QSortInt64(wide, 3);
    EXPECT_THAT(wide, ElementsAre(0x900000003LL, 4LL, 0x100000005LL));
    unsigned keys[] = {0x00100005U, 0x00000006U, 0xFFF00005U, 0x00000005U};
    CQSort::QSortKey20Serial12(keys, 4);
    EXPECT_THAT(keys, ElementsAre(0x00000005U, 0x00100005U, 0xFFF00005U, 0x00000006U));
}

// The comparison is not transitive here; whatever the order, no element may be lost or doubled.
TEST(QSort, OddComparisonsStillPermute)
{
    std::mt19937 random(23);
    std::vector<int> numbers(5000);
    std::generate(numbers.begin(), numbers.end(), [&] { return static_cast<int>(random()); });
    std::vector<int> sorted = numbers;
    CQSort::QSortInt(sorted.data(), static_cast<unsigned>(sorted.size()));
    EXPECT_TRUE(std::is_permutation(sorted.begin(), sorted.end(), numbers.begin()));
}

TEST(QSort, Comparisons)
{
    const double none = std::numeric_limits<double>::quiet_NaN(), one = 1.0, two = 2.0;
    EXPECT_EQ(CQSort::CompareDbl(&one, &two), -1);
    EXPECT_EQ(CQSort::CompareDbl(&two, &one), 1);
    EXPECT_EQ(CQSort::CompareDbl(&none, &one), 0);
    const T_POS_DBL_PAIR pairOne = {7, one}, pairTwo = {1, two};
    EXPECT_EQ(CQSort::CompareDblWithIndex(&pairOne, &pairTwo), -1);
    const T_POS_INT_PAIR three = {7, 3}, five = {1, 5};
    EXPECT_EQ(CQSort::CompareIntWithIndex(&three, &five), -2);
    const unsigned unsignedOne = 1, huge = 0x90000001U;
    for (auto* const compare :
         {CQSort::CompareInt, CQSort::CompareLong, CQSort::CompareUInt, CQSort::CompareInt64})
        EXPECT_LT(compare(&huge, &unsignedOne), 0);
}

TEST(QSort, ValuesTakeTheirIndicesAlong)
{
    int index[] = {40, 10, 30, 20}, value[] = {3, -1, 7, 2};
    CQSort::QSortIntWithIndex(index, value, 4);
    EXPECT_THAT(index, ElementsAre(10, 20, 40, 30));
    EXPECT_THAT(value, ElementsAre(-1, 2, 3, 7));

    int intIndex[] = {5, -6, 7};
    unsigned uintIndex[] = {5, 0xFFFFFFFFU, 7};
    double values[] = {0.5, -0.5, 0.25}, same[] = {0.5, -0.5, 0.25};
    CQSort::QSortDblWithIndex(intIndex, values, 3);
    CQSort::QSortDblWithIndex(uintIndex, same, 3);
    EXPECT_THAT(intIndex, ElementsAre(-6, 7, 5));
    EXPECT_THAT(uintIndex, ElementsAre(0xFFFFFFFFU, 7U, 5U));
    EXPECT_THAT(values, ElementsAre(-0.5, 0.25, 0.5));
    EXPECT_THAT(same, ElementsAre(-0.5, 0.25, 0.5));

    unsigned textIndex[] = {1, 2, 3};
    CString texts[] = {"B", "a", "A"};
    CQSort::QSortStringWithIndex(textIndex, texts, 3);
    EXPECT_THAT(textIndex, ElementsAre(3U, 1U, 2U));
    EXPECT_THAT(Texts(texts, 3), ElementsAre("A", "B", "a"));
    CQSort::QSortStringWithIndex(nullptr, nullptr, 0);
}

TEST(QSort, TextsKeepTheirContent)
{
    std::vector<CString> texts(300);
    std::vector<std::string> expected;
    for (int i = 0; i < 300; ++i) {
        texts[static_cast<std::size_t>(i)].Format("%d", (i * 7919) % 1000);
        expected.push_back(texts[static_cast<std::size_t>(i)].GetString());
    }
    std::sort(expected.begin(), expected.end());
    CQSort::QSortString(texts.data(), 300);
    EXPECT_THAT(Texts(texts.data(), 300), ElementsAreArray(expected));
}

TEST(QSort, SplitsATrailingNumber)
{
    const struct {
        const char *text, *name;
        int zero, number;
    } rows[] = {{"", "", 0, -1},
                {"A", "A", 0, -1},
                {"A7", "A", 0, 7},
                {"A007", "A", 2, 7},
                {"A100", "A", 0, 100},
                {"A000", "A", 3, 0},
                {"12", "", 0, 12},
                {"A1B", "A1B", 0, -1},
                {"A-5", "A-", 0, 5},
                {"1A0", "1A", 1, 0},
                {"\xB9"
                 "9",
                 "\xB9", 0, 9},
                {"N4294967297", "N", 0, 1},
                {"N2147483648", "N", 0, -2147483647 - 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        CString name = row.text;
        int zero = 9, number = 9;
        CQSort::SeparateStringNum(name, name, zero, number); // the name may go where the text is
        EXPECT_STREQ(name, row.name);
        EXPECT_EQ(zero, row.zero);
        EXPECT_EQ(number, row.number);
    }
}

TEST(QSort, NaturalOrder)
{
    unsigned index[] = {0, 1, 2, 3, 4, 5, 6};
    CString texts[] = {"B", "A10", "A2", "A", "A02", "B2147483647", "B00"};
    CQSort::QSortStringNumWithIndex(index, texts, 7);
    EXPECT_THAT(Texts(texts, 7), ElementsAre("A", "A2", "A02", "A10", "B", "B00", "B2147483647"));
    EXPECT_THAT(index, ElementsAre(3U, 2U, 4U, 1U, 0U, 6U, 5U));
    const T_POS_STR_NUM none = {0, "B", 0, -1}, largest = {0, "B", 0, INT_MAX}, wrapped = {0, "B", 0, -5};
    EXPECT_LT(CQSort::CompareStringNumWithIndex(&none, &largest), 0);
    EXPECT_GT(CQSort::CompareStringNumWithIndex(&largest, &none), 0);
    EXPECT_LT(CQSort::CompareStringNumWithIndex(&none, &wrapped), 0);
    CQSort::QSortStringNumWithIndex(index, texts, 0);

    unsigned stray[] = {1, 9}; // texts follow the indices, a stray one moves none
    CString two[] = {"b", "a"};
    CQSort::QSortStringNumWithIndex(stray, two, 2);
    EXPECT_THAT(stray, ElementsAre(9U, 1U));
    EXPECT_THAT(Texts(two, 2), ElementsAre("b", "a"));
}

TEST(QSort, PointsByAxes)
{
    CArray<T_POS_DBL3_PAIR, T_POS_DBL3_PAIR> points;
    points.Add({10, {1.0, 2.0, 1.0}});
    points.Add({20, {1.0 + 1e-16, 1.0, 2.0}});
    points.Add({30, {0.0, 2.0, 2.0 + 4e-16}});
    const struct {
        int first, second;
        std::array<int, 3> order;
    } rows[] = {{0, 1, {30, 20, 10}}, {0, 2, {30, 10, 20}}, {1, 0, {20, 30, 10}},
                {1, 2, {20, 10, 30}}, {2, 0, {10, 30, 20}}, {2, 1, {10, 20, 30}}};
    CArray<int, int> order;
    order.Add(99);
    for (const auto& [first, second] : {std::pair(1, 1), {0, 3}, {-1, 0}, {2, -1}, {3, 0}}) {
        SCOPED_TRACE(first);
        EXPECT_EQ(CQSort::QSortByPos(points, first, second, order), 0);
        ASSERT_EQ(order.GetSize(), 1);
        EXPECT_EQ(order[0], 99);
    }
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.first << ' ' << row.second);
        EXPECT_EQ(CQSort::QSortByPos(points, row.first, row.second, order), 1);
        ASSERT_EQ(order.GetSize(), 3);
        EXPECT_THAT((std::array{order[0], order[1], order[2]}), ElementsAreArray(row.order));
    }
    points.RemoveAll();
    EXPECT_EQ(CQSort::QSortByPos(points, 0, 1, order), 0);
    EXPECT_EQ(order.GetSize(), 3);
}

TEST(QSort, AllThreeAxesDecide)
{
    CArray<T_POS_DBL3_PAIR, T_POS_DBL3_PAIR> corners; // of a cube, each numbered by its own place in x, y, z
    for (int i = 7; i >= 0; --i)
        corners.Add({i, {i / 4 * 1.0, i / 2 % 2 * 1.0, i % 2 * 1.0}});
    CArray<int, int> order;
    for (int first = 0; first < 3; ++first) {
        for (const int second : {(first + 1) % 3, (first + 2) % 3}) {
            SCOPED_TRACE(testing::Message() << first << ' ' << second);
            const int weight[] = {4, 2, 1};
            ASSERT_EQ(CQSort::QSortByPos(corners, first, second, order), 1);
            ASSERT_EQ(order.GetSize(), 8);
            for (int i = 0; i < 8; ++i) {
                const int third = 3 - first - second;
                EXPECT_EQ(order[i],
                          i / 4 * weight[first] + i / 2 % 2 * weight[second] + i % 2 * weight[third]);
            }
        }
    }
}
