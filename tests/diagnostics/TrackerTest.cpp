#include "Support.h"

#include <AllocMap.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <list>
#include <map>
#include <memory>
#include <random>
#include <thread>

namespace {

constexpr std::uintptr_t kBuckets = 100'009;

class Tracker : public AllocMap
{
public:
    using AllocMap::CheckState;
    using AllocMap::IsFileToSkip;
};

void SetPeriod(const char* period)
{
    SetTestValue("CheckMemoryNOP", period);
}

// An address that nobody dereferences.
void* At(std::uintptr_t address)
{
    return reinterpret_cast<void*>(address);
}

std::string Head(std::size_t live, std::size_t displaced, int liveSize, int displacedSize, int failures)
{
    CString text;
    text.Format("*** Number of memory leak active: %d\n*** Number of memory leak in process: %d\n"
                "*** Size of memory leak active: %d\n*** Size of memory leak in process: %d\n"
                "*** Total memory leak size: %d\n*** Number of delete failure(not found): %d\n\n",
                static_cast<int>(live), static_cast<int>(displaced), liveSize, displacedSize,
                liveSize + displacedSize, failures);
    return text.GetString();
}

class Tracking : public testing::Test
{
protected:
    Tracking() { Clear(); }
    ~Tracking() override
    {
        tracker.reset();
        Clear();
    }
    static void Clear()
    {
        SetPeriod(nullptr);
        SetTestValue("CheckMemoryStopAt", nullptr);
    }
    // The log as it would be now.
    std::string Log(int leaks) const
    {
        tracker->LogMemoryLeak();
        return folder.Log(leaks);
    }

    LogFolder folder;
    std::unique_ptr<Tracker> tracker = std::make_unique<Tracker>();
};

const std::string kNothing = Head(0, 0, 0, 0, 0) + "\n\nend...\n";

TEST_F(Tracking, NothingIsTrackedWithoutAPeriodAboveOne)
{
    for (const char* period : {static_cast<const char*>(nullptr), "", "0", "1", "-5", "none"}) {
        SCOPED_TRACE(period ? period : "(absent)");
        SetPeriod(period);
        EXPECT_EQ(tracker->CheckState(), 0);
        EXPECT_FALSE(AllocMap::IsTracking("a.cpp"));
        tracker->AddAllocInfo(At(0x1000), 8, "a.cpp", 1);
        tracker->DelAllocInfo(At(0x2000));
        EXPECT_EQ(Log(0), kNothing);
    }
}

TEST_F(Tracking, PeriodsFollowTheSwitch)
{
    struct Row {
        const char* period;
        int tracks;
        int logged; // leaks in the log that the change has written; -1: none
        int leaks;  // left from before the step's own allocation
    };
    const Row rows[] = {{"2", 1, -1, 0}, {"2", 1, -1, 1},  {"3", 1, 2, 0},  {"2", 0, -1, 0},
                        {"3", 0, -1, 0}, {"1", 0, -1, 0},  {"4", 1, -1, 0}, {"", 0, -1, 0},
                        {"4", 0, -1, 0}, {"5x", 1, -1, 0}, {"12", 1, 1, 0}, {"-1", 0, -1, 0}};
    std::uintptr_t address = 0x10000;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.period);
        SetPeriod(row.period);
        EXPECT_EQ(tracker->CheckState(), row.tracks);
        for (int leaks = 0; leaks < 5; ++leaks)
            EXPECT_EQ(folder.Log(leaks).empty(), leaks != row.logged) << leaks;
        address += 0x10;
        tracker->AddAllocInfo(At(address), 8, "a.cpp", 7);
        const std::string log = Log(row.leaks + row.tracks);
        EXPECT_TRUE(log.starts_with(
            Head(static_cast<std::size_t>(row.leaks + row.tracks), 0, 8 * (row.leaks + row.tracks), 0, 0)))
            << log;
        for (int leaks = 0; leaks < 5; ++leaks)
            Remove(folder.Path(leaks));
    }
}

