// What sets, sorts, searches and classes of entity numbers cost at 1e3 to 1e6 of them.
//
//   sets [LARGEST]      default: 1000000
//
// Set operations: on two unsorted lists of n numbers below 2n with repeats, each against the same done with
// qsort and a merge, with std::sort and std::set_*, with CRoaring (which loses repeats), and against counting
// into a range known beforehand (about the least that it costs). Everything else: the time for each element,
// how it grows, and its ratio to std::sort on the same data where that says something.
#include "Measure.h"
#include "Timed.h"

#include <ZEK_lib.h>
#include <roaring/roaring.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

constexpr int kRepeats = 7;

using Numbers = std::vector<UINT>;
using Array = CArray<UINT, UINT>;

enum Operation { kUnion = 1, kIntersection, kDifference };
constexpr const char* kNames[] = {"", "union", "intersection", "difference"};

Numbers RandomNumbers(std::size_t count, UINT below, std::mt19937& random)
{
    Numbers numbers(count);
    for (UINT& number : numbers)
        number = 1 + static_cast<UINT>(random() % below);
    return numbers;
}

void Assign(Array& array, const Numbers& numbers)
{
    array.SetSize(static_cast<int>(numbers.size()));
    std::copy(numbers.begin(), numbers.end(), array.GetData());
}

void Use(const void* data)
{
    asm volatile("" : : "r"(data) : "memory");
}

// ---- Set operations ----

template <class Sort>
Numbers SortAndMerge(Operation operation, Numbers a, Numbers b, Sort sort)
{
    sort(a);
    sort(b);
    Numbers out(a.size() + b.size());
    auto end = out.begin();
    if (operation == kUnion)
        end = std::set_union(a.begin(), a.end(), b.begin(), b.end(), out.begin());
    else if (operation == kIntersection)
        end = std::set_intersection(a.begin(), a.end(), b.begin(), b.end(), out.begin());
    else
        end = std::set_difference(a.begin(), a.end(), b.begin(), b.end(), out.begin());
    out.resize(static_cast<std::size_t>(end - out.begin()));
    return out;
}

void SortByCallback(Numbers& numbers)
{
    std::qsort(numbers.data(), numbers.size(), sizeof(UINT), CCompFunc::UINTAsc);
}

void SortByLibrary(Numbers& numbers)
{
    std::sort(numbers.begin(), numbers.end());
}

Numbers CombineWithRoaring(Operation operation, const Numbers& a, const Numbers& b)
{
    roaring_bitmap_t* const x = roaring_bitmap_of_ptr(a.size(), a.data());
    roaring_bitmap_t* const y = roaring_bitmap_of_ptr(b.size(), b.data());
    roaring_bitmap_t* const z = operation == kUnion          ? roaring_bitmap_or(x, y)
                                : operation == kIntersection ? roaring_bitmap_and(x, y)
                                                             : roaring_bitmap_andnot(x, y);
    Numbers out(roaring_bitmap_get_cardinality(z));
    roaring_bitmap_to_uint32_array(z, out.data());
    for (roaring_bitmap_t* const bitmap : {x, y, z})
        roaring_bitmap_free(bitmap);
    return out;
}

// Numbers are known to lie from 1 to `largest`, and to repeat fewer than 65,536 times.
Numbers CombineByCounting(Operation operation, const Numbers& a, const Numbers& b, UINT largest)
{
    std::vector<std::uint16_t> inA(largest + 1), inB(largest + 1);
    for (const UINT number : a)
        ++inA[number];
    for (const UINT number : b)
        ++inB[number];
    Numbers out(a.size() + b.size());
    UINT* end = out.data();
    for (UINT number = 1; number <= largest; ++number) {
        const int x = inA[number], y = inB[number];
        int times = operation == kUnion          ? std::max(x, y)
                    : operation == kIntersection ? std::min(x, y)
                                                 : x - y;
        for (; times > 0; --times)
            *end++ = number;
    }
    out.resize(static_cast<std::size_t>(end - out.data()));
    return out;
}

