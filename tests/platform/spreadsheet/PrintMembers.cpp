// Prints the list of members that docs/office-members.md holds.
#include "MemberList.h"

#include <cstdio>

int main()
{
    return std::fputs(MemberList().c_str(), stdout) < 0 ? 1 : 0;
}
