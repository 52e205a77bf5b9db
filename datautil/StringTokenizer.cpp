#include "StringTokenizer.h"

#include <mbctype.h>

namespace {

using Byte = unsigned char;

const Byte* TextOrEmpty(const char* text)
{
    return reinterpret_cast<const Byte*>(text ? text : "");
}

// A lead byte in front of the terminator stands alone.
int LengthOfCharacter(const Byte* at)
{
    return _ismbblead(*at) && at[1] ? 2 : 1;
}

unsigned CharacterAt(const Byte* at)
{
    return LengthOfCharacter(at) == 2 ? at[0] * 0x100U + at[1] : at[0];
}

bool IsIn(const Byte* set, unsigned character)
{
    while (*set && CharacterAt(set) != character)
        set += LengthOfCharacter(set);
    return *set != 0;
}

// The first character that is a delimiter, or that is none; the terminator if there is no such one.
const Byte* Find(bool delimiter, const Byte* text, const Byte* delimiters)
{
    while (*text && IsIn(delimiters, CharacterAt(text)) != delimiter)
        text += LengthOfCharacter(text);
    return text;
}

} // namespace

// Not by _mbstok, which would end a loop over the tokens of another text, nor by _mbsspn and _mbscspn, which
// not every run-time library steps from character to character.
StringTokenizer::StringTokenizer(char* lpszText, const char* lpszDelimiters)
{
    const Byte* delimiters = TextOrEmpty(lpszDelimiters);
    const Byte* token = Find(false, TextOrEmpty(lpszText), delimiters);
    while (*token) {
        const Byte* end = Find(true, token, delimiters);
        m_record.offsets.push_back(static_cast<unsigned int>(m_record.texts.size()));
        m_record.texts.insert(m_record.texts.end(), token, end);
        m_record.texts.push_back('\0');
        token = Find(false, end, delimiters);
    }
}

StringTokenizer::~StringTokenizer() = default;

int StringTokenizer::GetTokenCount()
{
    return static_cast<int>(m_record.offsets.size());
}

const char* StringTokenizer::GetToken(int nIndex)
{
    return m_record.texts.data() + m_record.offsets[static_cast<std::size_t>(nIndex)];
}
