// What the fuzz targets have in common: their entry, how an input is read, and how a wrong answer is told.
#pragma once

#include <afxtempl.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

// Tries one input; ends the process when an answer is wrong.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// An input, read from its front.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size) : m_rest(reinterpret_cast<const char*>(data), size) {}

    bool IsEmpty() const { return m_rest.empty(); }
    // Whether the input goes on with this letter, which then is read.
    bool Takes(char letter)
    {
        const bool takes = !IsEmpty() && m_rest.front() == letter;
        m_rest.remove_prefix(takes);
        return takes;
    }
    // 0 behind the end.
    std::uint8_t Byte()
    {
        if (IsEmpty())
            return 0;
        const auto byte = static_cast<std::uint8_t>(m_rest.front());
        m_rest.remove_prefix(1);
        return byte;
    }
    // Four bytes, the lowest first.
    LONG Number()
    {
        std::uint32_t number = 0;
        for (unsigned shift = 0; shift < 32; shift += 8)
            number |= std::uint32_t{Byte()} << shift;
        return static_cast<LONG>(number);
    }
    // What stands before the mark, or all that is left; both are read.
    Input Before(char mark)
    {
        const std::string_view part = m_rest.substr(0, m_rest.find(mark));
        m_rest.remove_prefix(std::min(part.size() + 1, m_rest.size()));
        return Input(part);
    }
    // All that is left up to a zero byte, at most `limit` bytes.
    std::string Text(std::size_t limit = std::string::npos)
    {
        const std::string_view text = m_rest.substr(0, std::min(m_rest.find('\0'), limit));
        m_rest = {};
        return std::string(text);
    }

private:
    explicit Input(std::string_view rest) : m_rest(rest) {}

    std::string_view m_rest;
};

// The text with its NUL in memory that ends there, so that a sanitizer sees every byte read or written
// beyond.
inline std::vector<char> Exactly(const std::string& text)
{
    return std::vector<char>(text.c_str(), text.c_str() + text.size() + 1);
}

template <class T>
std::ostream& operator<<(std::ostream& stream, const std::vector<T>& values)
{
    for (const T& value : values)
        stream << value << ' ';
    return stream;
}

// `what` says what the two are.
template <class T>
void ExpectEqual(const T& got, const T& expected, const char* what)
{
    if (got == expected)
        return;
    std::cerr << what << " differs\n  got:      " << got << "\n  expected: " << expected << std::endl;
    std::abort();
}
