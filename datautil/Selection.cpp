#include "Selection.h"

#include "NumberBits.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace {

// A search in the base costs about as much as passing over this many of its numbers.
constexpr std::int64_t kSearchCost = 16;
// Up to this many terms are looked for one by one in any case.
constexpr std::int64_t kFewTerms = 32;
// A base that spans up to this many numbers for each of its own may be kept as bits.
constexpr std::int64_t kWidestForBits = 64;

// The terms of an item that a base may hold: from `low`, the first, to not above `high`.
struct Terms {
    std::int64_t low, high, step;

    std::int64_t Count() const
    {
        if (low > high)
            return 0;
        return (step == 1 ? high - low : (high - low) / step) + 1;
    }
    // Cheaper than to count them.
    bool AreMoreThan(std::int64_t count) const { return high - low >= count * step; }
};

constexpr Terms kNoTerms = {1, 0, 1};

std::int64_t Remainder(std::int64_t number, std::int64_t divisor)
{
    const std::int64_t remainder = number % divisor;
    return remainder < 0 ? remainder + divisor : remainder;
}

// An ascending list of numbers that is searched.
template <class Number>
class Base
{
public:
    explicit Base(std::span<const Number> numbers) : m_numbers(numbers) {}

    std::size_t Count() const { return m_numbers.size(); }
    LONG At(std::size_t place) const { return static_cast<LONG>(m_numbers[place]); }
    LONG First() const { return At(0); }
    LONG Last() const { return At(Count() - 1); }
    bool RepeatsAt(std::size_t place) const { return place > 0 && At(place) == At(place - 1); }

    Terms TermsOf(const SelectionItem& item) const
    {
        const bool runsAway = item.step > 0 ? item.from > item.to : item.from < item.to;
        const std::int64_t low = std::max<std::int64_t>(std::min(item.from, item.to), First());
        const std::int64_t high = std::min<std::int64_t>(std::max(item.from, item.to), Last());
        if (item.step == 0 || runsAway || low > high)
            return kNoTerms;
        const std::int64_t step = std::abs(std::int64_t{item.step});
        return {low == item.from ? low : low + Remainder(item.from - low, step), high, step};
    }

    // Whether to look for all terms costs more than to read all of the base into bits, and it can be read so.
    bool IsWorthBits(const std::vector<SelectionItem>& items) const
    {
        const auto count = static_cast<std::int64_t>(Count());
        return std::int64_t{Last()} - First() < kWidestForBits * count &&
               HaveMoreTerms(items, count / kSearchCost) &&
               std::is_sorted(m_numbers.begin(), m_numbers.end(), IsLess);
    }

    // All of it, where IsWorthBits says so.
    NumberBits Bits() const
    {
        NumberBits bits(First(), Last());
        for (std::size_t i = 0; i < Count(); ++i)
            bits.Add(At(i));
        return bits;
    }

    // Tells `take` of the terms that are there, ascending. `bits`, which may be null, are those of Bits().
    template <class Take>
    void Find(const Terms& terms, const NumberBits* bits, Take take) const
    {
        if (terms.Count() <= (bits ? kFewTerms : 1)) {
            FindEach(terms, bits, take);
            return;
        }
        const auto [first, last] = Between(terms.low, terms.high);
        if (terms.Count() * (bits ? 1 : kSearchCost) < static_cast<std::int64_t>(last - first))
            FindEach(terms, bits, take);
        else
            PassOver(first, last, terms, take);
    }

    // Goes through the numbers from a place to before another. One that is there twice is found once.
    template <class Take>
    void PassOver(std::size_t first, std::size_t last, const Terms& terms, Take take) const
    {
        for (std::size_t i = first; i < last; ++i) {
            if (!RepeatsAt(i) && (terms.step == 1 || (At(i) - terms.low) % terms.step == 0))
                take(At(i));
        }
    }

    // The places of the numbers from `low` to `high`, the last one excluded. Quick near the last answer: the
    // items of a text mostly ascend.
    std::pair<std::size_t, std::size_t> Between(std::int64_t low, std::int64_t high) const
    {
        const std::size_t first = FirstNotBelow(low);
        m_near = first;
        return {first, FirstNotBelow(high + 1)};
    }

private:
    bool HaveMoreTerms(const std::vector<SelectionItem>& items, std::int64_t count) const
    {
        for (const SelectionItem& item : items) {
            count -= TermsOf(item).Count();
            if (count < 0)
                return true;
        }
        return false;
    }

    static bool IsLess(Number a, Number b) { return static_cast<LONG>(a) < static_cast<LONG>(b); }

    template <class Take>
    void FindEach(const Terms& terms, const NumberBits* bits, Take take) const
    {
        for (std::int64_t term = terms.low; term <= terms.high; term += terms.step) {
            if (bits ? bits->Has(static_cast<LONG>(term)) : Holds(static_cast<LONG>(term)))
                take(static_cast<LONG>(term));
        }
    }

