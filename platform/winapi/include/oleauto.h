// Automation values: texts, variants, arrays, dates, running objects.
#pragma once

#include "oaidl.h"

#define V_UNION(v, member) ((v)->member)
#define V_VT(v) ((v)->vt)
#define V_ISBYREF(v) (V_VT(v) & VT_BYREF)
#define V_ISARRAY(v) (V_VT(v) & VT_ARRAY)
#define V_UI1(v) V_UNION(v, bVal)
#define V_UI1REF(v) V_UNION(v, pbVal)
#define V_I2(v) V_UNION(v, iVal)
#define V_I2REF(v) V_UNION(v, piVal)
#define V_I4(v) V_UNION(v, lVal)
#define V_I4REF(v) V_UNION(v, plVal)
#define V_I8(v) V_UNION(v, llVal)
#define V_I8REF(v) V_UNION(v, pllVal)
#define V_R4(v) V_UNION(v, fltVal)
#define V_R4REF(v) V_UNION(v, pfltVal)
#define V_R8(v) V_UNION(v, dblVal)
#define V_R8REF(v) V_UNION(v, pdblVal)
#define V_I1(v) V_UNION(v, cVal)
#define V_I1REF(v) V_UNION(v, pcVal)
#define V_UI2(v) V_UNION(v, uiVal)
#define V_UI2REF(v) V_UNION(v, puiVal)
#define V_UI4(v) V_UNION(v, ulVal)
#define V_UI4REF(v) V_UNION(v, pulVal)
#define V_UI8(v) V_UNION(v, ullVal)
#define V_UI8REF(v) V_UNION(v, pullVal)
#define V_INT(v) V_UNION(v, intVal)
#define V_INTREF(v) V_UNION(v, pintVal)
#define V_UINT(v) V_UNION(v, uintVal)
#define V_UINTREF(v) V_UNION(v, puintVal)
#define V_CY(v) V_UNION(v, cyVal)
#define V_CYREF(v) V_UNION(v, pcyVal)
#define V_DATE(v) V_UNION(v, date)
#define V_DATEREF(v) V_UNION(v, pdate)
#define V_BSTR(v) V_UNION(v, bstrVal)
#define V_BSTRREF(v) V_UNION(v, pbstrVal)
#define V_DISPATCH(v) V_UNION(v, pdispVal)
#define V_DISPATCHREF(v) V_UNION(v, ppdispVal)
#define V_ERROR(v) V_UNION(v, scode)
#define V_ERRORREF(v) V_UNION(v, pscode)
#define V_BOOL(v) V_UNION(v, boolVal)
#define V_BOOLREF(v) V_UNION(v, pboolVal)
#define V_UNKNOWN(v) V_UNION(v, punkVal)
#define V_UNKNOWNREF(v) V_UNION(v, ppunkVal)
#define V_VARIANTREF(v) V_UNION(v, pvarVal)
#define V_ARRAY(v) V_UNION(v, parray)
#define V_ARRAYREF(v) V_UNION(v, pparray)
#define V_BYREF(v) V_UNION(v, byref)
#define V_DECIMAL(v) V_UNION(v, decVal)
#define V_DECIMALREF(v) V_UNION(v, pdecVal)

// --- Texts -----------------------------------------------------------------------------------------------
// All answer null when memory is short; a null text has length 0 and may be freed. A text may hold zero
// characters anywhere and always has one after its end.
WINBASEAPI BSTR WINAPI SysAllocString(const OLECHAR* text);
// `count` characters; `text` null leaves them unset.
WINBASEAPI BSTR WINAPI SysAllocStringLen(const OLECHAR* text, UINT count);
WINBASEAPI BSTR WINAPI SysAllocStringByteLen(LPCSTR bytes, UINT count);
// Replaces *text; FALSE (and *text as it was) when memory is short.
WINBASEAPI INT WINAPI SysReAllocString(BSTR* text, const OLECHAR* from);
WINBASEAPI INT WINAPI SysReAllocStringLen(BSTR* text, const OLECHAR* from, UINT count);
WINBASEAPI void WINAPI SysFreeString(BSTR text);
WINBASEAPI UINT WINAPI SysStringLen(BSTR text);
WINBASEAPI UINT WINAPI SysStringByteLen(BSTR text);

// --- Variants --------------------------------------------------------------------------------------------
#define VARIANT_NOVALUEPROP 0x01
#define VARIANT_ALPHABOOL 0x02
#define VARIANT_NOUSEROVERRIDE 0x04
#define VARIANT_LOCALBOOL 0x10

