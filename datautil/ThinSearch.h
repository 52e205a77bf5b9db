// A list of numbers that finds equal steps among them.
#pragma once

#include "ExtractSeqEx.h"

#include <cstdint>
#include <vector>

// Numbers ascend, repeat if they like, and are told by their places. They can be taken out, not put in. The
// time of a search goes by the numbers, however far they lie apart.
//
// Each second number of a run asks for a third one. A table of bits, one for many numbers, answers most such
// questions with no; only where it does not the list itself is searched.
class ThinSearch
{
public:
    using Places = std::vector<std::size_t>;

    // Needs up to 13 bytes for each number.
    explicit ThinSearch(std::vector<LONG> numbers);

    std::size_t Count() const { return m_numbers.size(); }
    LONG At(std::size_t place) const { return m_numbers[place]; }
    bool IsTaken(std::size_t place) const { return m_taken[place] != 0; }
    void Take(const Places& places);

    // The run of the smallest step that begins at `start`; empty when there is none.
    Places SmallestStep(std::size_t start, const LeastLength& least) const;

    // Forgets what lies before `place`, and what was taken, when that is the greater part: what has to be
    // searched stays in proportion. Places count from `place` then, which is the new first one: true.
    bool Shrink(std::size_t place);

private:
    void MakeTable();
    std::size_t BitFor(std::int64_t number) const;
    bool MayHave(std::int64_t number) const;
    Places RunFrom(std::size_t start, std::size_t second) const;

    std::vector<LONG> m_numbers;
    std::vector<std::uint8_t> m_taken;
    std::size_t m_takenCount = 0;
    std::size_t m_last = 0; // no number that is left lies behind this place
    std::vector<std::uint64_t> m_table;
    unsigned m_tableBits = 0; // as a power of 2
};
