#include <afxstr_.h>

#include <afxexc_.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace {

// The one empty text that all empty strings share; never counted, never freed.
struct NilText {
    CStringData header{-1, 0, 0};
    char terminator[4] = {};
};
constinit NilText g_nil;

CStringData* Nil()
{
    return &g_nil.header;
}

constexpr std::size_t kLongest = INT_MAX - sizeof(CStringData) - 16;

// A new text of `length` characters, one owner. Throws CMemoryException.
CStringData* Allocate(std::size_t length, std::size_t capacity)
{
    if (capacity > kLongest)
        AfxThrowMemoryException();
    const std::size_t bytes = (sizeof(CStringData) + capacity + 1 + 15) & ~std::size_t{15};
    void* memory = std::malloc(bytes);
    if (!memory)
        AfxThrowMemoryException();
    auto* data = ::new (memory)
        CStringData{1, static_cast<int>(length), static_cast<int>(bytes - sizeof(CStringData) - 1)};
    data->data()[length] = '\0';
    return data;
}

void Release(CStringData* data)
{
    if (data == Nil())
        return;
    // A locked text has one owner.
    if (data->nRefs.load(std::memory_order_relaxed) < 0 ||
        data->nRefs.fetch_sub(1, std::memory_order_acq_rel) == 1)
        std::free(data);
}

std::size_t Length(LPCSTR text)
{
    return text ? std::strlen(text) : 0;
}

int WideLength(LPCWSTR text)
{
    std::size_t length = 0;
    while (text && text[length])
        ++length;
    if (length > kLongest)
        AfxThrowMemoryException();
    return static_cast<int>(length);
}

} // namespace

void CString::ThrowBadIndex()
{
    AfxThrowInvalidArgException();
}

// ---- ownership

void CString::Attach(CStringData* data) noexcept
{
    m_pchData = data->data();
}

CString::CString() noexcept
{
    Attach(Nil());
}

CString::CString(const CString& other)
{
    CStringData* data = other.Data();
    if (data == Nil()) {
        Attach(data);
    } else if (data->nRefs.load(std::memory_order_relaxed) < 0) {
        Attach(Nil());
        AssignCopy(other.m_pchData, static_cast<std::size_t>(data->nDataLength));
    } else {
        data->nRefs.fetch_add(1, std::memory_order_relaxed);
        Attach(data);
    }
}

CString::CString(CString&& other) noexcept : m_pchData(other.m_pchData)
{
    other.Attach(Nil());
}

CString::CString(char ch, int repeat) : CString()
{
    if (repeat < 1)
        return;
    const auto length = static_cast<std::size_t>(repeat);
    Attach(Allocate(length, length));
    std::memset(m_pchData, ch, length);
}

CString::CString(LPCSTR text) : CString()
{
    AssignCopy(text, Length(text));
}

CString::CString(LPCSTR text, int length) : CString()
{
    SetString(text, length);
}

CString::CString(LPCWSTR text) : CString()
{
    AssignWide(text, WideLength(text));
}

CString::CString(LPCWSTR text, int length) : CString()
{
    AssignWide(text, length);
}

CString::CString(const unsigned char* text) : CString(reinterpret_cast<LPCSTR>(text))
{
}

CString::~CString()
{
    Release(Data());
}

void CString::Empty()
{
    CStringData* data = Data();
    if (data == Nil())
        return;
    if (data->nRefs.load(std::memory_order_relaxed) < 0) {
        SetLength(0);
        return;
    }
    Attach(Nil());
    Release(data);
}

// Keeps the buffer when it is ours alone and large enough. `text` may lie in it.
void CString::AssignCopy(LPCSTR text, std::size_t length)
{
    CStringData* data = Data();
    const int owners = data->nRefs.load(std::memory_order_acquire);
    const bool ours = data != Nil() && (owners == 1 || owners < 0);
    if (length == 0) {
        Empty();
    } else if (ours && length <= static_cast<std::size_t>(data->nAllocLength)) {
        std::memmove(m_pchData, text, length);
        SetLength(static_cast<int>(length));
    } else {
        CStringData* fresh = Allocate(length, length);
        std::memcpy(fresh->data(), text, length);
        fresh->nRefs.store(owners < 0 && ours ? owners : 1, std::memory_order_relaxed);
        Attach(fresh);
        Release(data);
    }
}

