#include <ErrorState.h>

#include <gtest/gtest.h>

namespace {

TEST(ErrorState, BeginsEmptyAndRemembersTheLastFailure)
{
    CError error;
    EXPECT_EQ(error.GetLastError(), 0);
    EXPECT_EQ(error.GetLastErrorMsg(), "");
    error.SetLastError(7, "%s: %d of %ld, %.1f%%", CString("deck"), 3, LONG{9}, 33.3);
    EXPECT_EQ(error.GetLastError(), 7);
    EXPECT_EQ(error.GetLastErrorMsg(), "deck: 3 of 9, 33.3%");
    error.SetLastError(-1, "plain");
    EXPECT_EQ(error.GetLastError(), -1);
    EXPECT_EQ(error.GetLastErrorMsg(), "plain");
}

TEST(ErrorState, CopiesAreOfTheirOwn)
{
    CError first;
    first.SetLastError(5, "five");
    CError copy(first);
    CError assigned;
    EXPECT_EQ(&(assigned = first), &assigned);
    first.SetLastError(6, "six");
    for (CError* error : {&copy, &assigned}) {
        EXPECT_EQ(error->GetLastError(), 5);
        EXPECT_EQ(error->GetLastErrorMsg(), "five");
    }
}

TEST(ErrorState, TakesFormatsThatDoNotFit)
{
    CError error;
    int untouched = 4;
    error.SetLastError(1, "%s|%d|%n|%s", 2, "text", &untouched);
    EXPECT_EQ(error.GetLastErrorMsg(), "%s|%d|%n|%s");
    EXPECT_EQ(untouched, 4);
    error.SetLastError(2, nullptr, 3);
    EXPECT_EQ(error.GetLastErrorMsg(), "");
    error.SetLastError(3, "again: %s", error.GetLastErrorMsg());
    EXPECT_EQ(error.GetLastErrorMsg(), "again: ");
}

} // namespace
