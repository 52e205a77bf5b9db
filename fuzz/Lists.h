// Lists of numbers that inputs describe.
#pragma once

#include "Fuzz.h"
#include "SelectionOracle.h"

// Numbers that a text names as a selection does, in its order: "3to9by2 5 1". What follows an error does not
// count.
inline NumberList NamedNumbersOf(const std::string& text, std::size_t limit)
{
    std::string normal = Normalise(text).text;
    normal.erase(normal.find_last_not_of("tb") + 1);
    NumberList numbers;
    for (const auto& [from, to, step] : ItemsOf(normal)) {
        for (std::int64_t term = from; step > 0 ? term <= to : step < 0 && term >= to; term += step) {
            if (numbers.size() == limit)
                return numbers;
            if (term == static_cast<LONG>(term))
                numbers.push_back(static_cast<LONG>(term));
        }
    }
    return numbers;
}

// Numbers at the distances of the bytes left, in units: 0 repeats a number.
inline NumberList SpacedNumbersOf(Input input, std::size_t limit)
{
    NumberList numbers;
    std::int64_t number = input.Number();
    for (const std::int64_t unit = input.Byte() + 1; !input.IsEmpty() && numbers.size() < limit;) {
        number += input.Byte() * unit;
        if (number > 2147483647)
            break;
        numbers.push_back(static_cast<LONG>(number));
    }
    return numbers;
}

// Numbers whose bits are set in the bytes left, in units.
inline NumberList MarkedNumbersOf(Input input, std::size_t limit)
{
    NumberList numbers;
    std::int64_t number = input.Number();
    for (const std::int64_t unit = input.Byte() + 1; !input.IsEmpty();) {
        const unsigned byte = input.Byte();
        for (unsigned bit = 0; bit < 8; ++bit, number += unit) {
            if (byte >> bit & 1 && numbers.size() < limit && number <= 2147483647)
                numbers.push_back(static_cast<LONG>(number));
        }
    }
    return numbers;
}

// The first letter says how the numbers are described.
inline NumberList NumbersOf(Input input, std::size_t limit)
{
    if (input.Takes('s'))
        return SpacedNumbersOf(input, limit);
    if (input.Takes('m'))
        return MarkedNumbersOf(input, limit);
    return NamedNumbersOf(input.Text(), limit);
}