void CString::AssignWide(LPCWSTR text, int length)
{
    if (!text || length < 1) {
        Empty();
        return;
    }
    const int needed = ::WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr);
    if (needed < 0 || static_cast<std::size_t>(needed) > kLongest)
        AfxThrowMemoryException();
    CString converted;
    LPSTR buffer = converted.GetBufferSetLength(needed);
    ::WideCharToMultiByte(CP_ACP, 0, text, length, buffer, needed, nullptr, nullptr);
    *this = std::move(converted);
}

CString& CString::operator=(const CString& other)
{
    if (m_pchData == other.m_pchData)
        return *this;
    // A locked text keeps its own buffer.
    if (Data() != Nil() && Data()->nRefs.load(std::memory_order_relaxed) < 0) {
        AssignCopy(other.m_pchData, static_cast<std::size_t>(other.GetLength()));
        return *this;
    }
    CString copy(other);
    std::swap(m_pchData, copy.m_pchData);
    return *this;
}

CString& CString::operator=(CString&& other) noexcept
{
    std::swap(m_pchData, other.m_pchData);
    return *this;
}

CString& CString::operator=(char ch)
{
    AssignCopy(&ch, 1);
    return *this;
}

CString& CString::operator=(LPCSTR text)
{
    AssignCopy(text, Length(text));
    return *this;
}

CString& CString::operator=(LPCWSTR text)
{
    AssignWide(text, WideLength(text));
    return *this;
}

CString& CString::operator=(const unsigned char* text)
{
    return *this = reinterpret_cast<LPCSTR>(text);
}

void CString::SetString(LPCSTR text)
{
    AssignCopy(text, Length(text));
}

void CString::SetString(LPCSTR text, int length)
{
    AssignCopy(text, text && length > 0 ? static_cast<std::size_t>(length) : 0);
}

// ---- the buffer

void CString::SetLength(int length)
{
    CStringData* data = Data();
    data->nDataLength = length;
    data->data()[length] = '\0';
}

// Makes the buffer this object's own, with room for `minimum` characters and the present text.
void CString::CopyBeforeWrite(int minimum)
{
    CStringData* data = Data();
    const int capacity = minimum > data->nDataLength ? minimum : data->nDataLength;
    const int owners = data->nRefs.load(std::memory_order_acquire);
    if (data != Nil() && (owners == 1 || owners < 0) && capacity <= data->nAllocLength)
        return;
    const auto length = static_cast<std::size_t>(data->nDataLength);
    CStringData* fresh = Allocate(length, static_cast<std::size_t>(capacity));
    std::memcpy(fresh->data(), data->data(), length);
    if (data != Nil() && owners < 0)
        fresh->nRefs.store(owners, std::memory_order_relaxed);
    Attach(fresh);
    Release(data);
}

LPSTR CString::GetBuffer(int minimum)
{
    CopyBeforeWrite(minimum);
    return m_pchData;
}

LPSTR CString::GetBufferSetLength(int length)
{
    if (length < 0)
        ThrowBadIndex();
    CopyBeforeWrite(length);
    SetLength(length);
    return m_pchData;
}

void CString::ReleaseBuffer(int length)
{
    CopyBeforeWrite(0);
    const int capacity = Data()->nAllocLength;
    if (length < 0) {
        const void* end = std::memchr(m_pchData, '\0', static_cast<std::size_t>(capacity) + 1);
        length = end ? static_cast<int>(static_cast<LPCSTR>(end) - m_pchData) : capacity;
    }
    if (length > capacity)
        ThrowBadIndex();
    SetLength(length);
}

void CString::FreeExtra()
{
    CStringData* data = Data();
    if (data == Nil() || data->nRefs.load(std::memory_order_relaxed) < 0)
        return;
    const auto length = static_cast<std::size_t>(data->nDataLength);
    CStringData* fresh = length > 0 ? Allocate(length, length) : Nil();
    if (length > 0)
        std::memcpy(fresh->data(), data->data(), length);
    Attach(fresh);
    Release(data);
}

void CString::Preallocate(int length)
{
    CopyBeforeWrite(length);
}

LPSTR CString::LockBuffer()
{
    LPSTR buffer = GetBuffer(0);
    Data()->nRefs.store(-1, std::memory_order_relaxed);
    return buffer;
}

void CString::UnlockBuffer()
{
    if (Data() != Nil())
        Data()->nRefs.store(1, std::memory_order_relaxed);
}

