#include "StepSearch.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace {

// Steps that are tried one by one, before all others.
constexpr unsigned kShortSteps = 64;

// Steps that are tried at once, in lanes as wide as the widest registers of today's processors.
constexpr unsigned kLaneBytes = 64;
constexpr unsigned kLanes = 2;
constexpr unsigned kStepsAtOnce = kLanes * kLaneBytes * 8;
constexpr unsigned kWords = kStepsAtOnce / 64;
using Lane = std::uint64_t __attribute__((vector_size(kLaneBytes)));
using HalfLane = std::uint64_t __attribute__((vector_size(kLaneBytes / 2)));
using QuarterLane = std::uint64_t __attribute__((vector_size(kLaneBytes / 4)));

constexpr unsigned kShifts = 8;
// Room before the bits, for starts that are not at a whole byte, and behind them, for steps past the end.
constexpr unsigned kBitsBefore = 8;
constexpr std::size_t kBytesBehind = kStepsAtOnce / 8 + 16;

static_assert(std::endian::native == std::endian::little, "bytes of bits are read as words");

template <class Word>
Word Load(const std::uint8_t* bytes)
{
    Word word;
    std::memcpy(&word, bytes, sizeof(word));
    return word;
}

void Set(std::vector<std::uint8_t>& bits, std::uint64_t at)
{
    bits[at >> 3] = static_cast<std::uint8_t>(bits[at >> 3] | 1u << (at & 7));
}

// The words that hold `bits` bits and what lies around them.
std::size_t BytesFor(std::uint64_t bits)
{
    return static_cast<std::size_t>((bits + kBitsBefore) / 64 * 8 + kBytesBehind);
}

// Copy s holds the bits s places further on.
void MakeCopies(std::vector<std::uint8_t>& bits, std::size_t bytes)
{
    for (unsigned shift = 1; shift < kShifts; ++shift) {
        std::uint8_t* const copy = bits.data() + bytes * shift;
        std::uint64_t carried = 0;
        for (std::size_t at = 0; at < bytes; at += 8) {
            const auto word = Load<std::uint64_t>(bits.data() + at);
            const std::uint64_t shifted = word << shift | carried;
            std::memcpy(copy + at, &shifted, sizeof(shifted));
            carried = word >> (64 - shift);
        }
    }
}

// Three rows of bits that are looked at side by side.
struct Rows {
    const std::uint8_t *ones, *twos, *threes;

    bool Meet() const
    {
        Lane met = {};
        for (unsigned lane = 0; lane < kLanes; ++lane) {
            Lane one, two, three;
            std::memcpy(&one, ones + kLaneBytes * lane, kLaneBytes);
            std::memcpy(&two, twos + kLaneBytes * lane, kLaneBytes);
            std::memcpy(&three, threes + kLaneBytes * lane, kLaneBytes);
            met |= one & two & three;
        }
        const HalfLane half =
            __builtin_shufflevector(met, met, 0, 1, 2, 3) | __builtin_shufflevector(met, met, 4, 5, 6, 7);
        const QuarterLane quarter =
            __builtin_shufflevector(half, half, 0, 1) | __builtin_shufflevector(half, half, 2, 3);
        return (quarter[0] | quarter[1]) != 0;
    }

    std::uint64_t Word(unsigned word) const
    {
        return Load<std::uint64_t>(ones + 8 * word) & Load<std::uint64_t>(twos + 8 * word) &
               Load<std::uint64_t>(threes + 8 * word);
    }

    void Advance()
    {
        ones += kStepsAtOnce / 8;
        twos += kStepsAtOnce / 8;
        threes += kStepsAtOnce / 8;
    }
};

} // namespace

StepSearch::StepSearch(std::uint32_t largest)
    : m_members(BytesFor(largest + std::uint64_t{1})), m_largest(largest)
{
}

void StepSearch::Add(std::uint32_t member)
{
    Set(m_members, member);
    ++m_count;
}

void StepSearch::Remove(std::uint32_t member)
{
    m_members[member >> 3] = static_cast<std::uint8_t>(m_members[member >> 3] & ~(1u << (member & 7)));
    --m_count;
    if (member == m_largest && m_count > 0) {
        while (!Bit(m_members, m_largest))
            --m_largest;
    }
}

