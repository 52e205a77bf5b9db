// The examples of docs/diagnostics.md, as they stand there.
#include "Scratch.h"

#include <ZEK_lib.h>

#include <gmock/gmock.h>

#define MEMORY_LEAK_TESTER_PLAIN_DELETE // the test framework's macros delete functions

#define MEMORY_LEAK_TESTER_INSTANCE // in one source of the program
#include <MemoryLeakTester.h>       // the last include of each

namespace {

struct Load {
    double force[3];
};

Load* ReadLoad(bool isValid)
{
    Load* load = new Load();
    if (!isValid)
        return nullptr; // the load is lost
    return load;
}

void SetPeriod(const char* period)
{
    CRegistry::WriteProfileString("HKEY_CURRENT_USER\\Software\\TOVEN\\TEST", "CheckMemoryNOP", period);
}

void Assemble()
{
    ZEK_PROFILE_FUNCTION();
}

void Solve()
{
    ZEK_PROFILE_SCOPE("Solve");
    Assemble();
}

class CListPrinter : public CProfilePrinterAdaptor
{
public:
    void PrintLine(const char* text) override { m_lines.Add(text); }

    CStringArray m_lines;
};

TEST(Guide, ALeakStepByStep)
{
    const CString folder = GetProgramPath() + "\\Temporary";
    CreateDirectoryA(folder, nullptr);
    SetPeriod("2"); // what a tester does with zek-reg
    Load* good = ReadLoad(true);
    Load* bad = ReadLoad(false);
    delete good;
    SetPeriod("3");
    Load* next = ReadLoad(true); // any tracked call: the log is written now
    EXPECT_FALSE(bad);
    delete next;
    CString log;
    CFile file(folder + "\\memory leak.1.log.nas", CFile::modeRead);
    const int length = static_cast<int>(file.GetLength());
    log.ReleaseBuffer(static_cast<int>(file.Read(log.GetBuffer(length), static_cast<UINT>(length))));
    EXPECT_GE(log.Find("NO1     KEY 2          < size 24 "), 0) << log;
    EXPECT_GE(log.Find("*** Number of memory leak active: 1\n"), 0);
    SetPeriod(nullptr);
}

TEST(Guide, FunctionsAreTimed)
{
    CProfileMgr::StartProfilingST();
    Solve();
    CProfileMgr::StopProfilingST();
    CListPrinter printer;
    CProfileMgr::PrintST(&printer); // "FILE(LINE) NAME : CALLS, SECONDS", who finished first comes first
    ASSERT_EQ(printer.m_lines.GetSize(), 3);
    EXPECT_GE(printer.m_lines[1].Find("Assemble"), 0);
    EXPECT_GE(printer.m_lines[2].Find(") Solve : 1, "), 0);
}

TEST(Guide, SectionsAndLines)
{
    ZEK_PROFILE_SECTION("read deck"); // the rest of the block
    {
        ZEK_PROFILE_BLOCK(); // under the name of its place
    }
    Profiler::GetInstance().LinesByCheckStart("sort");
    Profiler::GetInstance().LinesByCheckEnd();
}

TEST(Guide, AStopwatch)
{
    const ScratchFolder folder;
    const CString path = folder.Path("bench.txt").c_str();
    CBenchmark& watch = *CBenchmark::Instance();
    watch.Start(1000); // in units of 1000 ticks of the processor's counter
    ULONGLONG before = watch.CLOCK();
    Solve();
    ULONGLONG units = watch.CLOCK() - before;
    int written = watch.OutputReport(path); // 1; 0 when the file cannot be written
    EXPECT_LT(units, before + units);
    EXPECT_EQ(written, 1);
}

} // namespace
