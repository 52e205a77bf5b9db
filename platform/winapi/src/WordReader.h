// Reads little-endian words from bytes that may be damaged: resources and dialog templates.
//
// Errors: beyond the end everything reads as 0 and Failed() is true from then on.
#pragma once

#include <windef.h>

#include <cstring>
#include <span>
#include <string>

class WordReader
{
public:
    explicit WordReader(std::span<const BYTE> bytes) : m_bytes(bytes) {}

    WORD Word() { return Value<WORD>(); }
    short Short() { return Value<short>(); }
    DWORD Long() { return Value<DWORD>(); }
    // The next word, which stays.
    WORD Peek() const { return WordReader(*this).Word(); }

    // Up to the terminator, which is passed over.
    std::u16string Text()
    {
        std::u16string text;
        while (const WORD unit = Word())
            text += static_cast<char16_t>(unit);
        return text;
    }

    std::span<const BYTE> Skip(size_t count)
    {
        m_failed = m_failed || count > Rest();
        if (m_failed)
            return {};
        m_offset += count;
        return m_bytes.subspan(m_offset - count, count);
    }

    // To the next multiple of four from the start; past the end counts when something is read there.
    void Align() { m_offset = (m_offset + 3) & ~size_t{3}; }

    size_t Offset() const { return m_offset; }
    size_t Rest() const { return m_offset < m_bytes.size() ? m_bytes.size() - m_offset : 0; }
    bool Failed() const { return m_failed; }

private:
    template <class Number>
    Number Value()
    {
        Number value = 0;
        const auto bytes = Skip(sizeof value);
        if (!bytes.empty())
            std::memcpy(&value, bytes.data(), sizeof value);
        return value;
    }

    std::span<const BYTE> m_bytes;
    size_t m_offset = 0;
    bool m_failed = false;
};