TEST_F(Tracking, APeriodStartsCountingAnew)
{
    SetPeriod("2");
    tracker->AddAllocInfo(At(0x1230), 5, "C:\\src\\Model.cpp", 12);
    tracker->AddAllocInfo(At(0x1230), 6, "C:\\src\\Model.cpp", 13);
    tracker->DelAllocInfo(nullptr);
    SetPeriod("3");
    tracker->AddAllocInfo(At(0xABCDE0), 7, "View.cpp", 14);
    EXPECT_EQ(folder.Log(2),
              Head(1, 1, 6, 5, 1) +
                  "NO1     KEY 2          < size 6           ptr 1230        line 13     :Model.cpp\n"
                  "\n"
                  "NO0     KEY 1          < size 5           ptr 1230        line 12     :Model.cpp\n"
                  "\nend...\n");
    EXPECT_EQ(Log(1), Head(1, 0, 7, 0, 0) +
                          "NO1     KEY 1          < size 7           ptr abcde0      line 14     :View.cpp\n"
                          "\n\nend...\n");
}

TEST_F(Tracking, WhatIsDeletedIsForgotten)
{
    SetPeriod("2");
    tracker->AddAllocInfo(At(0x1000), 8, "a.cpp", 1);
    tracker->SetDeleteInfo("b.cpp", 2);
    tracker->DelAllocInfo(At(0x1000));
    tracker->DelAllocInfo(At(0x1000));
    tracker->AddAllocInfo(nullptr, 3, nullptr, -4);
    EXPECT_EQ(Log(1),
              Head(1, 0, 3, 0, 1) +
                  "NO1     KEY 2          < size 3           ptr 0           line -4     :\n\n\nend...\n");
    tracker->DelAllocInfo(nullptr);
    EXPECT_EQ(Log(0), Head(0, 0, 0, 0, 1) + "\n\nend...\n");
}

TEST_F(Tracking, TheFramesTemplatesAreSkipped)
{
    struct Row {
        const char* file;
        int skipped;
    };
    const Row rows[] = {{"afxtempl.h", 1},          {"AFXTEMPL.H", 1}, {"AfxTempl.h", 1}, {"afxtempl.hpp", 0},
                        {"C:\\mfc\\afxtempl.h", 0}, {"afxtempl", 0},   {"", 0},           {nullptr, 0}};
    SetPeriod("2");
    int recorded = 0;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.file ? row.file : "(null)");
        EXPECT_EQ(tracker->IsFileToSkip(row.file), row.skipped);
        tracker->AddAllocInfo(At(0x1000 + 0x10 * static_cast<std::uintptr_t>(&row - rows)), 1, row.file, 1);
        recorded += !row.skipped;
        EXPECT_NE(Log(recorded), "");
    }
    SetPeriod("3"); // a skipped file does not even look
    tracker->AddAllocInfo(At(0x1), 1, "afxtempl.h", 1);
    tracker->SetDeleteInfo("afxtempl.h", 1);
    EXPECT_EQ(Log(recorded).substr(0, 37),
              "*** Number of memory leak active: " + std::to_string(recorded) + "\n*");
}

// What stands behind the last backslash is shown, unless that is the first character.
TEST_F(Tracking, FilesAreShownWithoutTheirFolders)
{
    struct Row {
        const char* file;
        const char* shown;
    };
    const Row rows[] = {{"C:\\a\\b.cpp", "b.cpp"},
                        {"\\b.cpp", "\\b.cpp"},
                        {"/src/b.cpp", "/src/b.cpp"},
                        {"x\\", ""},
                        {"\\a\\b", "b"},
                        {"", ""}};
    SetPeriod("2");
    std::string expected;
    int number = 0;
    for (const Row& row : rows) {
        char file[32]; // the name is kept, not its place
        std::snprintf(file, sizeof file, "%s", row.file);
        tracker->AddAllocInfo(At(0x10 * static_cast<std::uintptr_t>(++number)), 1, file, 9);
        CString line;
        line.Format("NO%-5d KEY %-10d < size 1           ptr %-10x  line 9      :%s\n", number, number,
                    0x10 * number, row.shown);
        expected += line;
    }
    EXPECT_EQ(Log(number), Head(6, 0, 6, 0, 0) + expected + "\n\nend...\n");
}

