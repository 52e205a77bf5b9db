// What a selection string in normal form selects from a base.
#include "Selection.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

// A look-up costs about as much as passing over this many numbers.
constexpr std::int64_t kLookUpCost = 16;

// Terms are 64 bits wide: no range ends by wrapping.
struct Range {
    std::int64_t from, to, step;
};

// Reads "a", "atb" or "atbbc" and the blank behind it.
Range ReadItem(const char*& text)
{
    const auto number = [&text] {
        char* end = nullptr;
        const std::int64_t value = std::strtoll(text, &end, 10);
        text = end;
        return value;
    };
    Range range = {number(), 0, 1};
    range.to = range.from;
    if (*text == 't') {
        range.to = (++text, number());
        if (*text == 'b')
            range.step = (++text, number());
    }
    text += *text == ' ';
    return range;
}

// Selects from an ascending base.
class Selector
{
public:
    Selector(const LONG* base, LONG n, std::vector<LONG>& selection)
        : m_first(base), m_last(base + n), m_selection(selection)
    {
    }

    void Add(const Range& range)
    {
        const std::size_t before = m_selection.size();
        if (range.step > 0) {
            AddTerms(range.from, range.to, range.from, range.step);
        } else if (range.step < 0) {
            AddTerms(range.to, range.from, range.from, -range.step);
            std::reverse(m_selection.begin() + static_cast<std::ptrdiff_t>(before), m_selection.end());
        }
    }

private:
    // The numbers of the base from `low` to `high` that are a multiple of `step` away from `anchor`,
    // ascending.
    void AddTerms(std::int64_t low, std::int64_t high, std::int64_t anchor, std::int64_t step)
    {
        low = std::max<std::int64_t>(low, *m_first);
        high = std::min<std::int64_t>(high, m_last[-1]);
        low += ((anchor - low) % step + step) % step;
        if (low > high)
            return;
        const LONG* const begin = std::lower_bound(m_first, m_last, low);
        const LONG* const end = std::upper_bound(begin, m_last, high);
        if ((high - low) / step * kLookUpCost < end - begin)
            AddFoundTerms(begin, end, low, high, step);
        else
            AddMatching(begin, end, low, step);
    }

    // For few terms: looks each of them up.
    void AddFoundTerms(const LONG* begin, const LONG* end, std::int64_t low, std::int64_t high,
                       std::int64_t step)
    {
        for (std::int64_t term = low; term <= high; term += step) {
            begin = std::lower_bound(begin, end, term);
            if (begin != end && *begin == term)
                m_selection.push_back(*begin);
        }
    }

    // For a wide range: goes through the base. A number that it holds twice is selected once.
    void AddMatching(const LONG* begin, const LONG* end, std::int64_t low, std::int64_t step)
    {
        for (const LONG* number = begin; number < end; ++number) {
            if ((*number - low) % step == 0 && (number == begin || number[-1] != *number))
                m_selection.push_back(*number);
        }
    }

    const LONG* m_first;
    const LONG* m_last;
    std::vector<LONG>& m_selection;
};

} // namespace

void Select(const LONG* base, LONG n, const std::string& normal, std::vector<LONG>& selection)
{
    Selector selector(base, n, selection);
    for (const char* text = normal.c_str(); *text != '\0';)
        selector.Add(ReadItem(text));
}
