// What the host does for tests of the profilers' reports, which are written when a process ends.
#include "Host.h"

#include <ProfileScope.h>

#include <cstdlib>

namespace {

// Outlives everything that main() makes.
struct Late {
    bool used = false;
    ~Late()
    {
        if (used) {
            const ProfileWrite section("in a static destructor");
            const CProfiler profiler("late.cpp", 1, "late");
        }
    }
} g_late;

void Nested()
{
    const ProfileWrite outer("outer section");
    for (int i = 0; i < 2; ++i)
        const ProfileWrite inner("Inner");
}

void Lines()
{
    Profiler& profiler = Profiler::GetInstance();
    for (int i = 0; i < 2; ++i) {
        profiler.LinesByCheckStart("x");
        profiler.LinesByCheckStart("y");
        profiler.LinesByCheckEnd();
    }
    profiler.LinesByCheckStart("pending");
}

int ExitInside()
{
    Nested();
    const ProfileWrite open("open");
    CProfileMgr::StartProfilingST();
    {
        const CProfiler done("host.cpp", 12, "Done");
    }
    const CProfiler unfinished("host.cpp", 13, "Unfinished");
    std::exit(5);
}

int Misuse()
{
    Profiler& profiler = Profiler::GetInstance();
    for (int i = 0; i < 100; ++i) {
        profiler.StackPop();
        profiler.LinesByCheckEnd();
    }
    {
        const ProfileWrite guard("guard");
        const ProfileWrite copy = guard; // its end closes the guard's section
    }
    Profiler::DestroyInstance();
    return 0;
}

int Scoped()
{
    const CProfiler profiler("host.cpp", 20, "main");
    return CProfileMgr::IsStopped() ? 3 : 4;
}

int Slow()
{
    const CProfiler profiler("host.cpp", 21, "slow");
    Sleep(5);
    return 0;
}

int Both()
{
    Nested();
    Lines();
    g_late.used = true;
    return 0;
}

} // namespace

int RunReport(const std::string& name)
{
    struct Row {
        const char* name;
        int (*run)();
    };
    static constexpr Row kRows[] = {
        {"both", Both},     {"exit", ExitInside},
        {"misuse", Misuse}, {"scoped", Scoped},
        {"slow", Slow},     {"silent", [] { return Profiler::GetInstance().LinesByCheckStart("only"), 0; }}};
    for (const Row& row : kRows)
        if (name == row.name)
            return row.run();
    return 99;
}
