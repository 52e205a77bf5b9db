// What the library sets up when it is loaded, in this order. The compiler runs the initialisers of one source
// from top to bottom, so everything that depends on another's value stands here and nowhere else; the order
// in which sources are linked changes nothing. What they call must not rely on objects of other sources.
#include "Load.h"

#include <LocaleLib.h>
#include <Product.h>
#include <ProfileMgr.h>
#include <ServiceHeadOffice.h>
#include <SpecialChar.h>

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

// 3. The symbols, in the code page of the language.
CString CSpecialChar::m_csMulSign;
CString CSpecialChar::m_cs2Square;
CString CSpecialChar::m_cs3Square;
CString CSpecialChar::m_cs4Square;
CString CSpecialChar::m_cs6Square;
CString CSpecialChar::m_csAlpha;
CString CSpecialChar::m_csBeta;
CString CSpecialChar::m_csGamma;
CString CSpecialChar::m_csDelta;
CString CSpecialChar::m_csTheta;
CString CSpecialChar::m_csRho;
CString CSpecialChar::m_csSigma;
CString CSpecialChar::m_csPhi;
CString CSpecialChar::m_csTau;
CString CSpecialChar::m_csDegree;
CString CSpecialChar::m_csNu;
CString CSpecialChar::m_csMu;
CString CSpecialChar::m_csLamda;
CString CSpecialChar::m_csGammaC;
CString CSpecialChar::m_csEta;
int CSpecialChar::m_bInit = CSpecialChar::InitSpecialChar();

// 4. The product.
int CProduct::m_bInit = CProduct::Initialize();

// 5. The profiler's table, and what prints it when the library goes: first, while the table is there.
std::atomic<int> CProfileMgr::m_bStopped = 1;
CProfileMgr CProfileMgr::m_shared;
CProfileReporter CProfileReporter::m_default;

// 6. The office of services: it ends before all of the above, and after every object of a host's.
[[maybe_unused]] static const CServiceHeadOffice* const g_headOffice = CServiceHeadOffice::Instance();

// 7. The entry, which lets the host's searches for resources and run-time classes find this library. The
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
