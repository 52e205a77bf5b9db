#include "CompFunc.h"

#include <afx.h>

#include <climits>
#include <cmath>
#include <cstdlib>
#include <gmock/gmock.h>
#include <limits>

namespace {

using Comparison = int (*)(const void*, const void*);

const double kNoNumber = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();
const double kUlp = std::numeric_limits<double>::epsilon(); // of 1.0

int Sign(int value)
{
    return (value > 0) - (value < 0);
}

// Holds an ascending and a descending comparison against the expected sign, both ways round.
template <class T>
void ExpectOrder(Comparison ascending, Comparison descending, T a, T b, int sign)
{
    EXPECT_EQ(Sign(ascending(&a, &b)), sign) << testing::PrintToString(a) << ' ' << testing::PrintToString(b);
    EXPECT_EQ(Sign(descending(&b, &a)), sign);
    EXPECT_EQ(Sign(descending(&a, &a)), 0);
}

} // namespace

TEST(CompFunc, WholeNumbersByWrappedDifference)
{
    const struct {
        int a, b, difference;
    } rows[] = {{3, 5, -2},           {5, 3, 2}, {-7, -7, 0}, {INT_MIN, INT_MAX, 1}, {INT_MAX, -1, INT_MIN},
                {0, INT_MIN, INT_MIN}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.a);
        const LONG longA = row.a, longB = row.b;
        const LONGLONG wideA = 0x500000000LL + static_cast<unsigned>(row.a),
                       wideB = static_cast<unsigned>(row.b);
        const T_POS_INT_PAIR pairA = {9, row.a}, pairB = {-9, row.b};
        EXPECT_EQ(CCompFunc::intAsc(&row.a, &row.b), row.difference);
        EXPECT_EQ(CCompFunc::intDesc(&row.b, &row.a), row.difference);
        EXPECT_EQ(CCompFunc::longAsc(&longA, &longB), row.difference);
        EXPECT_EQ(CCompFunc::longDesc(&longB, &longA), row.difference);
        EXPECT_EQ(CCompFunc::int64Asc(&wideA, &wideB), row.difference); // the high half does not count
        EXPECT_EQ(CCompFunc::int64Desc(&wideB, &wideA), row.difference);
        EXPECT_EQ(CCompFunc::PosIntPairA(&pairA, &pairB), row.difference);
    }
}

TEST(CompFunc, UnsignedAndNarrowNumbers)
{
    ExpectOrder(CCompFunc::UINTAsc, CCompFunc::UINTDesc, 0x80000001U, 1U, 1);
    ExpectOrder(CCompFunc::UINTAsc, CCompFunc::UINTDesc, 0U, 0xFFFFFFFFU, -1);
    ExpectOrder<short>(CCompFunc::shortAsc, CCompFunc::shortDesc, SHRT_MIN, SHRT_MAX, -1);
    ExpectOrder<signed char>(CCompFunc::charAsc, CCompFunc::charDesc, -128, 127, -1);
    ExpectOrder<BYTE>(CCompFunc::BYTEAsc, CCompFunc::BYTEDesc, 200, 100, 1);
    const unsigned a = 0x00120005, b = 0xFFF30006, c = 0x7FF20005;
    EXPECT_EQ(CCompFunc::i16x16Asc(&a, &b), -1);
    EXPECT_EQ(CCompFunc::i16x16Asc(&a, &c), 0);
    EXPECT_EQ(CCompFunc::i20x12Asc(&a, &b), 0x20005 - 0x30006);
    EXPECT_EQ(CCompFunc::i20x12Asc(&a, &c), 0);
}