// Of the members from a start on.
void StepSearch::MakeParts(std::uint32_t from)
{
    const auto clear = [this](Part& part, unsigned divisor) {
        part.bytes = BytesFor(m_largest / divisor + 1);
        part.bits.assign(part.bytes * kShifts, 0);
    };
    clear(m_halves[0], 2);
    clear(m_halves[1], 2);
    for (Part& third : m_thirds)
        clear(third, 3);
    for (std::uint64_t at = from & ~63u; at <= m_largest; at += 64) {
        for (auto word = Load<std::uint64_t>(m_members.data() + at / 8); word != 0; word &= word - 1) {
            const std::uint64_t member = at + static_cast<unsigned>(std::countr_zero(word));
            Set(m_halves[member % 2].bits, member / 2 + kBitsBefore);
            Set(m_thirds[member % 3].bits, member / 3 + kBitsBefore);
        }
    }
    for (Part& half : m_halves)
        MakeCopies(half.bits, half.bytes);
    for (Part& third : m_thirds)
        MakeCopies(third.bits, third.bytes);
    m_countInParts = m_count;
}

// Where the bit `at`, which may lie up to 8 before the first one, begins a byte.
const std::uint8_t* StepSearch::From(const Part& part, std::int64_t at)
{
    const auto bit = static_cast<std::uint64_t>(at + kBitsBefore);
    const std::uint64_t shift = -bit & (kShifts - 1);
    return part.bits.data() + part.bytes * shift + ((bit + shift) >> 3);
}

// The first of 64 steps from `first` on, told by bits, at which members stand in a row.
std::uint32_t StepSearch::FirstRow(std::uint32_t start, std::uint32_t least, std::int64_t first,
                                   std::uint64_t steps) const
{
    for (; steps != 0; steps &= steps - 1) {
        const auto step = static_cast<std::uint64_t>(first + std::countr_zero(steps));
        std::uint64_t number = start + 2 * step;
        std::uint32_t length = 2;
        while (length < least && Has(number)) {
            ++length;
            number += step;
        }
        if (length == least)
            return static_cast<std::uint32_t>(step);
    }
    return 0;
}

std::uint32_t StepSearch::ShortStep(std::uint32_t start, std::uint32_t least) const
{
    const std::uint64_t next = std::uint64_t{start} + 1;
    const unsigned shift = next & 7;
    auto steps = Load<std::uint64_t>(m_members.data() + (next >> 3)) >> shift;
    if (shift != 0)
        steps |= Load<std::uint64_t>(m_members.data() + (next >> 3) + 8) << (kShortSteps - shift);
    return FirstRow(start, least, 1, steps);
}

ZEK_FOR_EACH_PROCESSOR
std::uint32_t StepSearch::LongStep(std::uint32_t start, std::uint32_t least) const
{
    const auto largestStep = static_cast<std::int64_t>((m_largest - start) / (least - 1));
    // The rows begin at the last whole byte before the first long step.
    std::int64_t first = std::int64_t{kShortSteps} + 1;
    first -= (start + first) & 7;
    Rows rows = {m_members.data() + ((start + first) >> 3), From(m_halves[start % 2], start / 2 + first),
                 From(m_thirds[start % 3], start / 3 + first)};
    for (; first <= largestStep; first += kStepsAtOnce, rows.Advance()) {
        if (!rows.Meet())
            continue;
        for (unsigned word = 0; word < kWords; ++word) {
            if (const std::uint32_t step = FirstRow(start, least, first + 64 * word, rows.Word(word)))
                return step;
        }
    }
    return 0;
}

std::uint32_t StepSearch::SmallestStep(std::uint32_t start, std::uint32_t least)
{
    if (start >= m_largest)
        return 0;
    if (const std::uint32_t step = ShortStep(start, least))
        return step;
    if ((m_largest - start) / (least - 1) <= kShortSteps)
        return 0;
    if (m_count <= m_countInParts / 2 || m_countInParts == 0)
        MakeParts(start);
    return LongStep(start, least);
}
