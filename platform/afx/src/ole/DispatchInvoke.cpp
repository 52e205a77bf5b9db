#include "OleText.h"

#include <cstring>
#include <memory>

namespace {

constexpr BYTE kAnsiText = 0x0E; // VTS_BSTR: no type of OLE's own

// A va_list that can be handed on by reference whatever type the platform gives it.
struct Source {
    va_list list;
    ~Source() { va_end(list); }
};

// The arguments of one call, in the order in which Invoke takes them: the last one first.
class Arguments
{
public:
    explicit Arguments(const BYTE* types);
    ~Arguments();
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    // May throw midway; what was taken by then is freed with the object.
    void Take(Source& source);

    VARIANT* First() { return m_values; }
    UINT Count() const { return m_count; }

private:
    static constexpr UINT kInline = 16; // the longest call of the report writers takes 13

    VARIANT& Value(UINT index) { return m_values[m_count - 1 - index]; }

    const BYTE* m_types;
    UINT m_count;
    UINT m_taken = 0;
    VARIANT m_inline[kInline];
    std::unique_ptr<VARIANT[]> m_many;
    VARIANT* m_values = m_inline;
};

// BOOL and VARIANT_BOOL by reference share the caller's variable; both fit into it.
void ToVariantBool(BOOL& value)
{
    value = value ? 0xFFFF : 0;
}

void ToBool(BOOL& value)
{
    value = static_cast<WORD>(value) != 0;
}

void TakeReference(VARIANT& value, VARTYPE type, void* target)
{
    value.vt = static_cast<VARTYPE>(type | VT_BYREF);
    value.byref = target;
    if (type == VT_BOOL)
        ToVariantBool(*static_cast<BOOL*>(target));
}

void TakeText(VARIANT& value, BSTR text)
{
    value.vt = VT_BSTR;
    value.bstrVal = text;
}

BSTR CopyText(const OLECHAR* text)
{
    const BSTR copy = SysAllocString(text);
    if (text && !copy)
        AfxThrowMemoryException();
    return copy;
}

void TakeValue(VARIANT& value, BYTE type, Source& source)
{
    value.vt = type;
    switch (type) {
    case VT_I1:
    case VT_UI1:
        value.bVal = static_cast<BYTE>(va_arg(source.list, int));
        break;
    case VT_I2:
    case VT_UI2:
        value.iVal = static_cast<short>(va_arg(source.list, int));
        break;
    case VT_I4:
    case VT_UI4:
    case VT_ERROR:
        value.lVal = va_arg(source.list, LONG);
        break;
    case VT_I8:
    case VT_UI8:
        value.llVal = va_arg(source.list, LONGLONG);
        break;
    case VT_R4:
        value.fltVal = static_cast<float>(va_arg(source.list, double));
        break;
    case VT_R8:
    case VT_DATE:
        value.dblVal = va_arg(source.list, double);
        break;
    case VT_CY:
        value.cyVal = *va_arg(source.list, const CY*);
        break;
    case VT_BOOL:
        value.boolVal = static_cast<VARIANT_BOOL>(va_arg(source.list, BOOL) ? AFX_OLE_TRUE : AFX_OLE_FALSE);
        break;
    case VT_DISPATCH:
        value.pdispVal = va_arg(source.list, IDispatch*);
        break;
    case VT_UNKNOWN:
        value.punkVal = va_arg(source.list, IUnknown*);
        break;
    case VT_VARIANT:
        value = *va_arg(source.list, const VARIANT*);
        break;
    case VT_BSTR:
        TakeText(value, CopyText(va_arg(source.list, const OLECHAR*)));
        break;
    case kAnsiText:
        TakeText(value, OleTextFromAnsi(va_arg(source.list, LPCSTR)));
        break;
    default:
        AfxThrowOleException(DISP_E_BADVARTYPE);
    }
}

Arguments::Arguments(const BYTE* types)
    : m_types(types),
      m_count(types ? static_cast<UINT>(std::strlen(reinterpret_cast<const char*>(types))) : 0)
{
    if (m_count > kInline) {
        m_many = std::make_unique<VARIANT[]>(m_count);
        m_values = m_many.get();
    }
}

void Arguments::Take(Source& source)
{
    for (; m_taken < m_count; ++m_taken) {
        const BYTE type = m_types[m_taken];
        if (type & VT_MFCBYREF)
            TakeReference(Value(m_taken), static_cast<VARTYPE>(type & ~VT_MFCBYREF),
                          va_arg(source.list, void*));
        else
            TakeValue(Value(m_taken), type, source);
    }
}

// Only the texts were made here; everything else is the caller's.
Arguments::~Arguments()
{
    for (UINT i = 0; i < m_taken; ++i) {
        const BYTE type = m_types[i];
        if (type == VT_BSTR || type == kAnsiText)
            SysFreeString(Value(i).bstrVal);
        else if (type == (VT_BOOL | VT_MFCBYREF))
            ToBool(*static_cast<BOOL*>(Value(i).byref));
    }
}

CString TakeAndFree(BSTR text)
{
    const CString ansi = AnsiFromOleText(text);
    SysFreeString(text);
    return ansi;
}

[[noreturn]] void ThrowRaised(EXCEPINFO& info)
{
    if (info.pfnDeferredFillIn)
        info.pfnDeferredFillIn(&info);
    auto e = std::make_unique<COleDispatchException>("", info.dwHelpContext, info.wCode);
    e->m_strSource = TakeAndFree(info.bstrSource);
    e->m_strDescription = TakeAndFree(info.bstrDescription);
    e->m_strHelpFile = TakeAndFree(info.bstrHelpFile);
    e->m_scError = info.scode;
    throw e.release();
}

void StoreResult(COleVariant& value, VARTYPE type, void* result)
{
    if (type == VT_VARIANT) {
        *static_cast<VARIANT*>(result) = value.Detach();
        return;
    }
    value.ChangeType(type);
    switch (type) {
    case VT_I1:
    case VT_UI1:
        *static_cast<BYTE*>(result) = value.bVal;
        break;
    case VT_I2:
    case VT_UI2:
        *static_cast<short*>(result) = value.iVal;
        break;
    case VT_I4:
    case VT_UI4:
    case VT_ERROR:
        *static_cast<LONG*>(result) = value.lVal;
        break;
    case VT_I8:
    case VT_UI8:
        *static_cast<LONGLONG*>(result) = value.llVal;
        break;
    case VT_R4:
        *static_cast<float*>(result) = value.fltVal;
        break;
    case VT_R8:
    case VT_DATE:
        *static_cast<double*>(result) = value.dblVal;
        break;
    case VT_CY:
        *static_cast<CY*>(result) = value.cyVal;
        break;
    case VT_BOOL:
        *static_cast<BOOL*>(result) = value.boolVal != 0;
        break;
    case VT_BSTR:
        *static_cast<CString*>(result) = AnsiFromOleText(value.bstrVal);
        break;
    case VT_DISPATCH:
        *static_cast<LPDISPATCH*>(result) = value.Detach().pdispVal;
        break;
    case VT_UNKNOWN:
        *static_cast<LPUNKNOWN*>(result) = value.Detach().punkVal;
        break;
    default:
        AfxThrowOleException(DISP_E_BADVARTYPE);
    }
}

BYTE ParameterByte(VARTYPE type)
{
    if (type == VT_BSTR)
        return kAnsiText;
    return static_cast<BYTE>(type & VT_BYREF ? (type & ~VT_BYREF) | VT_MFCBYREF : type);
}

} // namespace

