// Variants: making, ending, copying.
#include "VariantTypes.h"

#include <oleauto.h>

namespace {

// How a value of each kind is owned.
HRESULT FreeContent(VARIANTARG& value)
{
    if (V_ISARRAY(&value))
        return value.parray ? SafeArrayDestroy(value.parray) : S_OK;
    if (value.vt == VT_BSTR)
        SysFreeString(value.bstrVal);
    else if ((value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN) && value.punkVal)
        value.punkVal->Release();
    return S_OK;
}

// Makes a shallow copy own what it holds.
HRESULT DuplicateContent(VARIANTARG& copy)
{
    if (V_ISBYREF(&copy))
        return S_OK;
    if (V_ISARRAY(&copy))
        return copy.parray ? SafeArrayCopy(copy.parray, &copy.parray) : S_OK;
    if (copy.vt == VT_BSTR && copy.bstrVal)
        return CopyText(copy.bstrVal, &copy.bstrVal);
    if ((copy.vt == VT_DISPATCH || copy.vt == VT_UNKNOWN) && copy.punkVal)
        copy.punkVal->AddRef();
    return S_OK;
}

constexpr VARTYPE kVariantReference = VT_VARIANT | VT_BYREF;

// Reads what a reference other than kVariantReference refers to.
HRESULT ReadReferred(const VARIANTARG& reference, VARIANTARG& target)
{
    const auto vt = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
    const std::size_t size = V_ISARRAY(&reference) ? sizeof(SAFEARRAY*) : ElementSize(vt);
    const void* source = reference.byref;
    target = {};
    std::memcpy(vt == VT_DECIMAL ? static_cast<void*>(&target.decVal) : &target.llVal, source, size);
    target.vt = vt; // after the value: a decimal fills the whole variant
    return S_OK;
}

HRESULT Dereference(const VARIANTARG& reference, VARIANTARG& target)
{
    if (!reference.byref)
        return E_INVALIDARG;
    if (reference.vt != kVariantReference)
        return ReadReferred(reference, target);
    const VARIANT referred = *reference.pvarVal;
    if (referred.vt == kVariantReference)
        return E_INVALIDARG;
    return FollowReference(referred, target);
}

} // namespace

HRESULT CopyText(BSTR from, BSTR* to)
{
    *to = from ? SysAllocStringByteLen(reinterpret_cast<LPCSTR>(from), SysStringByteLen(from)) : nullptr;
    return from && !*to ? E_OUTOFMEMORY : S_OK;
}

std::size_t ElementSize(VARTYPE vt)
{
    switch (vt) {
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
        return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
    case VT_PTR:
        return sizeof(void*);
    case VT_DECIMAL:
        return sizeof(DECIMAL);
    case VT_VARIANT:
        return sizeof(VARIANT);
    default:
        return 0;
    }
}

bool IsVariantType(VARTYPE vt)
{
    const auto base = static_cast<VARTYPE>(vt & VT_TYPEMASK);
    if (vt & (VT_VECTOR | VT_RESERVED) || base == VT_PTR)
        return false;
    if (base == VT_EMPTY || base == VT_NULL)
        return vt == base;
    return ElementSize(base) != 0;
}

HRESULT FollowReference(const VARIANTARG& value, VARIANTARG& target)
{
    if (!IsVariantType(value.vt))
        return DISP_E_BADVARTYPE;
    if (V_ISBYREF(&value))
        return Dereference(value, target);
    target = value;
    return S_OK;
}

void WINAPI VariantInit(VARIANTARG* value)
{
    value->vt = VT_EMPTY;
}

HRESULT WINAPI VariantClear(VARIANTARG* value)
{
    if (!value)
        return E_INVALIDARG;
    if (!IsVariantType(value->vt))
        return DISP_E_BADVARTYPE;
    const HRESULT freed = V_ISBYREF(value) ? S_OK : FreeContent(*value);
    if (SUCCEEDED(freed))
        value->vt = VT_EMPTY;
    return freed;
}

HRESULT WINAPI VariantCopy(VARIANTARG* to, VARIANTARG* from)
{
    if (!to || !from)
        return E_INVALIDARG;
    if (!IsVariantType(from->vt))
        return DISP_E_BADVARTYPE;
    if (to == from)
        return S_OK;
    if (const HRESULT cleared = VariantClear(to); FAILED(cleared))
        return cleared;
    VARIANTARG copy = *from;
    const HRESULT duplicated = DuplicateContent(copy);
    if (SUCCEEDED(duplicated))
        *to = copy;
    return duplicated;
}

HRESULT WINAPI VariantCopyInd(VARIANT* to, VARIANTARG* from)
{
    if (!to || !from)
        return E_INVALIDARG;
    if (!V_ISBYREF(from))
        return VariantCopy(to, from);
    VARIANTARG copy = {};
    HRESULT result = FollowReference(*from, copy);
    if (SUCCEEDED(result))
        result = DuplicateContent(copy);
    if (FAILED(result))
        return result;
    // Only now: `to` may be `from`, or what it refers to.
    result = VariantClear(to);
    if (SUCCEEDED(result))
        *to = copy;
    else
        VariantClear(&copy);
    return result;
}
