#include "Families.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <random>

namespace {

constexpr std::int64_t kLargest = 2147483647;

NumberList FromPlace(std::size_t count, const std::function<std::int64_t(std::int64_t)>& number)
{
    NumberList numbers;
    for (std::int64_t place = 0; numbers.size() < count; ++place) {
        if (number(place) > kLargest)
            break;
        numbers.push_back(static_cast<LONG>(number(place)));
    }
    return numbers;
}

NumberList Kept(std::size_t count, const std::function<bool(std::int64_t)>& keep)
{
    NumberList numbers;
    for (std::int64_t number = 1; numbers.size() < count && number <= kLargest; ++number) {
        if (keep(number))
            numbers.push_back(static_cast<LONG>(number));
    }
    return numbers;
}

NumberList Random(std::size_t count, unsigned percent)
{
    std::mt19937 random(1);
    return Kept(count, [&](std::int64_t) { return random() % 100 < percent; });
}

std::int64_t OnStorey(std::int64_t place)
{
    return (place / 50 + 1) * 1000 + place % 50 + 1;
}

NumberList GridWithGaps(std::size_t count)
{
    std::mt19937 random(1);
    NumberList numbers = FromPlace(count, OnStorey);
    std::erase_if(numbers, [&](LONG) { return random() % 50 == 0; });
    return numbers;
}

std::int64_t WithoutDigit2(std::int64_t place)
{
    std::int64_t number = 0;
    for (std::int64_t power = 1; place != 0; place /= 2, power *= 3)
        number += place % 2 * power;
    return number;
}

} // namespace

NumberList MakeFamily(const std::string& name, std::size_t count)
{
    if (name == "contiguous")
        return FromPlace(count, [](std::int64_t place) { return place + 1; });
    if (name == "third-missing")
        return Kept(count, [](std::int64_t number) { return number % 3 != 0; });
    if (name == "even")
        return FromPlace(count, [](std::int64_t place) { return 2 * place; });
    if (name == "grid")
        return FromPlace(count, OnStorey);
    if (name == "grid-gaps")
        return GridWithGaps(count);
    if (name == "squares")
        return FromPlace(count, [](std::int64_t place) { return place * place; });
    if (name == "base3")
        return FromPlace(count, WithoutDigit2);
    if (name.rfind("random", 0) == 0)
        return Random(count, static_cast<unsigned>(std::atoi(name.c_str() + 6)));
    return {};
}

DeckNumbers ReadDeckNumbers(const std::string& path)
{
    DeckNumbers numbers;
    NumberList* section = nullptr;
    bool continues = false; // the line before ends in a comma
    std::ifstream deck(path);
    for (std::string line; std::getline(deck, line);) {
        if (line[0] == '*') {
            std::transform(line.begin(), line.end(), line.begin(),
                           [](unsigned char c) { return std::toupper(c); });
            const std::string keyword = line.substr(0, line.find_first_of(", \r"));
            section = keyword == "*NODE"      ? &numbers.nodes
                      : keyword == "*ELEMENT" ? &numbers.elements
                                              : nullptr;
        } else if (section && !continues) {
            section->push_back(std::atoi(line.c_str()));
        }
        const std::size_t end = line.find_last_not_of(" \r");
        continues = end != std::string::npos && line[end] == ',';
    }
    for (NumberList* list : {&numbers.nodes, &numbers.elements}) {
        std::sort(list->begin(), list->end());
        list->erase(std::unique(list->begin(), list->end()), list->end());
    }
    return numbers;
}
