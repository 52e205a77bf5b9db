// The arguments of CString::Format, carried with their types.
//
// Each argument is stored as what it is, so a conversion that does not fit its argument cannot read memory
// that was never passed. Objects other than CString do not compile as arguments.
#pragma once

#include "afxver_.h"

#include <windows.h>

#include <cstddef>
#include <type_traits>

class CString;

// One argument of a formatted text. Text is not copied: it must live as long as the argument.
struct AFX_FORMAT_ARG {
    enum Kind { kInteger, kReal, kText, kWideText, kPointer };

    Kind kind = kInteger;
    bool isNull = false; // a null pointer, also one that the compiler takes for a number
    bool isWide = false; // an integer of 64 bits
    union {
        LONGLONG integer = 0; // sign extended from its own width
        double real;
        const char* text;
        LPCWSTR wideText;
        const void* pointer;
    };

    bool IsText() const { return kind == kText || kind == kWideText; }
};

namespace AfxFormatDetail {

template <class T>
inline constexpr bool kIsChar =
    std::is_same_v<T, char> || std::is_same_v<T, signed char> || std::is_same_v<T, unsigned char>;

// A wide character of the compiler that is not the platform's WCHAR: its texts cannot be read as such.
template <class T>
inline constexpr bool kIsForeignChar = !std::is_same_v<T, WCHAR> && std::is_same_v<T, wchar_t>;

template <class T>
AFX_FORMAT_ARG PointerArgument(const T* value)
{
    static_assert(!kIsForeignChar<T>, "pass wide text as LPCWSTR");
    AFX_FORMAT_ARG result;
    result.isNull = value == nullptr;
    if constexpr (kIsChar<T>) {
        result.kind = AFX_FORMAT_ARG::kText;
        result.text = reinterpret_cast<const char*>(value);
    } else if constexpr (std::is_same_v<T, WCHAR>) {
        result.kind = AFX_FORMAT_ARG::kWideText;
        result.wideText = value;
    } else {
        result.kind = AFX_FORMAT_ARG::kPointer;
        if constexpr (std::is_function_v<T>)
            result.pointer = reinterpret_cast<const void*>(value);
        else
            result.pointer = const_cast<const void*>(static_cast<const volatile void*>(value));
    }
    return result;
}

template <class T>
AFX_FORMAT_ARG Argument(const T& value)
{
    static_assert(std::is_arithmetic_v<T> || std::is_enum_v<T> || std::is_pointer_v<T> ||
                      std::is_null_pointer_v<T> || std::is_base_of_v<CString, T>,
                  "only numbers, enumerators, pointers and CString can be formatted");
    AFX_FORMAT_ARG result;
    if constexpr (std::is_base_of_v<CString, T>) {
        result = PointerArgument(static_cast<const char*>(value));
    } else if constexpr (std::is_null_pointer_v<T>) {
        result = PointerArgument(static_cast<const void*>(nullptr));
    } else if constexpr (std::is_pointer_v<T>) {
        result = PointerArgument<std::remove_cv_t<std::remove_pointer_t<T>>>(
            const_cast<const std::remove_cv_t<std::remove_pointer_t<T>>*>(value));
    } else if constexpr (std::is_floating_point_v<T>) {
        result.kind = AFX_FORMAT_ARG::kReal;
        result.real = static_cast<double>(value);
    } else {
        result.integer = static_cast<LONGLONG>(value);
        result.isWide = sizeof value > 4;
        result.isNull = std::is_same_v<T, std::remove_cv_t<decltype(NULL)>> && result.integer == 0;
    }
    return result;
}

} // namespace AfxFormatDetail
