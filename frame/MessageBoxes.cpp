// The message boxes of GlobalFunc.h.
#include <GlobalFunc.h>

namespace {

// The caption only chooses between the two: hosts rely on its not being shown.
LPCSTR Title(const char* caption)
{
    return caption ? "" : AfxGetAppName();
}

} // namespace

unsigned int ShowMessageBox(HWND hWnd, const char* lpszCaption, unsigned int nType, const CString& strText)
{
    return static_cast<unsigned int>(::MessageBoxA(hWnd, strText, Title(lpszCaption), nType));
}
