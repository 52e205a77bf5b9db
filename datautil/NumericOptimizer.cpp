#include "NumericOptimizer.h"

#include "CompFunc.h"
#include "NumberRuns.h"
#include "Selection.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <unordered_set>
#include <vector>

namespace {

std::vector<LONG> Numbers(const CArray<UINT, UINT>& a)
{
    std::vector<LONG> numbers(static_cast<std::size_t>(a.GetSize()));
    std::transform(a.GetData(), a.GetData() + a.GetSize(), numbers.begin(),
                   [](UINT value) { return static_cast<LONG>(value); });
    return numbers;
}

void Assign(CArray<UINT, UINT>& a, const std::vector<LONG>& numbers)
{
    a.SetSize(static_cast<int>(numbers.size()));
    std::transform(numbers.begin(), numbers.end(), a.GetData(),
                   [](LONG value) { return static_cast<UINT>(value); });
}

void SortArray(CArray<UINT, UINT>& a)
{
    std::vector<LONG> numbers = Numbers(a);
    std::sort(numbers.begin(), numbers.end());
    Assign(a, numbers);
}

void SortAndRemoveRepeats(std::vector<LONG>& numbers)
{
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

void RemoveLaterRepeats(std::vector<LONG>& numbers)
{
    std::unordered_set<LONG> seen;
    const auto repeated = [&seen](LONG number) { return !seen.insert(number).second; };
    numbers.erase(std::remove_if(numbers.begin(), numbers.end(), repeated), numbers.end());
}

// False for a syntax error; the selection is then empty.
bool SelectFrom(const LONG* base, LONG n, const char* text, std::vector<LONG>& selection)
{
    std::string normal;
    if (n <= 0)
        return true;
    if (!Normalise(text, normal))
        return false;
    Select(base, n, normal, selection);
    return true;
}

bool SelectFrom(const CArray<UINT, UINT>& base, const char* text, std::vector<LONG>& selection)
{
    const std::vector<LONG> numbers = Numbers(base);
    return SelectFrom(numbers.data(), static_cast<LONG>(numbers.size()), text, selection);
}

std::string ItemText(LONG single)
{
    return std::to_string(single);
}

std::string ItemText(const STB_OPT_NODE& run)
{
    std::string text = ItemText(run.start) + "to" + ItemText(run.end);
    if (run.step > 1)
        text += "by" + ItemText(run.step);
    return text;
}

template <class Item>
void AppendItem(CString& text, const Item& item)
{
    if (!text.IsEmpty())
        text += ' ';
    const std::string added = ItemText(item);
    text.Append(added.data(), static_cast<int>(added.size()));
}

CString MakeOptimizedStr(const NumberRuns& parts)
{
    CString text;
    auto run = parts.runs.begin();
    auto single = parts.singles.begin();
    while (run != parts.runs.end() && single != parts.singles.end()) {
        if (run->start < *single)
            AppendItem(text, *run++);
        else if (*single < run->start)
            AppendItem(text, *single++);
        else
            // Repeats left a number that also starts a run, which has no place in the order: the text would
            // grow without end. This is how that ends.
            AfxThrowMemoryException();
    }
    std::for_each(run, parts.runs.end(), [&text](const STB_OPT_NODE& each) { AppendItem(text, each); });
    std::for_each(single, parts.singles.end(), [&text](LONG each) { AppendItem(text, each); });
    return text;
}

} // namespace

CString CNumericOptimizer::Optimize(LONG* values, LONG n)
{
    return n < 1 ? CString() : MakeOptimizedStr(FindRuns(values, n));
}

CString CNumericOptimizer::Optimize(CArray<UINT, UINT>& a)
{
    return OptimizeSortedArray(a);
}

CString CNumericOptimizer::OptimizeSortedArray(CArray<UINT, UINT>& a)
{
    std::vector<LONG> numbers = Numbers(a);
    return Optimize(numbers.data(), static_cast<LONG>(numbers.size()));
}

CString CNumericOptimizer::OptimizeUnsortedArray(CArray<UINT, UINT>& a)
{
    SortArray(a);
    return OptimizeSortedArray(a);
}

int CNumericOptimizer::OptimizeSortedArray(CArray<UINT, UINT>& a, CArray<STB_OPT_NODE, STB_OPT_NODE&>& nodes)
{
    nodes.RemoveAll();
    const std::vector<LONG> numbers = Numbers(a);
    NumberRuns parts = FindRuns(numbers.data(), static_cast<LONG>(numbers.size()));
    for (const LONG single : parts.singles)
        parts.runs.push_back({single, single, 1});
    nodes.SetSize(static_cast<int>(parts.runs.size()));
    std::copy(parts.runs.begin(), parts.runs.end(), nodes.GetData());
    return 1;
}

int CNumericOptimizer::OptimizeUnsortedArray(CArray<UINT, UINT>& a,
                                             CArray<STB_OPT_NODE, STB_OPT_NODE&>& nodes)
{
    SortArray(a);
    return OptimizeSortedArray(a, nodes);
}

int CNumericOptimizer::SelectNumByStrBase(LONG* base, LONG n, const char* s, CArray<LONG, LONG>& out)
{
    std::vector<LONG> selection;
    if (!SelectFrom(base, n, s, selection))
        return 0;
    const int before = out.GetSize();
    out.SetSize(before + static_cast<int>(selection.size()));
    std::copy(selection.begin(), selection.end(), out.GetData() + before);
    return 1;
}

int CNumericOptimizer::SelectNumByStr(LONG* base, LONG n, const char* s, LONG* out, LONG& count)
{
    std::vector<LONG> selection;
    count = 0;
    if (!SelectFrom(base, n, s, selection))
        return 0;
    SortAndRemoveRepeats(selection);
    std::copy(selection.begin(), selection.end(), out);
    count = static_cast<LONG>(selection.size());
    return 1;
}

int CNumericOptimizer::SelectNumByStr(CArray<UINT, UINT>& base, const char* s, CArray<UINT, UINT>& out)
{
    std::vector<LONG> selection;
    const bool accepted = SelectFrom(base, s, selection);
    SortAndRemoveRepeats(selection);
    Assign(out, selection);
    return accepted;
}

int CNumericOptimizer::SelectNumByStrKeepSeq(CArray<UINT, UINT>& base, const char* s, CArray<UINT, UINT>& out,
                                             int bUnique)
{
    std::vector<LONG> selection;
    const bool accepted = SelectFrom(base, s, selection);
    if (bUnique != 0)
        RemoveLaterRepeats(selection);
    Assign(out, selection);
    return accepted;
}

int CNumericOptimizer::GetToken(const char* s, int& pos, int& type, int& value)
{
    return ReadToken(s, pos, type, value);
}

int CNumericOptimizer::StrCpyRemoveSpace(char* dst, const char* src)
{
    std::string normal;
    const bool accepted = Normalise(src, normal);
    std::memcpy(dst, normal.c_str(), normal.size() + 1);
    return accepted;
}

int CNumericOptimizer::comparei(const void* a, const void* b)
{
    return CCompFunc::longAsc(a, b);
}
