#include "OleText.h"

#include <cstring>

namespace {

VARIANT_BOOL VariantBool(bool value)
{
    return static_cast<VARIANT_BOOL>(value ? AFX_OLE_TRUE : AFX_OLE_FALSE);
}

// Not every platform's header promises what all functions keep: the source is only read.
void CheckedCopy(VARIANT& target, const VARIANT& source)
{
    AfxCheckError(VariantCopy(&target, const_cast<VARIANT*>(&source)));
}

// Becomes an empty variant of `type` unless it is one already.
void TakeType(COleVariant& variant, VARTYPE type)
{
    if (variant.vt == type)
        return;
    variant.Clear();
    variant.vt = type;
}

bool SameText(BSTR a, BSTR b)
{
    const UINT bytes = SysStringByteLen(a);
    return bytes == SysStringByteLen(b) && (bytes == 0 || std::memcmp(a, b, bytes) == 0);
}

bool SameValue(const VARIANT& a, const VARIANT& b)
{
    switch (a.vt) {
    case VT_EMPTY:
    case VT_NULL:
        return true;
    case VT_BSTR:
        return SameText(a.bstrVal, b.bstrVal);
    case VT_I1:
    case VT_UI1:
        return a.bVal == b.bVal;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return a.iVal == b.iVal;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_ERROR:
        return a.lVal == b.lVal;
    case VT_R4:
        return a.fltVal == b.fltVal;
    case VT_R8:
    case VT_DATE:
        return a.dblVal == b.dblVal;
    case VT_CY:
    case VT_I8:
    case VT_UI8:
        return a.llVal == b.llVal;
    default: // a pointer of any kind: to an object, an array, a value by reference
        return a.byref == b.byref;
    }
}

} // namespace

void AFXAPI AfxVariantInit(LPVARIANT variant)
{
    *variant = VARIANT{};
}

COleVariant::COleVariant(const VARIANT& source) : COleVariant()
{
    CheckedCopy(*this, source);
}

COleVariant::COleVariant(LPCVARIANT source) : COleVariant(*source)
{
}

COleVariant::COleVariant(const COleVariant& source) : COleVariant(static_cast<const VARIANT&>(source))
{
}

COleVariant::COleVariant(LPCTSTR source, VARTYPE type) : COleVariant()
{
    SetString(source, type);
}

COleVariant::COleVariant(const CString& source) : COleVariant()
{
    bstrVal = OleTextFromAnsi(source, source.GetLength());
    vt = VT_BSTR;
}

COleVariant::COleVariant(BYTE source) : COleVariant()
{
    vt = VT_UI1;
    bVal = source;
}

COleVariant::COleVariant(short source, VARTYPE type) : COleVariant()
{
    vt = type == VT_BOOL ? VT_BOOL : VT_I2;
    *this = source;
}

COleVariant::COleVariant(LONG source, VARTYPE type) : COleVariant()
{
    vt = type == VT_BOOL || type == VT_ERROR ? type : static_cast<VARTYPE>(VT_I4);
    *this = source;
}

COleVariant::COleVariant(float source) : COleVariant()
{
    vt = VT_R4;
    fltVal = source;
}

COleVariant::COleVariant(double source) : COleVariant()
{
    vt = VT_R8;
    dblVal = source;
}

void COleVariant::Clear()
{
    VariantClear(this);
}

void COleVariant::ChangeType(VARTYPE type, LPVARIANT source)
{
    LPVARIANT from = source ? source : this;
    if (from != this || type != vt)
        AfxCheckError(VariantChangeType(this, from, 0, type));
}

void COleVariant::Attach(VARIANT& source)
{
    if (&source == this)
        return;
    Clear();
    static_cast<VARIANT&>(*this) = source;
    source.vt = VT_EMPTY;
}

VARIANT COleVariant::Detach()
{
    const VARIANT content = *this;
    vt = VT_EMPTY;
    return content;
}

void COleVariant::SetString(LPCTSTR source, VARTYPE type)
{
    // The new text first: `source` may lie in the old one.
    const BSTR text = type == VT_BSTRT && source
                          ? SysAllocStringByteLen(source, static_cast<UINT>(std::strlen(source)))
                          : OleTextFromAnsi(source);
    if (source && !text)
        AfxThrowMemoryException();
    Clear();
    vt = VT_BSTR;
    bstrVal = text;
}

const COleVariant& COleVariant::operator=(const VARIANT& source)
{
    CheckedCopy(*this, source);
    return *this;
}

const COleVariant& COleVariant::operator=(LPCVARIANT source)
{
    return *this = *source;
}

const COleVariant& COleVariant::operator=(const COleVariant& source)
{
    return *this = static_cast<const VARIANT&>(source);
}

const COleVariant& COleVariant::operator=(LPCTSTR source)
{
    SetString(source, VT_BSTR);
    return *this;
}

const COleVariant& COleVariant::operator=(const CString& source)
{
    COleVariant text(source);
    Attach(text);
    return *this;
}

const COleVariant& COleVariant::operator=(BYTE source)
{
    TakeType(*this, VT_UI1);
    bVal = source;
    return *this;
}

const COleVariant& COleVariant::operator=(short source)
{
    if (vt == VT_BOOL) {
        boolVal = VariantBool(source != 0);
        return *this;
    }
    TakeType(*this, VT_I2);
    iVal = source;
    return *this;
}

const COleVariant& COleVariant::operator=(LONG source)
{
    if (vt == VT_BOOL) {
        boolVal = VariantBool(source != 0);
        return *this;
    }
    if (vt != VT_ERROR)
        TakeType(*this, VT_I4);
    lVal = source;
    return *this;
}

const COleVariant& COleVariant::operator=(float source)
{
    TakeType(*this, VT_R4);
    fltVal = source;
    return *this;
}

const COleVariant& COleVariant::operator=(double source)
{
    TakeType(*this, VT_R8);
    dblVal = source;
    return *this;
}

BOOL COleVariant::operator==(const VARIANT& other) const
{
    return vt == other.vt && SameValue(*this, other);
}

BOOL COleVariant::operator==(LPCTSTR other) const
{
    return *this == COleVariant(other);
}

BOOL COleVariant::operator==(const CString& other) const
{
    return *this == COleVariant(other);
}

BOOL COleVariant::operator==(BYTE other) const
{
    return vt == VT_UI1 && bVal == other;
}

BOOL COleVariant::operator==(short other) const
{
    return vt == VT_BOOL ? (boolVal != 0) == (other != 0) : vt == VT_I2 && iVal == other;
}

BOOL COleVariant::operator==(LONG other) const
{
    if (vt == VT_BOOL)
        return (boolVal != 0) == (other != 0);
    return (vt == VT_I4 || vt == VT_ERROR) && lVal == other;
}

BOOL COleVariant::operator==(float other) const
{
    return vt == VT_R4 && fltVal == other;
}

BOOL COleVariant::operator==(double other) const
{
    return vt == VT_R8 && dblVal == other;
}