TEST(CompFunc, DoublesWithTolerance)
{
    const struct {
        double a, b;
        int sign;
    } rows[] = {{1.0, 1.0 + 5e-13, 0}, {1.0, 1.0 + 2e-12, -1}, {1.0 + 2e-12, 1.0, 1},
                {0.0, 1e-12, 0},       {1e-12, 0.0, 0},        {kInfinity, 1.0, 1},
                {1.0, kInfinity, -1},  {kNoNumber, 1.0, -1},   {1.0, kNoNumber, -1}};
    for (const auto& [a, b, sign] : rows) {
        SCOPED_TRACE(testing::Message() << a << ' ' << b);
        EXPECT_EQ(CCompFunc::FastCompDouble(a, b), sign);
        EXPECT_EQ(CCompFunc::SafeCompDouble(a, b), sign);
        EXPECT_EQ(CCompFunc::doubleAsc(&a, &b), sign);
        EXPECT_EQ(CCompFunc::doubleDesc(&b, &a), sign);
    }
    const float big = 2.0F, small = 1.0F, none = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(CCompFunc::floatAsc(&small, &big), -1);
    EXPECT_EQ(CCompFunc::floatDesc(&small, &big), 1);
    EXPECT_EQ(CCompFunc::floatAsc(&none, &big), -1);
    for (const double value : {0.1, -1.0 / 3, 5e-324, 1.7976931348623157e308, 123456789.123456789})
        EXPECT_EQ(CCompFunc::SafeCompDouble(value, value), 0) << value;
}

TEST(CompFunc, DoublesExactly)
{
    struct Record {
        double value;
        unsigned number;
    };
    const struct {
        double a, b;
        int record, pair;
    } rows[] = {
        {1.0, 1.0 + kUlp, -1, -1}, {1.0 + kUlp, 1.0, 1, 1}, {2.0, 2.0, 0, 0}, {kNoNumber, 2.0, 0, -1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.a);
        const Record a = {row.a, 9}, b = {row.b, 1};
        const T_POS_DBL_PAIR pairA = {9, row.a}, pairB = {1, row.b};
        EXPECT_EQ(CCompFunc::TDblUintAsc(&a, &b), row.record);
        EXPECT_EQ(CCompFunc::PosDblPairA(&pairA, &pairB), row.pair);
    }
}

TEST(CompFunc, RealsInUnitsOfTheLastPlace)
{
    const struct {
        const char* label;
        double a, b;
        int order;
    } rows[] = {{"below a unit", 1.0, 1.0 + 1e-16, 0},
                {"32 units", 1.0, 1.0 + 32 * kUlp, 0},
                {"33 units", 1.0, 1.0 + 33 * kUlp, -1},
                {"33 units down", 1.0 + 33 * kUlp, 1.0, 1},
                {"near zero", 0.0, 1e-16, 0},
                {"absolute bound", 0.0, 1e-15, -1},
                {"large", 1e15, 1e15 + 5.0, -1},
                {"large, 32 units", 1e15, 1e15 + 4.0, 0},
                {"across zero", -1.0, 1.0, -1},
                {"infinite", kInfinity, 1.0, 1},
                {"minus infinity has no unit", -kInfinity, 1.0, 0},
                {"equal infinities", kInfinity, kInfinity, 0},
                {"no number", kNoNumber, 1.0, 0}};
    for (const auto& [label, a, b, order] : rows) {
        SCOPED_TRACE(label);
        EXPECT_EQ(CCompFunc::CompReal(a, b), order);
        EXPECT_EQ(CCompFunc::CompReal(b, a), -order);
        const T_POS_DBL_PAIR pairA = {0, a}, pairB = {0, b};
        EXPECT_EQ(CCompFunc::PosDblPairTolA(&pairA, &pairB), order);
    }
}

