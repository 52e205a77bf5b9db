// A set of numbers that finds equal steps among its members.
#pragma once

#include <cstdint>
#include <vector>

// Members are numbers from 0 on; they are put in first and then only taken out. The time of a search goes by
// the range of the steps, not by the members, and many steps are tried at once: for sets that are not too
// thin.
//
// The members are kept as bits, and once more by what is left when they are divided by 2, and by 3: from a
// start a, the bits a + d, (a + 2d) / 2 and (a + 3d) / 3 lie in a row for d, d + 1, d + 2 and so on, so that
// AND tells of many steps whether a + d, a + 2d and a + 3d are all members. Of the parts there are eight
// copies shifted by a bit each, so that one of them begins at a whole byte wherever the start is.
//
// The parts are made when a search first goes beyond short steps, and again when half of what they hold has
// been taken out; until then they hold more than the set, and what they tell is checked.
class StepSearch
{
public:
    // Empty, with room for members up to `largest`, which is to be one. Needs up to 2.2 bytes for each
    // number.
    explicit StepSearch(std::uint32_t largest);
    // Before the first search; each once.
    void Add(std::uint32_t member);

    bool Has(std::uint64_t number) const { return number <= m_largest && Bit(m_members, number); }
    void Remove(std::uint32_t member);

    // The smallest step, from 1, at which `least` members stand in a row that begins with `start`; 0 when
    // there is none. `least` is 4 or more. Starts ascend from call to call.
    std::uint32_t SmallestStep(std::uint32_t start, std::uint32_t least);

private:
    using Bits = std::vector<std::uint8_t>;

    // One of the parts a set is divided into, with its shifted copies one behind the other.
    struct Part {
        Bits bits;
        std::size_t bytes = 0; // of a copy
    };

    static bool Bit(const Bits& bits, std::uint64_t at) { return bits[at >> 3] >> (at & 7) & 1; }
    static const std::uint8_t* From(const Part& part, std::int64_t at);
    void MakeParts(std::uint32_t from);
    std::uint32_t ShortStep(std::uint32_t start, std::uint32_t least) const;
    std::uint32_t LongStep(std::uint32_t start, std::uint32_t least) const;
    std::uint32_t FirstRow(std::uint32_t start, std::uint32_t least, std::int64_t first,
                           std::uint64_t steps) const;

    Bits m_members;
    std::uint64_t m_largest; // no member is larger
    std::size_t m_count = 0; // of the members
    std::size_t m_countInParts = 0;
    Part m_halves[2];
    Part m_thirds[3];
};