void COleDispatchDriver::InvokeHelperV(DISPID id, WORD flags, VARTYPE resultType, void* result,
                                       const BYTE* parameters, va_list arguments)
{
    if (!m_lpDispatch)
        AfxThrowOleException(CO_E_OBJNOTCONNECTED);
    COleVariant value;
    EXCEPINFO info{};
    HRESULT hr;
    {
        Source source;
        va_copy(source.list, arguments);
        Arguments values(parameters);
        values.Take(source);
        DISPID named = DISPID_PROPERTYPUT;
        const bool put = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
        DISPPARAMS call = {values.First(), put ? &named : nullptr, values.Count(), put ? 1u : 0u};
        UINT badArgument = 0;
        hr = m_lpDispatch->Invoke(id, IID_NULL, 0, flags, &call, resultType == VT_EMPTY ? nullptr : &value,
                                  &info, &badArgument);
    }
    if (hr == DISP_E_EXCEPTION)
        ThrowRaised(info);
    if (FAILED(hr))
        AfxThrowOleException(hr);
    if (resultType != VT_EMPTY)
        StoreResult(value, resultType, result);
}

void AFX_CDECL COleDispatchDriver::InvokeHelper(DISPID id, WORD flags, VARTYPE resultType, void* result,
                                                const BYTE* parameters, ...)
{
    Source source;
    va_start(source.list, parameters);
    InvokeHelperV(id, flags, resultType, result, parameters, source.list);
}

void AFX_CDECL COleDispatchDriver::SetProperty(DISPID id, UINT type, ...)
{
    const BYTE parameters[] = {ParameterByte(static_cast<VARTYPE>(type)), 0};
    const WORD flags = type == VT_DISPATCH ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;
    Source source;
    va_start(source.list, type);
    InvokeHelperV(id, flags, VT_EMPTY, nullptr, parameters, source.list);
}

void COleDispatchDriver::GetProperty(DISPID id, VARTYPE type, void* value) const
{
    const_cast<COleDispatchDriver*>(this)->InvokeHelper(id, DISPATCH_PROPERTYGET, type, value, VTS_NONE);
}
