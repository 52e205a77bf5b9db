// Selection strings as they are described: an oracle that reads a character at a time and steps term by term.
#pragma once

#include "Numbers.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

// What GetToken answers, with what it leaves in its three parameters.
struct Token {
    int result, pos, type, value;

    bool operator==(const Token&) const = default;
};

inline std::ostream& operator<<(std::ostream& stream, const Token& token)
{
    return stream << token.result << ", pos " << token.pos << ", type " << token.type << ", value "
                  << token.value;
}

inline bool IsOneOf(char c, std::string_view letters)
{
    return letters.find(c) != std::string_view::npos;
}

// The reader of tokens, from state to state.
class LiteralToken
{
public:
    // `before` has the parameters as they are given.
    static Token Read(const std::string& text, const Token& before)
    {
        LiteralToken reader{before};
        auto at = static_cast<std::size_t>(before.pos);
        while (at < text.size()) {
            switch (reader.Step(text[at])) {
            case kRefuse:
                return reader.Refusal();
            case kEndBefore:
                return reader.End(at);
            case kEndBehind:
                return reader.End(at + 1);
            case kGoOn:
                ++at;
            }
        }
        return reader.m_state == kSign ? reader.Refusal() : reader.End(text.size());
    }

    // Of the decimal digits, of any length: as 32 bits hold it.
    static int Wrapped(const std::string& number)
    {
        std::uint64_t magnitude = 0;
        for (const char c : number)
            magnitude = c == '-' ? 0 : (magnitude * 10 + static_cast<std::uint64_t>(c - '0')) % kModulus;
        const std::uint64_t wrapped = number[0] == '-' ? (kModulus - magnitude) % kModulus : magnitude;
        return static_cast<int>(wrapped < kModulus / 2 ? static_cast<std::int64_t>(wrapped)
                                                       : static_cast<std::int64_t>(wrapped - kModulus));
    }

private:
    enum State { kSeparator, kSign, kNumber, kTo, kBy };
    enum Verdict { kGoOn, kEndBefore, kEndBehind, kRefuse };
    static constexpr std::uint64_t kModulus = std::uint64_t{1} << 32;

    explicit LiteralToken(const Token& before) : m_before(before) {}

    Verdict Keep(char c, State next)
    {
        m_kept += c;
        m_state = next;
        return m_kept.size() > 128 ? kRefuse : kGoOn;
    }

    Verdict Step(char c)
    {
        switch (m_state) {
        case kSeparator:
            return Start(c);
        case kSign:
            return IsOneOf(c, " \t\r\n") ? kGoOn : IsOneOf(c, "0123456789") ? Keep(c, kNumber) : kRefuse;
        case kNumber:
            return IsOneOf(c, "0123456789") ? Keep(c, kNumber) : c == '-' ? kRefuse : kEndBefore;
        case kTo:
            return IsOneOf(c, "oO") ? kEndBehind : kEndBefore;
        case kBy:
            return IsOneOf(c, "yY") ? kEndBehind : kEndBefore;
        }
        std::abort();
    }

    Verdict Start(char c)
    {
        if (IsOneOf(c, " \t\r\n"))
            return kEndBehind;
        if (IsOneOf(c, "-0123456789"))
            return Keep(c, c == '-' ? kSign : kNumber);
        m_state = IsOneOf(c, "tT") ? kTo : kBy;
        return IsOneOf(c, "tTbB") ? kGoOn : kRefuse;
    }

    Token Refusal() const { return {0, m_before.pos, m_before.type, m_before.value}; }

    Token End(std::size_t pos) const
    {
        const int type = m_state == kNumber ? 1 : m_state == kSeparator ? 2 : m_state == kTo ? 3 : 4;
        return {1, static_cast<int>(pos), type, type == 1 ? Wrapped(m_kept) : m_before.value};
    }

    Token m_before;
    State m_state = kSeparator;
    std::string m_kept; // of the number, with its sign
};

// What StrCpyRemoveSpace answers, and what it writes.
struct NormalForm {
    bool accepted;
    std::string text;
    std::size_t wide; // the numbers read that are beyond 31 bits
};

// Whether 32 bits hold another value than the one that stands there.
inline bool IsWide(std::string number, int value)
{
    number.erase(std::remove_if(number.begin(), number.end(), [](char c) { return IsOneOf(c, " \t\r\n"); }),
                 number.end());
    return std::strtold(number.c_str(), nullptr) != value;
}

// The grammar, from state to state: nothing yet, a number, "to", the end, "by", the step.
inline NormalForm Normalise(std::string text)
{
    constexpr int kError = -1;
    // Columns: number, separator, "to", "by".
    constexpr int kNext[][4] = {{1, 0, kError, kError}, {1, 1, 2, kError},      {3, 2, kError, kError},
                                {1, 3, kError, 4},      {5, 4, kError, kError}, {1, 5, kError, kError}};
    constexpr const char* kBeforeNumber[] = {"", " ", "", " ", "", " "};
    std::replace(text.begin(), text.end(), ',', ' ');
    NormalForm normal = {false, "", 0};
    int state = 0;
    for (Token token = {1, 0, 0, 0}; static_cast<std::size_t>(token.pos) < text.size();) {
        const auto begin = static_cast<std::size_t>(token.pos);
        token = LiteralToken::Read(text, token);
        const int next = token.result == 0 ? kError : kNext[state][token.type - 1];
        if (next == kError)
            return normal;
        if (token.type == 1) {
            normal.text += kBeforeNumber[state] + std::to_string(token.value);
            normal.wide +=
                IsWide(text.substr(begin, static_cast<std::size_t>(token.pos) - begin), token.value);
        }
        normal.text += token.type == 3 ? "t" : token.type == 4 ? "b" : "";
        state = next;
    }
    normal.accepted = state != 2 && state != 4;
    return normal;
}

struct NamedNumbers {
    std::int64_t from, to, step;
};

// The items of a normal form that was accepted.
inline std::vector<NamedNumbers> ItemsOf(const std::string& normal)
{
    std::vector<NamedNumbers> items;
    std::istringstream words(normal);
    for (std::string word; words >> word;) {
        char* rest = nullptr;
        NamedNumbers item = {std::strtoll(word.c_str(), &rest, 10), 0, 1};
        item.to = *rest == 't' ? std::strtoll(rest + 1, &rest, 10) : item.from;
        item.step = *rest == 'b' ? std::strtoll(rest + 1, &rest, 10) : 1;
        items.push_back(item);
    }
    return items;
}

// What the items select from a list, in their order. Terms are stepped through, and looked up; where that
// would take long, the numbers of the list are tried instead.
inline NumberList Select(const NumberList& base, const std::vector<NamedNumbers>& items)
{
    constexpr std::int64_t kManyTerms = 300;
    const std::set<std::int64_t> held(base.begin(), base.end());
    NumberList selected;
    for (const auto& [from, to, step] : items) {
        if (step == 0)
            continue;
        const auto isBefore = [up = step > 0](std::int64_t a, std::int64_t b) { return up ? a < b : a > b; };
        if ((to - from) / step < kManyTerms) {
            for (std::int64_t term = from; !isBefore(to, term); term += step) {
                if (held.count(term))
                    selected.push_back(static_cast<LONG>(term));
            }
            continue;
        }
        std::vector<std::int64_t> tried(held.begin(), held.end());
        std::sort(tried.begin(), tried.end(), isBefore);
        for (const std::int64_t number : tried) {
            if (!isBefore(number, from) && !isBefore(to, number) && (number - from) % step == 0)
                selected.push_back(static_cast<LONG>(number));
        }
    }
    return selected;
}
