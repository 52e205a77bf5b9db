#include "Numbers.h"

#include <KeyClass.h>

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

NumberList Members(CKeyClass& classes, int index)
{
    const CArray<UINT, UINT>* members = classes.GetClassifiedClass(index);
    return members ? ListOf(*members) : NumberList{-1};
}

TEST(KeyClass, NumbersClassesAsTheirKeysCome)
{
    CKeyClass classes(17);
    EXPECT_EQ(classes.GetClassifiedCount(), 0);
    classes.Classify(1, "H400");
    classes.Classify(2, "H300");
    classes.Classify(3, "H400");
    classes.Classify(9, "h400");
    classes.Classify(3, "H400");
    classes.Classify(4, "");
    classes.Classify(5, nullptr);
    ASSERT_EQ(classes.GetClassifiedCount(), 4);
    EXPECT_EQ(Members(classes, 0), NumberList({1, 3, 3}));
    EXPECT_EQ(Members(classes, 1), NumberList({2}));
    EXPECT_EQ(Members(classes, 2), NumberList({9}));
    EXPECT_EQ(Members(classes, 3), NumberList({4, 5}));
    EXPECT_EQ(classes.GetClassifiedClass(4), nullptr);
    EXPECT_EQ(classes.GetClassifiedClass(-1), nullptr);
}

TEST(KeyClass, KeepsItsListsInPlace)
{
    CKeyClass classes(1);
    classes.Classify(1, "first");
    CArray<UINT, UINT>* first = classes.GetClassifiedClass(0);
    for (UINT id = 0; id < 100; ++id)
        classes.Classify(id, std::to_string(id).c_str());
    EXPECT_EQ(classes.GetClassifiedClass(0), first);
}

// Whatever the number of buckets, those included that are none.
TEST(KeyClass, IsThatOfAMap)
{
    for (const int buckets : {-3, 0, 1, 2, 17, 1009}) {
        SCOPED_TRACE(buckets);
        std::mt19937 random(3);
        CKeyClass classes(buckets);
        std::map<std::string, int> numbers;
        std::vector<NumberList> expected;
        for (UINT id = 0; id < 500; ++id) {
            const std::string key = "K" + std::to_string(Below(random, 60));
            classes.Classify(id, key.c_str());
            const auto [at, added] = numbers.try_emplace(key, static_cast<int>(expected.size()));
            if (added)
                expected.emplace_back();
            expected[static_cast<std::size_t>(at->second)].push_back(static_cast<LONG>(id));
        }
        ASSERT_EQ(classes.GetClassifiedCount(), static_cast<int>(expected.size()));
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_EQ(Members(classes, static_cast<int>(i)), expected[i]);
    }
}

} // namespace
