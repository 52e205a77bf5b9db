// Variants: changing the kind of a value.
#include "DateText.h"
#include "Exact.h"
#include "VariantTypes.h"

#include <oleauto.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace {

constexpr int kCurrencyDecimals = 4;
constexpr int kMostDecimals = 28;

std::u16string_view TextOf(const VARIANT& value)
{
    return {value.bstrVal ? value.bstrVal : u"", SysStringLen(value.bstrVal)};
}

HRESULT AnswerText(std::string_view text, VARIANT& to)
{
    const std::u16string wide(text.begin(), text.end());
    to.bstrVal = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    return to.bstrVal ? S_OK : E_OUTOFMEMORY;
}

bool IsReal(VARTYPE vt)
{
    return vt == VT_R4 || vt == VT_R8 || vt == VT_DATE;
}

double RealOf(const VARIANT& value)
{
    return value.vt == VT_R4 ? value.fltVal : value.dblVal;
}

// Whole numbers, amounts and decimals, which need no rounding; false for all others.
bool ExactOf(const VARIANT& value, Exact& exact)
{
    switch (value.vt) {
    case VT_EMPTY:
        exact = {};
        return true;
    case VT_I1:
        exact = FromSigned(static_cast<signed char>(value.cVal));
        return true;
    case VT_I2:
    case VT_BOOL:
        exact = FromSigned(value.iVal);
        return true;
    case VT_I4:
    case VT_INT:
        exact = FromSigned(value.lVal);
        return true;
    case VT_I8:
        exact = FromSigned(value.llVal);
        return true;
    case VT_UI1:
        exact = {false, value.bVal, 0};
        return true;
    case VT_UI2:
        exact = {false, value.uiVal, 0};
        return true;
    case VT_UI4:
    case VT_UINT:
        exact = {false, value.ulVal, 0};
        return true;
    case VT_UI8:
        exact = {false, value.ullVal, 0};
        return true;
    case VT_CY:
        exact = FromSigned(value.cyVal.int64, kCurrencyDecimals);
        return true;
    case VT_DECIMAL:
        exact = FromDecimal(value.decVal);
        return true;
    default:
        return false;
    }
}

// Any number, or a text that is one, with no more than `decimals` digits after the point.
HRESULT NumberOf(const VARIANT& value, int decimals, Exact& exact)
{
    if (ExactOf(value, exact)) {
        exact = Round(exact, decimals);
        return S_OK;
    }
    if (IsReal(value.vt))
        return ToExact(RealOf(value), 0, decimals, exact) ? S_OK : DISP_E_OVERFLOW;
    NumberText number;
    if (value.vt != VT_BSTR || !ParseNumber(TextOf(value), number))
        return DISP_E_TYPEMISMATCH;
    return ToExact(number, decimals, exact) ? S_OK : DISP_E_OVERFLOW;
}

HRESULT ToReal(const VARIANT& value, double& real)
{
    Exact exact;
    if (IsReal(value.vt)) {
        real = RealOf(value);
        return S_OK;
    }
    if (ExactOf(value, exact)) {
        real = ToDouble(exact);
        return S_OK;
    }
    NumberText number;
    if (value.vt != VT_BSTR || !ParseNumber(TextOf(value), number))
        return DISP_E_TYPEMISMATCH;
    return ToDouble(number, real) ? S_OK : DISP_E_OVERFLOW;
}

bool Negate(const Exact& exact, long long& value)
{
    constexpr Wide128 kBound = static_cast<Wide128>(1) << 63;
    if (exact.digits > kBound || (!exact.negative && exact.digits == kBound))
        return false;
    const auto magnitude = static_cast<unsigned long long>(exact.digits);
    value = static_cast<long long>(exact.negative ? 0 - magnitude : magnitude);
    return true;
}

