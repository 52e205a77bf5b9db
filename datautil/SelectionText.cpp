#include "SelectionText.h"

#include <charconv>

namespace {

constexpr int kLongestToken = 128;

// Where commas count as blanks and where they are no part of the text.
enum class Commas { kRefuse, kAreBlanks };

bool IsBlank(char c, Commas commas)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || (c == ',' && commas == Commas::kAreBlanks);
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// A word may be cut to its first letter.
int SkipWord(const char* text, int pos, char lower, char upper)
{
    ++pos;
    return text[pos] == lower || text[pos] == upper ? pos + 1 : pos;
}

// What does not fit in 32 bits wraps.
bool ReadNumber(const char* text, Commas commas, int& pos, int& value)
{
    int at = pos;
    const bool negative = text[at] == '-';
    if (negative) {
        for (++at; IsBlank(text[at], commas);)
            ++at;
    }
    const int first = at;
    std::uint32_t number = 0;
    for (; IsDigit(text[at]); ++at)
        number = number * 10 + static_cast<std::uint32_t>(text[at] - '0');
    if (at == first || text[at] == '-' || at - first + negative > kLongestToken)
        return false;
    value = static_cast<int>(negative ? 0 - number : number);
    pos = at;
    return true;
}

bool ReadToken(const char* text, Commas commas, int& pos, int& type, int& value)
{
    const char c = text[pos];
    if (c == '\0' || IsBlank(c, commas)) {
        type = kSeparatorToken;
        pos += c != '\0';
        return true;
    }
    if (c == 't' || c == 'T') {
        type = kToToken;
        pos = SkipWord(text, pos, 'o', 'O');
        return true;
    }
    if (c == 'b' || c == 'B') {
        type = kByToken;
        pos = SkipWord(text, pos, 'y', 'Y');
        return true;
    }
    if (!ReadNumber(text, commas, pos, value))
        return false;
    type = kNumberToken;
    return true;
}

// How far an item has been read.
enum State { kNothingYet, kAfterNumber, kAfterTo, kAfterEnd, kAfterBy, kAfterStep, kError };

// Columns: number, "to", "by".
constexpr State kGrammar[][3] = {
    {kAfterNumber, kError, kError},   {kAfterNumber, kAfterTo, kError}, {kAfterEnd, kError, kError},
    {kAfterNumber, kError, kAfterBy}, {kAfterStep, kError, kError},     {kAfterNumber, kError, kError},
};

// Tells `visit(state, type, value)` of each token that is no separator, with the state that it leads to.
// False for a syntax error.
template <class Visit>
bool ReadGrammar(const char* text, Visit visit)
{
    State state = kNothingYet;
    for (int pos = 0; text[pos] != '\0';) {
        int type = 0;
        int value = 0;
        if (!ReadToken(text, Commas::kAreBlanks, pos, type, value))
            return false;
        if (type == kSeparatorToken)
            continue;
        state = kGrammar[state][type == kNumberToken ? 0 : type - kToToken + 1];
        if (state == kError)
            return false;
        visit(state, type, value);
    }
    return state != kAfterTo && state != kAfterBy;
}

void AppendNumber(std::string& text, int value)
{
    char digits[16];
    text.append(digits, std::to_chars(digits, digits + sizeof(digits), value).ptr);
}

} // namespace

bool ReadToken(const char* text, int& pos, int& type, int& value)
{
    return ReadToken(text, Commas::kRefuse, pos, type, value);
}

bool Normalise(const char* text, std::string& normal)
{
    normal.clear();
    return ReadGrammar(text, [&normal](State state, int type, int value) {
        if (type != kNumberToken) {
            normal += type == kToToken ? 't' : 'b';
            return;
        }
        if (state == kAfterNumber && !normal.empty())
            normal += ' ';
        AppendNumber(normal, value);
    });
}

bool ReadItems(const char* text, std::vector<SelectionItem>& items)
{
    items.clear();
    return ReadGrammar(text, [&items](State state, int type, int value) {
        if (type != kNumberToken)
            return;
        if (state == kAfterNumber)
            items.push_back({value, value, 1});
        else if (state == kAfterEnd)
            items.back().to = value;
        else
            items.back().step = value;
    });
}
