// Tokens and normal form of selection strings.
#include "Selection.h"

#include <afxconv_.h>

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t kLongestToken = 128;

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
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

bool ReadNumber(const char* text, int& pos, int& value)
{
    std::string token;
    int at = pos;
    if (text[at] == '-') {
        token += text[at++];
        while (IsBlank(text[at]))
            ++at;
    }
    const int first = at;
    while (IsDigit(text[at]) && token.size() <= kLongestToken)
        token += text[at++];
    if (at == first || text[at] == '-' || token.size() > kLongestToken)
        return false;
    value = AfxAtoI(token.c_str());
    pos = at;
    return true;
}

// What a state of the grammar makes of a token: where it leads and what stands before a number there.
struct Transition {
    int next;
    const char* text;
};
constexpr Transition kError = {-1, ""};

// Rows: nothing yet, after an item's number, after "to", after its end, after "by", after its step.
// Columns: number, "to", "by".
constexpr Transition kGrammar[6][3] = {
    {{1, ""}, kError, kError},    {{1, " "}, {2, "t"}, kError}, {{3, ""}, kError, kError},
    {{1, " "}, kError, {4, "b"}}, {{5, ""}, kError, kError},    {{1, " "}, kError, kError},
};

const Transition& Follow(int state, int type)
{
    return kGrammar[state][type == kNumberToken ? 0 : type - kToToken + 1];
}

bool MayEndIn(int state)
{
    return state != 2 && state != 4;
}

} // namespace

bool ReadToken(const char* text, int& pos, int& type, int& value)
{
    const char c = text[pos];
    if (c == '\0' || IsBlank(c)) {
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
    if (!ReadNumber(text, pos, value))
        return false;
    type = kNumberToken;
    return true;
}

bool Normalise(const char* text, std::string& normal)
{
    std::string source = text;
    std::replace(source.begin(), source.end(), ',', ' ');
    normal.clear();
    int state = 0;
    for (int pos = 0; source[static_cast<std::size_t>(pos)] != '\0';) {
        int type = 0;
        int value = 0;
        if (!ReadToken(source.c_str(), pos, type, value))
            return false;
        if (type == kSeparatorToken)
            continue;
        const Transition& step = Follow(state, type);
        if (step.next < 0)
            return false;
        normal += step.text;
        if (type == kNumberToken)
            normal += std::to_string(value);
        state = step.next;
    }
    return MayEndIn(state);
}
