#include "Peers.h"

#include <Literal.h>

#include <CompFunc.h>
#include <roaring/roaring.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>

namespace {

using Value = std::int64_t;

class Text
{
public:
    explicit Text(std::size_t numbers) { m_text.reserve(numbers * 12 + 64); }

    void AddRange(Value from, Value to)
    {
        if (!m_text.empty())
            m_text += ' ';
        Put(from);
        if (from == to)
            return;
        m_text += "to";
        Put(to);
    }
    std::string Take() { return std::move(m_text); }

private:
    void Put(Value number)
    {
        char digits[24];
        m_text.append(digits, std::to_chars(digits, digits + sizeof(digits), number).ptr);
    }

    std::string m_text;
};

} // namespace

std::string FoldInOnePass(const NumberList& numbers)
{
    Text text(numbers.size());
    for (std::size_t i = 0; i < numbers.size();) {
        std::size_t last = i;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1)
            ++last;
        text.AddRange(numbers[i], numbers[last]);
        i = last + 1;
    }
    return text.Take();
}

std::string FoldWithRoaring(const NumberList& numbers)
{
    roaring_bitmap_t* set =
        roaring_bitmap_of_ptr(numbers.size(), reinterpret_cast<const std::uint32_t*>(numbers.data()));
    roaring_bitmap_run_optimize(set);
    struct State {
        Text text;
        Value first, last;
    } state = {Text(numbers.size()), -1, -1};
    roaring_iterate(
        set,
        [](std::uint32_t number, void* pointer) {
            State& at = *static_cast<State*>(pointer);
            if (at.first >= 0 && number != at.last + 1)
                at.text.AddRange(at.first, at.last);
            if (at.first < 0 || number != at.last + 1)
                at.first = number;
            at.last = number;
            return true;
        },
        &state);
    state.text.AddRange(state.first, state.last);
    roaring_bitmap_free(set);
    return state.text.Take();
}

std::string FoldLiterally(const NumberList& numbers)
{
    return Literal(numbers).Text();
}

NumberList SelectStepByStep(const NumberList& base, const std::string& text)
{
    NumberList selected;
    for (const char* at = text.c_str(); *at != '\0'; at += *at == ' ') {
        char* end = nullptr;
        const Value from = std::strtoll(at, &end, 10);
        const Value to = *end == 't' ? std::strtoll(end + 2, &end, 10) : from;
        const Value step = *end == 'b' ? std::strtoll(end + 2, &end, 10) : 1;
        for (Value number = from; number <= to; number += step) {
            const auto key = static_cast<LONG>(number);
            if (std::bsearch(&key, base.data(), base.size(), sizeof(LONG), CCompFunc::longAsc))
                selected.push_back(key);
        }
        at = end;
    }
    std::qsort(selected.data(), selected.size(), sizeof(LONG), CCompFunc::longAsc);
    selected.erase(std::unique(selected.begin(), selected.end()), selected.end());
    return selected;
}

ClusterShellTimes MeasureClusterShell(const std::string& script, const NumberList& numbers)
{
    char path[] = "/tmp/zek-numbers-XXXXXX";
    const int file = ::mkstemp(path);
    ClusterShellTimes times = {-1, -1};
    if (std::FILE* list = file < 0 ? nullptr : ::fdopen(file, "w")) {
        for (const LONG number : numbers)
            std::fprintf(list, "%d\n", static_cast<int>(number));
        std::fclose(list);
        const std::string command = "/usr/bin/python3 " + script + " " + path;
        if (std::FILE* answer = ::popen(command.c_str(), "r")) {
            if (std::fscanf(answer, "%lf %lf", &times.fold, &times.read) != 2)
                times = {-1, -1};
            ::pclose(answer);
        }
        std::remove(path);
    }
    return times;
}
