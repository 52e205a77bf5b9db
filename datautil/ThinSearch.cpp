#include "ThinSearch.h"

#include <algorithm>
#include <bit>

namespace {

// The table has at least this many bits for each number: so many questions in one are answered in vain.
constexpr std::size_t kBitsPerNumber = 32;
// Shorter lists are left as they are.
constexpr std::size_t kFewestToShrink = 64;

} // namespace

ThinSearch::ThinSearch(std::vector<LONG> numbers)
    : m_numbers(std::move(numbers)), m_taken(m_numbers.size()), m_last(m_numbers.size() - 1)
{
    MakeTable();
}

void ThinSearch::MakeTable()
{
    m_tableBits = static_cast<unsigned>(
        std::bit_width(std::max<std::size_t>(m_numbers.size() * kBitsPerNumber, 64) - 1));
    m_table.assign((std::size_t{1} << m_tableBits) / 64, 0);
    for (const LONG number : m_numbers)
        m_table[BitFor(number) / 64] |= std::uint64_t{1} << BitFor(number) % 64;
}

// Multiplied by 2^32 divided by the golden ratio, numbers at equal steps fall far apart.
inline std::size_t ThinSearch::BitFor(std::int64_t number) const
{
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(number) * 2654435769u) << m_tableBits >> 32;
}

inline bool ThinSearch::MayHave(std::int64_t number) const
{
    const std::size_t bit = BitFor(number);
    return m_table[bit / 64] >> bit % 64 & 1;
}

void ThinSearch::Take(const Places& places)
{
    for (const std::size_t place : places)
        m_taken[place] = 1;
    m_takenCount += places.size();
    while (m_last > 0 && IsTaken(m_last))
        --m_last;
}

// All terms over the first two.
ThinSearch::Places ThinSearch::RunFrom(std::size_t start, std::size_t second) const
{
    Places places = {start, second};
    const std::int64_t step = std::int64_t{At(second)} - At(start);
    std::int64_t expected = At(second) + step;
    for (;;) {
        auto next = std::lower_bound(m_numbers.begin() + static_cast<std::ptrdiff_t>(places.back()) + 1,
                                     m_numbers.end(), expected);
        while (next != m_numbers.end() && *next == expected &&
               IsTaken(static_cast<std::size_t>(next - m_numbers.begin())))
            ++next;
        if (next == m_numbers.end() || *next != expected)
            return places;
        places.push_back(static_cast<std::size_t>(next - m_numbers.begin()));
        expected += step;
    }
}

ThinSearch::Places ThinSearch::SmallestStep(std::size_t start, const LeastLength& least) const
{
    const std::int64_t first = At(start);
    const std::int64_t largestStep = std::max<std::int64_t>((At(m_last) - first) / (least.stepped - 1), 1);
    for (std::size_t second = start + 1; second <= m_last; ++second) {
        const std::int64_t step = At(second) - first;
        if (step > largestStep)
            break;
        if (!MayHave(At(second) + step) || (step > 1 && !MayHave(At(second) + 2 * step)) || IsTaken(second))
            continue;
        Places places = RunFrom(start, second);
        if (static_cast<std::int64_t>(places.size()) >= least.For(step))
            return places;
    }
    return {};
}

bool ThinSearch::Shrink(std::size_t place)
{
    const std::size_t behind = Count() - place;
    if (Count() < kFewestToShrink || (place < Count() / 2 && m_takenCount < behind / 2))
        return false;
    std::size_t kept = 0;
    for (std::size_t from = place; from < Count(); ++from) {
        if (!IsTaken(from) || from == place)
            m_numbers[kept++] = At(from);
    }
    m_numbers.resize(kept);
    m_taken.assign(kept, 0);
    m_takenCount = 0;
    m_last = kept - 1;
    MakeTable();
    return true;
}
