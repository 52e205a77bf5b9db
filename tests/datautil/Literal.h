// The compaction of lists of numbers as it is described: an oracle.
#pragma once

#include "Numbers.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

struct LiteralRun {
    std::int64_t start, end, step;
    std::int64_t Span() const { return end - start; }
};

// The passes as they are described, one call a run, each search from the left: slow, and nothing clever.
class Literal
{
public:
    explicit Literal(const NumberList& numbers) : m_rest(numbers.begin(), numbers.end())
    {
        while (m_rest.size() >= 3 && TakeNeighbours()) {
        }
        std::size_t from = 0;
        LiteralRun run{};
        while (m_rest.size() >= 3 && TakeSpread(m_rest, 3, 4, from, run))
            m_runs.push_back(run);
        if (m_runs.size() >= 4)
            Transpose();
        std::stable_sort(m_runs.begin(), m_runs.end(), [](auto& a, auto& b) { return a.start < b.start; });
    }

    // The text, or "endless" where a single number equals the start of a run.
    std::string Text() const
    {
        std::string text;
        std::size_t r = 0, s = 0;
        while (r < m_runs.size() || s < m_rest.size()) {
            const bool both = r < m_runs.size() && s < m_rest.size();
            if (both && m_runs[r].start == m_rest[s])
                return "endless";
            const bool takeRun = both ? m_runs[r].start < m_rest[s] : r < m_runs.size();
            text += (text.empty() ? "" : " ");
            if (!takeRun) {
                text += std::to_string(m_rest[s++]);
                continue;
            }
            const LiteralRun& run = m_runs[r++];
            text += std::to_string(run.start) + "to" + std::to_string(run.end);
            text += run.step > 1 ? "by" + std::to_string(run.step) : "";
        }
        return text;
    }

    // By their starts.
    const std::vector<LiteralRun>& Runs() const { return m_runs; }
    // What is in no run, ascending.
    const std::vector<std::int64_t>& Singles() const { return m_rest; }

private:
    using Values = std::vector<std::int64_t>;
    bool TakeNeighbours()
    {
        for (std::size_t i = 0; i + 3 <= m_rest.size();) {
            const std::int64_t step = m_rest[i + 1] - m_rest[i];
            std::size_t last = i + 1;
            while (last + 1 < m_rest.size() && m_rest[last + 1] == m_rest[last] + step)
                ++last;
            const std::size_t length = last - i + 1;
            if ((step == 1 && length >= 3) || length >= 4) {
                m_runs.push_back({m_rest[i], m_rest[last], step});
                m_rest.erase(m_rest.begin() + static_cast<std::ptrdiff_t>(i),
                             m_rest.begin() + static_cast<std::ptrdiff_t>(last) + 1);
                return true;
            }
            i = last;
        }
        return false;
    }

    static bool TakeSpread(Values& rest, std::size_t leastByOne, std::size_t least, std::size_t& from,
                           LiteralRun& run)
    {
        if (from + 2 >= rest.size())
            from = 0;
        std::vector<std::size_t> members;
        for (std::size_t i = from; i + 2 < rest.size(); ++i) {
            for (std::size_t j = i + 1; j < rest.size(); ++j) {
                const std::int64_t step = rest[j] - rest[i];
                members = {i, j};
                std::int64_t expected = rest[j] + step;
                for (std::size_t k = j + 1; k < rest.size() && rest[k] <= expected; ++k) {
                    if (rest[k] == expected) {
                        members.push_back(k);
                        expected += step;
                    }
                }
                if (members.size() < (step == 1 ? leastByOne : least))
                    continue;
                run = {rest[i], rest[members.back()], step};
                for (auto member = members.rbegin(); member != members.rend(); ++member)
                    rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(*member));
                from = i;
                return true;
            }
        }
        if (from == 0)
            return false;
        from = 0;
        return TakeSpread(rest, leastByOne, least, from, run);
    }

    void Transpose()
    {
        std::stable_sort(m_runs.begin(), m_runs.end(), [](auto& a, auto& b) {
            return std::tuple(a.step, a.Span(), a.start) < std::tuple(b.step, b.Span(), b.start);
        });
        std::vector<LiteralRun> result;
        for (std::size_t i = 0; i < m_runs.size();) {
            const LiteralRun shape = m_runs[i];
            Values starts;
            for (; i < m_runs.size() && m_runs[i].step == shape.step && m_runs[i].Span() == shape.Span(); ++i)
                starts.push_back(m_runs[i].start);
            if (shape.step > 0) {
                const auto k =
                    static_cast<std::size_t>((shape.Span() + shape.step) / shape.step + (shape.step == 1));
                std::size_t from = 0;
                LiteralRun across{};
                while (starts.size() > k && TakeSpread(starts, k + 1, k + 1, from, across)) {
                    for (std::int64_t e = across.start; e <= across.start + shape.Span(); e += shape.step)
                        result.push_back({e, e + across.Span(), across.step});
                }
            }
            for (const std::int64_t start : starts)
                result.push_back({start, start + shape.Span(), shape.step});
        }
        m_runs = result;
    }

    Values m_rest;
    std::vector<LiteralRun> m_runs;
};
