// The arguments of an automation call, first to last, references followed.
#pragma once

#include "automation/AutomationError.h"

#include <oleauto.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace zek::office {

// One argument. Conversions throw ArgumentError (DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW); a missing argument
// converts to nothing (DISP_E_PARAMNOTOPTIONAL). Valid during the call.
class Argument
{
public:
    Argument(const VARIANT* value, UINT index) : m_value(value), m_index(index) {}

    // Left out at the end, or passed as VT_ERROR with DISP_E_PARAMNOTFOUND.
    bool IsMissing() const
    {
        return !m_value || (m_value->vt == VT_ERROR && m_value->scode == DISP_E_PARAMNOTFOUND);
    }
    bool IsText() const { return m_value && m_value->vt == VT_BSTR; }
    bool IsBoolean() const { return m_value && m_value->vt == VT_BOOL; }
    bool IsObject() const { return m_value && m_value->vt == VT_DISPATCH; }
    const VARIANT& Value() const;

    LONG Long() const;
    double Number() const;
    // Any number but zero is true.
    bool Flag() const;
    // UTF-8; numbers as text.
    std::string Text() const;
    // Only for IsText().
    std::u16string_view TextView() const { return {m_value->bstrVal, SysStringLen(m_value->bstrVal)}; }
    // May be null.
    IDispatch* Object() const;

    LONG LongOr(LONG fallback) const { return IsMissing() ? fallback : Long(); }
    bool FlagOr(bool fallback) const { return IsMissing() ? fallback : Flag(); }

    // What the argument was refused for.
    [[noreturn]] void Refuse(HRESULT result = DISP_E_TYPEMISMATCH) const;

private:
    const VARIANT* m_value;
    UINT m_index;
};

// Made by DispatchObject::Invoke. The value of a property put is not among the arguments: it is PutValue().
class Arguments
{
public:
    Arguments(const DISPPARAMS& params, bool isPut);
    ~Arguments();
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    UINT Count() const { return m_count; }
    Argument operator[](UINT index) const;
    Argument PutValue() const;

private:
    static constexpr UINT kMost = 16;
    const VARIANT* Followed(UINT rawIndex) const;

    const DISPPARAMS& m_params;
    UINT m_count;
    mutable std::array<VARIANT, kMost> m_copies;
    mutable UINT m_copied = 0;
};

} // namespace zek::office
