// CError: what an object remembers of its last failure.
//
//   CError error;
//   error.SetLastError(3, "%s: line %d is too long", fileName, line);
//   AfxMessageBox(error.GetLastErrorMsg());
//
// The last failure stays until the next one or an assignment; nothing is shown. The header is not called
// Error.h, which file systems that do not know case would take for the C library's.
//
// Errors: CMemoryException when memory runs out; the object is then unchanged.
// Threads: an object belongs to one thread at a time.
#pragma once

#include <afx.h>

class AFX_EXT_CLASS CError
{
public:
    CError(); // code 0 and an empty message
    CError(const CError& source);
    CError& operator=(const CError& source);
    virtual ~CError();

    // Stores the code and the message, written as CString::Format does: placeholders that do not fit the
    // arguments stand in it as they are.
    template <class... Args>
    void SetLastError(int nCode, const char* lpszFormat, Args... args)
    {
        CString message;
        message.Format(lpszFormat, args...);
        Remember(nCode, message);
    }
    int GetLastError();
    CString GetLastErrorMsg();

private:
    void Remember(int code, const CString& message);

    int m_code = 0;
    CString m_message;
};