void MeasureSets(Operation operation, std::size_t count)
{
    std::mt19937 random(2);
    const auto largest = static_cast<UINT>(2 * count);
    const Numbers a = RandomNumbers(count, largest, random);
    const Numbers b = RandomNumbers(count, largest, random);
    Array arrayA, arrayB, result;
    Assign(arrayA, a);
    Assign(arrayB, b);
    CArrayUtil::SetOpUINT(operation, arrayA, arrayB, result);
    if (SortAndMerge(operation, a, b, SortByLibrary) !=
        Numbers(result.GetData(), result.GetData() + result.GetSize())) {
        std::fprintf(stderr, "%s: another result\n", kNames[operation]);
        std::exit(1);
    }
    const std::vector<bench::Result> results =
        bench::RunAll({Timed("library",
                             [&] {
                                 Array out;
                                 CArrayUtil::SetOpUINT(operation, arrayA, arrayB, out);
                                 Use(out.GetData());
                             }),
                       Timed("qsort", [&] { Use(SortAndMerge(operation, a, b, SortByCallback).data()); }),
                       Timed("std::sort", [&] { Use(SortAndMerge(operation, a, b, SortByLibrary).data()); }),
                       Timed("CRoaring", [&] { Use(CombineWithRoaring(operation, a, b).data()); }),
                       Timed("counting", [&] { Use(CombineByCounting(operation, a, b, largest).data()); })},
                      kRepeats);
    const double ours = results[0].Median();
    std::printf("%-14s %8zu %7.2f ns each +-%2.0f %%", kNames[operation], count,
                ours / static_cast<double>(2 * count) * 1e9, 50 * results[0].Spread());
    for (std::size_t i = 1; i + 1 < results.size(); ++i)
        std::printf("  %s %.1f times", results[i].name.c_str(), results[i].Median() / ours);
    std::printf("  / counting %.2f\n", ours / results.back().Median());
    std::fflush(stdout);
}

// ---- Everything else ----

// Many lists of the same kind, so that the processor does not learn one by heart.
template <class Element>
std::vector<std::vector<Element>> Lists(std::size_t count, const std::function<Element()>& make)
{
    std::vector<std::vector<Element>> lists(
        std::max<std::size_t>(1, std::min<std::size_t>(64, 1000000 / count)));
    for (std::vector<Element>& list : lists) {
        list.resize(count);
        std::generate(list.begin(), list.end(), make);
    }
    return lists;
}

struct Facility {
    const char* name;
    // Seconds for each element; with the standard library, negative where that says nothing.
    std::function<std::pair<double, double>(std::size_t)> measure;
};

// Sorts copies of the lists by both ways.
template <class Element, class Ours>
std::pair<double, double> MeasureSort(const std::vector<std::vector<Element>>& lists, Ours ours)
{
    const auto all = [&](auto sort) {
        return [&lists, sort] {
            for (std::vector<Element> list : lists) {
                sort(list);
                Use(list.data());
            }
        };
    };
    const std::vector<bench::Result> results = bench::RunAll(
        {Timed("library", all(ours)),
         Timed("std::sort", all([](std::vector<Element>& list) { std::sort(list.begin(), list.end()); }))},
        kRepeats);
    const auto elements = static_cast<double>(lists.size() * lists[0].size());
    return {results[0].Median() / elements, results[1].Median() / elements};
}

double MeasureOne(std::size_t elements, std::function<void()> work)
{
    return bench::RunAll({Timed("library", std::move(work))}, kRepeats)[0].Median() /
           static_cast<double>(elements);
}

std::pair<double, double> SortInts(std::size_t count)
{
    std::mt19937 random(3);
    return MeasureSort(
        Lists<int>(count, [&] { return static_cast<int>(random() >> 2); }),
        [](std::vector<int>& list) { CQSort::QSortInt(list.data(), static_cast<UINT>(list.size())); });
}

