// What the library sets up when it is loaded, in this order. The compiler runs the initialisers of one source
// from top to bottom, so everything that depends on another's value stands here and nowhere else; the order
// in which sources are linked changes nothing. What they call must not rely on objects of other sources.
#include "Load.h"

#include <LocaleLib.h>
#include <Product.h>

#include <afxwin.h>

#include <float.h>

// 1. Dividing by zero gives an infinity on the thread that loads the library.
static unsigned int g_controlWord = _controlfp(_EM_ZERODIVIDE, _EM_ZERODIVIDE);

unsigned int SavedControlWord()
{
    return g_controlWord;
}

// 2. The languages.
CString CLocaleLib::csLocale = CLocaleLib::GetSystemLocale();
int CLocaleLib::bKorean = CLocaleLib::IsKorean();
int CLocaleLib::bKoreanUILanguage = CLocaleLib::GetUILanguage() == "0412" ? 1 : 0;

// 3. The product.
int CProduct::m_bInit = CProduct::Initialize();

// 4. The entry, which lets the host's searches for resources and run-time classes find this library. The
// header stands here because it runs the entry, on platforms where the system does not.
#include <afxdllx.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    static AFX_EXTENSION_MODULE library;
    if (reason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(library, instance))
            return FALSE;
        new CDynLinkLibrary(library); // deleted by AfxTermExtensionModule
    } else if (reason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(library);
    }
    return TRUE;
}
