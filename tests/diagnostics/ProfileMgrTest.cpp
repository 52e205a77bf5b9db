#include "Support.h"

#include <ProfileMgr.h>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char* kReport = "C:\\profile.txt";
constexpr const char* kTitle = "*** Dumping Profiling Result ***";

class Printer : public CProfilePrinterAdaptor
{
public:
    explicit Printer(std::vector<std::string>& calls, int answer = 1) : m_calls(calls), m_answer(answer) {}
    ~Printer() override { m_calls.push_back("(deleted)"); }
    int BeforePrint() override
    {
        m_calls.push_back("(before)");
        return m_answer;
    }
    void PrintLine(const char* text) override { m_calls.push_back(text); }
    void AfterPrint() override { m_calls.push_back("(after)"); }

private:
    std::vector<std::string>& m_calls;
    int m_answer;
};

// A table of a test's own, beside the shared one.
class Manager : public CProfileMgr
{
public:
    using CProfileMgr::CalledST;
    using CProfileMgr::CompareProfileDataST;
    using CProfileMgr::Print;
};

std::vector<std::string> PrintShared(int answer = 1)
{
    std::vector<std::string> calls;
    {
        Printer printer(calls, answer);
        CProfileMgr::PrintST(&printer);
    }
    EXPECT_EQ(calls.back(), "(deleted)");
    calls.pop_back();
    return calls;
}

// The shared table is never cleared: the tests below run in this order, in one process.
TEST(ScopedProfiler, RecordsNothingWhileStopped)
{
    {
        const CProfiler stopped("a.cpp", 1, "stopped");
        CProfileMgr::StartProfilingST(); // too late for this one
    }
    {
        const CProfiler dropped("a.cpp", 2, "dropped");
        CProfileMgr::StopProfilingST();
    }
    EXPECT_THAT(PrintShared(), IsEmpty()) << "an empty table calls nothing";
    CProfileMgr::PrintST(nullptr);
    Manager().Print(nullptr);
}

TEST(ScopedProfiler, CountsByNameInTheOrderOfCompletion)
{
    CProfileMgr::StartProfilingST();
    {
        const CProfiler outer("A.cpp", 10, "A");
        const CProfiler inner("B.cpp", 20, "B"); // ends first
    }
    {
        char name[] = "B";
        const CProfiler again("C.cpp", 30, name); // the first one's label stands
    }
    Manager::CalledST("D.cpp", 40, "D", 1500);
    Manager::CalledST("D.cpp", 40, "D", 1);
    char reused[] = "E";
    Manager::CalledST("E.cpp", 50, reused, 10'000'000);
    reused[0] = 'D'; // the text counts, not its address
    Manager::CalledST("E.cpp", 51, reused, -1);
    CProfileMgr::StopProfilingST();
    EXPECT_THAT(PrintShared(), ElementsAre("(before)", kTitle, testing::StartsWith("B.cpp(20) B : 2, "),
                                           testing::StartsWith("A.cpp(10) A : 1, "), "D.cpp(40) D : 3, 1.5",
                                           "E.cpp(50) E : 1, 10000", "(after)"));
    EXPECT_THAT(PrintShared(0), ElementsAre("(before)"));
}

TEST(ScopedProfiler, FindsAnyNumberOfNames)
{
    std::vector<std::string> names;
    for (int i = 0; i < 3000; ++i)
        names.push_back("function " + std::to_string(i));
    for (int round = 0; round < 2; ++round)
        for (const std::string& name : names)
            Manager::CalledST("many.cpp", 1, name.c_str(), 5);
    const std::vector<std::string> lines = PrintShared();
    ASSERT_EQ(lines.size(), 3007U);
    EXPECT_EQ(lines[3005], "many.cpp(1) function 2999 : 2, 0.01");
}

TEST(ScopedProfiler, ComparesIdsAsSignedNumbers)
{
    const T_PROFILE_DATA one{1, 9, 9}, two{2, 0, 0}, minus{0x80000000U, 0, 0};
    EXPECT_LT(Manager::CompareProfileDataST(&one, &two), 0);
    EXPECT_GT(Manager::CompareProfileDataST(&two, &one), 0);
    EXPECT_EQ(Manager::CompareProfileDataST(&one, &one), 0);
    EXPECT_LT(Manager::CompareProfileDataST(&minus, &one), 0);
}

TEST(ScopedProfiler, AReporterPrintsAtItsEndAndDeletesWhatItOwns)
{
    std::vector<std::string> calls;
    {
        const CProfileReporter owner(new Printer(calls, 0), 1);
    }
    EXPECT_THAT(calls, ElementsAre("(before)", "(deleted)"));
    calls.clear();
    Printer kept(calls, 0);
    {
        const CProfileReporter reporter(&kept, 0);
        const CProfileReporter copy = reporter;
    }
    EXPECT_THAT(calls, ElementsAre("(before)", "(before)"));
}

TEST(ScopedProfiler, AReporterWithoutAPrinterWritesTheFile)
{
    Remove(kReport);
    {
        const CProfileReporter reporter;
    }
    EXPECT_EQ(Lines(ReadFile(kReport), "\r\n").size(), 3005U);
    Remove(kReport);
    ASSERT_TRUE(CreateDirectoryA(kReport, nullptr));
    {
        const CProfileReporter reporter; // silent
    }
    Remove(kReport);
}

class LoadedProfiler : public testing::Test
{
protected:
    LoadedProfiler() { Clear(); }
    ~LoadedProfiler() override { Clear(); }
    static void Clear()
    {
        Remove(kReport);
        SetTestValue("Profiling", nullptr);
        SetTestValue("ProfSkipZero", nullptr);
    }
};

TEST_F(LoadedProfiler, RunsFromTheLoadOnIfTheSwitchIsExactlyYes)
{
    for (const char* value : {"", "Yes", "yes ", "1"}) {
        SCOPED_TRACE(value);
        SetTestValue("Profiling", value);
        EXPECT_EQ(RunHost("scoped"), 3);
        EXPECT_FALSE(Exists(kReport)) << "nothing was recorded";
    }
    SetTestValue("Profiling", "yes");
    EXPECT_EQ(RunHost("scoped"), 4);
    EXPECT_THAT(Lines(ReadFile(kReport), "\r\n"),
                ElementsAre(kTitle, testing::StartsWith("host.cpp(20) main : 1, ")));
}

// A call of no time at all; the host could meet the tick of a clock, so it is tried until it does not.
TEST_F(LoadedProfiler, LeavesFunctionsWithoutTimeOut)
{
    SetTestValue("Profiling", "yes");
    SetTestValue("ProfSkipZero", "yes");
    std::vector<std::string> lines;
    for (int i = 0; i < 20 && lines.size() != 1; ++i) {
        Remove(kReport);
        ASSERT_EQ(RunHost("scoped"), 4);
        lines = Lines(ReadFile(kReport), "\r\n");
    }
    EXPECT_THAT(lines, ElementsAre(kTitle));
    ASSERT_EQ(RunHost("slow"), 0);
    EXPECT_THAT(Lines(ReadFile(kReport), "\r\n"),
                ElementsAre(kTitle, testing::StartsWith("host.cpp(21) slow : 1, 0.0")));
}

} // namespace
