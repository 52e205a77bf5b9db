// Selection strings: their tokens, their normal form, and what they select.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

enum TokenType { kNumberToken = 1, kSeparatorToken = 2, kToToken = 3, kByToken = 4 };

// One token of `text` at `pos`, as CNumericOptimizer::GetToken tells it.
bool ReadToken(const char* text, int& pos, int& type, int& value);

// The normal form of a selection string; false for a syntax error, and then what stood before it.
bool Normalise(const char* text, std::string& normal);

// Appends what `normal` selects from the ascending base of `n` > 0 numbers, in its order.
void Select(const LONG* base, LONG n, const std::string& normal, std::vector<LONG>& selection);
