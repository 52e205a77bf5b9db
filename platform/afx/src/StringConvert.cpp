// CString's members for other code pages and for automation texts.
#include <afxexc_.h>
#include <afxstr_.h>

#include <oleauto.h>

void CString::AnsiToOem()
{
    LPSTR text = GetBuffer();
    ::CharToOemA(text, text);
}

void CString::OemToAnsi()
{
    LPSTR text = GetBuffer();
    ::OemToCharA(text, text);
}

LPWSTR CString::AllocSysString() const
{
    const int length = GetLength();
    const int units = length > 0 ? ::MultiByteToWideChar(CP_ACP, 0, m_pchData, length, nullptr, 0) : 0;
    BSTR text = ::SysAllocStringLen(nullptr, static_cast<UINT>(units));
    if (!text)
        AfxThrowMemoryException();
    if (units > 0)
        ::MultiByteToWideChar(CP_ACP, 0, m_pchData, length, text, units);
    return text;
}

LPWSTR CString::SetSysString(LPWSTR* text) const
{
    BSTR fresh = AllocSysString();
    ::SysFreeString(*text);
    *text = fresh;
    return fresh;
}
