// Texts between automation partners.
#include <oleauto.h>

#include <cstdlib>
#include <limits>
#include <string>

namespace {

// Four bytes of padding and four of byte count stand before the text, as on 64-bit Windows.
constexpr std::size_t kPrefix = 8;
constexpr std::size_t kCountOffset = 4;
constexpr UINT kMaxBytes = std::numeric_limits<INT>::max() - 16;

char* Block(BSTR text)
{
    return reinterpret_cast<char*>(text) - kPrefix;
}

// A text of `bytes` bytes, unset but for two bytes of zero after it (three if the count is odd).
BSTR Allocate(UINT bytes)
{
    if (bytes > kMaxBytes)
        return nullptr;
    const std::size_t room = bytes + bytes % 2 + sizeof(OLECHAR);
    auto* block = static_cast<char*>(std::malloc(kPrefix + room));
    if (!block)
        return nullptr;
    std::memcpy(block + kCountOffset, &bytes, sizeof bytes);
    std::memset(block + kPrefix + bytes, 0, room - bytes);
    return reinterpret_cast<BSTR>(block + kPrefix);
}

BSTR Make(const void* from, std::size_t bytes)
{
    if (bytes > kMaxBytes)
        return nullptr;
    const BSTR text = Allocate(static_cast<UINT>(bytes));
    if (text && from)
        std::memcpy(text, from, bytes);
    return text;
}

INT Replace(BSTR* text, BSTR made, bool wanted)
{
    if (wanted && !made)
        return FALSE;
    SysFreeString(*text);
    *text = made;
    return TRUE;
}

} // namespace

BSTR WINAPI SysAllocString(const OLECHAR* text)
{
    return text ? Make(text, std::char_traits<OLECHAR>::length(text) * sizeof(OLECHAR)) : nullptr;
}

BSTR WINAPI SysAllocStringLen(const OLECHAR* text, UINT count)
{
    return Make(text, std::size_t{count} * sizeof(OLECHAR));
}

BSTR WINAPI SysAllocStringByteLen(LPCSTR bytes, UINT count)
{
    return Make(bytes, count);
}

// The old text is freed last: the new one may be a part of it.
INT WINAPI SysReAllocString(BSTR* text, const OLECHAR* from)
{
    return text ? Replace(text, SysAllocString(from), from != nullptr) : FALSE;
}

INT WINAPI SysReAllocStringLen(BSTR* text, const OLECHAR* from, UINT count)
{
    return text ? Replace(text, SysAllocStringLen(from, count), true) : FALSE;
}

void WINAPI SysFreeString(BSTR text)
{
    if (text)
        std::free(Block(text));
}

UINT WINAPI SysStringByteLen(BSTR text)
{
    UINT bytes = 0;
    if (text)
        std::memcpy(&bytes, Block(text) + kCountOffset, sizeof bytes);
    return bytes;
}

UINT WINAPI SysStringLen(BSTR text)
{
    return SysStringByteLen(text) / static_cast<UINT>(sizeof(OLECHAR));
}
