// Message boxes of the application.
#include "ModalOwner.h"

#include <afxwin.h>

namespace {

UINT WithDefaultIcon(UINT style)
{
    constexpr UINT kButtons[] = {MB_OK, MB_OKCANCEL, MB_YESNO, MB_YESNOCANCEL};
    if ((style & MB_ICONMASK) != 0)
        return style;
    for (const UINT buttons : kButtons)
        if ((style & MB_TYPEMASK) == buttons)
            return style | MB_ICONEXCLAMATION;
    return style;
}

int ShowBox(LPCSTR text, LPCSTR caption, UINT style)
{
    const AfxModalOwner owner;
    return ::MessageBoxA(owner.Window(), text, caption, WithDefaultIcon(style));
}

} // namespace

int CWinApp::DoMessageBox(LPCSTR text, UINT style, UINT)
{
    return ShowBox(text, m_pszAppName, style);
}

int AFXAPI AfxMessageBox(LPCSTR text, UINT style, UINT helpId)
{
    CWinApp* app = AfxGetApp();
    return app ? app->DoMessageBox(text, style, helpId) : ShowBox(text, AfxGetAppName(), style);
}

int AFXAPI AfxMessageBox(UINT textId, UINT style, UINT helpId)
{
    CString text;
    text.LoadString(textId);
    return AfxMessageBox(text, style, helpId == static_cast<UINT>(-1) ? textId : helpId);
}
