#include "Measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bench {
namespace {

constexpr std::size_t kMaxPhases = 8;

double Quantile(std::vector<double> values, double part)
{
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1) + 0.5)];
}

std::vector<double> Sums(const std::vector<Phases>& runs)
{
    std::vector<double> sums;
    for (const Phases& run : runs)
        sums.push_back(std::accumulate(run.begin(), run.end(), 0.0));
    return sums;
}

[[noreturn]] void Stop(const std::string& name)
{
    std::fprintf(stderr, "%s failed\n", name.c_str());
    std::exit(1);
}

[[noreturn]] void RunChild(const Contender& contender, int out)
{
    const Phases phases = contender.run();
    const std::size_t size = phases.size() * sizeof(double);
    ::_exit(::write(out, phases.data(), size) == static_cast<ssize_t>(size) ? 0 : 1);
}

void RunOnce(const Contender& contender, Result& result)
{
    int ends[2] = {};
    if (::pipe(ends) != 0)
        Stop("pipe");
    const pid_t child = ::fork();
    if (child == 0)
        RunChild(contender, ends[1]);
    ::close(ends[1]);
    double phases[kMaxPhases];
    const ssize_t size = ::read(ends[0], phases, sizeof phases);
    ::close(ends[0]);
    int status = 0;
    struct rusage usage = {};
    if (::wait4(child, &status, 0, &usage) != child || status != 0 || size <= 0)
        Stop(contender.name);
    result.runs.emplace_back(phases, phases + static_cast<std::size_t>(size) / sizeof(double));
    result.peakKilobytes = std::max(result.peakKilobytes, usage.ru_maxrss);
}

} // namespace

double Result::Median() const
{
    return Quantile(Sums(runs), 0.5);
}

double Result::Median(std::size_t phase) const
{
    std::vector<double> values;
    for (const Phases& run : runs)
        values.push_back(run[phase]);
    return Quantile(values, 0.5);
}

double Result::Spread() const
{
    return (Quantile(Sums(runs), 0.75) - Quantile(Sums(runs), 0.25)) / Median();
}

double Now()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

std::vector<Result> RunAll(const std::vector<Contender>& contenders, int repeats)
{
    std::vector<Result> results;
    for (const Contender& contender : contenders)
        results.push_back({contender.name, {}, 0});
    for (int repeat = 0; repeat < repeats; ++repeat)
        for (std::size_t i = 0; i < contenders.size(); ++i) {
            const std::size_t turn = (i + static_cast<std::size_t>(repeat)) % contenders.size();
            RunOnce(contenders[turn], results[turn]);
        }
    return results;
}

void Print(const std::vector<Result>& results, const std::vector<std::string>& phases)
{
    for (const Result& result : results) {
        std::printf("%-28s %7.3f s +-%2.0f %%  ratio %5.2f  peak %6.1f MB ", result.name.c_str(),
                    result.Median(), 50 * result.Spread(), result.Median() / results.front().Median(),
                    static_cast<double>(result.peakKilobytes) / 1024);
        for (std::size_t i = 0; i < phases.size(); ++i)
            std::printf("  %s %.3f", phases[i].c_str(), result.Median(i));
        std::printf("\n");
    }
}

} // namespace bench
