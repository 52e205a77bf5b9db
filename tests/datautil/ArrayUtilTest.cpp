#include "Numbers.h"

#include <ArrayUtil.h>
#include <CompFunc.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>

namespace {

using Uints = std::vector<UINT>;

CArray<UINT, UINT>& FillUints(CArray<UINT, UINT>& a, const Uints& numbers)
{
    a.SetSize(static_cast<int>(numbers.size()));
    std::copy(numbers.begin(), numbers.end(), a.GetData());
    return a;
}

Uints UintsOf(const CArray<UINT, UINT>& a)
{
    return {a.GetData(), a.GetData() + a.GetSize()};
}

Uints Combined(int op, const Uints& a, const Uints& b)
{
    CArray<UINT, UINT> arrA, arrB, out;
    out.Add(99);
    CArrayUtil::SetOpUINT(op, FillUints(arrA, a), FillUints(arrB, b), out);
    EXPECT_EQ(UintsOf(arrA), a);
    EXPECT_EQ(UintsOf(arrB), b);
    return UintsOf(out);
}

// By counting each number, as it is said.
Uints Expected(int op, const Uints& a, const Uints& b)
{
    if (a.empty() || b.empty()) {
        if (op == 1)
            return a.empty() ? b : a;
        return op == 3 ? a : Uints();
    }
    std::map<UINT, std::pair<int, int>> counts;
    for (const UINT number : a)
        ++counts[number].first;
    for (const UINT number : b)
        ++counts[number].second;
    Uints result;
    for (const auto& [number, count] : counts) {
        const auto [inA, inB] = count;
        const int times = op == 1   ? std::max(inA, inB)
                          : op == 2 ? std::min(inA, inB)
                                    : std::max(inA - inB, 0);
        result.insert(result.end(), static_cast<std::size_t>(times), number);
    }
    return result;
}

TEST(SetOperations, TakeRepeatsForMembers)
{
    const struct {
        int op;
        Uints a, b, result;
    } rows[] = {
        {1, {5, 1, 5}, {}, {5, 1, 5}},
        {1, {}, {5, 1, 5}, {5, 1, 5}},
        {1, {5, 1, 5}, {1}, {1, 5, 5}},
        {2, {3, 1, 2, 2}, {2, 2, 2, 4}, {2, 2}},
        {2, {3, 1}, {}, {}},
        {2, {}, {3, 1}, {}},
        {3, {1, 2, 2, 3}, {2}, {1, 2, 3}},
        {3, {9, 2, 2}, {}, {9, 2, 2}},
        {3, {}, {1}, {}},
        {1, {}, {}, {}},
        {1, {0xFFFFFFFF, 0}, {0xFFFFFFFF}, {0, 0xFFFFFFFF}},
        {3, {0xFFFFFFFF, 0}, {0}, {0xFFFFFFFF}},
        {0, {1}, {1}, {}},
        {4, {1}, {}, {}},
        {-1, {}, {1}, {}},
    };
    int index = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(index++);
        EXPECT_EQ(Combined(row.op, row.a, row.b), row.result);
    }
}

TEST(SetOperations, HaveNames)
{
    CArray<UINT, UINT> a, b, out;
    FillUints(a, {4, 2, 3});
    FillUints(b, {3, 9});
    CArrayUtil::UnionUINT(a, b, out);
    EXPECT_EQ(UintsOf(out), Uints({2, 3, 4, 9}));
    CArrayUtil::IntersectUINT(a, b, out);
    EXPECT_EQ(UintsOf(out), Uints({3}));
    CArrayUtil::SubtractUINT(a, b, out);
    EXPECT_EQ(UintsOf(out), Uints({2, 4}));
}

