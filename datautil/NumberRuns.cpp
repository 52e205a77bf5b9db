#include "NumberRuns.h"

#include "RemainingList.h"

#include <algorithm>
#include <tuple>

namespace {

using Value = RemainingList::Value;

constexpr std::size_t kLeastRunsToGroup = 4;

// How many numbers make a run.
struct LeastLength {
    Value neighbours; // with step 1
    Value stepped;

    Value For(Value step) const { return step == 1 ? neighbours : stepped; }
};

constexpr LeastLength kLeastLength = {3, 4};

// Numbers of the list at equal steps, by their places.
struct Progression {
    Value step = 0;
    std::vector<int> places;

    bool Qualifies(const LeastLength& least) const
    {
        return static_cast<Value>(places.size()) >= least.For(step);
    }
};

void Remove(RemainingList& list, const std::vector<int>& places)
{
    for (const int place : places)
        list.Remove(place);
}

STB_OPT_NODE Run(Value start, Value end, Value step)
{
    return {static_cast<LONG>(start), static_cast<LONG>(end), static_cast<LONG>(step)};
}

// ---- Runs of neighbours ----

// From `start` on, as long as the very next number keeps the step of the first two.
Progression NeighboursFrom(const RemainingList& list, int start)
{
    int last = list.Next(start);
    Progression run = {list.At(last) - list.At(start), {start, last}};
    for (int next = list.Next(last); next != list.End() && list.At(next) == list.At(last) + run.step;
         next = list.Next(next)) {
        run.places.push_back(next);
        last = next;
    }
    return run;
}

// Takes the first run from the left again and again, until there is none. A start that fails hands its last
// number on as the next start. A run that is taken can change no more than the last two starts before it: a
// failed one covers at most three numbers and looks at the one behind them. So the search goes on from there
// instead of from the left.
void ExtractSeq(RemainingList& list, std::vector<STB_OPT_NODE>& runs)
{
    std::vector<int> failed;
    int start = list.First();
    while (list.HasThreeFrom(start)) {
        const Progression run = NeighboursFrom(list, start);
        if (!run.Qualifies(kLeastLength)) {
            failed.push_back(start);
            start = run.places.back();
            continue;
        }
        runs.push_back(Run(list.At(start), list.At(run.places.back()), run.step));
        Remove(list, run.places);
        const std::size_t kept = failed.size() - std::min<std::size_t>(failed.size(), 2);
        start = failed.empty() ? list.First() : failed[kept];
        failed.resize(kept);
    }
}

// ---- Runs with other numbers between ----

// A place that moves forward only, to the first number that is not below what is asked for.
class Cursor
{
public:
    Cursor(const RemainingList& list, int place) : m_list(list), m_place(place) {}

