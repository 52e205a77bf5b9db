// What a profiled scope costs, against the bare pair of clock readings that it makes.
//
//   scopes
#include "Measure.h"

#include <ZEK_lib.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int kScopes = 2'000'000;

// Nanoseconds of one call, the least of nine runs.
template <class CALL>
double Time(CALL call)
{
    double least = 1e300;
    for (int run = 0; run < 9; ++run) {
        const double start = bench::Now();
        for (int i = 0; i < kScopes; ++i)
            call(i);
        least = std::min(least, (bench::Now() - start) / kScopes * 1e9);
    }
    return least;
}

void PrintRow(const char* name, double time, double pair)
{
    std::printf("%-36s %7.2f ns  %5.2f x the pair\n", name, time, pair > 0 ? time / pair : 1.0);
}

double Scopes(const std::vector<std::string>& names)
{
    const std::size_t mask = names.size() - 1;
    return Time(
        [&](int i) { const CProfiler scope("a.cpp", 1, names[static_cast<std::size_t>(i) & mask].c_str()); });
}

} // namespace

int main()
{
    const double pair = Time([](int) {
        LARGE_INTEGER start, end;
        QueryPerformanceCounter(&start);
        QueryPerformanceCounter(&end);
        __asm__ volatile("" : : "r"(end.QuadPart - start.QuadPart));
    });
    PrintRow("pair of clock readings", pair, pair);
    PrintRow("scope, profiling stopped", Time([](int) {
                 const CProfiler scope("a.cpp", 1, "stopped");
                 __asm__ volatile("" : : "r"(&scope));
             }),
             pair);
    CProfileMgr::StartProfilingST();
    for (const std::size_t count : {1U, 16U, 256U, 8192U}) {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < count; ++i)
            names.push_back("CModelBuilder::BuildElementGroup" + std::to_string(i));
        PrintRow(("scope, " + std::to_string(count) + " functions").c_str(), Scopes(names), pair);
    }
    CProfileMgr::StopProfilingST();
    CProfilePrinterAdaptor* none = nullptr;
    CProfileMgr::PrintST(none);
    std::fflush(stdout);
    std::_Exit(0);
}
