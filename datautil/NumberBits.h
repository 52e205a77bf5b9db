// A set of numbers of a range, a bit each.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

class NumberBits
{
public:
    NumberBits(LONG first, LONG last) : m_first(first), m_words((std::uint64_t{Offset(last)} + 64) / 64) {}

    // Numbers lie in the range.
    bool Has(LONG number) const { return m_words[Offset(number) / 64] >> Offset(number) % 64 & 1; }
    void Add(LONG number) { m_words[Offset(number) / 64] |= std::uint64_t{1} << Offset(number) % 64; }
    // True when the number was not there.
    bool AddNew(LONG number)
    {
        const bool added = !Has(number);
        Add(number);
        return added;
    }
    void AddAll(LONG from, LONG to);

private:
    std::uint32_t Offset(LONG number) const
    {
        return static_cast<std::uint32_t>(number) - static_cast<std::uint32_t>(m_first);
    }

    LONG m_first;
    std::vector<std::uint64_t> m_words;
};