    bool Finds(Value value)
    {
        while (m_place != m_list.End() && m_list.At(m_place) < value)
            m_place = m_list.Next(m_place);
        return m_place != m_list.End() && m_list.At(m_place) == value;
    }
    int Place() const { return m_place; }
    void MoveOn() { m_place = m_list.Next(m_place); }

private:
    const RemainingList& m_list;
    int m_place;
};

// All terms from `start` over `second` on.
Progression TermsFrom(const RemainingList& list, int start, int second)
{
    Progression run = {list.At(second) - list.At(start), {start, second}};
    Cursor term(list, list.Next(second));
    for (Value expected = list.At(second) + run.step; term.Finds(expected); expected += run.step) {
        run.places.push_back(term.Place());
        term.MoveOn();
    }
    return run;
}

// The run of the smallest step from `start`; empty when there is none.
Progression SmallestStepFrom(const RemainingList& list, int start, const LeastLength& least)
{
    const Value first = list.At(start);
    const Value reach = list.Largest() - first;
    Cursor third(list, start);
    Cursor fourth(list, start);
    for (int second = list.Next(start); second != list.End(); second = list.Next(second)) {
        const Value step = list.At(second) - first;
        if (step * (least.For(step) - 1) > reach)
            break;
        // Most steps fail at the third or fourth number, which the cursors find without a search.
        const bool hopeful = step == 0 || (third.Finds(first + 2 * step) &&
                                           (least.For(step) < 4 || fourth.Finds(first + 3 * step)));
        if (!hopeful)
            continue;
        Progression run = TermsFrom(list, start, second);
        if (run.Qualifies(least))
            return run;
    }
    return {};
}

// Takes from each start in turn the run of the smallest step, until it has none. What is left only shrinks,
// so a start that failed once has none later either, and one sweep finds all.
template <class Take>
void ExtractSeqEx(RemainingList& list, const LeastLength& least, Take take)
{
    int start = list.First();
    while (list.HasThreeFrom(start)) {
        const Progression run = SmallestStepFrom(list, start, least);
        const int before = list.Previous(start);
        if (run.places.empty()) {
            start = list.Next(start);
            continue;
        }
        take(run);
        Remove(list, run.places);
        start = list.Next(before);
    }
}

// ---- Runs written across ----

Value Span(const STB_OPT_NODE& run)
{
    return static_cast<Value>(run.end) - run.start;
}

auto ShapeOf(const STB_OPT_NODE& run)
{
    return std::tuple(run.step, Span(run));
}

// How many runs of a shape are worth writing across: more than each has numbers. Plain ranges read better and
// must gain one more.
Value LeastStarts(Value step, Value span)
{
    return step < 1 ? 0 : span / step + 2 + (step == 1);
}

std::vector<Value> Starts(const STB_OPT_NODE* first, const STB_OPT_NODE* last)
{
    std::vector<Value> starts;
    for (; first != last; ++first)
        starts.push_back(first->start);
    return starts;
}

// Replaces runs of one shape that start at equal distances: as many as there are in a progression of starts
// become as many as each has numbers. `first` to `last` ascend by their starts.
void ExtractGroupEx(const STB_OPT_NODE* first, const STB_OPT_NODE* last, std::vector<STB_OPT_NODE>& grouped)
{
    const Value step = first->step;
    const Value span = Span(*first);
    const Value least = LeastStarts(step, span);
    if (step < 1 || last - first < least) { // a step below 1 comes of repeats
        grouped.insert(grouped.end(), first, last);
        return;
    }
    RemainingList list(Starts(first, last));
    ExtractSeqEx(list, {least, least}, [&](const Progression& across) {
        const Value from = list.At(across.places.front());
        const Value width = list.At(across.places.back()) - from;
        for (Value offset = 0; offset <= span; offset += step)
            grouped.push_back(Run(from + offset, from + offset + width, across.step));
    });
    for (int place = list.First(); place != list.End(); place = list.Next(place))
        grouped.push_back(Run(list.At(place), list.At(place) + span, step));
}

void OptimizeGroup(std::vector<STB_OPT_NODE>& runs)
{
    if (runs.size() < kLeastRunsToGroup)
        return;
    std::sort(runs.begin(), runs.end(), [](const STB_OPT_NODE& a, const STB_OPT_NODE& b) {
        return std::tuple_cat(ShapeOf(a), std::tuple(a.start)) <
               std::tuple_cat(ShapeOf(b), std::tuple(b.start));
    });
    std::vector<STB_OPT_NODE> grouped;
    const STB_OPT_NODE* const end = runs.data() + runs.size();
    for (const STB_OPT_NODE* first = runs.data(); first != end;) {
        const STB_OPT_NODE* const last = std::find_if(
            first, end, [first](const STB_OPT_NODE& run) { return ShapeOf(run) != ShapeOf(*first); });
        ExtractGroupEx(first, last, grouped);
        first = last;
    }
    runs = std::move(grouped);
}

} // namespace

NumberRuns FindRuns(const LONG* values, LONG count)
{
    RemainingList list(std::vector<Value>(values, values + count));
    NumberRuns result;
    ExtractSeq(list, result.runs);
    ExtractSeqEx(list, kLeastLength, [&](const Progression& run) {
        result.runs.push_back(Run(list.At(run.places.front()), list.At(run.places.back()), run.step));
    });
    OptimizeGroup(result.runs);
    std::stable_sort(result.runs.begin(), result.runs.end(),
                     [](const STB_OPT_NODE& a, const STB_OPT_NODE& b) { return a.start < b.start; });
    for (int place = list.First(); place != list.End(); place = list.Next(place))
        result.singles.push_back(static_cast<LONG>(list.At(place)));
    return result;
}
