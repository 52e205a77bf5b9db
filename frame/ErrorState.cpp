#include <ErrorState.h>

CError::CError() = default;

CError::CError(const CError& source) = default;

CError& CError::operator=(const CError& source) = default;

CError::~CError() = default;

int CError::GetLastError()
{
    return m_code;
}

CString CError::GetLastErrorMsg()
{
    return m_message;
}

void CError::Remember(int code, const CString& message)
{
    m_code = code;
    m_message = message;
}
