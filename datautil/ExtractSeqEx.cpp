#include "ExtractSeqEx.h"

#include "StepSearch.h"
#include "ThinSearch.h"

#include <algorithm>
#include <functional>
#include <numeric>

namespace {

using Value = std::int64_t;

// Up to this range for each number a search goes by the range, beyond it by the numbers.
constexpr Value kWidestRange = 150;
constexpr Value kMostBits = Value{1} << 30;

// ---- Numbers that lie close ----

// Numbers told by how many units they lie behind the first one.
class Scale
{
public:
    explicit Scale(const std::vector<LONG>& numbers) : m_origin(numbers.front())
    {
        for (const LONG number : numbers) {
            m_unit = std::gcd(m_unit, Value{number} - m_origin);
            if (m_unit == 1)
                break;
        }
    }

    Value Unit() const { return m_unit; }
    std::uint32_t Place(LONG number) const
    {
        const auto distance = static_cast<std::uint32_t>(number - m_origin);
        return m_unit == 1 ? distance : distance / static_cast<std::uint32_t>(m_unit);
    }
    LONG Number(std::uint64_t place) const
    {
        return static_cast<LONG>(m_origin + static_cast<Value>(place) * m_unit);
    }

private:
    Value m_origin;
    Value m_unit = 0;
};

// Whether three neighbours begin with the place, where they are enough.
bool HasNeighbours(const StepSearch& set, std::uint32_t place, const Scale& scale, const LeastLength& least)
{
    return least.neighbours == 3 && scale.Unit() == 1 && set.Has(std::uint64_t{place} + 1) &&
           set.Has(std::uint64_t{place} + 2);
}

STB_OPT_NODE TakeRow(StepSearch& set, std::uint32_t place, std::uint32_t step, const Scale& scale)
{
    std::uint64_t last = place;
    for (std::uint64_t next = place; set.Has(next); next += step) {
        set.Remove(static_cast<std::uint32_t>(next));
        last = next;
    }
    return {scale.Number(place), scale.Number(last), static_cast<LONG>(step * scale.Unit())};
}

void TakeFromClose(std::vector<LONG>& numbers, const Scale& scale, const LeastLength& least,
                   std::vector<STB_OPT_NODE>& runs)
{
    StepSearch set(scale.Place(numbers.back()));
    for (const LONG number : numbers)
        set.Add(scale.Place(number));
    std::size_t left = 0;
    for (const LONG number : numbers) {
        const std::uint32_t place = scale.Place(number);
        if (!set.Has(place))
            continue;
        const std::uint32_t step = HasNeighbours(set, place, scale, least)
                                       ? 1
                                       : set.SmallestStep(place, static_cast<std::uint32_t>(least.stepped));
        if (step != 0) {
            runs.push_back(TakeRow(set, place, step, scale));
            continue;
        }
        set.Remove(place); // no later run can hold it
        numbers[left++] = number;
    }
    numbers.resize(left);
}

// ---- Numbers that lie far apart, or repeat ----

void TakeFromFar(std::vector<LONG>& numbers, const LeastLength& least, std::vector<STB_OPT_NODE>& runs)
{
    ThinSearch list(std::move(numbers));
    numbers.clear();
    for (std::size_t start = 0; start < list.Count(); ++start) {
        if (list.IsTaken(start))
            continue;
        if (list.Shrink(start))
            start = 0;
        const ThinSearch::Places places = list.SmallestStep(start, least);
        const LONG first = list.At(start);
        if (places.empty()) {
            numbers.push_back(first);
            continue;
        }
        runs.push_back({first, list.At(places.back()), static_cast<LONG>(Value{list.At(places[1])} - first)});
        list.Take(places);
    }
}

} // namespace

// What is left only shrinks, so a start that failed once has no run later either, and one sweep finds all.
void ExtractSeqEx(std::vector<LONG>& numbers, const LeastLength& least, std::vector<STB_OPT_NODE>& runs)
{
    if (static_cast<Value>(numbers.size()) < std::min(least.neighbours, least.stepped))
        return;
    const Scale scale(numbers);
    const Value range = scale.Unit() == 0 ? 0 : (Value{numbers.back()} - numbers.front()) / scale.Unit();
    const bool distinct =
        std::adjacent_find(numbers.begin(), numbers.end(), std::greater_equal<>()) == numbers.end();
    if (distinct && range < kMostBits && range <= kWidestRange * static_cast<Value>(numbers.size()))
        TakeFromClose(numbers, scale, least, runs);
    else
        TakeFromFar(numbers, least, runs);
}
