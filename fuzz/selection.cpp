// Selection: what a text selects from a list of numbers. The input is the list, '|', the text; a list that
// begins with '!' is not sorted, which may change what is selected, and nothing else.
#include "Lists.h"

#include <NumericOptimizer.h>

#include <numeric>

namespace {

constexpr std::size_t kLongestBase = 100;
constexpr std::size_t kLongestText = 400;

struct Selection {
    bool accepted = true;
    NumberList inOrder, unique, sorted;
};

Selection SelectLiterally(const NumberList& base, const std::string& text)
{
    Selection selection;
    if (base.empty())
        return selection;
    const NormalForm normal = Normalise(text);
    selection.accepted = normal.accepted;
    if (!normal.accepted)
        return selection;
    selection.inOrder = Select(base, ItemsOf(normal.text));
    std::set<LONG> seen;
    for (const LONG number : selection.inOrder) {
        if (seen.insert(number).second)
            selection.unique.push_back(number);
    }
    selection.sorted.assign(seen.begin(), seen.end());
    return selection;
}

void TryInOrder(NumberList base, const char* text, const Selection& expected)
{
    CArray<LONG, LONG> out;
    out.Add(-77);
    const int result =
        CNumericOptimizer().SelectNumByStrBase(base.data(), static_cast<LONG>(base.size()), text, out);
    NumberList appended = {-77};
    appended.insert(appended.end(), expected.inOrder.begin(), expected.inOrder.end());
    ExpectEqual(result == 1, expected.accepted, "the answer of SelectNumByStrBase");
    ExpectEqual(NumberList(out.GetData(), out.GetData() + out.GetSize()), appended,
                "the selection of SelectNumByStrBase");
}

// Into exactly as much room as the selection needs.
void TryPointers(NumberList base, const char* text, const Selection& expected)
{
    NumberList out(expected.sorted.size());
    LONG count = -1;
    const int result = CNumericOptimizer().SelectNumByStr(base.data(), static_cast<LONG>(base.size()), text,
                                                          out.data(), count);
    ExpectEqual(result == 1, expected.accepted, "the answer of SelectNumByStr");
    ExpectEqual(count, static_cast<LONG>(expected.sorted.size()), "the count of SelectNumByStr");
    ExpectEqual(out, expected.sorted, "the selection of SelectNumByStr");
}

void TryArrays(const NumberList& numbers, const char* text, const Selection& expected)
{
    CNumericOptimizer optimizer;
    CArray<UINT, UINT> base, out;
    Fill(base, numbers);
    out.Add(77);
    ExpectEqual(optimizer.SelectNumByStr(base, text, out) == 1, expected.accepted, "the answer on arrays");
    ExpectEqual(ListOf(out), expected.sorted, "the selection on arrays");
    for (const int unique : {0, 1}) {
        const int result = optimizer.SelectNumByStrKeepSeq(base, text, out, unique);
        ExpectEqual(result == 1, expected.accepted, "the answer of SelectNumByStrKeepSeq");
        ExpectEqual(ListOf(out), unique ? expected.unique : expected.inOrder,
                    "the selection of SelectNumByStrKeepSeq");
    }
    ExpectEqual(ListOf(base), numbers, "the base after a selection");
}

// A selection written as a text selects the same.
void TryRoundTrip(const NumberList& numbers, const NumberList& selected)
{
    CNumericOptimizer optimizer;
    CArray<UINT, UINT> base, picked;
    const CString text = optimizer.OptimizeSortedArray(Fill(picked, selected));
    ExpectEqual(optimizer.SelectNumByStr(Fill(base, numbers), text, picked), 1, "the answer to a text made");
    ExpectEqual(ListOf(picked), selected, "the selection by a text made");
}

void TryUnsorted(const NumberList& numbers, const char* text)
{
    CArray<UINT, UINT> base, out;
    Fill(base, numbers);
    const bool accepted = CNumericOptimizer().SelectNumByStr(base, text, out) == 1;
    ExpectEqual(accepted, numbers.empty() || Normalise(text).accepted, "the answer for an unsorted base");
    const std::set<LONG> held(numbers.begin(), numbers.end());
    for (const LONG number : ListOf(out))
        ExpectEqual(held.count(number), std::size_t{1}, "how often the base holds a number selected");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const bool unsorted = input.Takes('!');
    NumberList base = NumbersOf(input.Before('|'), kLongestBase);
    const std::string text = input.Text(kLongestText);
    const std::vector<char> bytes = Exactly(text);
    if (unsorted) {
        TryUnsorted(base, bytes.data());
        return 0;
    }
    std::sort(base.begin(), base.end());
    const Selection expected = SelectLiterally(base, text);
    TryInOrder(base, bytes.data(), expected);
    TryPointers(base, bytes.data(), expected);
    TryArrays(base, bytes.data(), expected);
    TryRoundTrip(base, expected.sorted);
    return 0;
}
