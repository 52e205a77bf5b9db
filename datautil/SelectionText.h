// Selection strings: their tokens, their items, and their normal form.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

enum TokenType { kNumberToken = 1, kSeparatorToken = 2, kToToken = 3, kByToken = 4 };

// What an item of a selection string names; a single number from itself to itself. Terms near the ends may
// need more than 32 bits.
struct SelectionItem {
    std::int32_t from, to, step;
};

// One token of `text` at `pos`, as CNumericOptimizer::GetToken tells it.
bool ReadToken(const char* text, int& pos, int& type, int& value);

// The normal form of a selection string; false for a syntax error, and then what stood before it.
bool Normalise(const char* text, std::string& normal);

// The items of a selection string; false for a syntax error.
bool ReadItems(const char* text, std::vector<SelectionItem>& items);
