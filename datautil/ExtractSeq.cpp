#include "ExtractSeq.h"

#include <algorithm>
#include <cstdint>

namespace {

using Value = std::int64_t;

// A start that fails hands its last number on as the next start. A run that is taken can change no more than
// the last two starts before it: a failed one covers at most three numbers and looks at the one behind them.
// So the search goes on from there instead of from the left, and each number is looked at a few times only.
template <class Number>
class NeighbourPass
{
public:
    NeighbourPass(std::span<const Number> numbers, std::vector<STB_OPT_NODE>& runs)
        : m_numbers(numbers), m_runs(runs)
    {
    }

    std::vector<LONG> Take()
    {
        for (std::size_t start = 0; start + 2 < Count();) {
            const std::size_t last = LastNeighbour(start);
            start = Qualifies(start, last) ? TakeRun(start, last) : Fail(start, last);
        }
        PassOver(Count());
        return std::move(m_left);
    }

private:
    // What remains: what was passed over, then what has not been looked at.
    std::size_t Count() const { return m_left.size() + m_numbers.size() - m_next; }
    Value At(std::size_t place) const
    {
        return place < m_left.size() ? m_left[place]
                                     : static_cast<LONG>(m_numbers[m_next + place - m_left.size()]);
    }
    Value StepAt(std::size_t place) const { return At(place + 1) - At(place); }

    // The place of the last number at the step of the first two.
    std::size_t LastNeighbour(std::size_t start) const
    {
        const Value step = StepAt(start);
        std::size_t last = start + 1;
        while (last < m_left.size() && last + 1 < Count() && StepAt(last) == step)
            ++last;
        if (last < m_left.size())
            return last;
        const Number* const first = m_numbers.data() + (m_next + last - m_left.size());
        const Number* const end = m_numbers.data() + m_numbers.size() - 1;
        const Number* number = first;
        while (number < end && Value{static_cast<LONG>(number[1])} - static_cast<LONG>(number[0]) == step)
            ++number;
        return last + static_cast<std::size_t>(number - first);
    }

    bool Qualifies(std::size_t start, std::size_t last) const
    {
        const std::size_t length = last - start + 1;
        return length >= 4 || (length == 3 && StepAt(start) == 1);
    }

    std::size_t TakeRun(std::size_t start, std::size_t last)
    {
        m_runs.push_back(
            {static_cast<LONG>(At(start)), static_cast<LONG>(At(last)), static_cast<LONG>(StepAt(start))});
        const std::size_t end = last + 1;
        PassOver(start);
        m_next += end - m_left.size();
        m_left.resize(start);
        const std::size_t kept = m_failed.size() - std::min<std::size_t>(m_failed.size(), 2);
        const std::size_t again = m_failed.empty() ? start : m_failed[kept];
        m_failed.resize(kept);
        return again;
    }

    std::size_t Fail(std::size_t start, std::size_t last)
    {
        m_failed.push_back(static_cast<std::uint32_t>(start));
        PassOver(last);
        return last;
    }

    void PassOver(std::size_t place)
    {
        while (m_left.size() < place)
            m_left.push_back(static_cast<LONG>(m_numbers[m_next++]));
    }

    std::span<const Number> m_numbers;
    std::vector<STB_OPT_NODE>& m_runs;
    std::vector<LONG> m_left;
    std::size_t m_next = 0; // of the numbers, behind what was passed over or taken
    std::vector<std::uint32_t> m_failed;
};

} // namespace

template <class Number>
std::vector<LONG> ExtractSeq(std::span<const Number> numbers, std::vector<STB_OPT_NODE>& runs)
{
    return NeighbourPass<Number>(numbers, runs).Take();
}

template std::vector<LONG> ExtractSeq(std::span<const LONG>, std::vector<STB_OPT_NODE>&);
template std::vector<LONG> ExtractSeq(std::span<const UINT>, std::vector<STB_OPT_NODE>&);