std::pair<double, double> SortDoubles(std::size_t count)
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> uniform(-5000, 5000);
    return MeasureSort(Lists<double>(count, [&] { return uniform(random); }), [](std::vector<double>& list) {
        CQSort::QSortDbl(list.data(), static_cast<UINT>(list.size()));
    });
}

std::vector<CString> Names(std::size_t count)
{
    const char* const prefixes[] = {"C", "G", "B", "W", "SLAB-", "COL_", "2F-B", "RF_GIRDER"};
    std::mt19937 random(5);
    std::vector<CString> names(count);
    for (CString& name : names)
        name.Format(random() % 10 == 0 ? "%s%06u" : "%s%u", prefixes[random() % 8],
                    1 + static_cast<UINT>(random() % count));
    return names;
}

std::pair<double, double> SortNaturally(std::size_t count)
{
    const std::vector<CString> names = Names(count);
    return {MeasureOne(count,
                       [&] {
                           std::vector<CString> list = names;
                           Numbers places(count);
                           for (std::size_t i = 0; i < count; ++i)
                               places[i] = static_cast<UINT>(i);
                           CQSort::QSortStringNumWithIndex(places.data(), list.data(),
                                                           static_cast<UINT>(count));
                           Use(places.data());
                       }),
            -1};
}

std::pair<double, double> LookUp(std::size_t count)
{
    std::mt19937 random(6);
    Numbers numbers = RandomNumbers(count, static_cast<UINT>(2 * count), random);
    std::sort(numbers.begin(), numbers.end());
    const Numbers wanted = RandomNumbers(count, static_cast<UINT>(2 * count), random);
    Array array;
    Assign(array, numbers);
    const auto all = [&](auto has) {
        return [&wanted, has] {
            std::size_t found = 0;
            for (const UINT number : wanted)
                found += has(number);
            Use(&found);
        };
    };
    const std::vector<bench::Result> results = bench::RunAll(
        {Timed("library", all([&](UINT number) { return CArrayUtil::IsExist(array, number, 1) != 0; })),
         Timed("std::binary_search",
               all([&](UINT number) { return std::binary_search(numbers.begin(), numbers.end(), number); }))},
        kRepeats);
    return {results[0].Median() / static_cast<double>(count),
            results[1].Median() / static_cast<double>(count)};
}

std::pair<double, double> ClassifyByName(std::size_t count)
{
    const std::vector<CString> names = Names(count);
    return {MeasureOne(count,
                       [&] {
                           CKeyClass classes(
                               static_cast<int>(GF_GetHashSizeByCount(static_cast<int>(count))));
                           for (std::size_t i = 0; i < count; ++i)
                               classes.Classify(static_cast<UINT>(i), names[i]);
                       }),
            -1};
}

} // namespace

int main(int argc, char** argv)
{
    const auto largest = static_cast<std::size_t>(argc > 1 ? std::atof(argv[1]) : 1e6);
    for (const Operation operation : {kUnion, kIntersection, kDifference}) {
        for (std::size_t count = 1000; count <= largest; count *= 10)
            MeasureSets(operation, count);
    }
    const Facility facilities[] = {{"sort ints", SortInts},
                                   {"sort doubles", SortDoubles},
                                   {"natural order", SortNaturally},
                                   {"exists", LookUp},
                                   {"classify", ClassifyByName}};
    for (const Facility& facility : facilities) {
        double before = -1;
        for (std::size_t count = 1000; count <= largest; count *= 10) {
            const auto [each, standard] = facility.measure(count);
            std::printf("%-14s %8zu %7.2f ns each", facility.name, count, each * 1e9);
            if (before > 0)
                std::printf("  growth %.2f", each / before);
            if (standard > 0)
                std::printf("  / standard library %.2f", each / standard);
            std::printf("\n");
            std::fflush(stdout);
            before = each;
        }
    }
}
