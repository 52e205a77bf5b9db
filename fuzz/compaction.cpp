// Compaction: the text and the runs of a list of numbers, and the text read again.
#include "Lists.h"
#include "Literal.h"

#include <NumericOptimizer.h>

#include <random>

namespace {

constexpr std::size_t kLongestList = 1200;
// The oracle's time grows with the third power.
constexpr std::size_t kLongestForOracle = 90;

using RunArray = CArray<STB_OPT_NODE, STB_OPT_NODE&>;

// The runs, then the single numbers, as triples one behind the other.
NumberList FlatOf(const RunArray& runs)
{
    NumberList flat;
    for (int i = 0; i < runs.GetSize(); ++i)
        flat.insert(flat.end(), {runs[i].start, runs[i].end, runs[i].step});
    return flat;
}

NumberList FlatOf(const Literal& literal)
{
    NumberList flat;
    for (const LiteralRun& run : literal.Runs())
        flat.insert(flat.end(),
                    {static_cast<LONG>(run.start), static_cast<LONG>(run.end), static_cast<LONG>(run.step)});
    for (const std::int64_t single : literal.Singles())
        flat.insert(flat.end(), {static_cast<LONG>(single), static_cast<LONG>(single), 1});
    return flat;
}

NumberList Shuffled(NumberList numbers)
{
    std::mt19937 random(static_cast<unsigned>(numbers.size()));
    std::shuffle(numbers.begin(), numbers.end(), random);
    return numbers;
}

// "endless" where a number that is repeated lets the text have no end.
std::string TextOf(NumberList numbers)
{
    try {
        return CNumericOptimizer().Optimize(numbers.data(), static_cast<LONG>(numbers.size())).GetString();
    } catch (CMemoryException* exception) {
        exception->Delete();
        return "endless";
    }
}

void TryArrays(const NumberList& numbers, const std::string& text)
{
    CNumericOptimizer optimizer;
    CArray<UINT, UINT> a;
    ExpectEqual(std::string(optimizer.Optimize(Fill(a, numbers))), text, "the text of an array");
    ExpectEqual(std::string(optimizer.OptimizeSortedArray(a)), text, "the text of a sorted array");
    ExpectEqual(ListOf(a), numbers, "the array after its text was made");
    ExpectEqual(std::string(optimizer.OptimizeUnsortedArray(Fill(a, Shuffled(numbers)))), text,
                "the text of an unsorted array");
    ExpectEqual(ListOf(a), numbers, "the array that was sorted");
}

void TryRuns(const NumberList& numbers, const NumberList& expected)
{
    CNumericOptimizer optimizer;
    CArray<UINT, UINT> a;
    RunArray runs;
    ExpectEqual(optimizer.OptimizeSortedArray(Fill(a, numbers), runs), 1, "the answer with runs");
    ExpectEqual(FlatOf(runs), expected, "the runs");
    ExpectEqual(optimizer.OptimizeUnsortedArray(Fill(a, Shuffled(numbers)), runs), 1,
                "the answer with runs of an unsorted array");
    ExpectEqual(FlatOf(runs), expected, "the runs of an unsorted array");
}

// What the text names, by the oracle and from the list; its items ascend.
void TryRoundTrip(const NumberList& numbers, const std::string& text)
{
    const std::vector<NamedNumbers> items = ItemsOf(Normalise(text).text);
    const bool ascends =
        std::is_sorted(items.begin(), items.end(), [](auto& a, auto& b) { return a.from < b.from; });
    ExpectEqual(ascends, true, "whether the items ascend");
    NumberList named = NamedNumbersOf(text, numbers.size() + 1);
    std::sort(named.begin(), named.end());
    ExpectEqual(named, numbers, "what the text names");
    CArray<UINT, UINT> base, out;
    ExpectEqual(CNumericOptimizer().SelectNumByStr(Fill(base, numbers), text.c_str(), out), 1,
                "the answer to the text");
    ExpectEqual(ListOf(out), numbers, "what the text selects");
}

// Every answer for the list against the passes as they are described.
void TryLiteral(const NumberList& numbers, bool repeats)
{
    const Literal literal(numbers);
    ExpectEqual(TextOf(numbers), literal.Text(), "the text");
    if (!repeats)
        TryRuns(numbers, FlatOf(literal));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    NumberList numbers = NumbersOf(Input(data, size), kLongestList);
    std::sort(numbers.begin(), numbers.end());
    const bool repeats = std::adjacent_find(numbers.begin(), numbers.end()) != numbers.end();
    if (numbers.size() <= kLongestForOracle)
        TryLiteral(numbers, repeats);
    const std::string text = TextOf(numbers);
    if (repeats)
        return 0;
    TryArrays(numbers, text);
    TryRoundTrip(numbers, text);
    return 0;
}