TEST_F(Tracking, SizesAndSumsAreShownIn32Bits)
{
    SetPeriod("2");
    tracker->AddAllocInfo(At(0x10), 0xFFFFFFFFU, "a", 1);
    tracker->AddAllocInfo(At(0x20), 3, "a", 123456);
    EXPECT_EQ(Log(2), Head(2, 0, 2, 0, 0) +
                          "NO1     KEY 1          < size -1          ptr 10          line 1      :a\n"
                          "NO2     KEY 2          < size 3           ptr 20          line 123456  :a\n"
                          "\n\nend...\n");
}

TEST_F(Tracking, TheStopIsOnlyABreakpoint)
{
    SetPeriod("2");
    SetTestValue("CheckMemoryStopAt", "2");
    for (std::uintptr_t address = 0x10; address <= 0x30; address += 0x10)
        tracker->AddAllocInfo(At(address), 1, "a", 1);
    EXPECT_NE(Log(3), "");
}

// Another process changes the switch: the very next call knows.
TEST_F(Tracking, AChangeByAnotherProcessCountsAtOnce)
{
    EXPECT_EQ(tracker->CheckState(), 0);
    ASSERT_EQ(RunHost("set CheckMemoryNOP 2"), 0);
    tracker->AddAllocInfo(At(0x10), 1, "a", 1);
    ASSERT_EQ(RunHost("set CheckMemoryNOP 3"), 0);
    tracker->DelAllocInfo(At(0x10));
    EXPECT_NE(folder.Log(1), "") << "the period before";
    EXPECT_EQ(Log(0), Head(0, 0, 0, 0, 1) + "\n\nend...\n");
    ASSERT_EQ(RunHost("set CheckMemoryNOP 1"), 0);
    EXPECT_EQ(tracker->CheckState(), 0);
}

TEST_F(Tracking, TheOperatorsReachTheInstance)
{
    SetPeriod("2");
    void* block = operator new(24, "C:\\a.cpp", 5, 1.0F);
    void* array = operator new[](std::size_t{10}, "a.cpp", 6, 1.0F);
    ASSERT_NE(block, nullptr);
    EXPECT_NE(Log(2), "");
    PreDelete("a.cpp", 8);
    operator delete(block, "a.cpp", 9, 1.0F);
    operator delete[](array, "a.cpp", 9, 1.0F);
    operator delete(nullptr, "a.cpp", 10, 1.0F);
    EXPECT_EQ(Log(0), Head(0, 0, 0, 0, 1) + "\n\nend...\n");
}

TEST(TrackerInstance, IsTheLastConstructed)
{
    const LogFolder folder;
    EXPECT_EQ(AllocMap::Instance(), nullptr);
    EXPECT_FALSE(AllocMap::IsTracking("a.cpp"));
    {
        const AllocMap first;
        EXPECT_EQ(AllocMap::Instance(), &first);
        const AllocMap second;
        EXPECT_EQ(AllocMap::Instance(), &second);
    }
    EXPECT_EQ(AllocMap::Instance(), nullptr);
    EXPECT_EQ(folder.Log(0), kNothing) << "written at the end, though nothing was tracked";
    void* block = operator new(8, "a.cpp", 1, 1.0F); // goes on without a tracker
    PreDelete("a.cpp", 2);
    operator delete(block, "a.cpp", 2, 1.0F);
}

TEST(TrackerInstance, DoesNotMakeTheFolder)
{
    std::string path;
    {
        const LogFolder folder;
        path = folder.Path(0);
    }
    AllocMap().LogMemoryLeak();
    EXPECT_FALSE(Exists(path.substr(0, path.rfind('\\'))));
}