WINBASEAPI void WINAPI VariantInit(VARIANTARG* value);
// Frees what the value owns and makes it VT_EMPTY; what it refers to (VT_BYREF) is left alone.
WINBASEAPI HRESULT WINAPI VariantClear(VARIANTARG* value);
// Clears `to`, then makes it a deep copy; references stay references.
WINBASEAPI HRESULT WINAPI VariantCopy(VARIANTARG* to, VARIANTARG* from);
// As VariantCopy, but a reference is followed and what it refers to is copied.
WINBASEAPI HRESULT WINAPI VariantCopyInd(VARIANT* to, VARIANTARG* from);
// Converts; `to` and `from` may be the same. On failure `to` is unchanged.
// Halves round to even; signed and unsigned numbers of one width pass as bits. DISP_E_OVERFLOW: beyond the target's range; DISP_E_TYPEMISMATCH: a text that is no
// number, or kinds that do not convert; DISP_E_BADVARTYPE: no such kind.
// Differs: texts and numbers convert as for US English whatever `lcid` says, and never by the process's
// locale; dates read and write "month/day/year hour:minute:second AM" alone.
WINBASEAPI HRESULT WINAPI VariantChangeType(VARIANTARG* to, VARIANTARG* from, USHORT flags, VARTYPE vt);
WINBASEAPI HRESULT WINAPI VariantChangeTypeEx(VARIANTARG* to, VARIANTARG* from, LCID lcid, USHORT flags,
                                              VARTYPE vt);

// --- Dates: TRUE, or FALSE for what is no date between the years 100 and 9999
// ------------------------------- Years 0 to 29 mean 2000 to 2029, 30 to 99 mean 1930 to 1999. Milliseconds
// do not count.
WINBASEAPI INT WINAPI SystemTimeToVariantTime(LPSYSTEMTIME time, DOUBLE* date);
// To the nearest second.
WINBASEAPI INT WINAPI VariantTimeToSystemTime(DOUBLE date, LPSYSTEMTIME time);

// --- Arrays ----------------------------------------------------------------------------------------------
// `vt` is any scalar kind, VT_BSTR, VT_VARIANT, VT_DISPATCH or VT_UNKNOWN; elements begin as zeros.
WINBASEAPI SAFEARRAY* WINAPI SafeArrayCreate(VARTYPE vt, UINT dimensions, SAFEARRAYBOUND* bounds);
WINBASEAPI SAFEARRAY* WINAPI SafeArrayCreateVector(VARTYPE vt, LONG lower, ULONG count);
// Frees the elements too. DISP_E_ARRAYISLOCKED while locked.
WINBASEAPI HRESULT WINAPI SafeArrayDestroy(SAFEARRAY* array);
WINBASEAPI HRESULT WINAPI SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy);
WINBASEAPI UINT WINAPI SafeArrayGetDim(SAFEARRAY* array);
WINBASEAPI UINT WINAPI SafeArrayGetElemsize(SAFEARRAY* array);
WINBASEAPI HRESULT WINAPI SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* vt);
// Dimensions count from 1. DISP_E_BADINDEX beyond the last.
WINBASEAPI HRESULT WINAPI SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound);
WINBASEAPI HRESULT WINAPI SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound);
// `indices`: one per dimension, the first dimension first. Values are copied; texts and objects are passed
// to SafeArrayPutElement as themselves, not by address.
WINBASEAPI HRESULT WINAPI SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* value);
WINBASEAPI HRESULT WINAPI SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value);
WINBASEAPI HRESULT WINAPI SafeArrayPtrOfIndex(SAFEARRAY* array, LONG* indices, void** value);
WINBASEAPI HRESULT WINAPI SafeArrayLock(SAFEARRAY* array);
WINBASEAPI HRESULT WINAPI SafeArrayUnlock(SAFEARRAY* array);
WINBASEAPI HRESULT WINAPI SafeArrayAccessData(SAFEARRAY* array, void** data);
WINBASEAPI HRESULT WINAPI SafeArrayUnaccessData(SAFEARRAY* array);

// --- Running objects -------------------------------------------------------------------------------------
#define ACTIVEOBJECT_STRONG 0x0
#define ACTIVEOBJECT_WEAK 0x1

// Makes an object the running one of its class. Differs: for this process only.
WINBASEAPI HRESULT WINAPI RegisterActiveObject(IUnknown* object, REFCLSID clsid, DWORD flags, DWORD* cookie);
WINBASEAPI HRESULT WINAPI RevokeActiveObject(DWORD cookie, void* reserved);
// Fails with MK_E_UNAVAILABLE.
WINBASEAPI HRESULT WINAPI GetActiveObject(REFCLSID clsid, void* reserved, IUnknown** object);
