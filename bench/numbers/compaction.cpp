// What it costs to write a list of entity numbers as a short text, and to select with that text.
//
//   compaction [LARGEST [DECK.inp...]]      default: 1000000 and no decks
//
// For families of lists at 1e3, 1e4, 1e5 and 1e6 numbers, and for the node and element numbers of decks: the
// time of the library for each number, its growth from the size before, its ratio to one plain pass that
// folds neighbours only, to CRoaring and to ClusterShell (which fold less), and to the same work done
// literally (where that ends); the memory beside the list at its peak; then the same for selecting what the
// text names.
#include "Measure.h"
#include "Peers.h"
#include "Timed.h"

#include <ZEK_lib.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kRepeats = 5;
constexpr std::size_t kMostForClusterShell = 100000;

// The literal passes are run where they end in about a second.
std::size_t MostForLiteral(const std::string& family)
{
    const std::pair<const char*, std::size_t> limits[] = {
        {"contiguous", 1000000}, {"even", 1000000},   {"third-missing", 100000}, {"grid", 100000},
        {"grid-gaps", 10000},    {"random90", 10000}, {"random50", 10000},        {"random10", 1000}};
    for (const auto& [name, most] : limits) {
        if (family == name)
            return most;
    }
    return 1000;
}

void Use(const char* text)
{
    asm volatile("" : : "r"(text) : "memory");
}

void PrintRatio(const char* name, double peer, double ours)
{
    if (peer > 0)
        std::printf("  %s %.3g", name, ours / peer);
}

// The literal version counts as absent (negative) above its limit.
double MeasureFold(const std::string& name, const NumberList& numbers, std::size_t mostForLiteral,
                   double before, const ClusterShellTimes& shell)
{
    NumberList list = numbers;
    const auto count = static_cast<LONG>(list.size());
    std::vector<bench::Contender> contenders = {
        Timed("library", [&] { Use(CNumericOptimizer().Optimize(list.data(), count)); }),
        {"nothing", [] { return bench::Phases{1}; }},
        Timed("one pass", [&] { Use(FoldInOnePass(list).c_str()); }),
        Timed("CRoaring", [&] { Use(FoldWithRoaring(list).c_str()); })};
    if (list.size() <= mostForLiteral)
        contenders.push_back(Timed("literal", [&] { Use(FoldLiterally(list).c_str()); }));
    const std::vector<bench::Result> results = bench::RunAll(contenders, kRepeats);
    const double ours = results[0].Median();
    const double each = ours / count;
    std::printf("fold   %-14s %8d %9.2f ns each +-%2.0f %%", name.c_str(), static_cast<int>(count),
                each * 1e9, 50 * results[0].Spread());
    PrintRatio("growth", before, each);
    PrintRatio("/ one pass", results[2].Median(), ours);
    PrintRatio("/ CRoaring", results[3].Median(), ours);
    PrintRatio("/ ClusterShell", shell.fold, ours);
    if (results.size() > 4)
        std::printf("  literal %.1f times", results[4].Median() / ours);
    const CString text = CNumericOptimizer().Optimize(list.data(), count);
    std::printf("  peak %.1f B each, text %.2f B each\n",
                static_cast<double>(results[0].peakKilobytes - results[1].peakKilobytes) * 1024 / count,
                static_cast<double>(text.GetLength()) / count);
    return each;
}

void MeasureSelect(const std::string& name, const NumberList& numbers, const ClusterShellTimes& shell)
{
    NumberList list = numbers;
    NumberList out(list.size());
    const auto count = static_cast<LONG>(list.size());
    const std::string text(CNumericOptimizer().Optimize(list.data(), count));
    const auto select = [&] {
        LONG selected = 0;
        CNumericOptimizer().SelectNumByStr(list.data(), count, text.c_str(), out.data(), selected);
        return selected;
    };
    if (select() != count) {
        std::fprintf(stderr, "%s: the text does not select its own list\n", name.c_str());
        std::exit(1);
    }
    const std::vector<bench::Result> results =
        bench::RunAll({Timed("library", [&] { select(); }),
                       {"nothing", [] { return bench::Phases{1}; }},
                       Timed("as said", [&] { SelectStepByStep(list, text); })},
                      kRepeats);
    const double ours = results[0].Median();
    std::printf("select %-14s %8d %9.2f ns each +-%2.0f %%  step by step %.1f times", name.c_str(),
                static_cast<int>(count), ours / count * 1e9, 50 * results[0].Spread(),
                results[2].Median() / ours);
    PrintRatio("/ ClusterShell", shell.read, ours);
    std::printf("  peak %.1f B each\n",
                static_cast<double>(results[0].peakKilobytes - results[1].peakKilobytes) * 1024 / count);
}

double Measure(const std::string& name, const NumberList& numbers, std::size_t mostForLiteral, double before)
{
    const ClusterShellTimes none = {-1, -1};
    const ClusterShellTimes shell =
        numbers.size() <= kMostForClusterShell ? MeasureClusterShell(ZEK_CLUSTERSHELL_PEER, numbers) : none;
    const double each = MeasureFold(name, numbers, mostForLiteral, before, shell);
    MeasureSelect(name, numbers, shell);
    std::fflush(stdout);
    return each;
}

} // namespace

int main(int argc, char** argv)
{
    const auto largest = static_cast<std::size_t>(argc > 1 ? std::atof(argv[1]) : 1e6);
    for (const char* family : {"contiguous", "third-missing", "random90", "random50", "random10", "even",
                               "grid", "grid-gaps", "random01", "squares", "base3"}) {
        // Those that hold no equal steps, or few, cost the square.
        const bool hard = std::strcmp(family, "random01") == 0 || std::strcmp(family, "squares") == 0 ||
                          std::strcmp(family, "base3") == 0;
        double before = -1;
        for (std::size_t count = 1000; count <= largest && !(hard && count > 10000); count *= 10)
            before = Measure(family, MakeFamily(family, count), MostForLiteral(family), before);
    }
    for (int i = 2; i < argc; ++i) {
        const DeckNumbers numbers = ReadDeckNumbers(argv[i]);
        const std::string name = std::string(argv[i]).substr(std::string(argv[i]).find_last_of('/') + 1);
        if (!numbers.nodes.empty())
            Measure(name + ":n", numbers.nodes, 10000, -1);
        if (!numbers.elements.empty())
            Measure(name + ":e", numbers.elements, 10000, -1);
    }
}
