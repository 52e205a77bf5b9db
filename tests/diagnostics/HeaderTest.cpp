// A file that includes the header, in a program whose allocation functions are not the tester's: everything
// goes on as ever.
#include <AllocMap.h>

#include <gtest/gtest.h>

#include <MemoryLeakTester.h>

namespace {

struct Throwing {
    Throwing() { throw 1; }
};

bool Works()
{
    int* number = new int(3);
    std::string* texts = new std::string[2]{"a", std::string(100, 'b')};
    const bool good = *number == 3 && texts[1].size() == 100;
    delete number;
    delete[] texts;
    return good;
}

bool ThrowsOn()
{
    try {
        delete (new Throwing);
    } catch (int) {
        return true;
    }
    return false;
}

} // namespace

#undef new
#undef delete

TEST(LeakTesterHeader, IsInertWithoutATracker)
{
    ASSERT_EQ(AllocMap::Instance(), nullptr);
    EXPECT_TRUE(Works());
}

// With a tracker, too, a site is gone when its expression is.
TEST(LeakTesterHeader, SitesEndWithTheirExpressions)
{
    const AllocMap tracker; // off, but not yet known to be
    EXPECT_TRUE(ThrowsOn());
    EXPECT_EQ(LeakTester::Site::Innermost(), nullptr);
}
