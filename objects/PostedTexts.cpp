#include "PostedTexts.h"

#include <cstddef>
#include <deque>
#include <mutex>

namespace {

constexpr std::size_t kMostTexts = 1024;
constexpr std::size_t kMostBytes = 4 << 20;

class PostedTexts
{
public:
    void Keep(const CString& text)
    {
        const std::lock_guard lock(m_mutex);
        m_texts.push_back(text);
        m_bytes += SizeOf(text);
        while (m_texts.size() > 1 && (m_texts.size() > kMostTexts + 1 || m_bytes > kMostBytes))
            DropOldest();
    }

private:
    static std::size_t SizeOf(const CString& text) { return static_cast<std::size_t>(text.GetLength()); }

    void DropOldest()
    {
        m_bytes -= SizeOf(m_texts.front());
        m_texts.pop_front();
    }

    std::mutex m_mutex;
    std::deque<CString> m_texts;
    std::size_t m_bytes = 0;
};

} // namespace

// Never destroyed: jobs may run while the process ends.
void KeepPostedText(const CString& text)
{
    static auto* const texts = new PostedTexts;
    texts->Keep(text);
}
