#include "NumericOptimizer.h"

#include "CompFunc.h"
#include "NumberRuns.h"
#include "RadixSort.h"
#include "MakeOptimizedStr.h"
#include "Selection.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace {

std::span<const UINT> NumbersOf(const CArray<UINT, UINT>& a)
{
    return {a.GetData(), static_cast<std::size_t>(a.GetSize())};
}

std::span<const LONG> NumbersOf(const LONG* values, LONG n)
{
    return {values, n > 0 ? static_cast<std::size_t>(n) : 0};
}

void Assign(CArray<UINT, UINT>& a, const std::vector<LONG>& numbers)
{
    a.SetSize(static_cast<int>(numbers.size()));
    std::transform(numbers.begin(), numbers.end(), a.GetData(),
                   [](LONG value) { return static_cast<UINT>(value); });
}

void SortArray(CArray<UINT, UINT>& a)
{
    std::vector<UINT> numbers(a.GetData(), a.GetData() + a.GetSize());
    RadixSort(numbers, [](UINT number) { return SignedKey(static_cast<LONG>(number)); });
    std::copy(numbers.begin(), numbers.end(), a.GetData());
}

// False for a syntax error. An empty base selects nothing before the text is read.
bool ReadFor(std::size_t baseSize, const char* text, std::vector<SelectionItem>& items)
{
    return baseSize == 0 || ReadItems(text, items);
}

} // namespace

CString CNumericOptimizer::Optimize(LONG* values, LONG n)
{
    return n < 1 ? CString() : MakeOptimizedStr(FindRuns(NumbersOf(values, n)));
}

CString CNumericOptimizer::Optimize(CArray<UINT, UINT>& a)
{
    return OptimizeSortedArray(a);
}

CString CNumericOptimizer::OptimizeSortedArray(CArray<UINT, UINT>& a)
{
    return MakeOptimizedStr(FindRuns(NumbersOf(a)));
}

CString CNumericOptimizer::OptimizeUnsortedArray(CArray<UINT, UINT>& a)
{
    SortArray(a);
    return OptimizeSortedArray(a);
}

int CNumericOptimizer::OptimizeSortedArray(CArray<UINT, UINT>& a, CArray<STB_OPT_NODE, STB_OPT_NODE&>& nodes)
{
    nodes.RemoveAll();
    NumberRuns parts = FindRuns(NumbersOf(a));
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
    const std::span<const LONG> numbers = NumbersOf(base, n);
    std::vector<SelectionItem> items;
    if (!ReadFor(numbers.size(), s, items))
        return 0;
    if (items.empty())
        return 1;
    const std::vector<LONG> selection = SelectInOrder(numbers, items, false);
    const int before = out.GetSize();
    out.SetSize(before + static_cast<int>(selection.size()));
    std::copy(selection.begin(), selection.end(), out.GetData() + before);
    return 1;
}

int CNumericOptimizer::SelectNumByStr(LONG* base, LONG n, const char* s, LONG* out, LONG& count)
{
    const std::span<const LONG> numbers = NumbersOf(base, n);
    std::vector<SelectionItem> items;
    count = 0;
    if (!ReadFor(numbers.size(), s, items))
        return 0;
    if (items.empty())
        return 1;
    const std::vector<LONG> selection = SelectSorted(numbers, items);
    std::copy(selection.begin(), selection.end(), out);
    count = static_cast<LONG>(selection.size());
    return 1;
}

int CNumericOptimizer::SelectNumByStr(CArray<UINT, UINT>& base, const char* s, CArray<UINT, UINT>& out)
{
    std::vector<SelectionItem> items;
    const bool accepted = ReadFor(NumbersOf(base).size(), s, items);
    Assign(out, accepted && !items.empty() ? SelectSorted(NumbersOf(base), items) : std::vector<LONG>());
    return accepted;
}

int CNumericOptimizer::SelectNumByStrKeepSeq(CArray<UINT, UINT>& base, const char* s, CArray<UINT, UINT>& out,
                                             int bUnique)
{
    std::vector<SelectionItem> items;
    const bool accepted = ReadFor(NumbersOf(base).size(), s, items);
    Assign(out, accepted && !items.empty() ? SelectInOrder(NumbersOf(base), items, bUnique != 0)
                                           : std::vector<LONG>());
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
