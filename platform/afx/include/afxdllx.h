// The entry of an extension library, for exactly one of its sources.
//
//   #include <afxdllx.h>
//   static AFX_EXTENSION_MODULE shapes;
//   extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
//   {
//       if (reason == DLL_PROCESS_ATTACH) {
//           if (!AfxInitExtensionModule(shapes, instance)) return FALSE;
//           new CDynLinkLibrary(shapes);
//       } else if (reason == DLL_PROCESS_DETACH) {
//           AfxTermExtensionModule(shapes);
//       }
//       return TRUE;
//   }
//
// Errors: a DllMain that answers FALSE at attach fails the load.
// Differs on Linux: attach and detach only; static objects of the library's other sources may not be made
// yet at attach and may be gone at detach; the last parameter is always null.
#pragma once

#include "afxwin.h"

extern "C" AFX_LOCAL_ BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved);

#ifndef _WIN32
#include <zekmodule.h>

static const ZekModuleEntry afxModuleEntry(&DllMain);
#endif