template <class Integer>
HRESULT ToSigned(const VARIANT& value, Integer& out)
{
    Exact exact;
    long long whole = 0;
    if (const HRESULT read = NumberOf(value, 0, exact); FAILED(read))
        return read;
    if (!Negate(exact, whole) || whole < std::numeric_limits<Integer>::min() ||
        whole > std::numeric_limits<Integer>::max())
        return DISP_E_OVERFLOW;
    out = static_cast<Integer>(whole);
    return S_OK;
}

template <class Integer>
HRESULT ToUnsigned(const VARIANT& value, Integer& out)
{
    Exact exact;
    if (const HRESULT read = NumberOf(value, 0, exact); FAILED(read))
        return read;
    if ((exact.negative && exact.digits != 0) || exact.digits > std::numeric_limits<Integer>::max())
        return DISP_E_OVERFLOW;
    out = static_cast<Integer>(exact.digits);
    return S_OK;
}

// Signed and unsigned numbers of one width pass as bits, and true becomes all bits set.
struct SameBits {
    VARTYPE from, to;
};
constexpr SameBits kSameBits[] = {
    {VT_I1, VT_UI1},   {VT_UI1, VT_I1},   {VT_I2, VT_UI2},    {VT_UI2, VT_I2},   {VT_I4, VT_UI4},
    {VT_I4, VT_UINT},  {VT_UI4, VT_I4},   {VT_UI4, VT_INT},   {VT_INT, VT_UI4},  {VT_INT, VT_UINT},
    {VT_UINT, VT_I4},  {VT_UINT, VT_INT}, {VT_I8, VT_UI8},    {VT_UI8, VT_I8},   {VT_BOOL, VT_UI1},
    {VT_BOOL, VT_UI2}, {VT_BOOL, VT_UI4}, {VT_BOOL, VT_UINT}, {VT_BOOL, VT_UI8},
};

bool PassesAsBits(const VARIANT& value, VARTYPE vt, VARIANT& to)
{
    for (const SameBits& pair : kSameBits)
        if (pair.from == value.vt && pair.to == vt) {
            to.llVal = value.vt == VT_BOOL ? value.boolVal : value.llVal;
            return true;
        }
    return false;
}

HRESULT ToFloat(const VARIANT& value, FLOAT& out)
{
    double real = 0;
    if (const HRESULT read = ToReal(value, real); FAILED(read))
        return read;
    if (std::fabs(real) > std::numeric_limits<FLOAT>::max())
        return DISP_E_OVERFLOW;
    out = static_cast<FLOAT>(real);
    return S_OK;
}

HRESULT ToCurrency(const VARIANT& value, CY& out)
{
    Exact exact;
    // A double counts for its fifteen digits: the sixteenth is noise in an amount.
    if (const HRESULT read = NumberOf(value, kCurrencyDecimals, exact); FAILED(read))
        return read;
    for (; exact.scale < kCurrencyDecimals; ++exact.scale) {
        if (exact.digits > std::numeric_limits<ULONGLONG>::max())
            return DISP_E_OVERFLOW;
        exact.digits *= 10;
    }
    return Negate(exact, out.int64) ? S_OK : DISP_E_OVERFLOW;
}

HRESULT ToDecimalValue(const VARIANT& value, DECIMAL& out)
{
    Exact exact;
    HRESULT read = S_OK;
    if (IsReal(value.vt))
        read =
            ToExact(RealOf(value), value.vt == VT_R4 ? 7 : 15, kMostDecimals, exact) ? S_OK : DISP_E_OVERFLOW;
    else
        read = NumberOf(value, kMostDecimals, exact);
    if (FAILED(read))
        return read;
    while (IsReal(value.vt) && exact.scale > 0 && exact.digits % 10 == 0) {
        exact.digits /= 10;
        --exact.scale;
    }
    out = ToDecimal(exact);
    return S_OK;
}

