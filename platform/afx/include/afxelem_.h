// The helper templates behind the collections; hosts specialise them for their own types.
#pragma once

#include "afxexc_.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#pragma push_macro("new")
#undef new

// Makes `count` elements in raw memory; numbers and pointers become 0.
template <class TYPE>
inline void AFXAPI ConstructElements(TYPE* elements, int count)
{
    std::uninitialized_value_construct_n(elements, count);
}

template <class TYPE>
inline void AFXAPI DestructElements(TYPE* elements, int count)
{
    std::destroy_n(elements, count);
}

template <class TYPE>
inline void AFXAPI CopyElements(TYPE* target, const TYPE* source, int count)
{
    for (; count > 0; --count)
        *target++ = *source++;
}

template <class TYPE, class ARG_TYPE>
inline BOOL AFXAPI CompareElements(const TYPE* element, const ARG_TYPE* other)
{
    return *element == *other;
}

// Hash of a key: its value or address shifted right by four; the text of a string key, byte by byte.
template <class ARG_KEY>
inline UINT AFXAPI HashKey(ARG_KEY key);

// Each byte, taken as a signed character, is added to 33 times the hash so far.
template <>
inline UINT AFXAPI HashKey<LPCSTR>(LPCSTR key)
{
    UINT hash = 0;
    while (*key)
        hash = (hash << 5) + hash + static_cast<UINT>(static_cast<int>(static_cast<signed char>(*key++)));
    return hash;
}

template <>
inline UINT AFXAPI HashKey<LPCWSTR>(LPCWSTR key)
{
    UINT hash = 0;
    while (*key)
        hash = (hash << 5) + hash + static_cast<UINT>(*key++);
    return hash;
}

template <class ARG_KEY>
inline UINT AFXAPI HashKey(ARG_KEY key)
{
    using KEY = std::remove_cvref_t<ARG_KEY>;
    if constexpr (std::is_pointer_v<KEY>)
        return static_cast<UINT>(reinterpret_cast<ULONG_PTR>(key) >> 4);
    else if constexpr (std::is_enum_v<KEY>)
        return HashKey<std::underlying_type_t<KEY>>(static_cast<std::underlying_type_t<KEY>>(key));
    else if constexpr (std::is_same_v<KEY, bool>)
        return 0;
    else if constexpr (std::is_integral_v<KEY> && sizeof(KEY) <= sizeof(UINT))
        return static_cast<UINT>(key) >> 4;
    else if constexpr (std::is_arithmetic_v<KEY>)
        return static_cast<UINT>(static_cast<ULONGLONG>(key) >> 4);
    else
        return HashKey<LPCSTR>(static_cast<LPCSTR>(key));
}

namespace AfxElementDetail {

// Memory for `count` elements, uninitialised. Throws CMemoryException.
template <class TYPE>
TYPE* Allocate(std::size_t count)
{
    if (count > static_cast<std::size_t>(std::numeric_limits<int>::max()) ||
        count > std::numeric_limits<std::size_t>::max() / sizeof(TYPE))
        AfxThrowMemoryException();
    void* memory = std::malloc(count * sizeof(TYPE));
    if (!memory)
        AfxThrowMemoryException();
    return static_cast<TYPE*>(memory);
}

// Moves elements into raw memory; the places they leave are raw again. Blocks may overlap.
template <class TYPE>
void Relocate(TYPE* target, TYPE* source, int count)
{
    if (count <= 0 || target == source)
        return;
    if constexpr (std::is_trivially_copyable_v<TYPE> || !std::is_move_constructible_v<TYPE>) {
        std::memmove(static_cast<void*>(target), static_cast<const void*>(source),
                     static_cast<std::size_t>(count) * sizeof(TYPE));
    } else {
        const bool upwards = target > source;
        for (int i = 0; i < count; ++i) {
            const int place = upwards ? count - 1 - i : i;
            ::new (static_cast<void*>(target + place)) TYPE(std::move(source[place]));
            std::destroy_at(source + place);
        }
    }
}

} // namespace AfxElementDetail

#pragma pop_macro("new")
