#include "OleText.h"

#include <cstdio>
#include <cstring>

IMPLEMENT_DYNAMIC(COleException, CException)
IMPLEMENT_DYNAMIC(COleDispatchException, CException)

namespace {

BOOL CopyMessage(LPTSTR target, UINT size, UINT* helpContext, UINT context, LPCTSTR text)
{
    if (helpContext)
        *helpContext = context;
    if (!target || size == 0)
        return FALSE;
    std::snprintf(target, size, "%s", text);
    return TRUE;
}

// The facility of automation errors that are given as a 16-bit number.
SCODE ScodeFromWord(WORD code)
{
    return MAKE_SCODE(SEVERITY_ERROR, FACILITY_ITF, code + 0x200);
}

SCODE ScodeOf(const COleDispatchException& e)
{
    return e.m_scError != S_OK ? e.m_scError : ScodeFromWord(e.m_wCode);
}

} // namespace

SCODE AFXAPI COleException::Process(const CException* anyException)
{
    if (const auto* ole = dynamic_cast<const COleException*>(anyException))
        return ole->m_sc;
    if (const auto* dispatch = dynamic_cast<const COleDispatchException*>(anyException))
        return ScodeOf(*dispatch);
    return dynamic_cast<const CMemoryException*>(anyException) ? E_OUTOFMEMORY : E_UNEXPECTED;
}

BOOL COleException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext)
{
    char text[512];
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        static_cast<DWORD>(m_sc), 0, text, sizeof text, nullptr);
    if (length == 0)
        std::snprintf(text, sizeof text, "Automation error 0x%08X", static_cast<unsigned>(m_sc));
    else
        text[std::strcspn(text, "\r\n")] = '\0';
    return CopyMessage(error, maxError, helpContext, 0, text);
}

COleDispatchException::COleDispatchException(LPCTSTR description, UINT helpId, WORD code)
    : m_wCode(code), m_strDescription(description), m_dwHelpContext(helpId)
{
}

void AFXAPI COleDispatchException::Process(EXCEPINFO* info, const CException* anyException)
{
    *info = EXCEPINFO{};
    if (const auto* dispatch = dynamic_cast<const COleDispatchException*>(anyException)) {
        info->wCode = dispatch->m_wCode;
        info->scode = dispatch->m_scError;
        info->dwHelpContext = dispatch->m_dwHelpContext;
        info->bstrSource = OleTextFromAnsi(dispatch->m_strSource);
        info->bstrDescription = OleTextFromAnsi(dispatch->m_strDescription);
        info->bstrHelpFile = OleTextFromAnsi(dispatch->m_strHelpFile);
        return;
    }
    char text[512] = "";
    if (anyException)
        const_cast<CException*>(anyException)->GetErrorMessage(text, sizeof text);
    info->scode = COleException::Process(anyException);
    info->bstrDescription = OleTextFromAnsi(text);
}

BOOL COleDispatchException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext)
{
    return CopyMessage(error, maxError, helpContext, m_dwHelpContext, m_strDescription);
}

void AFXAPI AfxThrowOleException(SCODE sc)
{
    auto* e = new COleException;
    e->m_sc = sc;
    throw e;
}

void AFXAPI AfxThrowOleDispatchException(WORD code, LPCTSTR description, UINT helpId)
{
    throw new COleDispatchException(description, helpId, code);
}

void AFXAPI AfxCheckError(SCODE sc)
{
    if (sc == E_OUTOFMEMORY)
        AfxThrowMemoryException();
    if (FAILED(sc))
        AfxThrowOleException(sc);
}
