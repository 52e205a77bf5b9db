// Timing of benchmarks against peers.
//
// Every contender runs in a process of its own, so that peak memory is its own too and nothing that one
// has loaded or allocated helps or hurts the next. The order of the contenders rotates from repeat to
// repeat; what is printed is the median, with the distance between the quartiles as its uncertainty.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bench {

// What a contender tells of one run: seconds of each phase, in an order that all contenders share.
using Phases = std::vector<double>;

struct Contender {
    std::string name;
    std::function<Phases()> run;
};

struct Result {
    std::string name;
    std::vector<Phases> runs;
    long peakKilobytes = 0; // the largest of the runs

    // The median over the runs of the sum of all phases, or of one of them.
    double Median() const;
    double Median(std::size_t phase) const;
    // Quartile 3 less quartile 1 of the sums, as a part of the median.
    double Spread() const;
};

// Seconds on a clock that never jumps.
double Now();

// Runs every contender `repeats` times. Ends the program when one of them fails.
std::vector<Result> RunAll(const std::vector<Contender>& contenders, int repeats);

// Prints a line for each contender, with the ratio of its time to that of the first.
void Print(const std::vector<Result>& results, const std::vector<std::string>& phases);

} // namespace bench
