#include "Timing.h"

#include <cstdio>
#include <ctime>

namespace {

constexpr int kRepeats = 15;
constexpr double kEnoughSeconds = 0.02;

// Of this process alone: a machine that does something else besides tells the same.
double Now()
{
    struct timespec now = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

bench::Phases SecondsOf(const std::function<void()>& work)
{
    work(); // warms up
    int calls = 0;
    const double begin = Now();
    double end = begin;
    for (int batch = 1; end - begin < kEnoughSeconds; batch *= 2) { // few looks at a clock that is dear
        for (int i = 0; i < batch; ++i)
            work();
        calls += batch;
        end = Now();
    }
    return {(end - begin) / calls};
}

} // namespace

bench::Contender Timed(const std::string& name, std::function<void()> work)
{
    return {name, [work = std::move(work)] { return SecondsOf(work); }};
}

std::vector<bench::Result> RunAndPrint(const std::string& label,
                                       const std::vector<bench::Contender>& contenders, std::size_t units)
{
    const std::vector<bench::Result> results = bench::RunAll(contenders, kRepeats);
    for (const bench::Result& result : results)
        std::printf("%-18s %-30s %10.2f ns +-%2.0f %%  library/this %6.2f\n", label.c_str(),
                    result.name.c_str(), result.Median() / static_cast<double>(units) * 1e9,
                    50 * result.Spread(), results.front().Median() / result.Median());
    std::fflush(stdout);
    return results;
}

std::uint32_t Numbers::Next()
{
    std::uint64_t z = m_state += 0x9E3779B97F4A7C15U;
    z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9U;
    z = (z ^ z >> 27) * 0x94D049BB133111EBU;
    return static_cast<std::uint32_t>((z ^ z >> 31) >> 32);
}
