// Modules: where resources and run-time classes are looked for, and extension libraries that add theirs.
//
//   static AFX_EXTENSION_MODULE shapes;                        // in a library named shapes
//   if (!AfxInitExtensionModule(shapes, instance)) return FALSE; // at load
//   new CDynLinkLibrary(shapes);                               // its resources and classes are found from
//   now on AfxTermExtensionModule(shapes);                            // at unload
//
// afxdllx.h gives a library its entry, DllMain, on every platform. Threads: any.
#pragma once

#include "afxobj_.h"
#include "afxwin.h"

// What the framework knows of an extension library: a static object of the library, all zero at first.
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized = FALSE;
    HMODULE hModule = nullptr;
    HMODULE hResource = nullptr;
    const void* pModule = nullptr; // the mark of its run-time classes
};

// Notes the library `module` in `state`; a second call changes nothing. Answers TRUE.
// From now on the library's run-time classes are found by name only through a CDynLinkLibrary.
AFX_CORE_API BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module,
                                                const void* mark = &afxThisModule);

// Deletes the library's CDynLinkLibrary objects (with `all` those of every library) and forgets the library.
// Does nothing for a module that was not initialised.
AFX_CORE_API void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = FALSE);

// Stands for a library in the searches for resources and run-time classes, from its construction to its
// destruction. Made with new; AfxTermExtensionModule deletes it.
class AFX_CORE_CLASS CDynLinkLibrary : public CCmdTarget
{
    DECLARE_DYNAMIC(CDynLinkLibrary)
public:
    // `system`: looked into after all others.
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system = FALSE);
    // Resources only.
    CDynLinkLibrary(HINSTANCE module, HINSTANCE resource);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HMODULE m_hResource;   // null: no resources
    const void* m_pModule; // the mark of its run-time classes; null: none
    BOOL m_bSystem;
    CDynLinkLibrary* m_pNextDLL = nullptr; // older
};

// The program's module.
AFX_CORE_API HINSTANCE AFXAPI AfxGetInstanceHandle();

// The module whose resources come first: the program, unless another was set.
AFX_CORE_API HINSTANCE AFXAPI AfxGetResourceHandle();
AFX_CORE_API void AFXAPI AfxSetResourceHandle(HINSTANCE module);

// The module that holds the resource: AfxGetResourceHandle, then the extension libraries, the newest first.
// AfxGetResourceHandle when none does.
AFX_CORE_API HINSTANCE AFXAPI AfxFindResourceHandle(LPCSTR name, LPCSTR type);

// The length of text `id` of the string tables, searched for in the same order and cut to `size` bytes with
// its NUL; 0 when there is none. CString::LoadString does not cut.
AFX_CORE_API int AFXAPI AfxLoadString(UINT id, LPSTR buffer, UINT size = 256);
