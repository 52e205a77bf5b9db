#include "Scratch.h"
#include "Support.h"

#include <Benchmark.h>

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

constexpr const char* kStamp =
    "\\{REPORT AT: [0-9]+\\.[0-9][0-9]\\.[0-9][0-9]  [0-9][0-9]:[0-9][0-9]:[0-9][0-9]\\} ";

std::string Head(const std::string& unit)
{
    return std::string(kStamp) + "\\[TIME SPAN: [0-9]+ ms\\] \\[BENCHMARK UNIT: " + unit + " CPU-TICKS\\]";
}

std::vector<std::string> Report()
{
    const ScratchFolder folder;
    EXPECT_EQ(CBenchmark::Instance()->OutputReport(folder.Path("report.txt").c_str()), 1);
    return Lines(ReadWholeFile(folder.Path("report.txt")), "\r\n");
}

TEST(Stopwatch, ReportsItsUnitAndNoRows)
{
    CBenchmark& watch = *CBenchmark::Instance();
    ASSERT_EQ(&watch, CBenchmark::Instance());
    EXPECT_THAT(Report(), ElementsAre(HasForm(Head("1000")), "")) << "before any start";
    struct Row {
        int unit;
        const char* shown;
    };
    for (const Row& row : {Row{7, "7"}, Row{0, "1"}, Row{-5, "1"}, Row{2147483647, "2147483647"}}) {
        SCOPED_TRACE(row.unit);
        watch.Start(row.unit);
        watch.Pause();
        watch.Mark("never");
        watch.Resume();
        EXPECT_THAT(Report(), ElementsAre(HasForm(Head(row.shown)), ""));
    }
}

TEST(Stopwatch, CountsInUnits)
{
    CBenchmark& watch = *CBenchmark::Instance();
    watch.Start(1);
    const ULONGLONG ticks = watch.CLOCK();
    EXPECT_GE(watch.CLOCK(), ticks);
    watch.Start(1'000'000);
    const ULONGLONG units = watch.CLOCK();
    EXPECT_GE(units, ticks / 1'000'000);
    EXPECT_LT(units, ticks / 1'000);
}

TEST(Stopwatch, WritesNothingWhereItCannot)
{
    const ScratchFolder folder;
    const std::string path = folder.Path("missing") + "\\report.txt";
    EXPECT_EQ(CBenchmark::Instance()->OutputReport(path.c_str()), 0);
    EXPECT_FALSE(Exists(folder.Path("missing")));
    EXPECT_EQ(CBenchmark::Instance()->OutputReport(folder.Path().c_str()), 0) << "a folder";
}

} // namespace
