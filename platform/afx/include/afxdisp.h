// OLE automation: variants, the dispatch driver and the exceptions of failed calls.
//
//   COleDispatchDriver app;
//   if (app.CreateDispatch("Excel.Application")) {
//       static const BYTE kParameters[] = VTS_BOOL;
//       app.InvokeHelper(0x22E, DISPATCH_PROPERTYPUT, VT_EMPTY, nullptr, kParameters, TRUE);
//   }
//
// Errors: a failed call throws. DISP_E_EXCEPTION becomes a COleDispatchException with the server's text,
// every other failing HRESULT a COleException. Both are thrown and caught by pointer.
// Threads: an object belongs to the thread (apartment) that made it.
#pragma once

#include <afx.h>

#include <ole2.h>
#include <oleauto.h>

#include <concepts>
#include <cstdarg>

// ---------------------------------------------------------------- exceptions

// A call into OLE failed.
class AFX_CORE_CLASS COleException : public CException
{
    DECLARE_DYNAMIC(COleException)

public:
    SCODE m_sc = S_OK; // the failing HRESULT

    // The SCODE that stands for any exception: m_sc of a COleException, m_scError of a
    // COleDispatchException (m_wCode made an SCODE where that is 0), E_OUTOFMEMORY, else E_UNEXPECTED.
    static SCODE AFXAPI Process(const CException* anyException);

    // The system's text for m_sc, or "Automation error 0x........" where it has none.
    BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr) override;
};

// A called object raised an exception of its own.
class AFX_CORE_CLASS COleDispatchException : public CException
{
    DECLARE_DYNAMIC(COleDispatchException)

public:
    COleDispatchException(LPCTSTR description, UINT helpId, WORD code);

    WORD m_wCode;        // the object's own error number; 0 when it gave m_scError instead
    CString m_strSource; // who raised it, often a program identifier
    CString m_strDescription;
    DWORD m_dwHelpContext;
    CString m_strHelpFile;
    SCODE m_scError = S_OK; // the object's SCODE; 0 when it gave m_wCode instead

    // Fills `info` for a server that answers DISP_E_EXCEPTION. The caller frees its three texts.
    static void AFXAPI Process(EXCEPINFO* info, const CException* anyException);

    // m_strDescription.
    BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr) override;
};

AFX_CORE_API void AFXAPI AfxThrowOleException(SCODE sc);
AFX_CORE_API void AFXAPI AfxThrowOleDispatchException(WORD code, LPCTSTR description, UINT helpId = 0);
// Throws CMemoryException for E_OUTOFMEMORY, COleException for any other failure.
AFX_CORE_API void AFXAPI AfxCheckError(SCODE sc);

// ---------------------------------------------------------------- start and end

// Initialises OLE for the calling thread and gives the thread a message filter. FALSE: OLE refused.
// A second call on a thread answers TRUE and does nothing.
AFX_CORE_API BOOL AFXAPI AfxOleInit();
// Ends what AfxOleInit began on this thread; `justRevoke` only takes the message filter away.
AFX_CORE_API void AFXAPI AfxOleTerm(BOOL justRevoke = FALSE);

// ---------------------------------------------------------------- variants

// In the 8-bit build: a VT_BSTR that holds the 8-bit text itself.
#define VT_BSTRT 14

#define AFX_OLE_TRUE (-1)
#define AFX_OLE_FALSE 0

// An integer of the host's own `int` or `long`, whichever is not LONG: it counts as LONG.
template <class T>
concept AfxOtherLong = (std::same_as<T, int> || std::same_as<T, long>)&&!std::same_as<T, LONG>;

using LPCVARIANT = const VARIANT*;

