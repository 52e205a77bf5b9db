#include <afxexc_.h>
#include <afxwin.h>

#include <cstring>
#include <new>

// clang-format off
IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CSimpleException, CException)
IMPLEMENT_DYNAMIC(CMemoryException, CSimpleException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CSimpleException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CSimpleException)
IMPLEMENT_DYNAMIC(CResourceException, CSimpleException)
IMPLEMENT_DYNAMIC(CUserException, CSimpleException)
// clang-format on

CException::CException() : m_bAutoDelete(TRUE)
{
}

CException::CException(BOOL autoDelete) : m_bAutoDelete(autoDelete)
{
}

CException::~CException() = default;

void CException::Delete()
{
    if (m_bAutoDelete)
        delete this;
}

BOOL CException::GetErrorMessage(LPSTR text, UINT size, UINT* helpContext)
{
    if (helpContext)
        *helpContext = 0;
    if (text && size > 0)
        *text = '\0';
    return FALSE;
}

int CException::ReportError(UINT style, UINT)
{
    constexpr UINT kLongest = 512;
    char text[kLongest];
    if (!GetErrorMessage(text, kLongest))
        std::strcpy(text, "An error occurred that has no description.");
    return AfxMessageBox(text, style);
}

BOOL CSimpleException::GetErrorMessage(LPSTR text, UINT size, UINT* helpContext)
{
    CException::GetErrorMessage(text, size, helpContext);
    if (!text || size == 0)
        return FALSE;
    const std::size_t length = strnlen(Text(), size - 1);
    std::memcpy(text, Text(), length);
    text[length] = '\0';
    return TRUE;
}

LPCSTR CMemoryException::Text() const
{
    return "Out of memory.";
}

LPCSTR CNotSupportedException::Text() const
{
    return "An unsupported operation was attempted.";
}

LPCSTR CInvalidArgException::Text() const
{
    return "Encountered an improper argument.";
}

LPCSTR CResourceException::Text() const
{
    return "A required resource was unavailable.";
}

LPCSTR CUserException::Text() const
{
    return "The operation was cancelled.";
}

AFX_EXCEPTION_LINK::~AFX_EXCEPTION_LINK()
{
    if (m_exception)
        m_exception->Delete();
}

void AFXAPI AfxThrowMemoryException()
{
    // Never destroyed: it may be thrown while the process ends.
    alignas(CMemoryException) static char storage[sizeof(CMemoryException)];
    static CMemoryException* const exception = ::new (storage) CMemoryException(FALSE);
    throw exception;
}

void AFXAPI AfxThrowNotSupportedException()
{
    throw new CNotSupportedException;
}

void AFXAPI AfxThrowInvalidArgException()
{
    throw new CInvalidArgException;
}

void AFXAPI AfxThrowResourceException()
{
    throw new CResourceException;
}

void AFXAPI AfxThrowUserException()
{
    throw new CUserException;
}