    bool Holds(LONG number) const
    {
        const auto [first, last] = Between(number, number);
        return first != last;
    }

    bool IsBelow(std::size_t place, std::int64_t limit) const { return At(place) < limit; }

    // Searches from the last answer on in steps that double, then between the last two of them.
    std::size_t FirstNotBelow(std::int64_t limit) const
    {
        std::size_t low = 0, high = Count();
        if (m_near < Count() && IsBelow(m_near, limit)) {
            low = m_near + 1;
            for (std::size_t step = 1; low + step < high; step *= 2) {
                if (!IsBelow(low + step, limit))
                    high = low + step;
                else
                    low += step + 1;
            }
        } else {
            high = std::min(m_near, Count());
            for (std::size_t step = 1; low + step < high; step *= 2) {
                if (IsBelow(high - step, limit))
                    low = high - step + 1;
                else
                    high -= step;
            }
        }
        while (low < high) {
            const std::size_t middle = low + (high - low) / 2;
            if (IsBelow(middle, limit))
                low = middle + 1;
            else
                high = middle;
        }
        return low;
    }

    std::span<const Number> m_numbers;
    mutable std::size_t m_near = 0;
};

void SortAndRemoveRepeats(std::vector<LONG>& numbers)
{
    if (!std::is_sorted(numbers.begin(), numbers.end()))
        std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

// `bits` has room for all of the numbers and holds none, or is null.
void RemoveLaterRepeats(std::vector<LONG>& numbers, NumberBits* bits)
{
    std::unordered_set<LONG> seen;
    const auto repeats = [&](LONG number) {
        return bits ? !bits->AddNew(number) : !seen.insert(number).second;
    };
    numbers.erase(std::remove_if(numbers.begin(), numbers.end(), repeats), numbers.end());
}

// Marks whatever the items name, then goes through the base once.
template <class Number>
std::vector<LONG> SelectMarked(const Base<Number>& base, const std::vector<SelectionItem>& items)
{
    NumberBits named(base.First(), base.Last());
    for (const SelectionItem& item : items) {
        const Terms terms = base.TermsOf(item);
        if (terms.step == 1 && terms.low < terms.high) {
            named.AddAll(static_cast<LONG>(terms.low), static_cast<LONG>(terms.high));
        } else if (terms.AreMoreThan(static_cast<std::int64_t>(base.Count()))) {
            const auto [first, last] = base.Between(terms.low, terms.high);
            base.PassOver(first, last, terms, [&](LONG number) { named.Add(number); });
        } else {
            for (std::int64_t term = terms.low; term <= terms.high; term += terms.step)
                named.Add(static_cast<LONG>(term));
        }
    }
    std::vector<LONG> selection(base.Count());
    std::size_t count = 0;
    for (std::size_t i = 0; i < base.Count(); ++i) {
        selection[count] = base.At(i);
        count += named.Has(base.At(i)) && !base.RepeatsAt(i);
    }
    selection.resize(count);
    return selection;
}

} // namespace

template <class Number>
std::vector<LONG> SelectInOrder(std::span<const Number> numbers, const std::vector<SelectionItem>& items,
                                bool unique)
{
    const Base<Number> base(numbers);
    std::optional<NumberBits> bits;
    if (base.IsWorthBits(items))
        bits = base.Bits();
    std::vector<LONG> selection;
    for (const SelectionItem& item : items) {
        const auto before = static_cast<std::ptrdiff_t>(selection.size());
        base.Find(base.TermsOf(item), bits ? &*bits : nullptr,
                  [&](LONG number) { selection.push_back(number); });
        if (item.step < 0)
            std::reverse(selection.begin() + before, selection.end());
    }
    if (unique && bits)
        *bits = NumberBits(base.First(), base.Last());
    if (unique)
        RemoveLaterRepeats(selection, bits ? &*bits : nullptr);
    return selection;
}

template <class Number>
std::vector<LONG> SelectSorted(std::span<const Number> numbers, const std::vector<SelectionItem>& items)
{
    const Base<Number> base(numbers);
    if (base.IsWorthBits(items))
        return SelectMarked(base, items);
    std::vector<LONG> selection = SelectInOrder(numbers, items, false);
    SortAndRemoveRepeats(selection);
    return selection;
}

template std::vector<LONG> SelectInOrder(std::span<const LONG>, const std::vector<SelectionItem>&, bool);
template std::vector<LONG> SelectInOrder(std::span<const UINT>, const std::vector<SelectionItem>&, bool);
template std::vector<LONG> SelectSorted(std::span<const LONG>, const std::vector<SelectionItem>&);
template std::vector<LONG> SelectSorted(std::span<const UINT>, const std::vector<SelectionItem>&);