// A VARIANT that owns what it holds. It adds no member, so an object passes as a VARIANT.
// Errors: what cannot be converted or allocated throws COleException or CMemoryException.
class AFX_CORE_CLASS COleVariant : public VARIANT
{
public:
    COleVariant() : VARIANT{} {}
    COleVariant(const VARIANT& source);
    COleVariant(LPCVARIANT source);
    COleVariant(const COleVariant& source);
    // `type` is VT_BSTR (converted from the ANSI code page) or VT_BSTRT (kept as it is).
    COleVariant(LPCTSTR source, VARTYPE type = VT_BSTR);
    COleVariant(const CString& source);
    COleVariant(BYTE source);
    // `type` is VT_I2 or VT_BOOL.
    COleVariant(short source, VARTYPE type = VT_I2);
    // `type` is VT_I4, VT_ERROR or VT_BOOL.
    COleVariant(LONG source, VARTYPE type = VT_I4);
    template <AfxOtherLong T>
    COleVariant(T source, VARTYPE type = VT_I4) : COleVariant(static_cast<LONG>(source), type)
    {
    }
    COleVariant(float source);
    COleVariant(double source);
    COleVariant(bool) = delete; // say short or long with VT_BOOL
    ~COleVariant() { Clear(); }

    // Frees what it holds; VT_EMPTY then.
    void Clear();
    // Converts itself, or `source` into itself, as VariantChangeType does.
    void ChangeType(VARTYPE type, LPVARIANT source = nullptr);
    // Takes the content of `source` over; `source` is VT_EMPTY then.
    void Attach(VARIANT& source);
    // Gives the content away: the caller clears it.
    VARIANT Detach();
    // Becomes a text, as the constructor from LPCTSTR does.
    void SetString(LPCTSTR source, VARTYPE type);

    const COleVariant& operator=(const VARIANT& source);
    const COleVariant& operator=(LPCVARIANT source);
    const COleVariant& operator=(const COleVariant& source);
    const COleVariant& operator=(LPCTSTR source);
    const COleVariant& operator=(const CString& source);
    const COleVariant& operator=(BYTE source);
    // A VT_BOOL stays one and becomes true or false; everything else becomes VT_I2.
    const COleVariant& operator=(short source);
    // A VT_BOOL or VT_ERROR stays one; everything else becomes VT_I4.
    const COleVariant& operator=(LONG source);
    template <AfxOtherLong T>
    const COleVariant& operator=(T source)
    {
        return *this = static_cast<LONG>(source);
    }
    const COleVariant& operator=(float source);
    const COleVariant& operator=(double source);
    const COleVariant& operator=(bool) = delete;

    // TRUE when type and value are the same; nothing is converted. Texts compare byte by byte, objects by
    // their pointer. An array equals only itself.
    BOOL operator==(const VARIANT& other) const;
    BOOL operator==(LPCVARIANT other) const { return *this == *other; }
    BOOL operator==(const COleVariant& other) const { return *this == static_cast<const VARIANT&>(other); }
    BOOL operator==(LPCTSTR other) const;
    BOOL operator==(const CString& other) const;
    BOOL operator==(BYTE other) const;
    BOOL operator==(short other) const;
    BOOL operator==(LONG other) const;
    template <AfxOtherLong T>
    BOOL operator==(T other) const
    {
        return *this == static_cast<LONG>(other);
    }
    BOOL operator==(float other) const;
    BOOL operator==(double other) const;

    operator LPVARIANT() { return this; }
    operator LPCVARIANT() const { return this; }
};

AFX_CORE_API void AFXAPI AfxVariantInit(LPVARIANT variant);

// ---------------------------------------------------------------- dispatch driver

