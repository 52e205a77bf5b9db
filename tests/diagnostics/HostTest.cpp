// Whole processes under the tracker.
#include "Support.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <regex>

using testing::ElementsAre;

namespace {

struct Record {
    int number;
    int key;
    std::uint64_t address;
    std::string rest; // size, line and file
};

// A record's line, whose columns are checked.
Record Parse(const std::string& line)
{
    static const std::regex kForm(
        "NO([0-9]+) *KEY ([0-9]+) *< size ([0-9]+) *  ptr ([0-9a-f]+) *  line ([0-9]+) *  :(.*)");
    std::smatch parts;
    if (!std::regex_match(line, parts, kForm)) {
        ADD_FAILURE() << line;
        return {};
    }
    const auto number = [&](std::size_t i) { return std::stoi(parts[i]); };
    const Record record{number(1), number(2), std::stoull(parts[4], nullptr, 16),
                        parts[3].str() + " " + parts[5].str() + " " + parts[6].str()};
    CString again;
    again.Format("NO%-5d KEY %-10d < size %-10d  ptr %-10I64x  line %-5d  :%s", record.number, record.key,
                 number(3), static_cast<LONGLONG>(record.address), number(5), parts[6].str().c_str());
    EXPECT_EQ(line, again.GetString());
    return record;
}

std::vector<Record> ParseAll(const std::vector<std::string>& lines, int firstNumber)
{
    std::vector<Record> records;
    for (const std::string& line : lines) {
        records.push_back(Parse(line));
        EXPECT_EQ(records.back().number, firstNumber++);
    }
    return records;
}

std::vector<std::string> ByKey(std::vector<Record> records)
{
    std::sort(records.begin(), records.end(), [](const Record& a, const Record& b) { return a.key < b.key; });
    std::vector<std::string> texts;
    for (const Record& record : records)
        texts.push_back(std::to_string(record.key) + ": " + record.rest);
    return texts;
}

bool StandInOrder(const Record& a, const Record& b)
{
    const auto bucket = [](const Record& record) { return (record.address >> 4) % 100'009; };
    return bucket(a) < bucket(b) || (bucket(a) == bucket(b) && a.key > b.key);
}

class Host : public testing::Test
{
protected:
    Host() { SetTestValue("CheckMemoryNOP", nullptr); }
    ~Host() override { SetTestValue("CheckMemoryNOP", nullptr); }

    LogFolder folder{HOST_PROGRAM};
};

TEST_F(Host, FindsThePlantedLeaks)
{
    ASSERT_EQ(RunHost("leaks"), 0);
    const std::vector<std::string> lines = Lines(folder.Log(6), "\n");
    ASSERT_EQ(lines.size(), 16U) << folder.Log(6);
    EXPECT_EQ(lines[0], "*** Number of memory leak active: 5");
    EXPECT_EQ(lines[1], "*** Number of memory leak in process: 1");
    const int sum = 4 + 100 + static_cast<int>(sizeof(std::string)) + 600 + 5000;
    EXPECT_EQ(lines[2], "*** Size of memory leak active: " + std::to_string(sum));
    EXPECT_EQ(lines[3], "*** Size of memory leak in process: 5000");
    EXPECT_EQ(lines[4], "*** Total memory leak size: " + std::to_string(sum + 5000));
    EXPECT_EQ(lines[5], "*** Number of delete failure(not found): 2");
    EXPECT_EQ(lines[6], "");
    const std::vector<Record> live = ParseAll({lines.begin() + 7, lines.begin() + 12}, 1);
    EXPECT_THAT(ByKey(live), ElementsAre("1: 4 102 Leaks.cpp", "2: 100 103 Leaks.cpp",
                                         "3: " + std::to_string(sizeof(std::string)) + " 104 Leaks.cpp",
                                         "4: 600 106 Leaks.cpp", "7: 5000 113 Leaks.cpp"));
    EXPECT_TRUE(std::is_sorted(live.begin(), live.end(), StandInOrder));
    EXPECT_EQ(lines[12], "");
    EXPECT_THAT(ByKey(ParseAll({lines[13]}, 0)), ElementsAre("6: 5000 111 Leaks.cpp"));
    EXPECT_EQ(lines[14], "");
    EXPECT_EQ(lines[15], "end...");
}

TEST_F(Host, WithoutAPeriodLogsZeros)
{
    EXPECT_EQ(RunHost("misuse"), 0);
    EXPECT_TRUE(folder.Log(0).starts_with("*** Number of memory leak active: 0\n")) << folder.Log(0);
}

// Whatever form a block was allocated with, nothing is left of it.
TEST_F(Host, KnowsAllFormsOfNewAndDelete)
{
    ASSERT_EQ(RunHost("forms"), 0);
    const std::string log = folder.Log(1);
    const std::vector<std::string> lines = Lines(log, "\n");
    ASSERT_EQ(lines.size(), 11U) << log;
    EXPECT_EQ(lines[5], "*** Number of delete failure(not found): 2") << log;
    EXPECT_TRUE(Parse(lines[7]).rest.starts_with("12 ")) << log;
}

} // namespace