TEST(CompFunc, CoordinatesInTurn)
{
    const struct {
        const char* label;
        double a[3], b[3];
        int exact2, exact3, tolerant2, tolerant3;
    } rows[] = {{"first", {1, 9, 9}, {2, 0, 0}, -1, -1, -1, -1},
                {"second", {1, 3, 0}, {1, 2, 9}, 1, 1, 1, 1},
                {"third", {1, 2, 3}, {1, 2, 4}, 0, -1, 0, -1},
                {"equal", {1, 2, 3}, {1, 2, 3}, 0, 0, 0, 0},
                {"nearly equal first", {1 + kUlp, 2, 3}, {1, 5, 0}, 1, 1, -1, -1},
                {"no number", {kNoNumber, 2, 3}, {1, 1, 1}, -1, -1, 1, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const T_POS_DBL2_PAIR a2 = {1, {row.a[0], row.a[1]}}, b2 = {0, {row.b[0], row.b[1]}};
        const T_POS_DBL3_PAIR a3 = {1, {row.a[0], row.a[1], row.a[2]}},
                              b3 = {0, {row.b[0], row.b[1], row.b[2]}};
        EXPECT_EQ(CCompFunc::PosDbl2PairA(&a2, &b2), row.exact2);
        EXPECT_EQ(CCompFunc::PosDbl3PairA(&a3, &b3), row.exact3);
        EXPECT_EQ(CCompFunc::PosDbl2PairTolA(&a2, &b2), row.tolerant2);
        EXPECT_EQ(CCompFunc::PosDbl3PairTolA(&a3, &b3), row.tolerant3);
    }
}

TEST(CompFunc, Texts)
{
    const struct {
        const char *a, *b;
        int exact, noCase;
    } rows[] = {
        {"A", "B", -1, -1}, {"b", "B", 1, 0}, {"B", "a", -1, 1}, {"", "A", -1, -1}, {"A10", "A10", 0, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.a);
        ExpectOrder(CCompFunc::stringAsc, CCompFunc::stringDesc, row.a, row.b, row.exact);
        const CString a = row.a, b = row.b;
        EXPECT_EQ(Sign(CCompFunc::stringAsc(&a, &b)), row.exact);
        const T_POS_NAME_PAIR pairA = {1, row.a}, pairB = {0, row.b};
        EXPECT_EQ(Sign(CCompFunc::PosNamePairA(&pairA, &pairB)), row.noCase);
        EXPECT_EQ(CCompFunc::charpAsc(row.a, row.b), row.exact);
        EXPECT_EQ(CCompFunc::charpDesc(row.b, row.a), row.exact);
    }
    EXPECT_EQ(CCompFunc::charpAsc("\xE9", "z"), 1); // bytes count as unsigned
    EXPECT_EQ(CCompFunc::charpDesc("\xE9", "z"), -1);
}

TEST(CompFunc, Distances)
{
    const double d[] = {2.5, 4.0};
    const int i[] = {INT_MIN, INT_MAX};
    const unsigned u[] = {1, 0xFFFFFFFFU};
    EXPECT_EQ(CCompFunc::doubleDist(&d[0], &d[1]), -1.5);
    EXPECT_EQ(CCompFunc::intDist(&i[0], &i[1]), -4294967295.0);
    EXPECT_EQ(CCompFunc::UINTDist(&u[1], &u[0]), 4294967294.0);
}

TEST(CompFunc, NearestOfAFew)
{
    const double levels[] = {1.0, 2.0, 4.0, 8.0};
    const struct {
        double key;
        unsigned count;
        int nearest;
    } rows[] = {{3.0, 4, 2}, {0.0, 4, 0},        {100.0, 4, 3},    {2.0, 4, 1}, {5.9, 4, 2},
                {6.1, 4, 3}, {1.5, 2, 1},        {1.4, 2, 0},      {9.0, 1, 0}, {9.0, 0, 0},
                {1.4, 3, 0}, {-kInfinity, 4, 0}, {kNoNumber, 4, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.key << " of " << row.count);
        EXPECT_EQ(CCompFunc::FindNearest(&row.key, levels, row.count, sizeof(double), CCompFunc::doubleDist),
                  row.nearest);
    }
}

TEST(CompFunc, NearestIsAsNearAsAnyOther)
{
    std::srand(21);
    for (int round = 0; round < 2000; ++round) {
        int values[40]; // every second one counts: elements may be wider than their key
        const int count = 1 + std::rand() % 20;
        int last = 0;
        for (int i = 0; i < count; ++i)
            values[2 * i] = last += 1 + std::rand() % 9;
        const int key = std::rand() % 100;
        int least = INT_MAX;
        for (int i = 0; i < count; ++i)
            least = std::min(least, std::abs(values[2 * i] - key));
        const int found = CCompFunc::FindNearest(&key, values, static_cast<unsigned>(count), 2 * sizeof(int),
                                                 CCompFunc::intDist);
        ASSERT_EQ(std::abs(values[2 * found] - key), least) << round;
    }
}