HRESULT ToDate(const VARIANT& value, DATE& out)
{
    DateParts parts;
    if (value.vt == VT_BSTR) {
        if (!ParseDate(TextOf(value), parts))
            return DISP_E_TYPEMISMATCH;
        out = DateOfParts(parts);
        return S_OK;
    }
    double real = 0;
    if (const HRESULT read = ToReal(value, real); FAILED(read))
        return read;
    if (!IsDateInRange(real))
        return DISP_E_OVERFLOW;
    out = real;
    return S_OK;
}

bool SameWord(std::u16string_view text, std::u16string_view word)
{
    const auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; };
    if (text.size() != word.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (lower(text[i]) != word[i])
            return false;
    return true;
}

HRESULT ToBool(const VARIANT& value, VARIANT_BOOL& out)
{
    double real = 0;
    if (value.vt == VT_BSTR) {
        const std::u16string_view text = TextOf(value);
        const bool yes = SameWord(text, u"true") || SameWord(text, u"#true#");
        if (yes || SameWord(text, u"false") || SameWord(text, u"#false#")) {
            out = yes ? VARIANT_TRUE : VARIANT_FALSE;
            return S_OK;
        }
    }
    if (const HRESULT read = ToReal(value, real); FAILED(read))
        return read;
    out = real != 0 ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

std::string RealText(double value, int significant)
{
    std::array<char, 64> text;
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, significant);
    std::string made(text.data(), written.ptr);
    for (char& c : made)
        c = c == 'e' ? 'E' : c;
    return made;
}

std::string ExactText(Exact exact)
{
    while (exact.scale > 0 && exact.digits % 10 == 0) {
        exact.digits /= 10;
        --exact.scale;
    }
    std::string text;
    for (int i = 0; exact.digits != 0 || i <= exact.scale; ++i, exact.digits /= 10) {
        if (i == exact.scale && i != 0)
            text.insert(text.begin(), '.');
        text.insert(text.begin(), static_cast<char>('0' + static_cast<int>(exact.digits % 10)));
    }
    return (exact.negative && text.find_first_not_of("0.") != std::string::npos ? "-" : "") + text;
}

HRESULT ToText(const VARIANT& value, USHORT flags, VARIANT& to)
{
    Exact exact;
    DateParts parts;
    if (value.vt == VT_EMPTY)
        return AnswerText("", to);
    if (value.vt == VT_BOOL && flags & (VARIANT_ALPHABOOL | VARIANT_LOCALBOOL))
        return AnswerText(value.boolVal ? "True" : "False", to);
    if (value.vt == VT_DATE)
        return PartsOfDate(value.date, parts) ? AnswerText(DateToText(parts), to) : E_INVALIDARG;
    if (IsReal(value.vt))
        return AnswerText(RealText(RealOf(value), value.vt == VT_R4 ? 7 : 15), to);
    return ExactOf(value, exact) ? AnswerText(ExactText(exact), to) : DISP_E_TYPEMISMATCH;
}

// An object stands for its default property.
HRESULT DefaultProperty(IDispatch* object, LCID lcid, VARIANT& value)
{
    DISPPARAMS none = {};
    if (!object)
        return DISP_E_TYPEMISMATCH;
    const HRESULT got =
        object->Invoke(DISPID_VALUE, IID_NULL, lcid, DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr);
    return SUCCEEDED(got) ? S_OK : DISP_E_TYPEMISMATCH;
}

HRESULT ToObject(const VARIANT& value, REFIID wanted, void** out)
{
    if (value.vt != VT_DISPATCH && value.vt != VT_UNKNOWN)
        return DISP_E_TYPEMISMATCH;
    *out = nullptr;
    if (!value.punkVal)
        return S_OK;
    return SUCCEEDED(value.punkVal->QueryInterface(wanted, out)) ? S_OK : DISP_E_TYPEMISMATCH;
}

