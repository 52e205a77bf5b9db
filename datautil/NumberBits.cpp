#include "NumberBits.h"

void NumberBits::AddAll(LONG from, LONG to)
{
    const std::uint64_t all = ~std::uint64_t{0};
    const std::uint64_t first = all << Offset(from) % 64;
    const std::uint64_t last = all >> (63 - Offset(to) % 64);
    std::size_t word = Offset(from) / 64;
    const std::size_t end = Offset(to) / 64;
    if (word == end) {
        m_words[word] |= first & last;
        return;
    }
    m_words[word] |= first;
    for (++word; word < end; ++word)
        m_words[word] = all;
    m_words[end] |= last;
}
