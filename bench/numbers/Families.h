// Lists of entity numbers of many shapes, the same in every run.
#pragma once

#include <Numbers.h>

#include <cstddef>
#include <string>

// Ascending lists of `count` numbers: "contiguous", "third-missing", "even", "grid" (storeys of 50, 1,000
// apart), "grid-gaps" (the same with 2 % missing), "random90", "random50", "random10" (so many per cent of a
// range kept), "random01", and two with no four at equal steps, "squares" and "base3" (no digit 2 in base 3).
// Fewer where the range of 32 bits ends; empty for another name.
NumberList MakeFamily(const std::string& name, std::size_t count);

// The node numbers and the element numbers of a finite-element deck, each ascending; empty when there are
// none.
struct DeckNumbers {
    NumberList nodes, elements;
};
DeckNumbers ReadDeckNumbers(const std::string& path);
