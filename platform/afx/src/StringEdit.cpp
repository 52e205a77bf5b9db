// CString's members that change the text in place.
#include <afxstr_.h>

#include <mbstring.h>

#include <cstring>

namespace {

const unsigned char* Bytes(LPCSTR text)
{
    return reinterpret_cast<const unsigned char*>(text ? text : "");
}

unsigned char* Bytes(LPSTR text)
{
    return reinterpret_cast<unsigned char*>(text);
}

// The characters that isspace knows in the "C" locale.
constexpr char kSpaces[] = " \t\n\v\f\r";

} // namespace

CString& CString::MakeUpper()
{
    CopyBeforeWrite(0);
    _mbsupr(Bytes(m_pchData));
    return *this;
}

CString& CString::MakeLower()
{
    CopyBeforeWrite(0);
    _mbslwr(Bytes(m_pchData));
    return *this;
}

CString& CString::MakeReverse()
{
    CopyBeforeWrite(0);
    _mbsrev(Bytes(m_pchData));
    return *this;
}

CString& CString::TrimLeft()
{
    return TrimLeft(kSpaces);
}

CString& CString::TrimLeft(char ch)
{
    const char set[] = {ch, '\0'};
    return TrimLeft(set);
}

CString& CString::TrimLeft(LPCSTR characters)
{
    if (characters && *characters)
        Delete(0, static_cast<int>(_mbsspn(Bytes(LPCSTR(m_pchData)), Bytes(characters))));
    return *this;
}

CString& CString::TrimRight()
{
    return TrimRight(kSpaces);
}

CString& CString::TrimRight(char ch)
{
    const char set[] = {ch, '\0'};
    return TrimRight(set);
}

// Walks forwards: only so can the second byte of a double-byte character be told from a single byte.
CString& CString::TrimRight(LPCSTR characters)
{
    if (!characters || !*characters)
        return *this;
    const unsigned char* const text = Bytes(LPCSTR(m_pchData));
    const unsigned char* end = nullptr;
    for (const unsigned char* p = text; *p; p = _mbsinc(p)) {
        const bool trimmed = _mbschr(Bytes(characters), _mbsnextc(p)) != nullptr;
        end = trimmed ? (end ? end : p) : nullptr;
    }
    if (end)
        Truncate(static_cast<int>(end - text));
    return *this;
}

CString& CString::Trim()
{
    return TrimRight().TrimLeft();
}

CString& CString::Trim(char ch)
{
    return TrimRight(ch).TrimLeft(ch);
}

CString& CString::Trim(LPCSTR characters)
{
    const CString set(characters); // the set may lie in this text
    return TrimRight(set).TrimLeft(set);
}

int CString::Replace(char oldChar, char newChar)
{
    if (oldChar == newChar)
        return 0;
    int count = 0;
    for (int i = Find(oldChar); i >= 0; i = Find(oldChar, i + 1)) {
        SetAt(i, newChar);
        ++count;
    }
    return count;
}

int CString::Replace(LPCSTR oldText, LPCSTR newText)
{
    const CString wanted(oldText);
    const CString replacement(newText);
    if (wanted.IsEmpty())
        return 0;
    int count = 0;
    CString result;
    int from = 0;
    for (int i = Find(wanted); i >= 0; i = Find(wanted, from)) {
        result.Append(m_pchData + from, i - from);
        result += replacement;
        from = i + wanted.GetLength();
        ++count;
    }
    if (count > 0) {
        result.Append(m_pchData + from, GetLength() - from);
        *this = result;
    }
    return count;
}

int CString::Remove(char ch)
{
    const char wanted[] = {ch, '\0'};
    return Replace(wanted, "");
}

int CString::Insert(int index, char ch)
{
    const int length = GetLength();
    Splice(index < 0 ? 0 : (index > length ? length : index), 0, &ch, 1);
    return GetLength();
}

int CString::Insert(int index, LPCSTR text)
{
    const int length = GetLength();
    if (const std::size_t added = text ? std::strlen(text) : 0)
        Splice(index < 0 ? 0 : (index > length ? length : index), 0, text, added);
    return GetLength();
}

int CString::Delete(int index, int count)
{
    const int length = GetLength();
    index = index < 0 ? 0 : index;
    if (count > 0 && index < length)
        Splice(index, count > length - index ? length - index : count, nullptr, 0);
    return GetLength();
}