// Parameter-type bytes: one string literal each, put together by writing them side by side.
#define VTS_I2 "\x02"       // short
#define VTS_I4 "\x03"       // LONG
#define VTS_R4 "\x04"       // float
#define VTS_R8 "\x05"       // double
#define VTS_CY "\x06"       // const CY*
#define VTS_DATE "\x07"     // DATE
#define VTS_WBSTR "\x08"    // LPCOLESTR
#define VTS_DISPATCH "\x09" // IDispatch*
#define VTS_SCODE "\x0A"    // SCODE
#define VTS_BOOL "\x0B"     // BOOL
#define VTS_VARIANT "\x0C"  // const VARIANT*
#define VTS_UNKNOWN "\x0D"  // IUnknown*
#define VTS_BSTR "\x0E"     // LPCSTR, in the ANSI code page
#define VTS_I1 "\x10"       // signed char
#define VTS_UI1 "\x11"      // BYTE
#define VTS_UI2 "\x12"      // WORD
#define VTS_UI4 "\x13"      // DWORD
#define VTS_I8 "\x14"       // LONGLONG
#define VTS_UI8 "\x15"      // ULONGLONG
#define VTS_PI2 "\x42"      // the same by reference, a pointer each
#define VTS_PI4 "\x43"
#define VTS_PR4 "\x44"
#define VTS_PR8 "\x45"
#define VTS_PCY "\x46"
#define VTS_PDATE "\x47"
#define VTS_PBSTR "\x48"
#define VTS_PDISPATCH "\x49"
#define VTS_PSCODE "\x4A"
#define VTS_PBOOL "\x4B" // BOOL*, a plain BOOL before and after the call
#define VTS_PVARIANT "\x4C"
#define VTS_PUNKNOWN "\x4D"
#define VTS_PI1 "\x50"
#define VTS_PUI1 "\x51"
#define VTS_PUI2 "\x52"
#define VTS_PUI4 "\x53"
#define VTS_PI8 "\x54"
#define VTS_PUI8 "\x55"
#define VTS_NONE nullptr

#define VT_MFCBYREF 0x40

// Calls the members of one automation object by their identifiers.
//
// The driver holds one reference and releases it with itself, or when another object is attached. A copy
// holds a reference of its own. A call on a driver that holds no object throws COleException with
// CO_E_OBJNOTCONNECTED.
class AFX_CORE_CLASS COleDispatchDriver
{
public:
    COleDispatchDriver() = default;
    // Takes the caller's reference over; with `autoRelease` FALSE the caller keeps it.
    COleDispatchDriver(LPDISPATCH object, BOOL autoRelease = TRUE)
        : m_lpDispatch(object), m_bAutoRelease(autoRelease)
    {
    }
    COleDispatchDriver(const COleDispatchDriver& source);
    ~COleDispatchDriver() { ReleaseDispatch(); }
    const COleDispatchDriver& operator=(const COleDispatchDriver& source);

    LPDISPATCH m_lpDispatch = nullptr;
    BOOL m_bAutoRelease = TRUE;

    operator LPDISPATCH() { return m_lpDispatch; }

    // Makes a new object of the class. FALSE when it cannot be made: `error`, if given, tells why in m_sc.
    BOOL CreateDispatch(REFCLSID classId, COleException* error = nullptr);
    // The same by program identifier ("Excel.Application") or class identifier in braces.
    BOOL CreateDispatch(LPCTSTR programId, COleException* error = nullptr);

    void AttachDispatch(LPDISPATCH object, BOOL autoRelease = TRUE);
    // Gives the reference away: the caller releases it.
    LPDISPATCH DetachDispatch();
    void ReleaseDispatch();

    // Calls member `id` as `flags` (DISPATCH_METHOD...) says with the arguments that the VTS_ bytes of
    // `parameters` describe. The result is converted to `resultType` and stored in `result`: BYTE*, short*,
    // LONG*, float*, double*, CY*, DATE*, CString* (VT_BSTR), LPDISPATCH*, LPUNKNOWN*, SCODE*, BOOL*,
    // VARIANT*; VT_EMPTY: none. An object or VARIANT that comes back is the caller's. When the call throws,
    // *result is as it was.
    void AFX_CDECL InvokeHelper(DISPID id, WORD flags, VARTYPE resultType, void* result,
                                const BYTE* parameters, ...);
    void InvokeHelperV(DISPID id, WORD flags, VARTYPE resultType, void* result, const BYTE* parameters,
                       va_list arguments);

    // Puts a property of a VARTYPE; VT_DISPATCH is put by reference. The value is given as InvokeHelper takes
    // it, a VT_BSTR as an LPCSTR.
    void AFX_CDECL SetProperty(DISPID id, UINT type, ...);
    void GetProperty(DISPID id, VARTYPE type, void* value) const;
};