// The table as it is described: chains that begin with their newest entry.
class Chains
{
public:
    void Add(std::uintptr_t address, int size, int line)
    {
        ++m_key;
        std::list<Entry>& chain = m_chains[(address >> 4) % kBuckets];
        for (Entry& entry : chain) {
            if (entry.address == address) {
                m_displaced.push_back(entry);
                entry = {m_key, address, size, line};
                return;
            }
        }
        chain.push_front({m_key, address, size, line});
    }
    void Delete(std::uintptr_t address)
    {
        const auto isIt = [&](const Entry& entry) { return entry.address == address; };
        if (m_chains[(address >> 4) % kBuckets].remove_if(isIt) == 0)
            ++m_failures;
    }
    int Leaks() const { return static_cast<int>(m_displaced.size()) + Live(); }
    std::string Log() const
    {
        std::string live, displaced;
        int number = 1, liveSize = 0, displacedSize = 0;
        for (const auto& [bucket, chain] : m_chains)
            for (const Entry& entry : chain) {
                live += Line(number++, entry);
                liveSize += entry.size;
            }
        number = 0;
        for (const Entry& entry : m_displaced) {
            displaced += Line(number++, entry);
            displacedSize += entry.size;
        }
        return Head(static_cast<std::size_t>(Live()), m_displaced.size(), liveSize, displacedSize,
                    m_failures) +
               live + "\n" + displaced + "\nend...\n";
    }

private:
    struct Entry {
        int key;
        std::uintptr_t address;
        int size;
        int line;
    };

    int Live() const
    {
        std::size_t count = 0;
        for (const auto& [bucket, chain] : m_chains)
            count += chain.size();
        return static_cast<int>(count);
    }
    static std::string Line(int number, const Entry& entry)
    {
        CString text;
        text.Format("NO%-5d KEY %-10d < size %-10d  ptr %-10I64x  line %-5d  :m.cpp\n", number, entry.key,
                    entry.size, static_cast<LONGLONG>(entry.address), entry.line);
        return text.GetString();
    }

    int m_key = 0;
    int m_failures = 0;
    std::map<std::uintptr_t, std::list<Entry>> m_chains;
    std::list<Entry> m_displaced;
};

TEST_F(Tracking, LogsAsTheChainsWouldStand)
{
    std::mt19937 random(20'240'607);
    for (const int steps : {10, 1'000, 30'000}) {
        SCOPED_TRACE(steps);
        SetPeriod(std::to_string(steps).c_str());
        Chains chains;
        for (int step = 0; step < steps; ++step) {
            // Few buckets, so that chains grow, and few addresses, so that they come and go again and again.
            const std::uintptr_t address =
                ((random() % 50) + kBuckets * (random() % (static_cast<unsigned>(steps) / 100 + 1))) * 16 +
                random() % 2;
            const int size = static_cast<int>(random() % 1000);
            if (random() % 3 != 0) {
                tracker->AddAllocInfo(At(address), static_cast<unsigned>(size), "C:\\m.cpp", step);
                chains.Add(address, size, step);
            } else {
                tracker->DelAllocInfo(At(address));
                chains.Delete(address);
            }
        }
        EXPECT_EQ(Log(chains.Leaks()), chains.Log());
    }
}

TEST_F(Tracking, ThreadsLoseNothing)
{
    constexpr int kThreads = 4, kBlocks = 2'000;
    SetPeriod("2");
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&, i] {
            for (int block = 1; block <= kBlocks; ++block) {
                const std::uintptr_t address = static_cast<std::uintptr_t>(i * kBlocks + block) * 16;
                tracker->AddAllocInfo(At(address), 1, "thread.cpp", block);
                tracker->SetDeleteInfo("thread.cpp", block);
                if (block % 2 == 0)
                    tracker->DelAllocInfo(At(address));
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_TRUE(Log(kThreads * kBlocks / 2)
                    .starts_with(Head(kThreads * kBlocks / 2, 0, kThreads * kBlocks / 2, 0, 0)));
}

} // namespace