// Narrow and wide ranges, short and long lists, and numbers that come more often than a byte can count.
TEST(SetOperations, AreThoseOfCountingEachNumber)
{
    std::mt19937 random(22);
    const struct {
        unsigned longest, range;
        UINT first;
        int rounds;
    } rows[] = {{6, 5, 0, 400},         {60, 40, 7, 200},          {300, 2000, 0xFFFFF000, 60},
                {2000, 3, 10, 20},      {600, 4000000000u, 0, 60}, {5000, 40000, 1, 20},
                {5000, 300000, 50, 20}, {300, 1, 0xFFFFFFFF, 10}};
    for (const auto& row : rows) {
        for (int round = 0; round < row.rounds; ++round) {
            Uints lists[2];
            for (Uints& list : lists) {
                list.resize(Below(random, row.longest + 1));
                for (UINT& number : list)
                    number = row.first + Below(random, row.range);
            }
            for (int op = 1; op <= 3; ++op)
                ASSERT_EQ(Combined(op, lists[0], lists[1]), Expected(op, lists[0], lists[1]))
                    << "operation " << op << " of lists up to " << row.longest << ", round " << round;
        }
    }
}

TEST(SetOperations, MayReplaceAnInput)
{
    std::mt19937 random(5);
    for (const unsigned range : {3u, 100u, 4000000000u}) {
        for (int op = 0; op <= 4; ++op) {
            for (int side = 0; side < 2; ++side) {
                for (const unsigned size : {0u, 5u, 500u}) {
                    SCOPED_TRACE(testing::Message()
                                 << "operation " << op << " side " << side << " size " << size);
                    Uints a(size), b(4);
                    for (UINT& number : a)
                        number = Below(random, range);
                    for (UINT& number : b)
                        number = Below(random, range);
                    CArray<UINT, UINT> arrays[2];
                    FillUints(arrays[0], a);
                    FillUints(arrays[1], b);
                    CArrayUtil::SetOpUINT(op, arrays[0], arrays[1], arrays[side]);
                    EXPECT_EQ(UintsOf(arrays[side]), op < 1 || op > 3 ? Uints() : Expected(op, a, b));
                }
            }
        }
    }
}

TEST(ArrayCopies, KeepOrTurnTheOrder)
{
    for (const Uints& numbers : {Uints(), Uints({7}), Uints({3, 1, 2}), Uints({4, 4, 1, 9})}) {
        CArray<UINT, UINT> source, copy;
        copy.SetSize(2);
        FillUints(source, numbers);
        CArrayUtil::ReplaceUINT(source, copy);
        EXPECT_EQ(UintsOf(copy), numbers);
        CArrayUtil::CopyReverseOrder(source, copy);
        EXPECT_EQ(UintsOf(copy), Uints(numbers.rbegin(), numbers.rend()));
        EXPECT_EQ(UintsOf(source), numbers);
        CArrayUtil::CopyReverseOrder(source, source);
        EXPECT_EQ(UintsOf(source), Uints(numbers.rbegin(), numbers.rend()));
    }
}

TEST(IsExist, SortsAnUnsortedList)
{
    CArray<UINT, UINT> list;
    EXPECT_EQ(CArrayUtil::IsExist(list, 0, 0), 0);
    FillUints(list, {9, 3, 7});
    EXPECT_EQ(CArrayUtil::IsExist(list, 7, 0), 1);
    EXPECT_EQ(UintsOf(list), Uints({3, 7, 9}));
    FillUints(list, {9, 3, 7});
    CArrayUtil::IsExist(list, 7, 1);
    EXPECT_EQ(UintsOf(list), Uints({9, 3, 7})) << "taken as sorted";
}

TEST(IsExist, FindsEachMemberAndNothingElse)
{
    std::mt19937 random(8);
    for (int round = 0; round < 300; ++round) {
        Uints numbers(1 + Below(random, 20));
        const unsigned range = round % 3 == 0 ? 4294967295u : 40;
        for (UINT& number : numbers)
            number = Below(random, range);
        std::sort(numbers.begin(), numbers.end());
        CArray<UINT, UINT> list;
        FillUints(list, numbers);
        Uints asked = numbers;
        for (UINT value = 0; value < 41; ++value)
            asked.push_back(value);
        asked.push_back(0xFFFFFFFF);
        for (const UINT value : asked)
            ASSERT_EQ(CArrayUtil::IsExist(list, value, 1),
                      std::count(numbers.begin(), numbers.end(), value) > 0)
                << value;
    }
}

} // namespace