// Converts a plain value (no reference, no array, no object) of another kind into to's union.
HRESULT ConvertScalar(const VARIANT& value, USHORT flags, VARTYPE vt, VARIANT& to)
{
    if (PassesAsBits(value, vt, to))
        return S_OK;
    switch (vt) {
    case VT_I1:
        return ToSigned(value, reinterpret_cast<signed char&>(to.cVal));
    case VT_I2:
        return ToSigned(value, to.iVal);
    case VT_I4:
    case VT_INT:
        return ToSigned(value, to.lVal);
    case VT_I8:
        return ToSigned(value, to.llVal);
    case VT_UI1:
        return ToUnsigned(value, to.bVal);
    case VT_UI2:
        return ToUnsigned(value, to.uiVal);
    case VT_UI4:
    case VT_UINT:
        return ToUnsigned(value, to.ulVal);
    case VT_UI8:
        return ToUnsigned(value, to.ullVal);
    case VT_R4:
        return ToFloat(value, to.fltVal);
    case VT_R8:
        return ToReal(value, to.dblVal);
    case VT_CY:
        return ToCurrency(value, to.cyVal);
    case VT_DECIMAL:
        return ToDecimalValue(value, to.decVal);
    case VT_DATE:
        return ToDate(value, to.date);
    case VT_BOOL:
        return ToBool(value, to.boolVal);
    case VT_BSTR:
        return ToText(value, flags, to);
    default:
        return DISP_E_TYPEMISMATCH;
    }
}

HRESULT ConvertObject(const VARIANT& object, LCID lcid, USHORT flags, VARTYPE vt, VARIANT& to)
{
    if (vt == VT_DISPATCH || vt == VT_UNKNOWN)
        return ToObject(object, vt == VT_DISPATCH ? IID_IDispatch : IID_IUnknown,
                        reinterpret_cast<void**>(&to.punkVal));
    if (object.vt != VT_DISPATCH || flags & VARIANT_NOVALUEPROP)
        return DISP_E_TYPEMISMATCH;
    VARIANT value = {};
    HRESULT result = DefaultProperty(object.pdispVal, lcid, value);
    if (SUCCEEDED(result))
        result = VariantChangeTypeEx(&value, &value, lcid, flags, vt);
    if (SUCCEEDED(result))
        to = value;
    else
        VariantClear(&value);
    return result;
}

// `to` receives a value of its own.
HRESULT Convert(const VARIANT& value, LCID lcid, USHORT flags, VARTYPE vt, VARIANT& to)
{
    VARIANT source = value;
    if (value.vt == vt)
        return VariantCopy(&to, &source);
    HRESULT result = DISP_E_TYPEMISMATCH;
    if (vt & (VT_ARRAY | VT_BYREF) || V_ISARRAY(&value))
        return result;
    if (vt == VT_EMPTY || vt == VT_NULL)
        result = S_OK;
    else if (value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN)
        result = ConvertObject(value, lcid, flags, vt, to);
    else
        result = ConvertScalar(value, flags, vt, to);
    if (SUCCEEDED(result))
        to.vt = vt; // after the value: a decimal fills the whole variant
    return result;
}

} // namespace

HRESULT WINAPI VariantChangeTypeEx(VARIANTARG* to, VARIANTARG* from, LCID lcid, USHORT flags, VARTYPE vt)
{
    if (!to || !from)
        return E_INVALIDARG;
    if (!IsVariantType(vt))
        return DISP_E_BADVARTYPE;
    VARIANT value = {};
    VARIANT made = {};
    try {
        HRESULT result = FollowReference(*from, value);
        if (SUCCEEDED(result))
            result = Convert(value, lcid, flags, vt, made);
        if (SUCCEEDED(result))
            result = VariantClear(to);
        if (SUCCEEDED(result))
            *to = made;
        else
            VariantClear(&made);
        return result;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

HRESULT WINAPI VariantChangeType(VARIANTARG* to, VARIANTARG* from, USHORT flags, VARTYPE vt)
{
    constexpr LCID kUserDefault = 0x400;
    return VariantChangeTypeEx(to, from, kUserDefault, flags, vt);
}