void CString::SetAt(int index, char ch)
{
    CheckIndex(index, GetLength() - 1);
    CopyBeforeWrite(0);
    m_pchData[index] = ch;
}

void CString::Truncate(int length)
{
    if (length < 0)
        ThrowBadIndex();
    if (length < GetLength()) {
        CopyBeforeWrite(0);
        SetLength(length);
    }
}

// ---- adding

// Replaces `removed` characters at `index` by a text, which may lie in the own buffer.
void CString::Splice(int index, int removed, LPCSTR text, std::size_t length)
{
    const auto oldLength = static_cast<std::size_t>(GetLength());
    const auto at = static_cast<std::size_t>(index);
    const auto cut = static_cast<std::size_t>(removed);
    if (length > kLongest - (oldLength - cut))
        AfxThrowMemoryException();
    const CString keepsText(length > 0 ? CString(text, static_cast<int>(length)) : CString());
    const std::size_t newLength = oldLength - cut + length;
    CopyBeforeWrite(static_cast<int>(newLength));
    std::memmove(m_pchData + at + length, m_pchData + at + cut, oldLength - at - cut);
    std::memcpy(m_pchData + at, keepsText.m_pchData, length);
    SetLength(static_cast<int>(newLength));
}

void CString::Concat(LPCSTR text, std::size_t length)
{
    CStringData* data = Data();
    const auto oldLength = static_cast<std::size_t>(data->nDataLength);
    if (length == 0)
        return;
    if (length > kLongest - oldLength)
        AfxThrowMemoryException();
    const std::size_t newLength = oldLength + length;
    const int owners = data->nRefs.load(std::memory_order_acquire);
    const bool ours = data != Nil() && (owners == 1 || owners < 0);
    if (ours && newLength <= static_cast<std::size_t>(data->nAllocLength)) {
        std::memmove(m_pchData + oldLength, text, length);
        SetLength(static_cast<int>(newLength));
        return;
    }
    const std::size_t grown = oldLength + oldLength / 2;
    CStringData* fresh = Allocate(newLength, grown > newLength && grown <= kLongest ? grown : newLength);
    std::memcpy(fresh->data(), data->data(), oldLength);
    std::memcpy(fresh->data() + oldLength, text, length);
    if (ours && owners < 0)
        fresh->nRefs.store(owners, std::memory_order_relaxed);
    Attach(fresh);
    Release(data);
}

CString& CString::operator+=(const CString& other)
{
    Concat(other.m_pchData, static_cast<std::size_t>(other.GetLength()));
    return *this;
}

CString& CString::operator+=(char ch)
{
    Concat(&ch, 1);
    return *this;
}

CString& CString::operator+=(LPCSTR text)
{
    Concat(text, Length(text));
    return *this;
}

CString& CString::operator+=(LPCWSTR text)
{
    return *this += CString(text);
}

void CString::Append(LPCSTR text)
{
    *this += text;
}

void CString::Append(LPCSTR text, int length)
{
    Concat(text, text && length > 0 ? static_cast<std::size_t>(length) : 0);
}

namespace {

CString Joined(LPCSTR a, int lengthA, LPCSTR b, int lengthB)
{
    if (static_cast<std::size_t>(lengthB) > kLongest - static_cast<std::size_t>(lengthA))
        AfxThrowMemoryException();
    CString result;
    result.Preallocate(lengthA + lengthB);
    result.Append(a, lengthA);
    result.Append(b, lengthB);
    return result;
}

int CheckedLength(LPCSTR text)
{
    const std::size_t length = Length(text);
    if (length > kLongest)
        AfxThrowMemoryException();
    return static_cast<int>(length);
}

} // namespace

CString AFXAPI operator+(const CString& a, const CString& b)
{
    return Joined(a, a.GetLength(), b, b.GetLength());
}

CString AFXAPI operator+(const CString& a, LPCSTR b)
{
    return Joined(a, a.GetLength(), b, CheckedLength(b));
}

CString AFXAPI operator+(LPCSTR a, const CString& b)
{
    return Joined(a, CheckedLength(a), b, b.GetLength());
}

CString AFXAPI operator+(const CString& a, char b)
{
    return Joined(a, a.GetLength(), &b, 1);
}

CString AFXAPI operator+(char a, const CString& b)
{
    return Joined(&a, 1, b, b.GetLength());
}
