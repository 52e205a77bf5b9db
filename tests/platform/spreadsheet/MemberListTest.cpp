// The documented list of members is the one of the tables.
#include "MemberList.h"
#include "Scratch.h"

#include <gtest/gtest.h>

TEST(MemberList, IsTheDocumentedOne)
{
    // To renew it: office_members > docs/office-members.md
    EXPECT_EQ(ReadWholeFile(ZEK_MEMBER_LIST), MemberList());
}
