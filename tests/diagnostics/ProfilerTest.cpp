#include "Support.h"

#include <ProfileScope.h>

#include <gmock/gmock.h>

#include <cmath>

using testing::ElementsAre;
using testing::StartsWith;

namespace {

constexpr const char* kReport = "C:\\PROF.RLT";
const std::string kSectionHead = "     WorkSec WorkOnlySec    ChildSec   count    function";
const std::string kLineRule =
    "+Frofiling by lines---------------------------------------------------------------";
const std::string kLineHead = "     WorkSec   count  lines_name";
const std::string kSkipRule =
    "+Skiped Frofiling by lines----------------------------------------------------------";
const std::string kSkipHead = "   count  lines_name";

class LineProfiler : public testing::Test
{
protected:
    LineProfiler() { Remove(kReport); }
    ~LineProfiler() override { Remove(kReport); }
};

struct Row {
    double work, own, child;
    std::string rest;
};

// A row of three columns of 12 and what follows.
Row Parse(const std::string& line)
{
    return {std::stod(line.substr(0, 12)), std::stod(line.substr(12, 12)), std::stod(line.substr(24, 12)),
            line.substr(36)};
}

TEST_F(LineProfiler, ReportsSectionsLinesAndSkippedLines)
{
    ASSERT_EQ(RunHost("both"), 0);
    const std::vector<std::string> lines = Lines(ReadFile(kReport), "\r\n");
    ASSERT_THAT(lines, testing::SizeIs(12)) << ReadFile(kReport);
    EXPECT_EQ(lines[0], kSectionHead);
    const Row inner = Parse(lines[1]);
    EXPECT_EQ(inner.rest, "      2        Inner") << "capital letters first";
    EXPECT_DOUBLE_EQ(inner.child, 0);
    std::size_t next = 2;
    EXPECT_EQ(Parse(lines[next++]).rest, "      1 in a static destructor") << "which the library outlives";
    const Row outer = Parse(lines[next++]);
    EXPECT_EQ(outer.rest, "      1 outer section");
    EXPECT_NEAR(outer.child, inner.work, 1.1e-6);
    EXPECT_NEAR(outer.own, outer.work - outer.child, 1.1e-6);
    EXPECT_GE(outer.own, 0);
    EXPECT_EQ(lines[next++], "");
    EXPECT_EQ(lines[next++], kLineRule);
    EXPECT_EQ(lines[next++], kLineHead);
    EXPECT_THAT(lines[next++], HasForm(" +[0-9]+\\.[0-9][0-9][0-9][0-9][0-9][0-9]      2            y"));
    EXPECT_EQ(lines[next++], "");
    EXPECT_EQ(lines[next++], kSkipRule);
    EXPECT_EQ(lines[next++], kSkipHead);
    EXPECT_EQ(lines[next++], "      2            x");
}

// What is open is not reported, and nothing is lost of the rest.
TEST_F(LineProfiler, ReportsWhenAHostExitsInTheMiddle)
{
    Remove("C:\\profile.txt");
    ASSERT_EQ(RunHost("exit"), 5);
    const std::vector<std::string> lines = Lines(ReadFile(kReport), "\r\n");
    ASSERT_EQ(lines.size(), 9U);
    EXPECT_EQ(Parse(lines[1]).rest, "      2        Inner");
    EXPECT_EQ(Parse(lines[2]).rest, "      1 outer section");
    EXPECT_THAT(Lines(ReadFile("C:\\profile.txt"), "\r\n"),
                ElementsAre("*** Dumping Profiling Result ***", StartsWith("host.cpp(12) Done : 1, ")));
    Remove("C:\\profile.txt");
}

TEST_F(LineProfiler, HasAllHeadsWithoutAnySection)
{
    ASSERT_EQ(RunHost("silent"), 0);
    EXPECT_THAT(Lines(ReadFile(kReport), "\r\n"),
                ElementsAre(kSectionHead, "", kLineRule, kLineHead, "", kSkipRule, kSkipHead));
}

TEST_F(LineProfiler, SurvivesMisuse)
{
    ASSERT_EQ(RunHost("misuse"), 0);
    const std::vector<std::string> lines = Lines(ReadFile(kReport), "\r\n");
    ASSERT_EQ(lines.size(), 8U);
    EXPECT_EQ(Parse(lines[1]).rest, "      1        guard");
}

TEST_F(LineProfiler, SurvivesADestinationThatCannotBeWritten)
{
    ASSERT_TRUE(CreateDirectoryA(kReport, nullptr));
    EXPECT_EQ(RunHost("both"), 0);
    Remove(kReport);
    EXPECT_FALSE(Exists(kReport)) << "still an empty folder";
}

// Copies have a state of their own, and report it.
TEST_F(LineProfiler, ACopyReportsWhatItsSourceKnew)
{
    Profiler& shared = Profiler::GetInstance();
    shared.StackPush("before");
    shared.StackPop();
    {
        Profiler copy = shared;
        copy.StackPush("of the copy");
        copy.StackPop();
        copy.LinesByCheckStart("line");
        Profiler assigned = copy;
        assigned = *&assigned;
        assigned.LinesByCheckEnd();
        Remove(kReport);
    }
    const std::vector<std::string> lines = Lines(ReadFile(kReport), "\r\n");
    ASSERT_EQ(lines.size(), 9U) << "of the copy, which ended last";
    EXPECT_EQ(Parse(lines[1]).rest, "      1       before");
    EXPECT_EQ(Parse(lines[2]).rest, "      1  of the copy");
}

TEST(ProfileScopes, NameThePlace)
{
    for (const char* file : {"Model.cpp", "/src/Model.cpp", "C:\\src\\Model.cpp", "..\\src/Model.cpp"})
        EXPECT_STREQ(ZekSectionName(file, 12, "int main()"), "Model.cpp(12) int main()");
    EXPECT_NE(std::string(ZEK_PROFILE_FUNCTION_NAME).find("ProfileScopes"), std::string::npos);
    ZEK_PROFILE_FUNCTION();
    ZEK_PROFILE_SECTION("section");
    ZEK_PROFILE_BLOCK();
    {
        ZEK_PROFILE_SCOPE("nested");
    }
}

} // namespace
