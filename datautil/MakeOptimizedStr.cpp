#include "MakeOptimizedStr.h"

#include <charconv>
#include <cstring>
#include <string_view>

namespace {

// " -2147483648to-2147483648by-2147483648" and more.
constexpr std::size_t kLongestItem = 48;

// Grows by half, so that a long text is copied a few times only.
class TextWriter
{
public:
    void Add(LONG single)
    {
        BeginItem();
        Put(single);
    }

    void Add(const STB_OPT_NODE& run)
    {
        BeginItem();
        Put(run.start);
        Put("to");
        Put(run.end);
        if (run.step > 1) {
            Put("by");
            Put(run.step);
        }
    }

    CString Text() const { return CString(m_text.data(), static_cast<int>(m_end)); }

private:
    void BeginItem()
    {
        if (m_text.size() < m_end + kLongestItem)
            m_text.resize(m_text.size() + m_text.size() / 2 + 16 * kLongestItem);
        if (m_end > 0)
            Put(" ");
    }

    void Put(std::string_view word)
    {
        std::memcpy(m_text.data() + m_end, word.data(), word.size());
        m_end += word.size();
    }

    void Put(LONG number)
    {
        char* const at = m_text.data() + m_end;
        m_end += static_cast<std::size_t>(std::to_chars(at, at + kLongestItem / 2, number).ptr - at);
    }

    std::vector<char> m_text;
    std::size_t m_end = 0;
};

} // namespace

CString MakeOptimizedStr(const NumberRuns& parts)
{
    TextWriter text;
    auto run = parts.runs.begin();
    auto single = parts.singles.begin();
    while (run != parts.runs.end() && single != parts.singles.end()) {
        if (run->start < *single)
            text.Add(*run++);
        else if (*single < run->start)
            text.Add(*single++);
        else
            AfxThrowMemoryException();
    }
    for (; run != parts.runs.end(); ++run)
        text.Add(*run);
    for (; single != parts.singles.end(); ++single)
        text.Add(*single);
    return text.Text();
}
