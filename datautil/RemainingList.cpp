#include "RemainingList.h"

RemainingList::RemainingList(std::vector<Value> values)
    : m_values(std::move(values)), m_next(m_values.size() + 1), m_previous(m_values.size() + 1)
{
    const int ring = End() + 1;
    for (int place = 0; place < ring; ++place) {
        m_next[static_cast<std::size_t>(place)] = (place + 1) % ring;
        m_previous[static_cast<std::size_t>((place + 1) % ring)] = place;
    }
}

bool RemainingList::HasThreeFrom(int place) const
{
    for (int left = 3; left > 0; --left) {
        if (place == End())
            return false;
        place = Next(place);
    }
    return true;
}

void RemainingList::Remove(int place)
{
    const auto at = static_cast<std::size_t>(place);
    m_next[static_cast<std::size_t>(m_previous[at])] = m_next[at];
    m_previous[static_cast<std::size_t>(m_next[at])] = m_previous[at];
}
