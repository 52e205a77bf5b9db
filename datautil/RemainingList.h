// The numbers of a list that no run has taken yet.
#pragma once

#include <cstdint>
#include <vector>

// An ascending list that numbers are taken out of, at constant cost each. Numbers are told by their place in
// the full list, which does not change; End() stands behind the last one.
class RemainingList
{
public:
    // Wider than the numbers, so that no difference overflows.
    using Value = std::int64_t;

    explicit RemainingList(std::vector<Value> values);

    int First() const { return m_next.back(); }
    int End() const { return static_cast<int>(m_values.size()); }
    int Next(int place) const { return m_next[static_cast<std::size_t>(place)]; }
    // The place before; End() for the first one, and Next(End()) is the first one again.
    int Previous(int place) const { return m_previous[static_cast<std::size_t>(place)]; }
    Value At(int place) const { return m_values[static_cast<std::size_t>(place)]; }
    Value Largest() const { return m_values.empty() ? 0 : At(m_previous.back()); }
    bool HasThreeFrom(int place) const;
    void Remove(int place);

private:
    std::vector<Value> m_values;
    // One more than there are values: the last one closes the ring.
    std::vector<int> m_next;
    std::vector<int> m_previous;
};
