// What a member answers, as the value the caller gets.
#pragma once

#include "spreadsheet/model/Unicode.h"

#include <oleauto.h>

#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace zek::office {

// A VARIANT that ends itself; for members that answer values of several kinds.
class Value
{
public:
    Value() { VariantInit(&m_value); }
    ~Value() { VariantClear(&m_value); }
    Value(Value&& other) noexcept : m_value(other.m_value) { other.m_value.vt = VT_EMPTY; }
    Value& operator=(Value&& other) noexcept
    {
        std::swap(m_value, other.m_value);
        return *this;
    }

    VARIANT* operator->() { return &m_value; }
    VARIANT& operator*() { return m_value; }
    VARIANT Detach() { return std::exchange(m_value, VARIANT{}); }

private:
    VARIANT m_value;
};

inline BSTR MakeBstr(std::string_view text)
{
    const std::u16string wide = ToUtf16(text);
    if (BSTR made = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size())))
        return made;
    throw std::bad_alloc();
}

inline void StoreResult(VARIANT& result, LONG value)
{
    result.vt = VT_I4;
    result.lVal = value;
}
inline void StoreResult(VARIANT& result, double value)
{
    result.vt = VT_R8;
    result.dblVal = value;
}
inline void StoreResult(VARIANT& result, bool value)
{
    result.vt = VT_BOOL;
    result.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}
inline void StoreResult(VARIANT& result, const std::string& value)
{
    result.bstrVal = MakeBstr(value);
    result.vt = VT_BSTR;
}
// The caller of the member gets the reference.
inline void StoreResult(VARIANT& result, IDispatch* counted)
{
    result.vt = VT_DISPATCH;
    result.pdispVal = counted;
}
inline void StoreResult(VARIANT& result, IUnknown* counted)
{
    result.vt = VT_UNKNOWN;
    result.punkVal = counted;
}
inline void StoreResult(VARIANT& result, Value value)
{
    result = value.Detach();
}
// Nothing in common: VT_NULL.
template <class T>
void StoreResult(VARIANT& result, const std::optional<T>& value)
{
    if (value)
        StoreResult(result, *value);
    else
        result.vt = VT_NULL;
}

} // namespace zek::office
