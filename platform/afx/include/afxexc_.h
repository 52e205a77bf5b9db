// Exceptions of the framework: thrown and caught by pointer.
//
//   try { file.Open(...); } catch (CFileException* e) { e->ReportError(); e->Delete(); }
//   TRY { ... } CATCH (CFileException, e) { e->ReportError(); } END_CATCH      // deletes by itself
//
// Ownership: who catches an exception without the macros calls Delete().
#pragma once

#include "afxobj_.h"
#include "afxstr_.h"

class AFX_CORE_CLASS CException : public CObject
{
    DECLARE_DYNAMIC(CException)
public:
    CException();                         // on the heap: Delete() destroys it
    explicit CException(BOOL autoDelete); // FALSE: Delete() leaves it alone
    ~CException() override;

    void Delete();

    // Writes the text for the user, cut to `size` bytes with its NUL. FALSE (and an empty text) if there is
    // none.
    virtual BOOL GetErrorMessage(LPSTR text, UINT size, UINT* helpContext = nullptr);

    // Shows the text in a message box; the box's answer.
    virtual int ReportError(UINT style = 0, UINT textWithoutMessage = 0);

private:
    BOOL m_bAutoDelete;
};

// Exceptions whose text is fixed.
class AFX_CORE_CLASS CSimpleException : public CException
{
    DECLARE_DYNAMIC(CSimpleException)
public:
    using CException::CException;
    BOOL GetErrorMessage(LPSTR text, UINT size, UINT* helpContext = nullptr) override;

protected:
    virtual LPCSTR Text() const = 0;
};

class AFX_CORE_CLASS CMemoryException : public CSimpleException
{
    DECLARE_DYNAMIC(CMemoryException)
public:
    using CSimpleException::CSimpleException;

protected:
    LPCSTR Text() const override;
};

class AFX_CORE_CLASS CNotSupportedException : public CSimpleException
{
    DECLARE_DYNAMIC(CNotSupportedException)
public:
    using CSimpleException::CSimpleException;

protected:
    LPCSTR Text() const override;
};

class AFX_CORE_CLASS CInvalidArgException : public CSimpleException
{
    DECLARE_DYNAMIC(CInvalidArgException)
public:
    using CSimpleException::CSimpleException;

protected:
    LPCSTR Text() const override;
};

class AFX_CORE_CLASS CResourceException : public CSimpleException
{
    DECLARE_DYNAMIC(CResourceException)
public:
    using CSimpleException::CSimpleException;

protected:
    LPCSTR Text() const override;
};

class AFX_CORE_CLASS CUserException : public CSimpleException
{
    DECLARE_DYNAMIC(CUserException)
public:
    using CSimpleException::CSimpleException;

protected:
    LPCSTR Text() const override;
};

// The exception object of AfxThrowMemoryException is static, so that throwing it needs no memory.
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowMemoryException();
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowNotSupportedException();
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowInvalidArgException();
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowResourceException();
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowUserException();

// Deletes the exception that a CATCH block caught when the block is left, however it is left, unless
// THROW_LAST passes it on.
class AFX_CORE_CLASS AFX_EXCEPTION_LINK
{
public:
    explicit AFX_EXCEPTION_LINK(CException* exception) : m_exception(exception) {}
    ~AFX_EXCEPTION_LINK();
    AFX_EXCEPTION_LINK(const AFX_EXCEPTION_LINK&) = delete;
    AFX_EXCEPTION_LINK& operator=(const AFX_EXCEPTION_LINK&) = delete;
    void Release() { m_exception = nullptr; }

private:
    CException* m_exception;
};

#define TRY try {
#define AFX_CATCH_(class_name, e)                                                                            \
    }                                                                                                        \
    catch (class_name * e)                                                                                   \
    {                                                                                                        \
        AFX_EXCEPTION_LINK afxExceptionLink_(e);
#define CATCH(class_name, e) AFX_CATCH_(class_name, e)
#define AND_CATCH(class_name, e) AFX_CATCH_(class_name, e)
#define CATCH_ALL(e) AFX_CATCH_(CException, e)
#define AND_CATCH_ALL(e) AFX_CATCH_(CException, e)
#define END_CATCH }
#define END_CATCH_ALL }
#define END_TRY                                                                                              \
    }                                                                                                        \
    catch (CException * e)                                                                                   \
    {                                                                                                        \
        e->Delete();                                                                                         \
    }
#define THROW(e) throw e
#define THROW_LAST() (afxExceptionLink_.Release(), throw)
