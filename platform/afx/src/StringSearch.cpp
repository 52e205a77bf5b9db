// CString's members that compare, cut and search.
#include <afxstr_.h>

#include <mbstring.h>

namespace {

const unsigned char* Bytes(LPCSTR text)
{
    return reinterpret_cast<const unsigned char*>(text ? text : "");
}

} // namespace

// ---- comparing

int CString::Compare(LPCSTR text) const
{
    return _mbscmp(Bytes(LPCSTR(m_pchData)), Bytes(text));
}

int CString::CompareNoCase(LPCSTR text) const
{
    return _mbsicmp(Bytes(LPCSTR(m_pchData)), Bytes(text));
}

int CString::Collate(LPCSTR text) const
{
    return Compare(text);
}

int CString::CollateNoCase(LPCSTR text) const
{
    return CompareNoCase(text);
}

// ---- parts

CString CString::Mid(int first) const
{
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const
{
    const int length = GetLength();
    first = first < 0 ? 0 : (first > length ? length : first);
    count = count < 0 ? 0 : (count > length - first ? length - first : count);
    return first == 0 && count == length ? *this : CString(m_pchData + first, count);
}

CString CString::Left(int count) const
{
    return Mid(0, count);
}

CString CString::Right(int count) const
{
    const int length = GetLength();
    count = count < 0 ? 0 : (count > length ? length : count);
    return Mid(length - count, count);
}

CString CString::SpanIncluding(LPCSTR characters) const
{
    return Left(static_cast<int>(_mbsspn(Bytes(LPCSTR(m_pchData)), Bytes(characters))));
}

CString CString::SpanExcluding(LPCSTR characters) const
{
    return Left(static_cast<int>(_mbscspn(Bytes(LPCSTR(m_pchData)), Bytes(characters))));
}

CString CString::Tokenize(LPCSTR separators, int& start) const
{
    if (start < 0)
        ThrowBadIndex();
    const int length = GetLength();
    if (start < length) {
        if (!separators || !*separators)
            return Mid(start);
        const unsigned char* place = Bytes(LPCSTR(m_pchData)) + start;
        const int skipped = static_cast<int>(_mbsspn(place, Bytes(separators)));
        if (start + skipped < length) {
            const int taken = static_cast<int>(_mbscspn(place + skipped, Bytes(separators)));
            const int first = start + skipped;
            start = first + taken + 1;
            return Mid(first, taken);
        }
    }
    start = -1;
    return {};
}

// ---- searching

namespace {

int Place(LPCSTR text, const unsigned char* found)
{
    return found ? static_cast<int>(reinterpret_cast<LPCSTR>(found) - text) : -1;
}

unsigned Code(char ch)
{
    return static_cast<unsigned char>(ch);
}

} // namespace

int CString::Find(char ch, int start) const
{
    if (start < 0 || start >= GetLength() || ch == '\0')
        return -1;
    return Place(m_pchData, _mbschr(Bytes(LPCSTR(m_pchData)) + start, Code(ch)));
}

int CString::Find(LPCSTR text, int start) const
{
    if (!text || start < 0 || start > GetLength())
        return -1;
    if (!*text)
        return start;
    return Place(m_pchData, _mbsstr(Bytes(LPCSTR(m_pchData)) + start, Bytes(text)));
}

int CString::ReverseFind(char ch) const
{
    return ch == '\0' ? -1 : Place(m_pchData, _mbsrchr(Bytes(LPCSTR(m_pchData)), Code(ch)));
}

int CString::FindOneOf(LPCSTR characters) const
{
    return Place(m_pchData, _mbspbrk(Bytes(LPCSTR(m_pchData)), Bytes(characters)));
}
