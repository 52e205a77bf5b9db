#include "Comparison.h"

#include "Measure.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace bench {
namespace {

constexpr int kRepeats = 7;
constexpr double kEnoughSeconds = 0.02;

// Of the processor's time, which others that share it do not lengthen much.
double Busy()
{
    timespec time = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

// Asking for the time takes as long as many a work: it is asked for after twice as many each time.
Phases SecondsOfOne(const Work& work)
{
    double sum = work(); // warms up
    for (int calls = 1;; calls *= 2) {
        const double begin = Busy();
        for (int call = 0; call < calls; ++call)
            sum += work();
        const double seconds = Busy() - begin;
        Use(&sum);
        if (seconds >= kEnoughSeconds)
            return {seconds / calls};
    }
}

void CheckAnswers(const std::string& label, const std::vector<Rival>& rivals, double tolerance)
{
    const double expected = rivals.front().work();
    for (const Rival& rival : rivals) {
        const double answer = rival.work();
        if (!(std::abs(answer - expected) <= tolerance * std::abs(expected))) {
            std::fprintf(stderr, "%s: %s answers %.17g, not %.17g\n", label.c_str(), rival.name.c_str(),
                         answer, expected);
            std::exit(1);
        }
    }
}

} // namespace

double Compare(const std::string& label, std::size_t operations, const std::vector<Rival>& rivals,
               double tolerance)
{
    CheckAnswers(label, rivals, tolerance);
    std::vector<Contender> contenders;
    for (const Rival& rival : rivals)
        contenders.push_back({rival.name, [&rival] { return SecondsOfOne(rival.work); }});
    const std::vector<Result> results = RunAll(contenders, kRepeats);
    const double ours = results.front().Median();
    const auto each = [operations](double seconds) {
        return seconds / static_cast<double>(operations) * 1e9;
    };
    std::printf("%-30s %10.2f ns +-%2.0f %%", label.c_str(), each(ours), 50 * results.front().Spread());
    for (std::size_t i = 1; i < results.size(); ++i)
        std::printf("   %s %.2f (x %.2f)", results[i].name.c_str(), each(results[i].Median()),
                    results[i].Median() / ours);
    std::printf("\n");
    std::fflush(stdout);
    return each(ours);
}

} // namespace bench
