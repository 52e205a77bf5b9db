// An extension library with a run-time class and a text.
#include <afxdllx.h>

namespace {

class CShapeOfLibrary : public CObject
{
    DECLARE_DYNCREATE(CShapeOfLibrary)
};

AFX_EXTENSION_MODULE g_library;

} // namespace

// clang-format off
IMPLEMENT_DYNCREATE(CShapeOfLibrary, CObject)
// clang-format on

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(g_library, instance))
            return FALSE;
        new CDynLinkLibrary(g_library);
    } else if (reason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(g_library);
    }
    return TRUE;
}
